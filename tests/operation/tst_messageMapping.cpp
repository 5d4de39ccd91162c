// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/messages/DBCMessage.h"

#include "operation/base/DBCError.h"
#include "tests/support/RecordingPresenter.h"

#include <QTest>

using namespace Qt::StringLiterals;

using Code = DBCResultCode;

namespace {

// Returns the arguments as texts, with "|" between them.
QString shown(const DBCMessageArguments& arguments)
{
    QStringList texts;
    for (std::size_t i = 0; i < arguments.size(); ++i)
        texts << DBCLocalizable::fill(u"%1"_s, {arguments[i]});
    return texts.join(u'|');
}

} // namespace

class tst_messageMapping : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { DBCLocalizable::setLanguage(DBCLocalizable::Language::English); }

    void importErrorMessages_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<quint32>("number");
        QTest::addColumn<QString>("arguments");
        const QString none;
        const auto row = [](int code, quint32 number, const QString& arguments) {
            QTest::addRow("%d", code) << code << number << arguments;
        };
        row(-115, 314, none);
        row(-401, 301, none);
        row(-404, 103, none);
        row(-403, 311, u"Backup|\nBackup DB:[/db/a_bak.vmdb]"_s);
        row(-204, 311, u"Backup|\nBackup DB:[/db/a_bak.vmdb]"_s);
        row(-205, 311, u"Restore|\nBackup DB:[/db/a_bak.vmdb]"_s);
        row(-116, 316, none);
        row(-104, 307, u"41"_s);
        row(-103, 307, u"41"_s);
        row(-106, 306, none);
        row(-105, 310, none);
        row(-101, 310, none);
        row(-107, 102, none);
        row(-1, 102, none);
        for (const int other : {2, -50, -108, -109, -111, -112, -113, -114, -201, -202, -203, -206,
                 -208, -209, -210, -211, -212, -301, -303, -402})
            row(other, 313, none);
    }
    void importErrorMessages()
    {
        QFETCH(int, code);
        QFETCH(quint32, number);
        QFETCH(QString, arguments);
        const DBCError error
            = DBCError(static_cast<Code>(code)).withPathName(u"/db/a_bak.vmdb"_s).withLineNo(41);
        const DBCMessage::Mapped mapped = DBCMessage::messageForImportError(error);
        QCOMPARE(mapped.number, number);
        QCOMPARE(shown(mapped.arguments), arguments);
    }

    void exportErrorMessages_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<quint32>("number");
        const auto row
            = [](int code, quint32 number) { QTest::addRow("%d", code) << code << number; };
        row(-404, 103);
        row(-402, 206);
        row(-212, 207);
        row(-211, 207);
        row(-209, 209);
        row(-107, 102);
        row(-1, 102);
        for (const int other :
            {2, -50, -101, -103, -104, -105, -106, -108, -109, -111, -112, -113, -114, -115, -116,
                -201, -202, -203, -204, -205, -206, -208, -210, -301, -303, -401, -403})
            row(other, 208);
    }
    void exportErrorMessages()
    {
        QFETCH(int, code);
        QFETCH(quint32, number);
        const DBCMessage::Mapped mapped = DBCMessage::messageForExportError(
            DBCError(static_cast<Code>(code)).withPathName(u"/x"_s).withLineNo(41));
        QCOMPARE(mapped.number, number);
        QVERIFY(mapped.arguments.empty());
    }

    void mappedArgumentsStandInTheText()
    {
        RecordingPresenter presenter;
        const auto mapped = DBCMessage::messageForImportError(
            DBCError(Code::RestoreFailure).withPathName(u"/db/100%1_bak.vmdb"_s));
        const QString text = DBCMessage::ShowErrorMessage(mapped.number, mapped.arguments);
        QVERIFY2(text.startsWith(u"Restore of the card database failed."_s), qPrintable(text));
        QVERIFY2(text.endsWith(u"\nBackup DB:[/db/100%1_bak.vmdb]"_s), qPrintable(text));
    }

    void failedBackupWithoutPathNamesNone()
    {
        const auto mapped = DBCMessage::messageForImportError(DBCError(Code::BackupFailure));
        QCOMPARE(shown(mapped.arguments), u"Backup|"_s);
    }

    void wrongLineWithoutNumberIsLineZero()
    {
        const auto mapped = DBCMessage::messageForImportError(DBCError(Code::DataLineFormatError));
        QCOMPARE(shown(mapped.arguments), u"0"_s);
    }
};

QTEST_GUILESS_MAIN(tst_messageMapping)
#include "tst_messageMapping.moc"
