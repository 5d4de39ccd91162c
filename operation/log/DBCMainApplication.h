// SPDX-License-Identifier: GPL-3.0-or-later
// The name of the main card application, where it is installed, and whether it runs.
#pragma once

#include <QString>
#include <QStringView>

namespace DBCMainApplication {

inline constexpr QStringView name = u"Velmora"; // also the name of its process
// Compared with the installed version as plain text, on purpose: "1.1.3" counts as newer than this.
inline constexpr QStringView minimumVersion = u"1.1.20";

QString folder(const QString& applicationsFolder); // "Velmora"
QString bundle(const QString& applicationsFolder); // "Velmora/Velmora.app"
QString versionList(const QString& applicationsFolder); // the bundle's "Contents/version.plist"

// Whether a process of this name runs on this machine.
bool isRunning();
// Whether this program is installed in the main application's folder, beside its bundle.
bool standsBesideThisProgram();

} // namespace DBCMainApplication
