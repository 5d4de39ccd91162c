// SPDX-License-Identifier: GPL-3.0-or-later
// Tells whether two folders hold the same: names as the bytes they are, kinds, permissions, sizes
// and contents of files, targets of links.
#pragma once

#include <QByteArray>

#include <functional>
#include <vector>

#include <sys/stat.h>

class DBCTreeComparison {
public:
    struct Questions {
        // Before each entry; an answer of false ends the comparison. Empty: not asked.
        std::function<bool()> mayGoOn;
        // Entries whose contents and sizes do not count, by their path below the folder. Empty: all
        // count.
        std::function<bool(const QByteArray& path)> mayDiffer;
    };

    explicit DBCTreeComparison(Questions questions = {})
        : _questions(std::move(questions))
    {
    }

    // True when both could be read to their ends and hold the same.
    bool areEqual(const QByteArray& folder, const QByteArray& other);

    // The path of the first difference below the folders, or of what could not be read; empty for
    // the folders themselves. One object compares once.
    const QByteArray& difference() const { return _path; }

private:
    struct Pair;

    bool compareFolders(int folder, int other);
    bool compareEntry(int folder, int other, const QByteArray& name);
    bool compareKinds(const Pair& pair);
    bool compareFiles(const Pair& pair);
    bool compareContents(int file, int other);

    Questions _questions;
    QByteArray _path;
    std::vector<char> _buffer;
    std::vector<char> _otherBuffer;
};
