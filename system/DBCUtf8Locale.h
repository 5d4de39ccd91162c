// SPDX-License-Identifier: GPL-3.0-or-later
// Creates the application object in a UTF-8 locale. The toolkit writes a warning to standard error
// when the user's locale has another encoding or is not installed; our files and texts are UTF-8 in
// every locale, so the warning would only disturb.
#pragma once

#include <QByteArray>

#include <optional>

// While an object of this class exists, the environment names a UTF-8 locale: if the user's own
// locale has another encoding or is not installed, the constructor sets LC_ALL. The destructor
// restores LC_ALL, so that programs started later get the user's locale. Before it sets LC_ALL, the
// constructor makes the toolkit determine the user's language, so that the language does not
// change. To be used on the main thread before other threads are started.
class DBCUtf8Locale {
public:
    DBCUtf8Locale();
    ~DBCUtf8Locale();
    DBCUtf8Locale(const DBCUtf8Locale&) = delete;
    DBCUtf8Locale& operator=(const DBCUtf8Locale&) = delete;

private:
    bool _isReplaced = false;
    std::optional<QByteArray> _userValue; // of LC_ALL; std::nullopt if it was not set
};

// argc and argv have to outlive the application object.
template <typename Application> Application applicationInUtf8(int& argc, char** argv)
{
    const DBCUtf8Locale locale;
    return Application(argc, argv);
}
