// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/helpers/DBCTextEncoding.h"

#include <QStringConverter>
#include <QtEndian>

namespace {

constexpr QByteArrayView littleEndianMark("\xFF\xFE");
constexpr QByteArrayView bigEndianMark("\xFE\xFF");
constexpr QByteArrayView utf8Mark("\xEF\xBB\xBF");
constexpr qsizetype bytesPerUnit = sizeof(char16_t);

// Returns true for a unit with which the program's files may begin: Japanese or ASCII text, a tab
// or a line end.
bool mayBeginAFile(char16_t unit)
{
    const bool isAscii
        = (unit >= 0x20 && unit < 0x7F) || unit == u'\t' || unit == u'\r' || unit == u'\n';
    const bool isKanaOrIdeograph = unit >= 0x3000 && unit <= 0x9FFF;
    const bool isCompatibilityForm
        = (unit >= 0xF900 && unit <= 0xFAFF) || (unit >= 0xFF01 && unit <= 0xFFEF);
    return isAscii || isKanaOrIdeograph || isCompatibilityForm;
}

// Converts bytes to UTF-16 units and leaves out an odd last byte. convert is one of Qt's functions
// that convert the byte order of many units.
QString unitsFrom(QByteArrayView bytes, void (*convert)(const void*, qsizetype, void*))
{
    QString units(bytes.size() / bytesPerUnit, Qt::Uninitialized);
    if (!units.isEmpty()) // otherwise bytes.data() may be null
        convert(bytes.data(), units.size(), units.data());
    return units;
}

// Replaces each lone surrogate, because it cannot be encoded.
QString withoutLoneSurrogates(QStringView text)
{
    QString result = text.toString();
    QChar* const units = result.data();
    const qsizetype size = result.size();
    for (qsizetype i = 0; i < size; ++i) {
        if (!units[i].isSurrogate())
            continue;
        if (units[i].isHighSurrogate() && i + 1 < size && units[i + 1].isLowSurrogate())
            ++i;
        else
            units[i] = QChar::ReplacementCharacter;
    }
    return result;
}

QByteArray encodeUtf16(QStringView text)
{
    QStringEncoder encoder(QStringEncoder::Utf16LE, QStringEncoder::Flag::WriteBom);
    return encoder(text);
}

} // namespace

// Japanese text that is read in the wrong byte order mostly becomes characters of other scripts
// (U+540D becomes U+0D54), and none of the program's files begins with such a character. If both
// byte orders give a possible beginning (U+8868 and U+6888), little-endian is chosen.
DBCTextDecoder::ByteOrder DBCTextDecoder::byteOrderOf(QByteArrayView start)
{
    if (start.startsWith(bigEndianMark))
        return ByteOrder::BigEndian;
    if (start.startsWith(littleEndianMark) || start.size() < bytesPerUnit)
        return ByteOrder::LittleEndian;
    const auto unit = qFromLittleEndian<char16_t>(start.data());
    return !mayBeginAFile(unit) && mayBeginAFile(qbswap(unit)) ? ByteOrder::BigEndian
                                                               : ByteOrder::LittleEndian;
}

DBCTextDecoder::Result DBCTextDecoder::decode(QByteArrayView piece, QString* text)
{
    return _encoding == DBCTextEncoding::Utf16 ? decodeUtf16(piece, text) : decodeUtf8(piece, text);
}

// Checks for lone surrogates and an odd last byte, because Qt's decoder accepts lone surrogates and
// drops an odd last byte.
DBCTextDecoder::Result DBCTextDecoder::decodeUtf16(QByteArrayView piece, QString* text)
{
    const ByteOrder order = _byteOrder ? *_byteOrder : byteOrderOf(piece);
    QByteArrayView bytes = piece;
    if (!_byteOrder && (bytes.startsWith(littleEndianMark) || bytes.startsWith(bigEndianMark)))
        bytes = bytes.sliced(littleEndianMark.size());

    QString units = order == ByteOrder::LittleEndian ? unitsFrom(bytes, qFromLittleEndian<quint16>)
                                                     : unitsFrom(bytes, qFromBigEndian<quint16>);
    QStringView whole = units;
    if (!whole.isEmpty() && whole.back().isHighSurrogate())
        whole.chop(1);
    if (!whole.isValidUtf16())
        return Result::Invalid;
    if (whole.size() < units.size() || bytes.size() % bytesPerUnit != 0)
        return Result::Incomplete;
    _byteOrder = order;
    *text = std::move(units);
    return Result::Complete;
}

DBCTextDecoder::Result DBCTextDecoder::decodeUtf8(QByteArrayView piece, QString* text)
{
    QByteArrayView bytes = piece;
    if (!_byteOrder && bytes.startsWith(utf8Mark))
        bytes = bytes.sliced(utf8Mark.size());

    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    QString decoded = decoder.decode(bytes);
    if (decoder.hasError())
        return Result::Invalid;
    if (!bytes.isValidUtf8())
        return Result::Incomplete;
    _byteOrder = ByteOrder::LittleEndian;
    *text = std::move(decoded);
    return Result::Complete;
}

std::optional<QString> decodeText(QByteArrayView bytes, DBCTextEncoding encoding)
{
    QString text;
    if (DBCTextDecoder(encoding).decode(bytes, &text) != DBCTextDecoder::Result::Complete)
        return std::nullopt;
    return text;
}

QByteArray encodeText(QStringView text, DBCTextEncoding encoding)
{
    const QString encodable = withoutLoneSurrogates(text);
    return encoding == DBCTextEncoding::Utf16 ? encodeUtf16(encodable) : encodable.toUtf8();
}
