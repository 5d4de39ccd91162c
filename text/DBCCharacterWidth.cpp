// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/DBCCharacterWidth.h"

#include <array>
#include <string>

namespace {

constexpr char16_t firstHalfWidth = 0xFF61;
constexpr char16_t lastHalfWidth = 0xFF9F;
constexpr char16_t firstKana = 0xFF66;
constexpr char16_t lastKana = 0xFF9D;
constexpr char16_t voicedMark = 0xFF9E;
constexpr char16_t semiVoicedMark = 0xFF9F;
constexpr char16_t firstAscii = 0x21;
constexpr char16_t lastAscii = 0x7E;
constexpr char16_t asciiToFullWidth = 0xFEE0;

enum MarkKind : qint32 { Voiced = 1, SemiVoiced = 2 };
constexpr qint32 converted = 0;
constexpr qint32 notConverted = 1;

// The corner brackets become white corner brackets, and the sound marks become spacing sound marks,
// because the cards in existing databases were converted in this way.
constexpr std::array<char16_t, lastHalfWidth - firstHalfWidth + 1> fullWidth {
    u'\u3002', u'\u300E', u'\u300F', u'\u3001', u'\u30FB', // 。『』、・
    u'ヲ', u'ァ', u'ィ', u'ゥ', u'ェ', u'ォ', u'ャ', u'ュ', u'ョ', u'ッ', u'ー', //
    u'ア', u'イ', u'ウ', u'エ', u'オ', u'カ', u'キ', u'ク', u'ケ', u'コ', //
    u'サ', u'シ', u'ス', u'セ', u'ソ', u'タ', u'チ', u'ツ', u'テ', u'ト', //
    u'ナ', u'ニ', u'ヌ', u'ネ', u'ノ', u'ハ', u'ヒ', u'フ', u'ヘ', u'ホ', //
    u'マ', u'ミ', u'ム', u'メ', u'モ', u'ヤ', u'ユ', u'ヨ', //
    u'ラ', u'リ', u'ル', u'レ', u'ロ', u'ワ', u'ン', //
    u'\u309B', u'\u309C' // ゛゜
};

// The character that replaces a kana and the voiced sound mark behind it. 0 means that the two do
// not combine.
constexpr char16_t firstVoiced = 0xFF76;
constexpr std::array<char16_t, 25> voiced {
    u'ガ', u'ギ', u'グ', u'ゲ', u'ゴ', //
    u'ザ', u'ジ', u'ズ', u'ゼ', u'ゾ', //
    u'ダ', u'ヂ', u'ヅ', u'デ', u'ド', //
    0, 0, 0, 0, 0, // ナ to ノ
    u'バ', u'ビ', u'ブ', u'ベ', u'ボ' //
};
constexpr char16_t firstSemiVoiced = 0xFF8A;
constexpr std::array<char16_t, 5> semiVoiced {u'パ', u'ピ', u'プ', u'ペ', u'ポ'};

constexpr bool isHalfWidth(char16_t unit)
{
    return unit >= firstHalfWidth && unit <= lastHalfWidth;
}

constexpr char16_t toFullWidth(char16_t halfWidth)
{
    return fullWidth[static_cast<std::size_t>(halfWidth - firstHalfWidth)];
}

template <std::size_t Size>
constexpr char16_t entry(const std::array<char16_t, Size>& table, char16_t first, char16_t kana)
{
    const auto index = static_cast<std::size_t>(kana - first);
    return kana >= first && index < Size ? table[index] : char16_t(0);
}

char16_t combined(char16_t kana, char16_t mark)
{
    char16_t result = 0;
    if (mark == voicedMark)
        ConvertJapChar2SBC(kana, Voiced, &result);
    else if (mark == semiVoicedMark)
        ConvertJapChar2SBC(kana, SemiVoiced, &result);
    return result;
}

} // namespace

qint32 get_unicharLen(const char16_t* buffer, qint32 limit)
{
    if (!buffer)
        return -1;
    qint32 length = 0;
    while (length < limit && buffer[length] != 0)
        ++length;
    return length;
}

qint32 JapUnicode_DBC2SBC(char16_t unit, char16_t* out)
{
    if (!out)
        return notConverted;
    if (unit >= firstAscii && unit <= lastAscii) {
        *out = static_cast<char16_t>(unit + asciiToFullWidth);
        return converted;
    }
    if (isHalfWidth(unit)) {
        *out = toFullWidth(unit);
        return converted;
    }
    return notConverted;
}

qint32 ConvertJapChar2SBC(char16_t kana, qint32 markKind, char16_t* out)
{
    if (!out || kana < firstKana || kana > lastKana)
        return notConverted;
    char16_t result = 0;
    if (markKind == Voiced)
        result = entry(voiced, firstVoiced, kana);
    else if (markKind == SemiVoiced)
        result = entry(semiVoiced, firstSemiVoiced, kana);
    if (result == 0)
        return notConverted;
    *out = result;
    return converted;
}

void convertDBC2SBC(const char16_t* source, char16_t* destination)
{
    if (!source) {
        *destination = 0;
        return;
    }
    const qint32 count = get_unicharLen(source, qint32(DBCConvertedTextLimit));
    for (qint32 i = 0; i < count; ++i) {
        const char16_t unit = source[i];
        if (!isHalfWidth(unit)) {
            *destination++ = unit;
        } else if (const char16_t pair = i + 1 < count ? combined(unit, source[i + 1]) : 0) {
            *destination++ = pair;
            ++i;
        } else {
            *destination++ = toFullWidth(unit);
        }
    }
}

DBCResultCode convertHalfToFull(const std::optional<QString>& text, QString* out)
{
    if (!text || !out)
        return DBCResultCode::ParameterError;
    const auto size = static_cast<std::size_t>(text->size());
    const std::u16string source(reinterpret_cast<const char16_t*>(text->constData()), size);
    std::u16string destination(size + 1, u'\0');
    convertDBC2SBC(source.c_str(), destination.data());
    const qint32 length = get_unicharLen(destination.data(), qint32(DBCConvertedTextLimit));
    *out = QStringView(destination.data(), length).toString();
    return DBCResultCode::Success;
}
