// SPDX-License-Identifier: GPL-3.0-or-later
// Tests how the program shows the log: in the desktop's program or in its own viewer.
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

using namespace Qt::StringLiterals;

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
    void init()
    {
        _home = std::make_unique<TestHome>();
        _host = std::make_unique<ScopedHost>();
        DBCHost::current().fileOpener = _home->path(u"no-such-opener"_s);
        _window = std::make_unique<QWidget>();
        _failures = 0;
        writeLog("one\ntwo\nthree\n");
    }

    void cleanup()
    {
        _window.reset();
        _host.reset();
        _home.reset();
    }

    void desktopsProgramGetsTheLog()
    {
        setOpener("echo \"$@\" > \"$0.asked\"; echo > \"$0.done\"");
        show();
        QTRY_VERIFY(QFile::exists(_home->path(u"opener.done"_s)));
        QCOMPARE(_home->readFile(u"opener.asked"_s), _log.toUtf8() + '\n');
        QTest::qWait(50);
        QVERIFY(!viewer());
        QCOMPARE(_failures, 0);
    }

    void viewerStandsInForTheDesktop_data()
    {
        QTest::addColumn<QByteArray>("opener");
        QTest::newRow("no opener") << QByteArray();
        QTest::newRow("no program for such files") << QByteArray("exit 3");
        QTest::newRow("opener crashes") << QByteArray("kill -SEGV $$");
    }
    void viewerStandsInForTheDesktop()
    {
        QFETCH(QByteArray, opener);
        if (!opener.isEmpty())
            setOpener(opener);
        show();
        QTRY_VERIFY(viewer() && viewer()->isVisible());
        QCOMPARE(shownText(), u"one\ntwo\nthree\n"_s);
        QCOMPARE(viewer()->windowTitle(), _name);
        QCOMPARE(_failures, 0);
    }

    // The desktop's program may run for hours. It needs a process session of its own to survive the
    // end of this program's terminal, and must not inherit blocked signals, so that SIGTERM ends
    // it.
    void desktopsProgramIsIndependentOfThisOne()
    {
        sigset_t ours;
        sigset_t former;
        sigemptyset(&ours);
        sigaddset(&ours, SIGTERM);
        QCOMPARE(pthread_sigmask(SIG_BLOCK, &ours, &former), 0);
        // exec replaces the shell by the last program, because a shell that waits for a program has
        // all signals blocked.
        setOpener("[ \"$(cut -d' ' -f6 /proc/$$/stat)\" = $$ ] && echo own > \"$0.session\"\n"
                  "exec grep SigBlk /proc/self/status > \"$0.signals\"");
        show();
        QTRY_VERIFY(QFile::exists(_home->path(u"opener.signals"_s)));
        pthread_sigmask(SIG_SETMASK, &former, nullptr);
        QTRY_COMPARE(
            _home->readFile(u"opener.signals"_s), QByteArray("SigBlk:\t0000000000000000\n"));
        QCOMPARE(_home->readFile(u"opener.session"_s), QByteArray("own\n"));
    }

    void windowThatGoesMeanwhileIsNotMissed()
    {
        setOpener("while [ ! -e \"$0.go\" ]; do sleep 0.02; done; echo > \"$0.done\"; exit 3");
        show();
        _window.reset();
        _home->writeFile(u"opener.go"_s, "");
        QTRY_VERIFY(QFile::exists(_home->path(u"opener.done"_s)));
        QTest::qWait(50);
        QCOMPARE(_failures, 0);
    }

    void openingAgainShowsTheSameViewer()
    {
        show();
        QTRY_VERIFY(viewer());
        viewer()->hide();
        show();
        QTRY_VERIFY(viewer()->isVisible());
        QCOMPARE(_window->findChildren<DBCLogViewer*>().size(), 1);
    }

    void whatNobodyCanShowIsReported_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::newRow("vanished") << u"none"_s;
        QTest::newRow("a folder") << u"folder"_s;
        QTest::newRow("a pipe") << u"pipe"_s;
    }
    void whatNobodyCanShowIsReported()
    {
        QFETCH(QString, kind);
        QVERIFY(QFile::remove(_log));
        if (kind == u"folder"_s)
            _home->makeFolder(_name);
        else if (kind == u"pipe"_s)
            QCOMPARE(mkfifo(QFile::encodeName(_log).constData(), 0600), 0);
        show();
        QTRY_COMPARE(_failures, 1);
        QVERIFY(!viewer());
    }

    void wholeLogIsShownFromItsEnd()
    {
        openViewer(numberedLines(500));
        QVERIFY(shownText().startsWith(u"2026/11/21 09:03:27 VelmoraConverter [Info] line 1\n"_s));
        QVERIFY(shownText().endsWith(u"line 500\n"_s));
        QVERIFY(isAtEnd());
        QCOMPARE(visibleLabels(), QString());
    }

    void endOfALongLogIsShownAndSaidSo()
    {
        constexpr int lines = 1'000'000;
        const QByteArray log = numberedLines(lines);
        QVERIFY(log.size() > 50'000'000);
        openViewer(log);
        QVERIFY(shownText().size() <= DBCLogViewer::tailLength);
        QVERIFY(shownText().size() > DBCLogViewer::tailLength - 100);
        QVERIFY(shownText().startsWith(u"2026/11/21 "_s));
        QVERIFY(shownText().endsWith(u"line 1000000\n"_s));
        QVERIFY(isAtEnd());
        QVERIFY(visibleLabels().contains(_log));
    }

    void whatIsWrittenLaterAppears()
    {
        openViewer(numberedLines(500));
        appendToLog("half");
        QTRY_VERIFY(shownText().endsWith(u"line 500\nhalf"_s));
        appendToLog(" and half\n");
        QTRY_VERIFY(shownText().endsWith(u"line 500\nhalf and half\n"_s));
        QTRY_VERIFY(isAtEnd());
    }

    void characterThatComesInTwoPartsIsWhole()
    {
        const QByteArray name = "名刺";
        openViewer(name.first(4));
        QTRY_COMPARE(shownText(), u"名"_s);
        appendToLog(name.sliced(4));
        QTRY_COMPARE(shownText(), u"名刺"_s);
    }

    void readerWhoScrolledUpStaysThere()
    {
        openViewer(numberedLines(500));
        text().verticalScrollBar()->setValue(100);
        appendToLog("new\n");
        QTRY_VERIFY(shownText().endsWith(u"new\n"_s));
        QCOMPARE(text().verticalScrollBar()->value(), 100);
    }

    void selectionStaysWhileTheLogGrows()
    {
        openViewer("one\ntwo\n");
        text().selectAll();
        appendToLog("three\n");
        QTRY_VERIFY(shownText().endsWith(u"three\n"_s));
        QCOMPARE(text().textCursor().selectedText().replace(QChar::ParagraphSeparator, u'\n'),
            u"one\ntwo\n"_s);
    }

    void logThatBeginsAnewIsShownAnew()
    {
        openViewer("one\ntwo\n");
        QVERIFY(QFile::remove(_log));
        writeLog("new\n");
        QTRY_COMPARE(shownText(), u"new\n"_s);
    }

    void logThatVanishesStaysOnTheScreen()
    {
        openViewer("one\ntwo\n");
        QVERIFY(QFile::remove(_log));
        QVERIFY(!QTest::qWaitFor([&] { return shownText() != u"one\ntwo\n"_s; }, 1500));
    }

    void findGoesOnFromHitToHitAndRoundTheEnd()
    {
        openViewer("card 1\nother\nCard 2\n");
        QList<int> lines;
        for (int hit = 0; hit < 3; ++hit) {
            find(u"card"_s);
            QCOMPARE(text().textCursor().selectedText().toLower(), u"card"_s);
            lines << text().textCursor().blockNumber();
        }
        QCOMPARE(lines, QList<int>({0, 2, 0}));
        QCOMPARE(visibleLabels(), QString());
        QVERIFY(viewer()->isVisible());
    }

    void findSaysWhatIsNotThere()
    {
        openViewer("one\ntwo\n");
        find(u"two"_s);
        const int place = text().textCursor().position();
        find(u"<b>%1"_s);
        QCOMPARE(visibleLabels(), u"“<b>%1” was not found."_s);
        QCOMPARE(text().textCursor().position(), place);
        QTest::keyClick(viewer()->findChild<QLineEdit*>(), Qt::Key_Backspace);
        QCOMPARE(visibleLabels(), QString());
    }

    void keysReachTheFindField()
    {
        openViewer("one\ntwo\none\n");
        QVERIFY(text().hasFocus());
        QTest::keyClick(&text(), Qt::Key_F, Qt::ControlModifier);
        QVERIFY(viewer()->findChild<QLineEdit*>()->hasFocus());
        QTest::keyClicks(viewer()->findChild<QLineEdit*>(), u"one"_s);
        QTest::keyClick(viewer(), Qt::Key_F3);
        QCOMPARE(text().textCursor().blockNumber(), 0);
        QTest::keyClick(viewer(), Qt::Key_F3);
        QCOMPARE(text().textCursor().blockNumber(), 2);
    }

    void escapeCloses()
    {
        openViewer("one\n");
        QTest::keyClick(&text(), Qt::Key_Escape);
        QTRY_VERIFY(!viewer());
    }

    void everyTextIsInTheLanguage_data()
    {
        QTest::addColumn<bool>("isJapanese");
        QTest::newRow("English") << false;
        QTest::newRow("Japanese") << true;
    }
    void everyTextIsInTheLanguage()
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
            QVERIFY2(!text.contains(u"IDS_"_s), qPrintable(text));
            const qsizetype sign = text.indexOf(u'&');
            if (sign < 0)
                continue;
            QVERIFY2(!mnemonics.contains(text[sign + 1].toUpper()), qPrintable(text));
            mnemonics << text[sign + 1].toUpper();
        }
        QVERIFY(mnemonics.size() >= 2);
        QVERIFY(texts.contains(isJapanese ? u"検索(&F):"_s : u"&Find:"_s));
        QCOMPARE(text().accessibleName(), _name);
    }

