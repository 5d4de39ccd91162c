// SPDX-License-Identifier: GPL-3.0-or-later
// What the program needs to know about the machine that it runs on. All of it is in one place, so
// that tests can replace it.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

// The functions may be called from any thread. Tests replace entries of current() before other
// threads start. No function is ever empty.
struct DBCHost {
    // Bytes free for this user on the file system that holds an existing path; std::nullopt on
    // failure.
    std::function<std::optional<quint64>(const QString& path)> freeBytes;
    // Whether the immutable attribute is set; symbolic links are followed. False where the file
    // system has no such attribute or does not show it to this user; std::nullopt if the attribute
    // cannot be read.
    std::function<std::optional<bool>(const QString& path)> isImmutable;
    // Whether the effective user may read or write the path; false when it does not exist.
    std::function<bool(const QString& path)> isReadable;
    std::function<bool(const QString& path)> isWritable;
    // The version in binary-coded decimal, 0x1060 for 10.6.0. The value is std::nullopt if the
    // system has no such version, as on Linux.
    std::function<std::optional<qint32>()> systemVersion;
    // For each running process, the name that it gives itself and the name of its program file,
    // each name once.
    std::function<QStringList()> runningApplications;

    QString applicationsFolder; // "/Applications"; empty if there is no such folder
    QString programFolder; // the folder that holds this program
    QString mountTable; // "/proc/self/mountinfo"
    QString diskUsageProgram; // "/usr/bin/du"
    QString fileOpener; // "xdg-open", which opens a file as the desktop does

    // Returns the functions and values for the real machine.
    static DBCHost real();
    // Returns the functions and values in use: those of real(), unless a test replaced some.
    static DBCHost& current();
};
