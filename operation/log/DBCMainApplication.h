// SPDX-License-Identifier: GPL-3.0-or-later
// Where the main card application is installed and what it is called.
#pragma once

#include <QString>
#include <QStringView>

namespace DBCMainApplication {

inline constexpr QStringView name = u"Velmora"; // its running name too
// Compared with the installed version as plain text: "1.1.3" is newer than this.
inline constexpr QStringView minimumVersion = u"1.1.20";

QString folder(const QString& applicationsFolder); // "Velmora"
QString bundle(const QString& applicationsFolder); // "Velmora/Velmora.app"
QString versionList(const QString& applicationsFolder); // the bundle's "Contents/version.plist"

// Whether a process of its name runs on this machine.
bool isRunning();
// Whether this program stands in the main application's folder beside its bundle.
bool standsBesideThisProgram();

} // namespace DBCMainApplication
