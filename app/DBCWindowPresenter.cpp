// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DBCWindowPresenter.h"

#include <QAbstractButton>
#include <QPushButton>
#include <QSemaphore>
#include <QThread>

#include <atomic>

namespace {

// Buttons are identified by their role, because the box may show them in any order.
constexpr QMessageBox::ButtonRole defaultRole = QMessageBox::YesRole;
constexpr QMessageBox::ButtonRole alternateRole = QMessageBox::NoRole;
constexpr QMessageBox::ButtonRole otherRole = QMessageBox::ActionRole;

DBCAnswer answerOf(const QMessageBox& box)
{
    QAbstractButton* const clicked = box.clickedButton();
    if (!clicked)
        return DBCAnswer::Alternate;
    switch (box.buttonRole(clicked)) {
    case defaultRole:
        return DBCAnswer::Default;
    case otherRole:
        return DBCAnswer::Other;
    default:
        return DBCAnswer::Alternate;
    }
}

DBCAnswer unattendedAnswer(const DBCQuestion& question)
{
    return question.asksToCancel() ? DBCAnswer::Default : DBCAnswer::Alternate;
}

} // namespace

class DBCWindowPresenter::Request {
public:
    // Keeps the first answer and ignores any later one.
    void give(DBCAnswer answer)
    {
        DBCAnswer none = DBCAnswer::NotShown;
        if (_answer.compare_exchange_strong(none, answer))
            _given.release();
    }
    DBCAnswer wait()
    {
        _given.acquire();
        return _answer;
    }

private:
    std::atomic<DBCAnswer> _answer = DBCAnswer::NotShown;
    QSemaphore _given;
};

DBCWindowPresenter::DBCWindowPresenter(QWidget& window)
    : _window(&window)
{
    DBCMessage::setPresenter(this);
}

DBCWindowPresenter::~DBCWindowPresenter()
{
    DBCMessage::setPresenter(nullptr);
}

void DBCWindowPresenter::showError(quint32 /*number*/, const QString& title, const QString& text)
{
    answerOn(DBCAnswer::Default, [this, title, text] { return show(*makeErrorBox(title, text)); });
}

DBCAnswer DBCWindowPresenter::askQuestion(const DBCQuestion& question)
{
    return answerOn(
        unattendedAnswer(question), [this, question] { return show(*makeQuestionBox(question)); });
}

void DBCWindowPresenter::showErrorSheet(QWindow* /*window*/, quint32 /*number*/,
    const QString& title, const QString& text, const std::function<void()>& ended)
{
    openSheet(makeErrorBox(title, text), [ended](int) {
        if (ended)
            ended();
    });
}

void DBCWindowPresenter::askQuestionSheet(QWindow* /*window*/, const DBCQuestion& question,
    const std::function<void(DBCAnswer)>& ended, const std::function<void()>& dismissed)
{
    auto box = makeQuestionBox(question);
    const QMessageBox* const asked = box.get();
    openSheet(std::move(box), [asked, ended, dismissed](int) {
        if (ended)
            ended(answerOf(*asked));
        if (dismissed)
            dismissed();
    });
}

void DBCWindowPresenter::leaveUnattended()
{
    {
        const std::lock_guard lock(_mutex);
        _isUnattended = true;
        if (_waiting)
            _waiting->give(_waitingAnswer);
    }
    if (QMessageBox* const box = _openBox)
        box->reject();
}

std::unique_ptr<QMessageBox> DBCWindowPresenter::makeErrorBox(
    const QString& title, const QString& text)
{
    auto box = std::make_unique<QMessageBox>(
        QMessageBox::Warning, title, text, QMessageBox::NoButton, _window);
    box->setTextFormat(Qt::PlainText);
    box->addButton(DBCMessage::btnLableString(DBCButton::OK), QMessageBox::AcceptRole);
    return box;
}

std::unique_ptr<QMessageBox> DBCWindowPresenter::makeQuestionBox(const DBCQuestion& question)
{
    auto box = std::make_unique<QMessageBox>(
        QMessageBox::Question, question.title, question.text, QMessageBox::NoButton, _window);
    box->setTextFormat(Qt::PlainText);
    box->setDefaultButton(box->addButton(question.defaultButton, defaultRole));
    box->setEscapeButton(box->addButton(question.alternateButton, alternateRole));
    if (!question.otherButton.isEmpty())
        box->addButton(question.otherButton, otherRole);
    return box;
}

void DBCWindowPresenter::openSheet(
    std::unique_ptr<QMessageBox> box, const std::function<void(int)>& ended)
{
    QMessageBox* const sheet = box.release();
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(sheet, &QMessageBox::finished, _window, ended);
    sheet->open();
}

DBCAnswer DBCWindowPresenter::show(QMessageBox& box)
{
    box.setWindowModality(Qt::WindowModal);
    _openBox = &box;
    box.exec();
    return answerOf(box);
}

DBCAnswer DBCWindowPresenter::answerOn(DBCAnswer unattended, const std::function<DBCAnswer()>& show)
{
    const auto request = std::make_shared<Request>();
    {
        const std::lock_guard lock(_mutex);
        if (_isUnattended)
            return unattended;
        _waiting = request;
        _waitingAnswer = unattended;
    }
    // The call is queued and not blocking. If the program has to end while the box is open,
    // leaveUnattended() gives the answer, and this thread must go on before the box is closed.
    if (thread() == QThread::currentThread())
        request->give(show());
    else
        QMetaObject::invokeMethod(
            this, [request, show] { request->give(show()); }, Qt::QueuedConnection);
    const DBCAnswer answer = request->wait();
    const std::lock_guard lock(_mutex);
    _waiting.reset();
    return answer;
}
