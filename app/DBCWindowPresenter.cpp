// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DBCWindowPresenter.h"

#include <QAbstractButton>
#include <QPushButton>
#include <QThread>

namespace {

// Buttons are told apart by their role, since the box may show them in any order.
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

} // namespace

DBCWindowPresenter::DBCWindowPresenter(QWidget& window)
    : _window(window)
{
    DBCMessage::setPresenter(this);
}

DBCWindowPresenter::~DBCWindowPresenter()
{
    DBCMessage::setPresenter(nullptr);
}

void DBCWindowPresenter::showError(quint32 /*number*/, const QString& title, const QString& text)
{
    onWindowThread([&] { show(*makeErrorBox(title, text)); });
}

DBCAnswer DBCWindowPresenter::askQuestion(const DBCQuestion& question)
{
    DBCAnswer answer = DBCAnswer::Alternate;
    onWindowThread([&] {
        const auto box = makeQuestionBox(question);
        show(*box);
        answer = _isUnattended ? unattendedAnswer(question) : answerOf(*box);
    });
    return answer;
}

void DBCWindowPresenter::showErrorSheet(QWindow* /*window*/, quint32 /*number*/,
    const QString& title, const QString& text, const std::function<void()>& ended)
{
    openSheet(makeErrorBox(title, text), [ended](int) { ended(); });
}

void DBCWindowPresenter::askQuestionSheet(QWindow* /*window*/, const DBCQuestion& question,
    const std::function<void(DBCAnswer)>& ended, const std::function<void()>& dismissed)
{
    auto box = makeQuestionBox(question);
    const QMessageBox* const asked = box.get();
    openSheet(std::move(box), [asked, ended, dismissed](int) {
        ended(answerOf(*asked));
        if (dismissed)
            dismissed();
    });
}

void DBCWindowPresenter::leaveUnattended()
{
    _isUnattended = true;
    if (QMessageBox* const box = _openBox)
        box->reject();
}

std::unique_ptr<QMessageBox> DBCWindowPresenter::makeErrorBox(
    const QString& title, const QString& text)
{
    auto box = std::make_unique<QMessageBox>(
        QMessageBox::Warning, title, text, QMessageBox::NoButton, &_window);
    box->setTextFormat(Qt::PlainText);
    box->addButton(DBCMessage::btnLableString(DBCButton::OK), QMessageBox::AcceptRole);
    return box;
}

std::unique_ptr<QMessageBox> DBCWindowPresenter::makeQuestionBox(const DBCQuestion& question)
{
    auto box = std::make_unique<QMessageBox>(
        QMessageBox::Question, question.title, question.text, QMessageBox::NoButton, &_window);
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
    QObject::connect(sheet, &QMessageBox::finished, &_window, ended);
    sheet->open();
}

int DBCWindowPresenter::show(QMessageBox& box)
{
    if (_isUnattended)
        return QDialog::Rejected;
    box.setWindowModality(Qt::WindowModal);
    _openBox = &box;
    return box.exec();
}

DBCAnswer DBCWindowPresenter::unattendedAnswer(const DBCQuestion& question) const
{
    const bool asksToCancel = question.key == QLatin1StringView("IDS_MSG_ERR_0315")
        || question.key == QLatin1StringView("IDS_MSG_ERR_0210");
    return asksToCancel ? DBCAnswer::Default : DBCAnswer::Alternate;
}

void DBCWindowPresenter::onWindowThread(const std::function<void()>& act)
{
    const bool isWindowThread = thread() == QThread::currentThread();
    QMetaObject::invokeMethod(
        this, act, isWindowThread ? Qt::DirectConnection : Qt::BlockingQueuedConnection);
}
