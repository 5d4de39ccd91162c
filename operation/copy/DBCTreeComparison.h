// SPDX-License-Identifier: GPL-3.0-or-later
// Compares two folders with everything in them: names, types, permissions, the sizes and contents
// of files, and the targets of links.
#pragma once

#include <QByteArray>

#include <functional>
#include <vector>

#include <sys/stat.h>

// Times and extended attributes are not compared, and set-ID bits only where the owner is the same.
// Links are never followed. Pipes, sockets and devices make folders differ. Every file is opened
// and read, so comparing a folder with itself shows whether all of it is readable.
class DBCTreeComparison {
public:
    struct Questions {
        // Called before each entry; false ends the comparison. May be empty.
        std::function<bool()> mayGoOn;
        // Whether the size and contents of this file do not matter; path is relative to the folder.
        // When this is empty, all files are compared.
        std::function<bool(const QByteArray& path)> mayDiffer;
    };

    explicit DBCTreeComparison(Questions questions = {})
        : _questions(std::move(questions))
    {
    }

    // True when both folders could be read completely and are equal.
    bool areEqual(const QByteArray& folder, const QByteArray& other);

    // The relative path of the first entry that differs or could not be read; empty when that is
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
