// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DBCHiddenName.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <climits>

using namespace Qt::StringLiterals;

namespace {

QString besideAs(const QString& path, const char* ending)
{
    const QFileInfo info(QDir::cleanPath(path));
    QByteArray name = QFile::encodeName(info.fileName());
    const QByteArray end(ending);
    if (name.size() + end.size() + 1 > NAME_MAX)
        name = QCryptographicHash::hash(name, QCryptographicHash::Sha256).toHex();
    return QDir::cleanPath(info.path() + u"/."_s + QFile::decodeName(name + end));
}

} // namespace

namespace DBCHiddenName {

QString unfinishedCopyOf(const QString& path)
{
    return besideAs(path, ".velmora-copy");
}

QString discarded(const QString& path)
{
    return besideAs(path, ".velmora-discarded");
}

QString journalOf(const QString& path)
{
    return besideAs(path, ".velmora-import");
}

} // namespace DBCHiddenName
