// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/DBCNames.h"

#include "text/DBCCharacterSets.h"

#include <QStringList>

#include <algorithm>

namespace {

constexpr char16_t ideographicSpace = u'\u3000';

// Says where the middle part of a name begins: at the space behind the first part, or at the
// character behind this space. In both cases the middle part is trimmed.
enum class MiddleBegins : quint8 { AtSpace, BehindSpace };

bool isWhiteSpaceOrNewLine(QChar character)
{
    const char16_t unit = character.unicode();
    return isWhiteSpace(character) || (unit >= u'\u000A' && unit <= u'\u000D') || unit == u'\u0085'
        || unit == u'\u2028' || unit == u'\u2029';
}

QString trimmed(QStringView text)
{
    return trimmedWhere(text, isWhiteSpaceOrNewLine).toString();
}

// A trimmed name. parts holds its words. keep holds the whole name with its spaces as written;
// parts of several words are cut from keep, so that ideographic spaces between the words stay.
// Since each word is followed by exactly one space, positions in keep follow from the lengths of
// the words.
struct Words {
    QStringList parts;
    QString keep;
};

Words splitIntoWords(const QString& text)
{
    QString work = text;
    work.replace(ideographicSpace, u' ');
    const QString trimmedWork = trimmed(work);
    if (trimmedWork.isEmpty())
        return {work.split(u' '), text};
    return {trimmedWork.split(u' '), trimmed(text)};
}

DBCNameParts separateGivenNameFirst(const Words& words, MiddleBegins middleBegins)
{
    const QStringList& parts = words.parts;
    DBCNameParts result;
    result.first = parts.first();
    if (parts.size() > 1)
        result.family = parts.last();
    if (parts.size() > 2) {
        const qsizetype space = middleBegins == MiddleBegins::BehindSpace ? 1 : 0;
        QStringView middle = QStringView(words.keep).sliced(parts.first().size() + space);
        middle.chop(parts.last().size() + 1);
        result.middle = trimmed(middle);
    }
    return result;
}

DBCNameParts separateFamilyNameFirst(const Words& words)
{
    DBCNameParts result;
    result.family = words.parts.first();
    if (words.parts.size() > 1)
        result.first = trimmed(QStringView(words.keep).sliced(words.parts.first().size() + 1));
    return result;
}

DBCNameParts separate(const std::optional<QString>& text, MiddleBegins middleBegins)
{
    if (!text)
        return {};
    const Words words = splitIntoWords(*text);
    return DBCNames::judgeLanguage(*text) == DBCLanguage::Japanese
        ? separateFamilyNameFirst(words)
        : separateGivenNameFirst(words, middleBegins);
}

} // namespace

namespace DBCNames {

DBCLanguage judgeLanguage(QStringView text)
{
    const bool isJapanese = std::any_of(
        text.begin(), text.end(), [](QChar unit) { return unit.unicode() > ideographicSpace; });
    return isJapanese ? DBCLanguage::Japanese : DBCLanguage::Other;
}

DBCNameParts separateName(const std::optional<QString>& text)
{
    return separate(text, MiddleBegins::BehindSpace);
}

DBCNameParts separateNameYomi(const std::optional<QString>& text)
{
    return separate(text, MiddleBegins::AtSpace);
}

} // namespace DBCNames
