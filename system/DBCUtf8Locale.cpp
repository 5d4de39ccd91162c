// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DBCUtf8Locale.h"

#include <QLocale>

#include <clocale>
#include <langinfo.h>

namespace {

constexpr const char* overrideVariable = "LC_ALL"; // comes before LC_CTYPE and LANG

// The toolkit checks the user's locale in the same way. A locale that is not installed counts as
// "C".
bool isUserLocaleUtf8()
{
    std::setlocale(LC_ALL, "");
    return qstricmp(nl_langinfo(CODESET), "UTF-8") == 0;
}

} // namespace

DBCUtf8Locale::DBCUtf8Locale()
{
    if (isUserLocaleUtf8())
        return;
    // This first call makes the toolkit read the language from the environment and remember it.
    [[maybe_unused]] const QStringList languages = QLocale::system().uiLanguages();
    if (qEnvironmentVariableIsSet(overrideVariable))
        _userValue = qgetenv(overrideVariable);
    qputenv(overrideVariable, "C.UTF-8");
    _isReplaced = true;
}

DBCUtf8Locale::~DBCUtf8Locale()
{
    if (!_isReplaced)
        return;
    if (_userValue)
        qputenv(overrideVariable, *_userValue);
    else
        qunsetenv(overrideVariable);
}
