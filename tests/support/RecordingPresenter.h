// SPDX-License-Identifier: GPL-3.0-or-later
// Records every message that the program shows, and gives prepared answers to its questions. It is
// the program's presenter for as long as it lives.
#pragma once

#include "operation/messages/DBCMessage.h"

#include <QList>

struct RecordingPresenter : DBCMessagePresenter {
    RecordingPresenter() { DBCMessage::setPresenter(this); }
    ~RecordingPresenter() override { DBCMessage::setPresenter(nullptr); }
    RecordingPresenter(const RecordingPresenter&) = delete;
    RecordingPresenter& operator=(const RecordingPresenter&) = delete;

    void showError(quint32 number, const QString& title, const QString& text) override
    {
        numbers << number;
        titles << title;
        texts << text;
    }
    DBCAnswer askQuestion(const DBCQuestion& question) override
    {
        questions << question;
        return answers.isEmpty() ? answer : answers.takeFirst();
    }

    QList<quint32> numbers;
    QStringList titles;
    QStringList texts;
    QList<DBCQuestion> questions;
    DBCAnswer answer = DBCAnswer::Alternate; // the answer to every question once answers is empty
    QList<DBCAnswer> answers; // the answers to the next questions, in order
};
