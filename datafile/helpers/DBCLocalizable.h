// SPDX-License-Identifier: GPL-3.0-or-later
// The localized strings table "Localizable", which has an IDS_* key for every text that a person
// reads. In every program that links this library, Qt's own texts (standard dialogs, command line
// errors) use the table's language from the moment the application object exists.
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

    // The language of the table. The first use chooses Japanese in a Japanese locale and English in
    // any other. setLanguage() changes the language for the whole process. Any thread may call both
    // functions.
    static Language language();
    static void setLanguage(Language language);
    // Returns the first language in the list that the table supports, or English when it supports
    // none of them. wanted holds language tags such as "ja-JP" and "en", the preferred one first.
    static Language languageFor(const QStringList& wanted);
    static QLocale locale();

    // Returns the text of a key, or std::nullopt when the table has no entry for this key.
    static std::optional<QString> text(const QString& key);

    // Returns text with %1 to %9 (and %L1 to %L9) replaced by the arguments. A placeholder without
    // an argument stays. Arguments are not searched for placeholders, so "%1" within an argument
    // stays as well.
    static QString fill(const QString& text, const DBCMessageArguments& arguments);

    // For tests only: as long as a Substitute exists, its entries replace those of the table. The
    // value std::nullopt hides the table's entry. Only one Substitute may exist at a time, and no
    // other thread may use the table while the Substitute is made or destroyed.
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

// Returns the text of a key, or the key itself when the table has no entry.
QString getLocalString(const QString& key);

// Returns the text of a key with the arguments in place of its placeholders.
QString getLocalString(const QString& key, const DBCMessageArguments& arguments);

// Does the same for a key given as ASCII text.
QString getLocalString(const char* key, const DBCMessageArguments& arguments = {});
