// SPDX-License-Identifier: GPL-3.0-or-later
// Shows messages and questions as boxes over the window. Any thread may call the functions. While a
// box is open the event loop keeps running, so that the window is repainted and the program notices
// a signal to end.
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

    // From now on shows the boxes over this window. When a box closes, this window gets the focus
    // back. The window is not owned and must outlive this object.
    void showOver(QWidget& window) { _window = &window; }

    // Called when nobody can see the window any more. Closes an open box. From then on this object
    // answers the question whether to cancel with Yes and every other question with its alternate
    // answer, and errors appear only in the log.
    void leaveUnattended();

private:
    // One answer, for which a thread waits. Either the user gives the answer or, when nobody is
    // there any more, leaveUnattended() does.
    class Request;

    std::unique_ptr<QMessageBox> makeErrorBox(const QString& title, const QString& text);
    std::unique_ptr<QMessageBox> makeQuestionBox(const DBCQuestion& question);
    void openSheet(std::unique_ptr<QMessageBox> box, const std::function<void(int)>& ended);
    DBCAnswer show(QMessageBox& box);
    // Runs show on the window's thread, waits for the answer and returns it. Returns unattended if
    // leaveUnattended() is called before or meanwhile.
    DBCAnswer answerOn(DBCAnswer unattended, const std::function<DBCAnswer()>& show);

    QWidget* _window;
    QPointer<QMessageBox> _openBox;
    std::mutex _mutex; // protects the members below, which several threads use
    bool _isUnattended = false;
    std::shared_ptr<Request> _waiting; // null while no thread waits
    DBCAnswer _waitingAnswer = DBCAnswer::Alternate; // given by leaveUnattended()
};
