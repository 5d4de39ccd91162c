// SPDX-License-Identifier: GPL-3.0-or-later
// What bash, zsh and fish offer behind velmora-convert, in both languages.
#include "tests/packaging/ProgramHelp.h"

#include <QFileInfo>
#include <QStandardPaths>
#include <QTest>

#include <algorithm>

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

class tst_completions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        _home = std::make_unique<TestHome>();
        for (const char* folder : {"here/a folder", "here/another", "here/cards.vmdb"})
            _home->makeFolder(QString::fromLatin1(folder));
        _home->writeFile(QStringLiteral("here/plain file"), "");
    }

    void commandsAreOffered_data() { shellsAndLanguages(); }
    void commandsAreOffered();
    void optionsAreOffered_data() { shellsAndLanguages(); }
    void optionsAreOffered();
    void foldersAreOfferedForEveryPath_data() { everyShell(); }
    void foldersAreOfferedForEveryPath();
    void nothingIsOfferedBehindTheLastPath_data() { everyShell(); }
    void nothingIsOfferedBehindTheLastPath();

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
    QProcessEnvironment environment(const QString& language) const;
    // What comes onto the terminal when the tabulator is pressed behind the program's name and
    // operands.
    QString offered(const Shell& shell, const QString& operands,
        const QString& language = QStringLiteral("en")) const;
    static bool isInstalled(const Shell& shell)
    {
        return !QStandardPaths::findExecutable(QString::fromLatin1(shell.name)).isEmpty();
    }
    static ProgramHelp help(const QString& language)
    {
        return ProgramHelp::in(
            language == QStringLiteral("ja") ? QStringLiteral("ja_JP.UTF-8") : QStringLiteral("C"));
    }

    std::unique_ptr<TestHome> _home;
};

Q_DECLARE_METATYPE(Shell)

QProcessEnvironment tst_completions::environment(const QString& language) const
{
    const QString path = QStringLiteral("PATH");
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(
        path, QFileInfo(ConvertProgram::path()).path() + u':' + environment.value(path));
    environment.insert(QStringLiteral("HOME"), _home->path(QStringLiteral("home")));
    // Is there everywhere, and spells what LANGUAGE asks for.
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    environment.insert(QStringLiteral("LANGUAGE"), language);
    return environment;
}

QString tst_completions::offered(
    const Shell& shell, const QString& operands, const QString& language) const
{
    const QString completion = QStringLiteral(VELMORA_SOURCE_DIR "/packaging/completions/%1")
                                   .arg(QLatin1String(shell.completion));
    const QString name = QString::fromLatin1(shell.name);
    const QString line = QStringLiteral("velmora-convert ") + operands;
    QProcess process;
    process.setProcessEnvironment(environment(language));
    process.setWorkingDirectory(_home->path(QStringLiteral("here")));
    // fish tells without a terminal.
    if (name == QStringLiteral("fish"))
        process.start(name,
            {QStringLiteral("--no-config"), QStringLiteral("--command"),
                QStringLiteral("source $argv[1]; complete --do-complete $argv[2]"), completion,
                line});
    else
        process.start(QStringLiteral(VELMORA_SOURCE_DIR "/tests/packaging/press_tab.py"),
            {name, completion, line});
    constexpr int patienceMs = 120'000;
    if (!process.waitForFinished(patienceMs) || process.exitCode() != 0)
        qFatal("%s: %s", shell.name, process.readAllStandardError().constData());
    return QString::fromUtf8(process.readAllStandardOutput());
}

void tst_completions::commandsAreOffered()
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
    QVERIFY(!offer.contains(QStringLiteral("cards.vmdb")));
}

void tst_completions::optionsAreOffered()
{
    QFETCH(Shell, shell);
    QFETCH(QString, language);
    if (!isInstalled(shell))
        QSKIP("the shell is not installed");

    const ProgramHelp help = this->help(language);
    const QString offer = offered(shell, QStringLiteral("import --"), language);

    for (qsizetype i = 0; i < help.options.size(); ++i) {
        const QString option = help.options[i].section(u' ', 0, 0);
        QVERIFY2(offer.contains(option), qPrintable(option));
        QCOMPARE(
            offer.contains(help.descriptions[help.commands.size() + i]), shell.hasDescriptions);
    }
}

void tst_completions::foldersAreOfferedForEveryPath()
{
    QFETCH(Shell, shell);
    if (!isInstalled(shell))
        QSKIP("the shell is not installed");

    const ProgramHelp help = this->help(QStringLiteral("en"));
    for (qsizetype i = 0; i < help.commands.size(); ++i) {
        QString line = QStringLiteral("--yes ") + help.commands[i] + u' ';
        for (qsizetype path = help.operands[i].count(u' '); path >= 0; --path) {
            const QString offer = offered(shell, line);
            QVERIFY2(offer.contains(QStringLiteral("another/")), qPrintable(line + offer));
            QVERIFY2(offer.contains(QStringLiteral("cards.vmdb/")), qPrintable(line + offer));
            QVERIFY2(!offer.contains(QStringLiteral("plain")), qPrintable(line + offer));
            line += QStringLiteral("a\\ folder ");
        }
    }
}

void tst_completions::nothingIsOfferedBehindTheLastPath()
{
    QFETCH(Shell, shell);
    if (!isInstalled(shell))
        QSKIP("the shell is not installed");

    for (const char* line :
        {"import a b ", "check a ", "nonsense ", "backups a --restore ", "backups a --delete "}) {
        const QString offer = offered(shell, QString::fromLatin1(line));
        QVERIFY2(!offer.contains(QStringLiteral("cards")), qPrintable(offer));
        QVERIFY2(!offer.contains(QStringLiteral("verify")), qPrintable(offer));
    }
}

QTEST_GUILESS_MAIN(tst_completions)
#include "tst_completions.moc"
