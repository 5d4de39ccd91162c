// SPDX-License-Identifier: GPL-3.0-or-later
// Tests what bash, zsh and fish offer when the user presses the tab key after "velmora-convert", in
// both languages.
#include "tests/packaging/ProgramHelp.h"

#include <QFileInfo>
#include <QStandardPaths>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Shell {
    const char* name;
    const char* completion;
    bool hasDescriptions;
};

constexpr Shell shells[] = {
    {"bash", "velmora-convert.bash", false},
    {"zsh", "_velmora-convert", true},
    {"fish", "velmora-convert.fish", true},
};

constexpr const char* languages[] = {"en", "ja"};

} // namespace

Q_DECLARE_METATYPE(Shell)

class tst_completions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        _home = std::make_unique<TestHome>();
        for (const char* folder : {"here/a folder", "here/another", "here/cards.vmdb"})
            _home->makeFolder(QString::fromLatin1(folder));
        _home->writeFile(u"here/plain file"_s, "");
    }

    void commandsAreOffered_data() { shellsAndLanguages(); }
    void commandsAreOffered()
    {
        QFETCH(Shell, shell);
        QFETCH(QString, language);
        if (!isInstalled(shell))
            QSKIP("the shell is not installed");

        const ProgramHelp help = this->help(language);
        const QString offer = offered(shell, QString(), language);

        for (qsizetype i = 0; i < help.commands.size(); ++i) {
            QVERIFY2(offer.contains(help.commands[i]), qPrintable(help.commands[i]));
            QCOMPARE(offer.contains(help.descriptions[i]), shell.hasDescriptions);
        }
        QVERIFY(!offer.contains(u"cards.vmdb"_s));
    }

    void optionsAreOffered_data() { shellsAndLanguages(); }
    void optionsAreOffered()
    {
        QFETCH(Shell, shell);
        QFETCH(QString, language);
        if (!isInstalled(shell))
            QSKIP("the shell is not installed");

        const ProgramHelp help = this->help(language);
        const QString offer = offered(shell, u"import --"_s, language);

        for (qsizetype i = 0; i < help.options.size(); ++i) {
            const QString option = help.options[i].section(u' ', 0, 0);
            QVERIFY2(offer.contains(option), qPrintable(option));
            QCOMPARE(
                offer.contains(help.descriptions[help.commands.size() + i]), shell.hasDescriptions);
        }
    }

    void foldersAreOfferedForEveryPath_data() { everyShell(); }
    void foldersAreOfferedForEveryPath()
    {
        QFETCH(Shell, shell);
        if (!isInstalled(shell))
            QSKIP("the shell is not installed");

        const ProgramHelp help = this->help(u"en"_s);
        for (qsizetype i = 0; i < help.commands.size(); ++i) {
            QString line = u"--yes "_s + help.commands[i] + u' ';
            for (qsizetype path = help.operands[i].count(u' '); path >= 0; --path) {
                const QString offer = offered(shell, line);
                QVERIFY2(offer.contains(u"another/"_s), qPrintable(line + offer));
                QVERIFY2(offer.contains(u"cards.vmdb/"_s), qPrintable(line + offer));
                QVERIFY2(!offer.contains(u"plain"_s), qPrintable(line + offer));
                line += u"a\\ folder "_s;
            }
        }
    }

    void nothingIsOfferedBehindTheLastPath_data() { everyShell(); }
    void nothingIsOfferedBehindTheLastPath()
    {
        QFETCH(Shell, shell);
        if (!isInstalled(shell))
            QSKIP("the shell is not installed");

        for (const char* line : {"import a b ", "check a ", "nonsense ", "backups a --restore ",
                 "backups a --delete "}) {
            const QString offer = offered(shell, QString::fromLatin1(line));
            QVERIFY2(!offer.contains(u"cards"_s), qPrintable(offer));
            QVERIFY2(!offer.contains(u"verify"_s), qPrintable(offer));
        }
    }

private:
    static void shellsAndLanguages()
    {
        QTest::addColumn<Shell>("shell");
        QTest::addColumn<QString>("language");
        for (const Shell& shell : shells) {
            for (const char* language : languages)
                QTest::addRow("%s, %s", shell.name, language)
                    << shell << QString::fromLatin1(language);
        }
    }
    static void everyShell()
    {
        QTest::addColumn<Shell>("shell");
        for (const Shell& shell : shells)
            QTest::newRow(shell.name) << shell;
    }
    QProcessEnvironment environment(const QString& language) const
    {
        const QString path = u"PATH"_s;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(
            path, QFileInfo(ConvertProgram::path()).path() + u':' + environment.value(path));
        environment.insert(u"HOME"_s, _home->path(u"home"_s));
        // Every system has this locale, and it can print the texts in both languages.
        environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
        environment.insert(u"LANGUAGE"_s, language);
        return environment;
    }

    // Returns what the shell prints when the user presses the tab key after the program's name and
    // these operands.
    QString offered(
        const Shell& shell, const QString& operands, const QString& language = u"en"_s) const
    {
        const QString completion = u"" VELMORA_SOURCE_DIR "/packaging/completions/%1"_s.arg(
            QLatin1String(shell.completion));
        const QString name = QString::fromLatin1(shell.name);
        const QString line = u"velmora-convert "_s + operands;
        QProcess process;
        process.setProcessEnvironment(environment(language));
        process.setWorkingDirectory(_home->path(u"here"_s));
        // fish has a command that prints the completions, so it needs no terminal.
        if (name == u"fish"_s)
            process.start(name,
                {u"--no-config"_s, u"--command"_s,
                    u"source $argv[1]; complete --do-complete $argv[2]"_s, completion, line});
        else
            process.start(
                u"" VELMORA_SOURCE_DIR "/tests/packaging/press_tab.py"_s, {name, completion, line});
        constexpr int patienceMs = 120'000;
        if (!process.waitForFinished(patienceMs) || process.exitCode() != 0)
            qFatal("%s: %s", shell.name, process.readAllStandardError().constData());
        return QString::fromUtf8(process.readAllStandardOutput());
    }

    static bool isInstalled(const Shell& shell)
    {
        return !QStandardPaths::findExecutable(QString::fromLatin1(shell.name)).isEmpty();
    }
    static ProgramHelp help(const QString& language)
    {
        return ProgramHelp::in(language == u"ja"_s ? u"ja_JP.UTF-8"_s : u"C"_s);
    }

    std::unique_ptr<TestHome> _home;
};

QTEST_GUILESS_MAIN(tst_completions)
#include "tst_completions.moc"
