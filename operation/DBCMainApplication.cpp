// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/DBCMainApplication.h"

namespace DBCMainApplication {

QString folder(const QString& applicationsFolder)
{
    return applicationsFolder + u'/' + name.toString();
}

QString bundle(const QString& applicationsFolder)
{
    return folder(applicationsFolder) + QStringLiteral("/Velmora.app");
}

QString versionList(const QString& applicationsFolder)
{
    return bundle(applicationsFolder) + QStringLiteral("/Contents/version.plist");
}

} // namespace DBCMainApplication
