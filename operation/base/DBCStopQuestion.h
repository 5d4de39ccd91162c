// SPDX-License-Identifier: GPL-3.0-or-later
// Lets a wait deep inside an operation be stopped: a wait for another program, or for a calculation
// that a file of somebody else asks for. Such a wait has no delegate. It asks the question that was
// set up for its thread, at most twice a second, so that a cancel is answered within a second.
#pragma once

#include <QElapsedTimer>

#include <functional>

// While it lives, the waits of the thread that made it ask this question. Of two on one thread the
// later one counts. Not to be handed to another thread.
class DBCStopQuestion {
public:
    // isToStop returns true when the operation is to stop, and may ask the user first. After that
    // it is not called again: every further wait of the thread stops at once.
    explicit DBCStopQuestion(std::function<bool()> isToStop);
    ~DBCStopQuestion();
    DBCStopQuestion(const DBCStopQuestion&) = delete;
    DBCStopQuestion& operator=(const DBCStopQuestion&) = delete;

private:
    friend class DBCLongWait;

    bool isToStop();

    std::function<bool()> _isToStop;
    bool _hasStopped = false;
    DBCStopQuestion* _former; // of the same thread; null: none
};

// One wait, from its construction on. For the thread that makes it.
class DBCLongWait {
public:
    DBCLongWait() { _sinceLastQuestion.start(); }

    // Asks the thread's question when it is due, and returns true when the wait is to end. The
    // first half second passes without a question, and so does every wait of a thread that has
    // none. The time until the user has answered does not count as waiting.
    bool isToStop();

    // How long the caller may sleep before it calls isToStop() again; -1: as long as it likes.
    int millisecondsToQuestion() const;

private:
    QElapsedTimer _sinceLastQuestion;
};
