// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/helpers/DBCVersionInfo.h"

#include "datafile/helpers/DBCInterchangeNames.h"
#include "datafile/helpers/DBCTextEncoding.h"
#include "text/DBCCharacterSets.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

// Only the first 64 KiB of a "Version.txt" are read. The line needs far less, and the limit keeps a
// huge file of this name from filling the memory.
constexpr qint64 versionFileLimit = 0x10000;

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

std::optional<DBCVersionInfo> readVersionInfo(const QString& path)
{
    const QFileInfo info(path);
    if (!info.isFile())
        return {};
    const auto bytes = readStart(path, versionFileLimit);
    if (!bytes)
        return {};
    auto text = decodeText(*bytes, DBCTextEncoding::Utf16);
    // If the file is longer than the limit, the text may be invalid only because the limit divided
    // a surrogate pair.
    if (!text && info.size() > versionFileLimit)
        text = decodeText(bytes->chopped(sizeof(char16_t)), DBCTextEncoding::Utf16);
    if (!text)
        return {};
    return DBCVersionInfo {{QString::fromLatin1(versionInfoKey), firstLine(*text)}};
}

DBCResultCode checkVersionInfo(const std::optional<DBCVersionInfo>& versionInfo)
{
    const QString key = QString::fromLatin1(versionInfoKey);
    if (!versionInfo || !versionInfo->contains(key))
        return DBCResultCode::VersionFileMismatch;
    const QString line = versionInfo->value(key);
    const qsizetype tab = line.indexOf(u'\t');
    if (tab < 0)
        return DBCResultCode::VersionFileMismatch;
    if (QStringView(line).first(tab) == QStringView(DBCInterchangeNames::productCode))
        return DBCResultCode::VersionFileRefusedProduct;
    return QStringView(line).sliced(tab + 1) == QStringView(DBCInterchangeNames::productVersion)
        ? DBCResultCode::Success
        : DBCResultCode::VersionFileMismatch;
}
