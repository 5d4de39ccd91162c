// SPDX-License-Identifier: GPL-3.0-or-later
// Compares two folders with everything in them: names, types, permissions, the sizes and contents
// of files, and the targets of links.
#pragma once

#include <QByteArray>

#include <functional>
#include <vector>

#include <sys/stat.h>

// Times and extended attributes are not compared, and set-ID bits are compared only if both entries
// have the same owner. Links are never followed. Pipes, sockets and devices make folders differ.
// Every file is opened and read, so comparing a folder with itself shows whether all of it is
// readable.
class DBCTreeComparison {
public:
    struct Questions {
        // Called before each entry. If it returns false, the comparison ends. May be empty.
        std::function<bool()> mayGoOn;
        // Returns true if the size and contents of the file at path may differ. path is relative to
        // the folder. If this function is empty, all files are compared.
        std::function<bool(const QByteArray& path)> mayDiffer;
    };

    explicit DBCTreeComparison(Questions questions = {})
        : _questions(std::move(questions))
    {
    }

    // Returns true if both folders could be read completely and are equal.
    bool areEqual(const QByteArray& folder, const QByteArray& other);

    // The relative path of the first entry that differs or could not be read; the path is empty if
    // the folders themselves differ or cannot be read. An object can be used for one comparison
    // only.
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
