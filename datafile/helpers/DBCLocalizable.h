// SPDX-License-Identifier: GPL-3.0-or-later
// The localized strings table "Localizable": every text a person reads is an IDS_* key of it. Qt's
// own texts (standard dialogs, command line errors) follow the table's language in every program
// that links this library, as soon as it has an application object.
#pragma once

#include <QHash>
#include <QLocale>
#include <QString>
#include <QStringList>

#include <optional>
#include <variant>
#include <vector>

// Numbers are filled in as %1 (plain digits) or %L1 (grouped as the language does).
using DBCMessageArgument = std::variant<QString, qint64>;
using DBCMessageArguments = std::vector<DBCMessageArgument>;

class DBCLocalizable {
public:
    enum class Language : quint8 { English, Japanese };

    // The table's language: Japanese where the locale says so, English everywhere else. Chosen on
    // first use; setLanguage() replaces it for the whole process. Any thread may ask.
    static Language language();
    static void setLanguage(Language language);
    // The first of the user's languages, most wanted first ("ja-JP", "en"), that the table has.
    static Language languageFor(const QStringList& wanted);
    static QLocale locale();

    // The text of a key; none when the table has no entry for it.
    static std::optional<QString> text(const QString& key);

    // text with %1 to %9 (and %L1 to %L9) replaced in one pass, so that an argument that itself
    // holds "%1" stays as it is. A placeholder without an argument stays.
    static QString fill(const QString& text, const DBCMessageArguments& arguments);

    // Entries that stand in front of the table for as long as the object lives; none: the table has
    // no such entry. One at a time, made before and destroyed after any other thread asks.
    class Substitute {
    public:
        explicit Substitute(QHash<QString, std::optional<QString>> entries);
        ~Substitute();
        Substitute(const Substitute&) = delete;
        Substitute& operator=(const Substitute&) = delete;

    private:
        friend class DBCLocalizable;
        QHash<QString, std::optional<QString>> _entries;
    };
};

// The text of a key, or the key itself when the table has no entry.
QString getLocalString(const QString& key);

// The same, filled with arguments.
QString getLocalString(const QString& key, const DBCMessageArguments& arguments);

// The same for a key in ASCII, as all of them are.
QString getLocalString(const char* key, const DBCMessageArguments& arguments = {});
