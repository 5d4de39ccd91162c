// SPDX-License-Identifier: GPL-3.0-or-later
// The two places the program takes settings from: its own information dictionary and the
// preferences of the main card application. Both are read anew at every call.
#pragma once

#include <QString>
#include <QVariantMap>

#include <optional>

class DBCSettings {
public:
    static constexpr const char* bundleIdentifier = "com.velmora.VelmoraConverter";
    static constexpr const char* mainApplicationIdentifier = "com.velmora.Velmora";
    static constexpr const char* logLevelKey = "Log Level";
    static constexpr const char* databasePathKey = "DB path";

    // $HOME/Library/Preferences/<identifier>.plist
    static QString preferencesFile(const char* identifier);

    // What is shipped with the program, with the entries of the user's preferences file of the
    // program in front.
    static QVariantMap informationDictionary();
    // Empty when there are none.
    static QVariantMap mainApplicationPreferences();

    // "Log Level" as a number; none when it is absent or no number.
    static std::optional<qint32> logLevel();
    // The main application's "DB path"; none when it is absent or no text.
    static std::optional<QString> mainApplicationDatabasePath();
};
