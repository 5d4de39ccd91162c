// SPDX-License-Identifier: GPL-3.0-or-later
// Makes it possible to stop an operation while it waits for another program, or for a calculation
// that a file of unknown origin causes. The waiting code lies so deep that it has no
// DBCCancelDelegate. The operation therefore sets up a stop question for its thread: a function
// that returns true if the operation is to stop. The waiting code calls that function at most twice
// a second, so that a cancel takes effect within a second.
#pragma once

#include <QElapsedTimer>

#include <functional>

// While this object exists, every DBCLongWait of the thread that created it calls its function. If
// a thread has several such objects, the newest one counts. The object must be destroyed on the
// thread that created it.
class DBCStopQuestion {
public:
    // isToStop returns true if the operation is to stop, and may ask the user first. Once it has
    // returned true, it is not called again, and every further wait of the thread ends at once.
    explicit DBCStopQuestion(std::function<bool()> isToStop);
    ~DBCStopQuestion();
    DBCStopQuestion(const DBCStopQuestion&) = delete;
    DBCStopQuestion& operator=(const DBCStopQuestion&) = delete;

private:
    friend class DBCLongWait;

    bool isToStop();

    std::function<bool()> _isToStop;
    bool _hasStopped = false;
    DBCStopQuestion* _former; // the thread's previous question; null if there was none
};

// One wait, which begins when the object is created. Only the thread that created the object may
// use it.
class DBCLongWait {
public:
    DBCLongWait() { _sinceLastQuestion.start(); }

    // Returns true if the wait is to end. To find out, this function calls the thread's stop
    // question, but only if half a second has passed since the wait began or since the last call;
    // otherwise it returns false. It also returns false if the thread has no stop question. The
    // time that the user takes to answer does not count towards the half second.
    bool isToStop();

    // Returns how long the caller may sleep before it calls isToStop() again. The result is -1 if
    // the thread has no stop question, so that the caller may sleep as long as it likes.
    int millisecondsToQuestion() const;

private:
    QElapsedTimer _sinceLastQuestion;
};
