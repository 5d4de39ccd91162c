// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/helpers/DBCLocalizable.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include <array>
#include <atomic>

using namespace Qt::StringLiterals;

namespace {

using Language = DBCLocalizable::Language;

struct TableLanguage {
    Language language;
    QLocale::Language code;
    QLocale::Territory territory;
    const char* catalogue;
};

constexpr std::array<TableLanguage, 2> tableLanguages {{
    {Language::English, QLocale::English, QLocale::UnitedStates,
        ":/velmora/i18n/Localizable_en.qm"},
    {Language::Japanese, QLocale::Japanese, QLocale::Japan, ":/velmora/i18n/Localizable_ja.qm"},
}};

const TableLanguage& entryOf(Language language)
{
    return tableLanguages[static_cast<std::size_t>(language)];
}

std::atomic<Language>& currentLanguage()
{
    static std::atomic<Language> language
        = DBCLocalizable::languageFor(QLocale::system().uiLanguages());
    return language;
}

// Reads the translation catalogues directly. qtTrId() would not do: it returns the key for a
// missing entry, and returns only keys before the application object exists.
struct Catalogues {
    Catalogues()
    {
        for (std::size_t i = 0; i < tableLanguages.size(); ++i) {
            if (!translators[i].load(QLatin1StringView(tableLanguages[i].catalogue)))
                qFatal("the texts %s are missing", tableLanguages[i].catalogue);
        }
    }
    std::array<QTranslator, tableLanguages.size()> translators;
};

const QTranslator& catalogueOf(Language language)
{
    static const Catalogues catalogues;
    return catalogues.translators[static_cast<std::size_t>(language)];
}

// If the system has no translations of Qt, Qt's own texts stay English.
void installTextsOfQt()
{
    auto* const texts = new QTranslator(QCoreApplication::instance());
    if (texts->load(DBCLocalizable::locale(), u"qtbase"_s, u"_"_s,
            QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(texts);
}
Q_COREAPP_STARTUP_FUNCTION(installTextsOfQt)

std::atomic<const DBCLocalizable::Substitute*> substitute = nullptr;

struct Placeholder {
    qsizetype length; // includes the percent sign
    std::size_t argument; // index
    bool isGrouped;
};

std::optional<Placeholder> placeholderAt(QStringView text, qsizetype position)
{
    const QStringView rest = text.sliced(position);
    const bool isGrouped = rest.startsWith(u"%L");
    const qsizetype digit = isGrouped ? 2 : 1;
    if (!rest.startsWith(u'%') || digit >= rest.size() || rest[digit] < u'1' || rest[digit] > u'9')
        return {};
    return Placeholder {
        digit + 1, static_cast<std::size_t>(rest[digit].unicode() - u'1'), isGrouped};
}

QString argumentText(const DBCMessageArgument& argument, bool isGrouped)
{
    if (const auto* text = std::get_if<QString>(&argument))
        return *text;
    const qint64 number = std::get<qint64>(argument);
    return isGrouped ? DBCLocalizable::locale().toString(number) : QString::number(number);
}

} // namespace

DBCLocalizable::Language DBCLocalizable::language()
{
    return currentLanguage();
}

void DBCLocalizable::setLanguage(Language language)
{
    currentLanguage() = language;
}

DBCLocalizable::Language DBCLocalizable::languageFor(const QStringList& wanted)
{
    for (const QString& name : wanted) {
        const QLocale::Language code = QLocale(name).language();
        for (const TableLanguage& entry : tableLanguages) {
            if (entry.code == code)
                return entry.language;
        }
    }
    return Language::English;
}

QLocale DBCLocalizable::locale()
{
    const TableLanguage& entry = entryOf(language());
    return {entry.code, entry.territory};
}

std::optional<QString> DBCLocalizable::text(const QString& key)
{
    if (const Substitute* current = substitute) {
        if (const auto entry = current->_entries.constFind(key);
            entry != current->_entries.constEnd())
            return *entry;
    }
    const QString found = catalogueOf(language()).translate("", key.toUtf8().constData());
    return found.isNull() ? std::nullopt : std::optional(found);
}

QString DBCLocalizable::fill(const QString& text, const DBCMessageArguments& arguments)
{
    QString result;
    result.reserve(text.size());
    for (qsizetype position = 0; position < text.size();) {
        const auto placeholder = placeholderAt(text, position);
        if (placeholder && placeholder->argument < arguments.size()) {
            result += argumentText(arguments[placeholder->argument], placeholder->isGrouped);
            position += placeholder->length;
        } else {
            result += text[position++];
        }
    }
    return result;
}

DBCLocalizable::Substitute::Substitute(QHash<QString, std::optional<QString>> entries)
    : _entries(std::move(entries))
{
    substitute = this;
}

DBCLocalizable::Substitute::~Substitute()
{
    substitute = nullptr;
}

QString getLocalString(const QString& key)
{
    return DBCLocalizable::text(key).value_or(key);
}

QString getLocalString(const QString& key, const DBCMessageArguments& arguments)
{
    return DBCLocalizable::fill(getLocalString(key), arguments);
}

QString getLocalString(const char* key, const DBCMessageArguments& arguments)
{
    return getLocalString(QString::fromLatin1(key), arguments);
}
