// SPDX-License-Identifier: GPL-3.0-or-later
// Compares docs/messages.md with the strings table and with the mapping of codes to messages, so
// that a user finds every message there in the words that the program shows.
#include "datafile/helpers/DBCLocalizable.h"
#include "operation/base/DBCError.h"
#include "operation/messages/DBCMessage.h"

#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

struct Section {
    QString quotation;
    QString explanation;
};

// One row of the table of codes.
struct CodeRow {
    qint32 code;
    QString import;
    QString exported;
};

QString textOf(const char* path)
{
    QFile file(QStringLiteral(VELMORA_SOURCE_DIR) + u'/' + QString::fromLatin1(path));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", path);
    return QString::fromUtf8(file.readAll());
}

QString reference()
{
    return textOf("docs/messages.md");
}

// Returns the sections of the document by their message key. The heading of a section is the number
// of its message, or the key if the message has no number.
QMap<QString, Section> sections()
{
    static const QRegularExpression section(
        u"^### (\\w+)\\n\\n> (.*)\\n\\n((?:(?!#).*\\n)*)"_s, QRegularExpression::MultilineOption);
    QMap<QString, Section> found;
    const QString text = reference();
    for (auto match = section.globalMatch(text); match.hasNext();) {
        const QRegularExpressionMatch one = match.next();
        bool isNumber = false;
        const quint32 number = one.captured(1).toUInt(&isNumber);
        found.insert(isNumber ? DBCMessage::keyOf(number) : one.captured(1),
            {one.captured(2), one.captured(3).trimmed()});
    }
    return found;
}

// Returns the keys of the messages that have a number, and of the questions, which have none.
QStringList messageKeys()
{
    static const QRegularExpression message(u"<message id=\"(IDS_MSG_\\w+)\">(.*?)</message>"_s,
        QRegularExpression::DotMatchesEverythingOption);
    QStringList keys;
    const QString catalogue = textOf("resources/i18n/Localizable_en.ts");
    for (auto match = message.globalMatch(catalogue); match.hasNext();) {
        const QRegularExpressionMatch one = match.next();
        if (one.captured(1).startsWith(u"IDS_MSG_ERR_"_s)
            || one.captured(2).contains(u"Answered with Yes or No."_s))
            keys << one.captured(1);
    }
    return keys;
}

QList<CodeRow> codeRows()
{
    static const QRegularExpression row(
        u"^\\| (-\\d+) \\| .+ \\| (.+) \\| (.+) \\|$"_s, QRegularExpression::MultilineOption);
    QList<CodeRow> rows;
    const QString text = reference();
    for (auto match = row.globalMatch(text); match.hasNext();) {
        const QRegularExpressionMatch one = match.next();
        rows.append({one.captured(1).toInt(), one.captured(2), one.captured(3)});
    }
    return rows;
}

// Returns the codes of all failures that DBCResultCode.h defines.
QList<qint32> failureCodes()
{
    static const QRegularExpression value(
        u"^    \\w+ = (-\\d+),"_s, QRegularExpression::MultilineOption);
    QList<qint32> codes;
    const QString table = textOf("operation/base/DBCResultCode.h");
    for (auto match = value.globalMatch(table); match.hasNext();)
        codes << match.next().captured(1).toInt();
    return codes;
}

// Returns true if the cell of the table names the message with that number, or no message at all.
bool namesMessage(const QString& cell, quint32 number)
{
    static const QRegularExpression named(u"\\d+"_s);
    const QRegularExpressionMatch match = named.match(cell);
    return !match.hasMatch() || match.captured().toUInt() == number;
}

} // namespace

class tst_messageReference : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { DBCLocalizable::setLanguage(DBCLocalizable::Language::English); }

    void everyMessageHasASection()
    {
        QStringList keys = messageKeys();
        QVERIFY(keys.size() > 30);
        keys.sort();
        QCOMPARE(QStringList(sections().keys()), keys);
    }

    void sectionsQuoteWhatIsShown()
    {
        for (const auto& [key, section] : sections().asKeyValueRange())
            QCOMPARE(section.quotation, getLocalString(key).section(u'\n', 0, 0));
    }

    void sectionsExplain()
    {
        for (const auto& [key, section] : sections().asKeyValueRange())
            QVERIFY2(!section.explanation.isEmpty(), qPrintable(key));
    }

    void everyFailureHasARow()
    {
        const QList<qint32> codes = failureCodes();
        QVERIFY(codes.size() > 30);
        QList<qint32> described;
        for (const CodeRow& row : codeRows())
            described << row.code;
        QCOMPARE(described, codes);
    }

    void rowsNameTheMessageThatIsShown()
    {
        for (const CodeRow& row : codeRows()) {
            const DBCError error(static_cast<DBCResultCode>(row.code));
            QVERIFY2(namesMessage(row.import, DBCMessage::messageForImportError(error).number),
                qPrintable(QString::number(row.code)));
            QVERIFY2(namesMessage(row.exported, DBCMessage::messageForExportError(error).number),
                qPrintable(QString::number(row.code)));
        }
    }
};

QTEST_GUILESS_MAIN(tst_messageReference)
#include "tst_messageReference.moc"
