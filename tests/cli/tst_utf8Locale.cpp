// SPDX-License-Identifier: GPL-3.0-or-later
// Tests that the application object gets a UTF-8 locale for every locale of the user, while the
// language of the texts and the environment of other programs stay the user's.
#include "datafile/helpers/DBCLocalizable.h"
#include "system/DBCUtf8Locale.h"

#include <QCoreApplication>
#include <QProcess>
#include <QtTest>

#include <cstdio>
#include <langinfo.h>

using namespace Qt::StringLiterals;

namespace {

constexpr const char* reportOption = "--report";

// Called in a separate process. Prints the encoding that the application object has set up, the
// word for Yes in the language of the texts, and LC_ALL as a program started from here gets it.
int report(int argc, char** argv)
{
    const auto application = applicationInUtf8<QCoreApplication>(argc, argv);
    QProcess shell;
    shell.start(u"/bin/sh"_s, {u"-c"_s, u"printf %s \"${LC_ALL-unset}\""_s});
    shell.waitForFinished();
    std::printf("%s %s %s", nl_langinfo(CODESET), qPrintable(getLocalString("IDS_BUTTON_MSG_YES")),
        shell.readAllStandardOutput().constData());
    return 0;
}

} // namespace

class tst_utf8Locale : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void applicationFindsUtf8_data()
    {
        QTest::addColumn<QStringList>("environment");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char* settings, const QString& expected) {
            QTest::newRow(settings)
                << QString::fromLatin1(settings).split(u' ', Qt::SkipEmptyParts) << expected;
        };
        row("", u"UTF-8 Yes unset"_s);
        row("LC_ALL=C", u"UTF-8 Yes C"_s);
        row("LC_ALL=C.UTF-8", u"UTF-8 Yes C.UTF-8"_s);
        row("LC_ALL=POSIX LANG=ja_JP.UTF-8", u"UTF-8 Yes POSIX"_s);
        row("LC_CTYPE=C LANG=C.UTF-8", u"UTF-8 Yes unset"_s);
        row("LC_CTYPE=C LANG=ja_JP.UTF-8", u"UTF-8 はい unset"_s);
        // These rows use a locale that is not installed on any machine.
        row("LC_ALL=ja_JP.NONE", u"UTF-8 はい ja_JP.NONE"_s);
        row("LANG=ja_JP.NONE", u"UTF-8 はい unset"_s);
    }
    void applicationFindsUtf8()
    {
        QFETCH(QStringList, environment);
        QFETCH(QString, expected);
        QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
        for (const char* name : {"LC_ALL", "LC_MESSAGES", "LC_CTYPE", "LANG", "LANGUAGE"})
            variables.remove(QString::fromLatin1(name));
        for (const QString& setting : environment)
            variables.insert(setting.section(u'=', 0, 0), setting.section(u'=', 1));
        QProcess child;
        child.setProcessEnvironment(variables);
        child.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(reportOption)});
        QVERIFY(child.waitForFinished(-1));
        QCOMPARE(QString::fromUtf8(child.readAllStandardOutput()), expected);
        QCOMPARE(QString::fromUtf8(child.readAllStandardError()), QString());
    }
};

int main(int argc, char** argv)
{
    if (argc == 2 && qstrcmp(argv[1], reportOption) == 0)
        return report(argc, argv);
    const QCoreApplication application(argc, argv);
    tst_utf8Locale test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_utf8Locale.moc"
