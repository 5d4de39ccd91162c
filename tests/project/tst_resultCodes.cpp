// SPDX-License-Identifier: GPL-3.0-or-later
// Every result code is what some test expects of the real program. Told from the tests' texts: that
// a test runs, and gets there by the way that its name says, is for its reader and for
// tools/coverage to see.

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString textOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return QString::fromUtf8(file.readAll());
}

QString inSources(const char* path)
{
    return QStringLiteral(VELMORA_SOURCE_DIR) + u'/' + QString::fromLatin1(path);
}

QStringList resultCodes()
{
    static const QRegularExpression value(
        u"^    ([A-Z]\\w+) = -?\\w+,"_s, QRegularExpression::MultilineOption);
    const QString table = textOf(inSources("operation/base/DBCResultCode.h"));
    QStringList codes;
    for (auto match = value.globalMatch(table); match.hasNext();)
        codes << match.next().captured(1);
    return codes;
}

// In these a code is made by the test itself.
bool makesCodesUp(const QString& fileName, const QString& text)
{
    return fileName == u"tst_error.cpp" || fileName == u"tst_messageMapping.cpp"
        || text.contains(QRegularExpression(u"#include \"tests/\\w+/Scripted\\w+\\.h\""_s));
}

// The codes that stand where a test expects them: compared with, or in a row of its data. One that
// is assigned, returned or made an error of is what the test hands in.
void addExpectedCodes(const QString& text, QSet<QString>* codes)
{
    static const QRegularExpression mention(
        u"(DBCError\\(|return |[^=!]= )?(?:Code::|<< )(\\w+)"_s);
    for (auto matches = mention.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        if (match.capturedView(1).isEmpty())
            codes->insert(match.captured(2));
    }
}

QSet<QString> expectedCodes()
{
    QSet<QString> codes;
    QDirIterator files(
        inSources("tests"), {u"tst_*.cpp"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        const QString text = textOf(path);
        if (!makesCodesUp(QFileInfo(path).fileName(), text))
            addExpectedCodes(text, &codes);
    }
    return codes;
}

} // namespace

class TestResultCodes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyResultCodeIsExpectedBySomeTest()
    {
        const QStringList codes = resultCodes();
        QVERIFY(codes.size() > 40);
        const QSet<QString> expected = expectedCodes();
        QStringList missing;
        for (const QString& code : codes) {
            if (!expected.contains(code))
                missing << code;
        }
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join(u' ')));
    }
};

QTEST_APPLESS_MAIN(TestResultCodes)
#include "tst_resultCodes.moc"
