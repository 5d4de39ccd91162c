// SPDX-License-Identifier: GPL-3.0-or-later
// Shows messages and questions as boxes over the window, from whatever thread they come. The event
// loop goes on meanwhile, so the window repaints and the machine's wishes are heard.
#pragma once

#include "operation/messages/DBCMessage.h"

#include <QMessageBox>
#include <QObject>
#include <QPointer>

#include <memory>
#include <mutex>

class DBCWindowPresenter : public QObject, public DBCMessagePresenter {
public:
    // Not owned; outlives this object.
    explicit DBCWindowPresenter(QWidget& window);
    ~DBCWindowPresenter() override;

    void showError(quint32 number, const QString& title, const QString& text) override;
    // Esc and the box's close button are the alternate answer.
    DBCAnswer askQuestion(const DBCQuestion& question) override;
    void showErrorSheet(QWindow* window, quint32 number, const QString& title, const QString& text,
        const std::function<void()>& ended) override;
    void askQuestionSheet(QWindow* window, const DBCQuestion& question,
        const std::function<void(DBCAnswer)>& ended,
        const std::function<void()>& dismissed) override;

    // Boxes come over another window, which gets the focus back behind them. Not owned; outlives
    // this object.
    void showOver(QWidget& window) { _window = &window; }

    // From now on nobody sees the window: an open box is closed, whether to cancel is answered with
    // yes, every other question with its alternate button, and errors go to the log alone.
    void leaveUnattended();

private:
    // What a thread waits for: the user's answer or, when nobody is there any more, the one given
    // for him.
    class Request;

    std::unique_ptr<QMessageBox> makeErrorBox(const QString& title, const QString& text);
    std::unique_ptr<QMessageBox> makeQuestionBox(const DBCQuestion& question);
    void openSheet(std::unique_ptr<QMessageBox> box, const std::function<void(int)>& ended);
    DBCAnswer show(QMessageBox& box);
    // Runs show on the window's thread and waits for its answer; unattended is the answer of an
    // absent user.
    DBCAnswer answerOn(DBCAnswer unattended, const std::function<DBCAnswer()>& show);

    QWidget* _window;
    QPointer<QMessageBox> _openBox;
    std::mutex _mutex; // of what follows, which the operation's thread uses, too
    bool _isUnattended = false;
    std::shared_ptr<Request> _waiting; // null: nobody waits
    DBCAnswer _waitingAnswer = DBCAnswer::Alternate; // should the user turn out to be absent
};