private:
    // Makes a shell script with these lines the opener of the desktop.
    void setOpener(const QByteArray& lines)
    {
        const QString script = _home->writeFile(u"opener"_s, "#!/bin/sh\n" + lines);
        QVERIFY(
            QFile::setPermissions(script, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        DBCHost::current().fileOpener = script;
    }

    void show()
    {
        showLogFile(_log, _window.get(), [this] { ++_failures; });
    }

    DBCLogViewer* viewer() const { return _window->findChild<DBCLogViewer*>(); }
    DBCLogViewer& openViewer(const QByteArray& log)
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

    void writeLog(const QByteArray& bytes) { _log = _home->writeFile(_name, bytes); }
    void appendToLog(const QByteArray& bytes)
    {
        QFile file(_log);
        QVERIFY(file.open(QIODevice::Append));
        QCOMPARE(file.write(bytes), bytes.size());
    }

    QPlainTextEdit& text() const { return *viewer()->findChild<QPlainTextEdit*>(); }
    QString shownText() const { return text().toPlainText(); }
    QString visibleLabels() const
    {
        QStringList texts;
        for (const QLabel* const label : viewer()->findChildren<QLabel*>()) {
            if (label->isVisible() && !label->buddy() && !label->text().isEmpty())
                texts << label->text();
        }
        return texts.join(u'|');
    }

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

    const QString _name = u"VelmoraConverter.log"_s;
    std::unique_ptr<TestHome> _home;
    std::unique_ptr<ScopedHost> _host;
    std::unique_ptr<QWidget> _window;
    QString _log;
    int _failures = 0;
};

QTEST_MAIN(tst_logViewer)
#include "tst_logViewer.moc"
