// SPDX-License-Identifier: GPL-3.0-or-later
// The manual pages say what the programs do, in both languages.
#include "operation/log/DBCSettings.h"
#include "tests/packaging/ProgramHelp.h"

#include <QStandardPaths>
#include <QTest>

namespace {

constexpr const char* folders[] = {"man1", "ja/man1"};

QString pagePath(const QString& folder, const QString& program)
{
    return QStringLiteral(VELMORA_MANUAL "/%1/%2.1").arg(folder, program);
}

// As the formatter reads it, without escapes and changes of the font.
QString page(const QString& folder, const QString& program)
{
    QFile file(pagePath(folder, program));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    static const QRegularExpression escapes(QStringLiteral("\\\\f[BIR]|\\\\(?=-)"));
    return QString::fromUtf8(file.readAll()).remove(escapes);
}

// The items of lists: ".TP" and the line behind it, without the macro and its quotes.
QStringList items(const QString& page)
{
    static const QRegularExpression item(
        QStringLiteral("^\\.TP\\n\\.[BIR]+ (.+)$"), QRegularExpression::MultilineOption);
    QStringList all;
    for (const QRegularExpressionMatch& match : item.globalMatch(page))
        all << match.captured(1).remove(u'"').simplified();
    return all;
}

} // namespace

class tst_manualPages : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void pageOfTheCommandLineAgreesWithItsHelp_data() { languages(); }
    void pageOfTheCommandLineAgreesWithItsHelp();
    void pagesNameTheVersion_data() { pages(); }
    void pagesNameTheVersion();
    void pagesNameLogAndPreferences_data() { pages(); }
    void pagesNameLogAndPreferences();
    void pagesAreFormattedWithoutWarnings_data() { pages(); }
    void pagesAreFormattedWithoutWarnings();

private:
    static void languages()
    {
        QTest::addColumn<QString>("folder");
        for (const char* folder : folders)
            QTest::newRow(folder) << QString::fromLatin1(folder);
    }
    static void pages()
    {
        QTest::addColumn<QString>("folder");
        QTest::addColumn<QString>("program");
        for (const char* folder : folders) {
            for (const char* program : {"VelmoraConverter", "velmora-convert"})
                QTest::addRow("%s/%s", folder, program)
                    << QString::fromLatin1(folder) << QString::fromLatin1(program);
        }
    }
};

void tst_manualPages::pageOfTheCommandLineAgreesWithItsHelp()
{
    QFETCH(QString, folder);
    const ProgramHelp help = ProgramHelp::in(QStringLiteral("C"));
    const QString text = page(folder, QStringLiteral("velmora-convert"));
    QVERIFY(help.commands.size() >= 5 && help.options.size() >= 5);

    QStringList expected;
    for (qsizetype i = 0; i < help.commands.size(); ++i) {
        expected << help.commands[i] + u' ' + help.operands[i];
        const QString synopsis = QStringLiteral(".SY velmora-convert\n.B ") + help.commands[i];
        QVERIFY2(text.contains(synopsis), qPrintable(help.commands[i]));
    }
    expected << help.options << help.exitStatuses;
    const QStringList items = ::items(text).mid(0, expected.size());
    QCOMPARE(items, expected);
}

void tst_manualPages::pagesNameTheVersion()
{
    QFETCH(QString, folder);
    QFETCH(QString, program);
    const QString heading = QStringLiteral(".TH %1 1 ").arg(program.toUpper());
    const QString text = page(folder, program);
    QVERIFY(text.contains(heading));
    const QString line = text.mid(text.indexOf(heading)).section(u'\n', 0, 0);
    QVERIFY2(line.contains(QStringLiteral("\"VelmoraConverter " VELMORA_VERSION "\"")),
        qPrintable(line));
}

void tst_manualPages::pagesNameLogAndPreferences()
{
    QFETCH(QString, folder);
    QFETCH(QString, program);
    const TestHome home;
    const QString text = page(folder, program);
    const QString preferences = DBCSettings::preferencesFile(DBCSettings::bundleIdentifier);
    QVERIFY(text.contains(QStringLiteral("\n.I ~/Library/Logs/VelmoraConverter.log\n")));
    QVERIFY(
        text.contains(QStringLiteral("\n.I ~") + preferences.mid(QDir::homePath().size()) + u'\n'));
    QVERIFY(text.contains(QString::fromLatin1(DBCSettings::logLevelKey)));
}

void tst_manualPages::pagesAreFormattedWithoutWarnings()
{
    QFETCH(QString, folder);
    QFETCH(QString, program);
    if (QStandardPaths::findExecutable(QStringLiteral("man")).isEmpty())
        QSKIP("man is not installed");
    QProcess check;
    // A shell complains about a locale that is not there.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    check.setProcessEnvironment(environment);
    check.start(
        QStringLiteral(VELMORA_SOURCE_DIR "/tools/check-man-pages"), {pagePath(folder, program)});
    QVERIFY(check.waitForFinished());
    QCOMPARE(QString::fromUtf8(check.readAllStandardError()), QString());
    QCOMPARE(check.exitCode(), 0);
}

QTEST_GUILESS_MAIN(tst_manualPages)
#include "tst_manualPages.moc"
