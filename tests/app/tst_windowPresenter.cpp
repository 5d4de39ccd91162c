// SPDX-License-Identifier: GPL-3.0-or-later
// Tests the boxes over the window, when the window's thread or another thread shows them.
#include "app/DBCWindowPresenter.h"
#include "tests/support/TestHome.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <future>

using namespace Qt::StringLiterals;

namespace {

QMessageBox* openBox()
{
    return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}

// Calls act, which plays the user, as soon as a box is on the screen.
void whenABoxOpens(const std::function<void(QMessageBox&)>& act)
{
    auto* const timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, act] {
        if (QMessageBox* const box = openBox()) {
            timer->deleteLater();
            act(*box);
        }
    });
    timer->start(5);
}

void pressKey(QMessageBox& box, Qt::Key key)
{
    QTest::keyClick(&box, key);
}

QPushButton* buttonLabelled(QMessageBox& box, const QString& label)
{
    for (QPushButton* const button : box.findChildren<QPushButton*>()) {
        if (button->text() == label)
            return button;
    }
    return nullptr;
}

} // namespace

class tst_windowPresenter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { _window.show(); }

    void errorShowsItsTextAsItStands()
    {
        DBCWindowPresenter presenter(_window);
        QString shown;
        whenABoxOpens([&](QMessageBox& box) {
            shown = box.text();
            QCOMPARE(box.textFormat(), Qt::PlainText);
            QCOMPARE(box.windowTitle(), u"VelmoraConverter"_s);
            pressKey(box, Qt::Key_Return);
        });
        const QString text = DBCMessage::ShowErrorMessage(308, {u"/<b>a & b"_s});
        QCOMPARE(shown, text);
        QVERIFY(shown.contains(u"/<b>a & b"_s));
    }

    void enterIsTheDefaultAnswer()
    {
        DBCWindowPresenter presenter(_window);
        whenABoxOpens([](QMessageBox& box) {
            QCOMPARE(box.defaultButton()->text(), u"Yes"_s);
            pressKey(box, Qt::Key_Return);
        });
        QCOMPARE(ask(), DBCAnswer::Default);
    }

    void escapeIsTheAlternateAnswer()
    {
        DBCWindowPresenter presenter(_window);
        whenABoxOpens([](QMessageBox& box) { pressKey(box, Qt::Key_Escape); });
        QCOMPARE(ask(), DBCAnswer::Alternate);
    }

    void closedBoxIsTheAlternateAnswer()
    {
        DBCWindowPresenter presenter(_window);
        whenABoxOpens([](QMessageBox& box) { box.close(); });
        QCOMPARE(ask(), DBCAnswer::Alternate);
    }

    void eachButtonGivesItsAnswer()
    {
        DBCWindowPresenter presenter(_window);
        const QList<std::pair<QString, DBCAnswer>> answers {
            {u"Yes"_s, DBCAnswer::Default},
            {u"No"_s, DBCAnswer::Alternate},
            {u"Third"_s, DBCAnswer::Other},
        };
        for (const auto& [label, answer] : answers) {
            whenABoxOpens(
                [label = label](QMessageBox& box) { buttonLabelled(box, label)->click(); });
            QCOMPARE(DBCMessage::ShowInfoMessage(DBCMessage::keyOf(DBCQuestionId::ReplaceExport),
                         DBCButton::Yes, DBCButton::No, u"Third"_s),
                answer);
        }
    }

    void questionOfAnotherThreadWaitsForTheAnswer()
    {
        DBCWindowPresenter presenter(_window);
        QThread* thread = nullptr;
        whenABoxOpens([&](QMessageBox& box) {
            thread = QThread::currentThread();
            QCOMPARE(box.windowModality(), Qt::WindowModal);
            pressKey(box, Qt::Key_Return);
        });
        QCOMPARE(
            askOnAnotherThread(DBCMessage::keyOf(DBCQuestionId::CancelImport)), DBCAnswer::Default);
        QCOMPARE(thread, _window.thread());
    }

    void windowIsPaintedWhileAQuestionIsOpen()
    {
        struct PaintWatcher : QObject {
            bool eventFilter(QObject* /*watched*/, QEvent* event) override
            {
                paints += event->type() == QEvent::Paint ? 1 : 0;
                return false;
            }
            int paints = 0;
        } watcher;
        _window.installEventFilter(&watcher);
        DBCWindowPresenter presenter(_window);
        int paintsWhileOpen = 0;
        whenABoxOpens([&](QMessageBox& box) {
            const int before = watcher.paints;
            _window.update();
            QTest::qWait(50);
            paintsWhileOpen = watcher.paints - before;
            pressKey(box, Qt::Key_Escape);
        });
        ask();
        QVERIFY(paintsWhileOpen > 0);
    }

    void sheetGivesItsAnswerLater()
    {
        DBCWindowPresenter presenter(_window);
        std::optional<DBCAnswer> answer;
        bool isDismissed = false;
        QCOMPARE(
            DBCMessage::ShowInfoMessageAlertSheet(
                nullptr, [&](DBCAnswer given) { answer = given; }, [&] { isDismissed = true; },
                DBCMessage::keyOf(DBCQuestionId::ReplaceExport), DBCButton::Yes, DBCButton::No),
            DBCAnswer::Alternate);
        QVERIFY(!answer);
        whenABoxOpens([](QMessageBox& box) { pressKey(box, Qt::Key_Return); });
        QTRY_VERIFY(answer);
        QCOMPARE(*answer, DBCAnswer::Default);
        QVERIFY(isDismissed);
    }

    void sheetsNeedNoCallbacks()
    {
        DBCWindowPresenter presenter(_window);
        DBCMessage::ShowErrorMessageAlertSheet(nullptr, {}, 209);
        whenABoxOpens([](QMessageBox& box) { pressKey(box, Qt::Key_Escape); });
        QTRY_VERIFY(!_window.findChild<QMessageBox*>());
        DBCMessage::ShowInfoMessageAlertSheet(nullptr, {}, {},
            DBCMessage::keyOf(DBCQuestionId::ReplaceExport), DBCButton::Yes, DBCButton::No);
        whenABoxOpens([](QMessageBox& box) { pressKey(box, Qt::Key_Return); });
        QTRY_VERIFY(!_window.findChild<QMessageBox*>());
    }

    // The parent of a box is the window in front, which gets the focus back when the box closes.
    void boxesComeOverTheWindowInFront()
    {
        DBCWindowPresenter presenter(_window);
        QWidget front;
        const auto parentOfABox = [] {
            const QWidget* parent = nullptr;
            whenABoxOpens([&parent](QMessageBox& box) {
                parent = box.parentWidget();
                pressKey(box, Qt::Key_Escape);
            });
            ask();
            return parent;
        };
        presenter.showOver(front);
        QCOMPARE(parentOfABox(), &front);
        presenter.showOver(_window);
        QCOMPARE(parentOfABox(), &_window);
    }

    void unattendedCancelIsConfirmedWithoutABox()
    {
        DBCWindowPresenter presenter(_window);
        presenter.leaveUnattended();
        QCOMPARE(ask(DBCMessage::keyOf(DBCQuestionId::CancelImport)), DBCAnswer::Default);
        QCOMPARE(ask(DBCMessage::keyOf(DBCQuestionId::CancelExport)), DBCAnswer::Default);
    }

    void unattendedQuestionTakesTheAlternateAnswer()
    {
        DBCWindowPresenter presenter(_window);
        presenter.leaveUnattended();
        QCOMPARE(ask(DBCMessage::keyOf(DBCQuestionId::ReplaceExport)), DBCAnswer::Alternate);
        QCOMPARE(ask(DBCMessage::keyOf(DBCQuestionId::QuitAfterImport)), DBCAnswer::Alternate);
    }

    // The waiting thread must get its answer before the box closes, because the window's thread may
    // be ending the program and no longer run its event loop.
    void openQuestionOfAnotherThreadEndsWhenNobodyIsThere()
    {
        DBCWindowPresenter presenter(_window);
        auto answer = std::async(
            std::launch::async, [] { return ask(DBCMessage::keyOf(DBCQuestionId::CancelImport)); });
        std::future_status whileOpen = std::future_status::timeout;
        whenABoxOpens([&](QMessageBox& /*box*/) {
            presenter.leaveUnattended();
            whileOpen = answer.wait_for(std::chrono::seconds(10));
        });
        QTRY_COMPARE(whileOpen, std::future_status::ready);
        QCOMPARE(answer.get(), DBCAnswer::Default);
        QVERIFY(!openBox());
    }

private:
    static DBCAnswer ask(const QString& key = DBCMessage::keyOf(DBCQuestionId::ReplaceExport))
    {
        return DBCMessage::ShowInfoMessage(key, DBCButton::Yes, DBCButton::No);
    }
    // Asks the question on a separate thread while this thread runs its event loop, and returns the
    // answer.
    static DBCAnswer askOnAnotherThread(const QString& key)
    {
        auto answer = std::async(std::launch::async, [key] { return ask(key); });
        while (answer.wait_for(std::chrono::milliseconds(5)) != std::future_status::ready)
            QCoreApplication::processEvents();
        return answer.get();
    }

    TestHome _home;
    QWidget _window;
};

QTEST_MAIN(tst_windowPresenter)
#include "tst_windowPresenter.moc"
