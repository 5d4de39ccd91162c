// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the program's settings from its own information dictionary and from the preferences of the
// main card application. Every call reads the files again.
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

    // Returns the settings shipped with the program. An entry in the user's own preferences file
    // for this program replaces the shipped entry.
    static QVariantMap informationDictionary();
    // Returns an empty map if there is no such file or if the file cannot be read.
    static QVariantMap mainApplicationPreferences();

    // Returns "Log Level" of the information dictionary, or std::nullopt if the entry is missing or
    // no number.
    static std::optional<qint32> logLevel();
    // Returns "DB path" of the main application's preferences, or std::nullopt if the entry is
    // missing or no text.
    static std::optional<QString> mainApplicationDatabasePath();
};
