// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/desktop/DBCPaths.h"

#include "carddb/DBCPackageLayout.h"
#include "operation/DBCPreconditions.h"
#include "operation/log/DBCSettings.h"

#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

QString settingsFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u'/'
        + QString::fromLatin1(DBCSettings::bundleIdentifier) + u"/window.ini"_s;
}

QString lastDataPathKey(OperationType type)
{
    return type == OperationType::Import ? u"import/lastDataPath"_s : u"export/lastDataPath"_s;
}

} // namespace

namespace DBCPaths {

QString usable(const QString& typedPath)
{
    QString asTyped = DBCPreconditions::expandedPath(typedPath);
    if (QFileInfo::exists(asTyped))
        return asTyped;
    const QString trimmed = DBCPreconditions::expandedPath(typedPath.trimmed());
    return QFileInfo::exists(trimmed) ? trimmed : asTyped;
}

bool isPackage(const QString& path)
{
    const QFileInfo info(path);
    return info.isDir()
        && info.suffix().compare(QStringView(DBCPackageLayout::extension), Qt::CaseInsensitive)
        == 0;
}

QString lastDataPath(OperationType type)
{
    return QSettings(settingsFile(), QSettings::IniFormat).value(lastDataPathKey(type)).toString();
}

void rememberDataPath(OperationType type, const QString& path)
{
    QSettings(settingsFile(), QSettings::IniFormat).setValue(lastDataPathKey(type), path);
}

} // namespace DBCPaths
