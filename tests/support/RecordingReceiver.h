// SPDX-License-Identifier: GPL-3.0-or-later
// Records the events of an operation in the order of their arrival, each as one line of text.
#pragma once

#include "operation/base/DBCEvent.h"

#include <QStringList>
#include <QThread>

#include <functional>

using namespace Qt::StringLiterals;

struct RecordingReceiver : DBCEventReceiver {
    void refreshProgress(const DBCEvent& event) override
    {
        events << describe(event);
        senders << event.sender;
        threads << QThread::currentThread();
        if (onEvent)
            onEvent(event);
    }

    // "DBC_ImportIsRunningNotification max=3 finished=1": the name and the values that the event
    // carries, in the order ok, max, finished, cancel.
    static QString describe(const DBCEvent& event)
    {
        QString line = event.publicName();
        const auto flag = [&](const char* name, const std::optional<bool>& value) {
            if (value)
                line += u' ' + QString::fromLatin1(name) + u'=' + (*value ? u"true"_s : u"false"_s);
        };
        const auto count = [&](const char* name, const std::optional<qint64>& value) {
            if (value)
                line += u' ' + QString::fromLatin1(name) + u'=' + QString::number(*value);
        };
        flag("ok", event.operationIsOk);
        count("max", event.maxCount);
        count("finished", event.finishedCount);
        flag("cancel", event.confirmCancelResult);
        return line;
    }

    QStringList events;
    QList<const DBCConverterController*> senders;
    QList<QThread*> threads; // the thread on which each event arrived
    std::function<void(const DBCEvent&)> onEvent; // called after the event is recorded
};
