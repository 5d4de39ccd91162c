// SPDX-License-Identifier: GPL-3.0-or-later
// Shows messages and questions as boxes over the window. They may come from any thread. The event
// loop keeps running meanwhile, so the window is repainted and a request to end is noticed.
#pragma once

#include "operation/messages/DBCMessage.h"

#include <QMessageBox>
#include <QObject>
#include <QPointer>

#include <memory>
#include <mutex>

class DBCWindowPresenter : public QObject, public DBCMessagePresenter {
public:
    // Installs itself as the presenter of DBCMessage. The window is not owned and must outlive this
    // object.
    explicit DBCWindowPresenter(QWidget& window);
    ~DBCWindowPresenter() override;

    void showError(quint32 number, const QString& title, const QString& text) override;
    // Esc and the close button of the box give the alternate answer.
    DBCAnswer askQuestion(const DBCQuestion& question) override;
    void showErrorSheet(QWindow* window, quint32 number, const QString& title, const QString& text,
        const std::function<void()>& ended) override;
    void askQuestionSheet(QWindow* window, const DBCQuestion& question,
        const std::function<void(DBCAnswer)>& ended,
        const std::function<void()>& dismissed) override;

    // Shows further boxes over this window, which gets the focus back when a box closes. The window
    // is not owned and must outlive this object.
    void showOver(QWidget& window) { _window = &window; }

    // Called when nobody can see the window any more. Closes an open box. From then on the question
    // whether to cancel is answered with Yes and every other question with its alternate button,
    // and errors appear only in the log.
    void leaveUnattended();

private:
    // The answer that a thread waits for. It comes from the user or, when nobody is there any more,
    // from leaveUnattended().
    class Request;

    std::unique_ptr<QMessageBox> makeErrorBox(const QString& title, const QString& text);
    std::unique_ptr<QMessageBox> makeQuestionBox(const DBCQuestion& question);
    void openSheet(std::unique_ptr<QMessageBox> box, const std::function<void(int)>& ended);
    DBCAnswer show(QMessageBox& box);
    // Runs show on the window's thread and waits for its answer. unattended is the answer that
    // counts when nobody is there.
    DBCAnswer answerOn(DBCAnswer unattended, const std::function<DBCAnswer()>& show);

    QWidget* _window;
    QPointer<QMessageBox> _openBox;
    std::mutex _mutex; // guards the following members, which the operation's thread uses, too
    bool _isUnattended = false;
    std::shared_ptr<Request> _waiting; // null: nobody waits
    DBCAnswer _waitingAnswer = DBCAnswer::Alternate; // the answer of leaveUnattended()
};
