// SPDX-License-Identifier: GPL-3.0-or-later
// The log as the user gets to see it: in the desktop's program, or in the viewer of our own.
#include "app/dialogs/DBCLogViewer.h"

#include "datafile/helpers/DBCLocalizable.h"
#include "tests/support/ScopedHost.h"
#include "tests/support/TestHome.h"

#include <QAbstractButton>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSet>
#include <QTest>

#include <csignal>
#include <sys/stat.h>

namespace {

using Language = DBCLocalizable::Language;

QByteArray numberedLines(int count)
{
    QByteArray lines;
    for (int number = 1; number <= count; ++number)
        lines += "2026/11/21 09:03:27 VelmoraConverter [Info] line " + QByteArray::number(number)
            + '\n';
    return lines;
}

} // namespace

class tst_logViewer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void desktopsProgramGetsTheLog();
    void viewerStandsInForTheDesktop_data();
    void viewerStandsInForTheDesktop();
    void desktopsProgramIsIndependentOfThisOne();
    void windowThatGoesMeanwhileIsNotMissed();
    void openingAgainShowsTheSameViewer();
    void whatNobodyCanShowIsReported_data();
    void whatNobodyCanShowIsReported();

    void wholeLogIsShownFromItsEnd();
    void endOfALongLogIsShownAndSaidSo();
    void whatIsWrittenLaterAppears();
    void characterThatComesInTwoPartsIsWhole();
    void readerWhoScrolledUpStaysThere();
    void selectionStaysWhileTheLogGrows();
    void logThatBeginsAnewIsShownAnew();
    void logThatVanishesStaysOnTheScreen();
    void findGoesOnFromHitToHitAndRoundTheEnd();
    void findSaysWhatIsNotThere();
    void keysReachTheFindField();
    void escapeCloses();
    void everyTextIsInTheLanguage_data();
    void everyTextIsInTheLanguage();

private:
    // The opener of the desktop is a shell script with these lines.
    void setOpener(const QByteArray& lines);
    void show();
    DBCLogViewer* viewer() const { return _window->findChild<DBCLogViewer*>(); }
    DBCLogViewer& openViewer(const QByteArray& log);
    void writeLog(const QByteArray& bytes) { _log = _home->writeFile(_name, bytes); }
    void appendToLog(const QByteArray& bytes);
    QPlainTextEdit& text() const { return *viewer()->findChild<QPlainTextEdit*>(); }
    QString shownText() const { return text().toPlainText(); }
    QString visibleLabels() const;
    bool isAtEnd() const
    {
        const QScrollBar& bar = *text().verticalScrollBar();
        return bar.maximum() > 0 && bar.value() == bar.maximum();
    }
    void find(const QString& wanted)
    {
        viewer()->findChild<QLineEdit*>()->setText(wanted);
        QTest::keyClick(viewer()->findChild<QLineEdit*>(), Qt::Key_Return);
    }

    const QString _name = QStringLiteral("VelmoraConverter.log");
    std::unique_ptr<TestHome> _home;
    std::unique_ptr<ScopedHost> _host;
    std::unique_ptr<QWidget> _window;
    QString _log;
    int _failures = 0;
};

void tst_logViewer::init()
{
    _home = std::make_unique<TestHome>();
    _host = std::make_unique<ScopedHost>();
    DBCHost::current().fileOpener = _home->path(QStringLiteral("no-such-opener"));
    _window = std::make_unique<QWidget>();
    _failures = 0;
    writeLog("one\ntwo\nthree\n");
}

void tst_logViewer::cleanup()
{
    _window.reset();
    _host.reset();
    _home.reset();
}

