// SPDX-License-Identifier: GPL-3.0-or-later
// docs/messages.md against the strings table and the mapping of codes to messages: whoever looks a
// message up finds it, in the words that were shown.
#include "datafile/DBCLocalizable.h"
#include "operation/DBCError.h"
#include "operation/DBCMessage.h"

#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

#include <algorithm>

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

// By number, each up to the next heading.
QMap<quint32, Section> sections()
{
    static const QRegularExpression section(
        QStringLiteral("^### (\\d+)\\n\\n> (.*)\\n\\n((?:(?!#).*\\n)*)"),
        QRegularExpression::MultilineOption);
    QMap<quint32, Section> found;
    const QString text = reference();
    for (auto match = section.globalMatch(text); match.hasNext();) {
        const QRegularExpressionMatch one = match.next();
        found.insert(one.captured(1).toUInt(), {one.captured(2), one.captured(3).trimmed()});
    }
    return found;
}

QSet<quint32> messageNumbers()
{
    static const QRegularExpression key(QStringLiteral("<message id=\"IDS_MSG_ERR_(\\d{4})\">"));
    QSet<quint32> numbers;
    const QString catalogue = textOf("resources/i18n/Localizable_en.ts");
    for (auto match = key.globalMatch(catalogue); match.hasNext();)
        numbers.insert(match.next().captured(1).toUInt());
    return numbers;
}

QList<CodeRow> codeRows()
{
    static const QRegularExpression row(
        QStringLiteral("^\\| (-\\d+) \\| .+ \\| (.+) \\| (.+) \\|$"),
        QRegularExpression::MultilineOption);
    QList<CodeRow> rows;
    const QString text = reference();
    for (auto match = row.globalMatch(text); match.hasNext();) {
        const QRegularExpressionMatch one = match.next();
        rows.append({one.captured(1).toInt(), one.captured(2), one.captured(3)});
    }
    return rows;
}

// The failures of the one table of codes.
QList<qint32> failureCodes()
{
    static const QRegularExpression value(
        QStringLiteral("^    \\w+ = (-\\d+),"), QRegularExpression::MultilineOption);
    QList<qint32> codes;
    const QString table = textOf("operation/DBCResultCode.h");
    for (auto match = value.globalMatch(table); match.hasNext();)
        codes << match.next().captured(1).toInt();
    return codes;
}

// True as well where the cell names no message.
bool namesMessage(const QString& cell, quint32 number)
{
    static const QRegularExpression named(QStringLiteral("\\d+"));
    const QRegularExpressionMatch match = named.match(cell);
    return !match.hasMatch() || match.captured().toUInt() == number;
}

} // namespace

class tst_messageReference : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { DBCLocalizable::setLanguage(DBCLocalizable::Language::English); }

    void everyMessageHasASection();
    void sectionsQuoteWhatIsShown();
    void sectionsExplain();
    void everyFailureHasARow();
    void rowsNameTheMessageThatIsShown();
};

void tst_messageReference::everyMessageHasASection()
{
    const QSet<quint32> numbers = messageNumbers();
    QVERIFY(numbers.size() > 30);
    const QList<quint32> described = sections().keys();
    QList<quint32> expected(numbers.cbegin(), numbers.cend());
    std::sort(expected.begin(), expected.end());
    QCOMPARE(described, expected);
}

void tst_messageReference::sectionsQuoteWhatIsShown()
{
    for (const auto& [number, section] : sections().asKeyValueRange())
        QCOMPARE(section.quotation, getLocalString(DBCMessage::keyOf(number)));
}

void tst_messageReference::sectionsExplain()
{
    for (const auto& [number, section] : sections().asKeyValueRange())
        QVERIFY2(!section.explanation.isEmpty(), qPrintable(QString::number(number)));
}

void tst_messageReference::everyFailureHasARow()
{
    const QList<qint32> codes = failureCodes();
    QVERIFY(codes.size() > 30);
    QList<qint32> described;
    for (const CodeRow& row : codeRows())
        described << row.code;
    QCOMPARE(described, codes);
}

void tst_messageReference::rowsNameTheMessageThatIsShown()
{
    for (const CodeRow& row : codeRows()) {
        const DBCError error(static_cast<DBCResultCode>(row.code));
        QVERIFY2(namesMessage(row.import, DBCMessage::messageForImportError(error).number),
            qPrintable(QString::number(row.code)));
        QVERIFY2(namesMessage(row.exported, DBCMessage::messageForExportError(error).number),
            qPrintable(QString::number(row.code)));
    }
}

QTEST_GUILESS_MAIN(tst_messageReference)
#include "tst_messageReference.moc"
