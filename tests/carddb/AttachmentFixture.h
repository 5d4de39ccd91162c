// SPDX-License-Identifier: GPL-3.0-or-later
// Folders of attachments for tests, and functions that list their contents.
#pragma once

#include "tests/carddb/TransferFixture.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>

using namespace Qt::StringLiterals;

// Returns the names of all entries of a folder, including hidden files and links that lead nowhere.
inline QStringList entries(const QString& folder)
{
    return QDir(folder).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

inline QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

// Makes one entry of each kind that is no attachment. Their names are those of specialNames, in
// that order.
inline void makeSpecialEntries(const QString& folder)
{
    QVERIFY(QFile::link(u"a.txt"_s, folder + u"/b-link"_s));
    QVERIFY(QFile::link(u"none"_s, folder + u"/c-dangling"_s));
    QVERIFY(QFile::link(u"/usr"_s, folder + u"/d-folder-link"_s));
    const QString pipe = folder + u"/e-pipe"_s;
    QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);

    // The socket is made through a short path, because the path of a socket has a small maximum
    // length, which the temporary folder's path may exceed.
    const int directory = open(QFile::encodeName(folder).constData(), O_PATH | O_CLOEXEC);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address {};
    address.sun_family = AF_UNIX;
    const QByteArray path = "/proc/self/fd/" + QByteArray::number(directory) + "/f-socket";
    std::memcpy(address.sun_path, path.constData(), std::size_t(path.size()));
    // The cast is needed because bind() takes a pointer to the general address type.
    QCOMPARE(bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    close(socket);
    close(directory);
}

inline const QStringList specialNames {
    u"b-link"_s, u"c-dangling"_s, u"d-folder-link"_s, u"e-pipe"_s, u"f-socket"_s};

inline QStringList specialWarnings(const char* key, const QString& number)
{
    QStringList warnings;
    for (const QString& name : specialNames)
        warnings << TransferFixture::text(key, {number, u"Hanako"_s, name});
    return warnings;
}

inline bool copyFailureWasLogged(const RecordedLog& log)
{
    return log.errors.contains(TransferFixture::text("IDS_LOG_ERR_ATTACHMENT_COPY_FAILURE"));
}
