// SPDX-License-Identifier: GPL-3.0-or-later
// The localized strings table "Localizable": every text that a person reads has an IDS_* key in it.
// In every program that links this library, Qt's own texts (standard dialogs, command line errors)
// use the table's language from the moment the application object exists.
#pragma once

#include <QHash>
#include <QLocale>
#include <QString>
#include <QStringList>

#include <optional>
#include <variant>
#include <vector>

// A number fills %1 with plain digits and %L1 with digits grouped by the rules of the language.
using DBCMessageArgument = std::variant<QString, qint64>;
using DBCMessageArguments = std::vector<DBCMessageArgument>;

class DBCLocalizable {
public:
    enum class Language : quint8 { English, Japanese };

    // The table's language: Japanese in a Japanese locale, otherwise English. It is chosen on first
    // use; setLanguage() replaces it for the whole process. May be called on any thread.
    static Language language();
    static void setLanguage(Language language);
    // The first language in the list that the table has, English when it has none of them. wanted:
    // language tags such as "ja-JP" and "en", the preferred one first.
    static Language languageFor(const QStringList& wanted);
    static QLocale locale();

    // The text of a key; none when the table has no entry for it.
    static std::optional<QString> text(const QString& key);

    // Returns text with %1 to %9 (and %L1 to %L9) replaced by the arguments. This takes one pass,
    // so an argument that contains "%1" itself stays as it is. A placeholder without an argument
    // stays.
    static QString fill(const QString& text, const DBCMessageArguments& arguments);

    // For tests: entries that replace those of the table as long as the object lives; the value
    // none hides an entry. Only one object may exist at a time, and no other thread may use the
    // table while it is made or destroyed.
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

// The text of a key with its placeholders filled.
QString getLocalString(const QString& key, const DBCMessageArguments& arguments);

// The same for a key given as ASCII text.
QString getLocalString(const char* key, const DBCMessageArguments& arguments = {});
