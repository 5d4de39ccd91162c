// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/helpers/DBCCommonFunction.h"

#include "system/DBCHost.h"
#include "system/DBCPathChecks.h"
#include "text/DBCCharacterWidth.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

constexpr qint32 oldestSystemVersion = 0x1050;

bool writeWholeFile(const QString& path, const QByteArray& data)
{
    QFile file(path);
    // Unbuffered, because a buffered write would report a full disk only when the file is closed.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return false;
    bool isWritten = file.write(data) == data.size();
    file.close();
    isWritten = isWritten && file.error() == QFileDevice::NoError;
    if (!isWritten)
        file.remove();
    return isWritten;
}

// A symbolic link whose target is missing counts as a file, so that saveFile() removes the link.
// Otherwise writing to the link would create the target.
bool fileStandsAt(const QFileInfo& info)
{
    return (info.exists() || info.isSymLink()) && !info.isDir();
}

} // namespace

DBCResultCode DBCCommonFunction::saveFile(
    const std::optional<QByteArray>& data, const QString& toGivenPath)
{
    if (!data || toGivenPath.isEmpty())
        return DBCResultCode::GeneralFailure;
    const QFileInfo target(toGivenPath);
    const QString parent = target.path();
    if (!QFileInfo(parent).isDir() || !DBCHost::current().isWritable(parent))
        return DBCResultCode::FileSaveFailure;
    const quint64 needed = static_cast<quint64>(data->size()) + DBCDiskSpaceMargin;
    if (!hasFreeBytes(parent, needed))
        return DBCResultCode::NoSpaceForExport;
    if (fileStandsAt(target) && !QFile::remove(toGivenPath))
        return DBCResultCode::FileSaveFailure;
    return writeWholeFile(toGivenPath, *data) ? DBCResultCode::Success
                                              : DBCResultCode::FileSaveFailure;
}

bool DBCCommonFunction::cleanTempFile(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() && !info.isDir() && QFile::remove(path);
}

bool DBCCommonFunction::makeDirectory(const QString& path)
{
    return path.isEmpty() || QFileInfo(path).isDir() || QDir().mkpath(path);
}

std::optional<DBCVersionInfo> DBCCommonFunction::getVersionInfo(const QString& path)
{
    return readVersionInfo(path);
}

QString DBCCommonFunction::formatValue(const std::optional<QString>& value)
{
    QString converted;
    if (convertHalfToFull(value, &converted) != DBCResultCode::Success)
        return QLatin1StringView("");
    return converted;
}

qint32 getSystemVersion()
{
    return DBCHost::current().systemVersion().value_or(oldestSystemVersion);
}
