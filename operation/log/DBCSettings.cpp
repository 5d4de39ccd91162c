// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/log/DBCSettings.h"

#include "operation/log/DBCPropertyList.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

constexpr const char* shippedDictionary = ":/velmora/Info.plist";

QVariantMap readOrEmpty(const QString& path)
{
    return DBCPropertyList::read(path).value_or(QVariantMap());
}

} // namespace

QString DBCSettings::preferencesFile(const char* identifier)
{
    return QDir::homePath() + u"/Library/Preferences/"_s + QString::fromLatin1(identifier)
        + u".plist"_s;
}

QVariantMap DBCSettings::informationDictionary()
{
    QVariantMap dictionary = readOrEmpty(QString::fromLatin1(shippedDictionary));
    dictionary.insert(readOrEmpty(preferencesFile(bundleIdentifier)));
    return dictionary;
}

QVariantMap DBCSettings::mainApplicationPreferences()
{
    return readOrEmpty(preferencesFile(mainApplicationIdentifier));
}

std::optional<qint32> DBCSettings::logLevel()
{
    const QVariant level = informationDictionary().value(QString::fromLatin1(logLevelKey));
    if (level.typeId() != QMetaType::LongLong && level.typeId() != QMetaType::Double)
        return {};
    return static_cast<qint32>(level.toLongLong());
}

std::optional<QString> DBCSettings::mainApplicationDatabasePath()
{
    const QVariant path = mainApplicationPreferences().value(QString::fromLatin1(databasePathKey));
    if (path.typeId() != QMetaType::QString)
        return {};
    return path.toString();
}
