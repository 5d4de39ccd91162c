// SPDX-License-Identifier: GPL-3.0-or-later
// Sets the process's local time zone for as long as the object lives. The zone is a POSIX rule,
// because a rule needs no zone files: ScopedTimeZone tokyo("JST-9").
#pragma once

#include <QByteArray>

#include <ctime>

class ScopedTimeZone {
public:
    explicit ScopedTimeZone(const QByteArray& rule)
        : _wasSet(qEnvironmentVariableIsSet("TZ"))
        , _old(qgetenv("TZ"))
    {
        qputenv("TZ", rule);
        tzset();
    }
    ~ScopedTimeZone()
    {
        if (_wasSet)
            qputenv("TZ", _old);
        else
            qunsetenv("TZ");
        tzset();
    }
    ScopedTimeZone(const ScopedTimeZone&) = delete;
    ScopedTimeZone& operator=(const ScopedTimeZone&) = delete;

private:
    bool _wasSet;
    QByteArray _old;
};
