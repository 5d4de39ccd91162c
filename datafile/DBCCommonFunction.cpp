// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/DBCCommonFunction.h"

#include "datafile/DBCColumns.h"
#include "datafile/DBCLocalizable.h"
#include "datafile/DBCTextEncoding.h"
#include "operation/DBCHost.h"
#include "text/DBCCharacterWidth.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

// What is read of a "Version.txt": far more than its line takes, little enough for a file of any
// size that stands under that name.
constexpr qint64 versionFileLimit = 0x10000;

constexpr qint32 oldestSystemVersion = 0x1050;

bool writeWholeFile(const QString& path, const QByteArray& data)
{
    QFile file(path);
    // Unbuffered, because a buffered write reports success until the disk turns out to be full.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return false;
    bool isWritten = file.write(data) == data.size();
    file.close();
    isWritten = isWritten && file.error() == QFileDevice::NoError;
    if (!isWritten)
        file.remove();
    return isWritten;
}

// A link that leads nowhere counts, or else writing would create what it names.
bool fileStandsAt(const QFileInfo& info)
{
    return (info.exists() || info.isSymLink()) && !info.isDir();
}

QString firstLine(const QString& text)
{
    const auto end = std::find_if(text.cbegin(), text.cend(),
        [](QChar character) { return newLineCharacters().contains(character); });
    return text.first(end - text.cbegin());
}

std::optional<QByteArray> readStart(const QString& path, qint64 limit)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QByteArray bytes = file.read(limit);
    if (file.error() != QFileDevice::NoError)
        return {};
    return bytes;
}

} // namespace

QStringList DBCCommonFunction::createTitleNamesForDataFile()
{
    QStringList titles;
    for (const DBCColumn& column : DBCColumns)
        titles << getLocalString(column.titleKey);
    return titles;
}

std::vector<DBCRecordKey> DBCCommonFunction::createRecordKeyNamesForDataFile()
{
    std::vector<DBCRecordKey> keys;
    keys.reserve(DBCColumns.size());
    for (const DBCColumn& column : DBCColumns)
        keys.push_back(column.key);
    return keys;
}

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
    if (!DBCChecker::checkDiskSizeIsEnough(parent, needed))
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
    const QFileInfo info(path);
    if (!info.isFile())
        return {};
    const auto bytes = readStart(path, versionFileLimit);
    if (!bytes)
        return {};
    auto text = decodeText(*bytes, DBCTextEncoding::Utf16);
    // The limit may have cut a pair of surrogates in two.
    if (!text && info.size() > versionFileLimit)
        text = decodeText(bytes->chopped(sizeof(char16_t)), DBCTextEncoding::Utf16);
    if (!text)
        return {};
    return DBCVersionInfo {{QString::fromLatin1(versionInfoKey), firstLine(*text)}};
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
