// SPDX-License-Identifier: GPL-3.0-or-later
// What the program asks of the machine it runs on, gathered so that tests can answer instead.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

struct DBCHost {
    // Bytes free for this user on the file system that holds an existing path; none on failure.
    std::function<std::optional<quint64>(const QString& path)> freeBytes;
    // The immutable attribute, symbolic links followed; false where the file system has no such
    // flag or does not show it to this user, none when the attributes cannot be read.
    std::function<std::optional<bool>(const QString& path)> isImmutable;
    // Effective-user access.
    std::function<bool(const QString& path)> isReadable;
    std::function<bool(const QString& path)> isWritable;
    // Version in binary-coded decimal, 0x1060 for 10.6.0; none where it cannot be asked, which is
    // everywhere on Linux.
    std::function<std::optional<qint32>()> systemVersion;
    // Names of the running applications: what each process calls itself and what its program file
    // is called.
    std::function<QStringList()> runningApplications;

    QString applicationsFolder; // "/Applications"; empty: none
    QString programFolder; // the folder that holds this program
    QString mountTable; // "/proc/self/mountinfo"
    QString diskUsageProgram; // "/usr/bin/du"
    QString fileOpener; // "xdg-open", which opens a file as the desktop does

    // The machine as it is.
    static DBCHost real();
    // The one in use; real() unless a test replaced it.
    static DBCHost& current();
};
