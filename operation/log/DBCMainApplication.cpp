// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/log/DBCMainApplication.h"

#include "system/DBCHost.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace DBCMainApplication {

QString folder(const QString& applicationsFolder)
{
    return applicationsFolder + u'/' + name.toString();
}

QString bundle(const QString& applicationsFolder)
{
    return folder(applicationsFolder) + u"/Velmora.app"_s;
}

QString versionList(const QString& applicationsFolder)
{
    return bundle(applicationsFolder) + u"/Contents/version.plist"_s;
}

bool isRunning()
{
    return DBCHost::current().runningApplications().contains(name);
}

bool standsBesideThisProgram()
{
    const DBCHost& host = DBCHost::current();
    if (host.applicationsFolder.isEmpty())
        return false;
    return folder(host.applicationsFolder) == host.programFolder
        && QFileInfo(bundle(host.applicationsFolder)).isDir();
}

} // namespace DBCMainApplication
