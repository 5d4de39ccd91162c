// SPDX-License-Identifier: GPL-3.0-or-later
// Shows messages and questions as boxes over the window, from whatever thread they come. The event
// loop goes on meanwhile, so the window repaints and the machine's wishes are heard.
#pragma once

#include "operation/DBCMessage.h"

#include <QMessageBox>
#include <QObject>
#include <QPointer>

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

    // From now on nobody sees the window: an open box is closed, whether to cancel is answered with
    // yes, every other question with its alternate button, and errors go to the log alone.
    void leaveUnattended();

private:
    std::unique_ptr<QMessageBox> makeErrorBox(const QString& title, const QString& text);
    std::unique_ptr<QMessageBox> makeQuestionBox(const DBCQuestion& question);
    void openSheet(std::unique_ptr<QMessageBox> box, const std::function<void(int)>& ended);
    int show(QMessageBox& box);
    DBCAnswer unattendedAnswer(const DBCQuestion& question) const;
    void onWindowThread(const std::function<void()>& act);

    QWidget& _window;
    QPointer<QMessageBox> _openBox;
    bool _isUnattended = false;
};