void tst_logViewer::setOpener(const QByteArray& lines)
{
    const QString script = _home->writeFile(QStringLiteral("opener"), "#!/bin/sh\n" + lines);
    QVERIFY(QFile::setPermissions(script, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    DBCHost::current().fileOpener = script;
}

void tst_logViewer::show()
{
    showLogFile(_log, _window.get(), [this] { ++_failures; });
}

DBCLogViewer& tst_logViewer::openViewer(const QByteArray& log)
{
    writeLog(log);
    auto* const viewer = new DBCLogViewer(_log, _window.get());
    viewer->setAttribute(Qt::WA_DeleteOnClose);
    viewer->show();
    viewer->activateWindow();
    if (!QTest::qWaitForWindowActive(viewer))
        qFatal("the viewer does not get the focus");
    return *viewer;
}

void tst_logViewer::appendToLog(const QByteArray& bytes)
{
    QFile file(_log);
    QVERIFY(file.open(QIODevice::Append));
    QCOMPARE(file.write(bytes), bytes.size());
}

QString tst_logViewer::visibleLabels() const
{
    QStringList texts;
    for (const QLabel* const label : viewer()->findChildren<QLabel*>()) {
        if (label->isVisible() && !label->buddy() && !label->text().isEmpty())
            texts << label->text();
    }
    return texts.join(u'|');
}

void tst_logViewer::desktopsProgramGetsTheLog()
{
    setOpener("echo \"$@\" > \"$0.asked\"; echo > \"$0.done\"");
    show();
    QTRY_VERIFY(QFile::exists(_home->path(QStringLiteral("opener.done"))));
    QCOMPARE(_home->readFile(QStringLiteral("opener.asked")), _log.toUtf8() + '\n');
    QTest::qWait(50);
    QVERIFY(!viewer());
    QCOMPARE(_failures, 0);
}

void tst_logViewer::viewerStandsInForTheDesktop_data()
{
    QTest::addColumn<QByteArray>("opener");
    QTest::newRow("no opener") << QByteArray();
    QTest::newRow("no program for such files") << QByteArray("exit 3");
    QTest::newRow("opener crashes") << QByteArray("kill -SEGV $$");
}

void tst_logViewer::viewerStandsInForTheDesktop()
{
    QFETCH(QByteArray, opener);
    if (!opener.isEmpty())
        setOpener(opener);
    show();
    QTRY_VERIFY(viewer() && viewer()->isVisible());
    QCOMPARE(shownText(), QStringLiteral("one\ntwo\nthree\n"));
    QCOMPARE(viewer()->windowTitle(), _name);
    QCOMPARE(_failures, 0);
}

// It may go on for hours, and must end with the session as any program does.
void tst_logViewer::desktopsProgramIsIndependentOfThisOne()
{
    sigset_t ours;
    sigset_t former;
    sigemptyset(&ours);
    sigaddset(&ours, SIGTERM);
    QCOMPARE(pthread_sigmask(SIG_BLOCK, &ours, &former), 0);
    // The last program takes the shell's place: a shell that waits for one has every signal
    // blocked.
    setOpener("[ \"$(cut -d' ' -f6 /proc/$$/stat)\" = $$ ] && echo own > \"$0.session\"\n"
              "exec grep SigBlk /proc/self/status > \"$0.signals\"");
    show();
    QTRY_VERIFY(QFile::exists(_home->path(QStringLiteral("opener.signals"))));
    pthread_sigmask(SIG_SETMASK, &former, nullptr);
    QTRY_COMPARE(_home->readFile(QStringLiteral("opener.signals")),
        QByteArray("SigBlk:\t0000000000000000\n"));
    QCOMPARE(_home->readFile(QStringLiteral("opener.session")), QByteArray("own\n"));
}

void tst_logViewer::windowThatGoesMeanwhileIsNotMissed()
{
    setOpener("while [ ! -e \"$0.go\" ]; do sleep 0.02; done; echo > \"$0.done\"; exit 3");
    show();
    _window.reset();
    _home->writeFile(QStringLiteral("opener.go"), "");
    QTRY_VERIFY(QFile::exists(_home->path(QStringLiteral("opener.done"))));
    QTest::qWait(50);
    QCOMPARE(_failures, 0);
}

void tst_logViewer::openingAgainShowsTheSameViewer()
{
    show();
    QTRY_VERIFY(viewer());
    viewer()->hide();
    show();
    QTRY_VERIFY(viewer()->isVisible());
    QCOMPARE(_window->findChildren<DBCLogViewer*>().size(), 1);
}

void tst_logViewer::whatNobodyCanShowIsReported_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("vanished") << QStringLiteral("none");
    QTest::newRow("a folder") << QStringLiteral("folder");
    QTest::newRow("a pipe") << QStringLiteral("pipe");
}

void tst_logViewer::whatNobodyCanShowIsReported()
{
    QFETCH(QString, kind);
    QVERIFY(QFile::remove(_log));
    if (kind == QStringLiteral("folder"))
        _home->makeFolder(_name);
    else if (kind == QStringLiteral("pipe"))
        QCOMPARE(mkfifo(QFile::encodeName(_log).constData(), 0600), 0);
    show();
    QTRY_COMPARE(_failures, 1);
    QVERIFY(!viewer());
}

void tst_logViewer::wholeLogIsShownFromItsEnd()
{
    openViewer(numberedLines(500));
    QVERIFY(shownText().startsWith(
        QStringLiteral("2026/11/21 09:03:27 VelmoraConverter [Info] line 1\n")));
    QVERIFY(shownText().endsWith(QStringLiteral("line 500\n")));
    QVERIFY(isAtEnd());
    QCOMPARE(visibleLabels(), QString());
}

void tst_logViewer::endOfALongLogIsShownAndSaidSo()
{
    constexpr int lines = 1'000'000;
    const QByteArray log = numberedLines(lines);
    QVERIFY(log.size() > 50'000'000);
    openViewer(log);
    QVERIFY(shownText().size() <= DBCLogViewer::tailLength);
    QVERIFY(shownText().size() > DBCLogViewer::tailLength - 100);
    QVERIFY(shownText().startsWith(QStringLiteral("2026/11/21 ")));
    QVERIFY(shownText().endsWith(QStringLiteral("line 1000000\n")));
    QVERIFY(isAtEnd());
    QVERIFY(visibleLabels().contains(_log));
}

void tst_logViewer::whatIsWrittenLaterAppears()
{
    openViewer(numberedLines(500));
    appendToLog("half");
    QTRY_VERIFY(shownText().endsWith(QStringLiteral("line 500\nhalf")));
    appendToLog(" and half\n");
    QTRY_VERIFY(shownText().endsWith(QStringLiteral("line 500\nhalf and half\n")));
    QTRY_VERIFY(isAtEnd());
}

void tst_logViewer::characterThatComesInTwoPartsIsWhole()
{
    const QByteArray name = "名刺";
    openViewer(name.first(4));
    QTRY_COMPARE(shownText(), QStringLiteral("名"));
    appendToLog(name.sliced(4));
    QTRY_COMPARE(shownText(), QStringLiteral("名刺"));
}

void tst_logViewer::readerWhoScrolledUpStaysThere()
{
    openViewer(numberedLines(500));
    text().verticalScrollBar()->setValue(100);
    appendToLog("new\n");
    QTRY_VERIFY(shownText().endsWith(QStringLiteral("new\n")));
    QCOMPARE(text().verticalScrollBar()->value(), 100);
}

void tst_logViewer::selectionStaysWhileTheLogGrows()
{
    openViewer("one\ntwo\n");
    text().selectAll();
    appendToLog("three\n");
    QTRY_VERIFY(shownText().endsWith(QStringLiteral("three\n")));
    QCOMPARE(text().textCursor().selectedText().replace(QChar::ParagraphSeparator, u'\n'),
        QStringLiteral("one\ntwo\n"));
}

void tst_logViewer::logThatBeginsAnewIsShownAnew()
{
    openViewer("one\ntwo\n");
    QVERIFY(QFile::remove(_log));
    writeLog("new\n");
    QTRY_COMPARE(shownText(), QStringLiteral("new\n"));
}

void tst_logViewer::logThatVanishesStaysOnTheScreen()
{
    openViewer("one\ntwo\n");
    QVERIFY(QFile::remove(_log));
    QVERIFY(!QTest::qWaitFor([&] { return shownText() != QStringLiteral("one\ntwo\n"); }, 1500));
}

void tst_logViewer::findGoesOnFromHitToHitAndRoundTheEnd()
{
    openViewer("card 1\nother\nCard 2\n");
    QList<int> lines;
    for (int hit = 0; hit < 3; ++hit) {
        find(QStringLiteral("card"));
        QCOMPARE(text().textCursor().selectedText().toLower(), QStringLiteral("card"));
        lines << text().textCursor().blockNumber();
    }
    QCOMPARE(lines, QList<int>({0, 2, 0}));
    QCOMPARE(visibleLabels(), QString());
    QVERIFY(viewer()->isVisible());
}

void tst_logViewer::findSaysWhatIsNotThere()
{
    openViewer("one\ntwo\n");
    find(QStringLiteral("two"));
    const int place = text().textCursor().position();
    find(QStringLiteral("<b>%1"));
    QCOMPARE(visibleLabels(), QStringLiteral("“<b>%1” was not found."));
    QCOMPARE(text().textCursor().position(), place);
    QTest::keyClick(viewer()->findChild<QLineEdit*>(), Qt::Key_Backspace);
    QCOMPARE(visibleLabels(), QString());
}

void tst_logViewer::keysReachTheFindField()
{
    openViewer("one\ntwo\none\n");
    QVERIFY(text().hasFocus());
    QTest::keyClick(&text(), Qt::Key_F, Qt::ControlModifier);
    QVERIFY(viewer()->findChild<QLineEdit*>()->hasFocus());
    QTest::keyClicks(viewer()->findChild<QLineEdit*>(), QStringLiteral("one"));
    QTest::keyClick(viewer(), Qt::Key_F3);
    QCOMPARE(text().textCursor().blockNumber(), 0);
    QTest::keyClick(viewer(), Qt::Key_F3);
    QCOMPARE(text().textCursor().blockNumber(), 2);
}

void tst_logViewer::escapeCloses()
{
    openViewer("one\n");
    QTest::keyClick(&text(), Qt::Key_Escape);
    QTRY_VERIFY(!viewer());
}

void tst_logViewer::everyTextIsInTheLanguage_data()
{
    QTest::addColumn<bool>("isJapanese");
    QTest::newRow("English") << false;
    QTest::newRow("Japanese") << true;
}

void tst_logViewer::everyTextIsInTheLanguage()
{
    QFETCH(bool, isJapanese);
    DBCLocalizable::setLanguage(isJapanese ? Language::Japanese : Language::English);
    openViewer("one\n");
    QSet<QChar> mnemonics;
    QStringList texts;
    for (const QAbstractButton* const button : viewer()->findChildren<QAbstractButton*>())
        texts << button->text();
    for (const QLabel* const label : viewer()->findChildren<QLabel*>())
        texts << label->text();
    for (const QString& text : texts) {
        QVERIFY2(!text.contains(QStringLiteral("IDS_")), qPrintable(text));
        const qsizetype sign = text.indexOf(u'&');
        if (sign < 0)
            continue;
        QVERIFY2(!mnemonics.contains(text[sign + 1].toUpper()), qPrintable(text));
        mnemonics << text[sign + 1].toUpper();
    }
    QVERIFY(mnemonics.size() >= 2);
    QVERIFY(texts.contains(isJapanese ? QStringLiteral("検索(&F):") : QStringLiteral("&Find:")));
    QCOMPARE(text().accessibleName(), _name);
}

QTEST_MAIN(tst_logViewer)
#include "tst_logViewer.moc"
