// SPDX-License-Identifier: GPL-3.0-or-later
// Tests that the manual pages in both languages agree with the programs.
#include "operation/log/DBCSettings.h"
#include "tests/packaging/ProgramHelp.h"

#include <QStandardPaths>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr const char* folders[] = {"man1", "ja/man1"};

QString pagePath(const QString& folder, const QString& program)
{
    return u"" VELMORA_MANUAL "/%1/%2.1"_s.arg(folder, program);
}

// Returns the source of a manual page without escapes and changes of the font.
QString page(const QString& folder, const QString& program)
{
    QFile file(pagePath(folder, program));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    static const QRegularExpression escapes(u"\\\\f[BIR]|\\\\(?=-)"_s);
    return QString::fromUtf8(file.readAll()).remove(escapes);
}

// Returns the items of lists. An item is the line after ".TP", without its macro and quotes.
QStringList items(const QString& page)
{
    static const QRegularExpression item(
        u"^\\.TP\\n\\.[BIR]+ (.+)$"_s, QRegularExpression::MultilineOption);
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
    void pageOfTheCommandLineAgreesWithItsHelp()
    {
        QFETCH(QString, folder);
        const ProgramHelp help = ProgramHelp::in(u"C"_s);
        const QString text = page(folder, u"velmora-convert"_s);
        QVERIFY(help.commands.size() >= 5 && help.options.size() >= 5);

        QStringList expected;
        for (qsizetype i = 0; i < help.commands.size(); ++i) {
            expected << help.commands[i] + u' ' + help.operands[i];
            const QString synopsis = u".SY velmora-convert\n.B "_s + help.commands[i];
            QVERIFY2(text.contains(synopsis), qPrintable(help.commands[i]));
        }
        expected << help.options << help.exitStatuses;
        const QStringList items = ::items(text).mid(0, expected.size());
        QCOMPARE(items, expected);
    }

    void pagesNameTheVersion_data() { pages(); }
    void pagesNameTheVersion()
    {
        QFETCH(QString, folder);
        QFETCH(QString, program);
        const QString heading = u".TH %1 1 "_s.arg(program.toUpper());
        const QString text = page(folder, program);
        QVERIFY(text.contains(heading));
        const QString line = text.mid(text.indexOf(heading)).section(u'\n', 0, 0);
        QVERIFY2(line.contains(u"\"VelmoraConverter " VELMORA_VERSION "\""_s), qPrintable(line));
    }

    void pagesNameLogAndPreferences_data() { pages(); }
    void pagesNameLogAndPreferences()
    {
        QFETCH(QString, folder);
        QFETCH(QString, program);
        const TestHome home;
        const QString text = page(folder, program);
        const QString preferences = DBCSettings::preferencesFile(DBCSettings::bundleIdentifier);
        QVERIFY(text.contains(u"\n.I ~/Library/Logs/VelmoraConverter.log\n"_s));
        QVERIFY(text.contains(u"\n.I ~"_s + preferences.mid(QDir::homePath().size()) + u'\n'));
        QVERIFY(text.contains(QString::fromLatin1(DBCSettings::logLevelKey)));
    }

    void pagesAreFormattedWithoutWarnings_data() { pages(); }
    void pagesAreFormattedWithoutWarnings()
    {
        QFETCH(QString, folder);
        QFETCH(QString, program);
        if (QStandardPaths::findExecutable(u"man"_s).isEmpty())
            QSKIP("man is not installed");
        QProcess check;
        // A shell would print a warning if the locale of the environment did not exist.
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
        check.setProcessEnvironment(environment);
        check.start(u"" VELMORA_SOURCE_DIR "/tools/check-man-pages"_s, {pagePath(folder, program)});
        QVERIFY(check.waitForFinished());
        QCOMPARE(QString::fromUtf8(check.readAllStandardError()), QString());
        QCOMPARE(check.exitCode(), 0);
    }

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

QTEST_GUILESS_MAIN(tst_manualPages)
#include "tst_manualPages.moc"
