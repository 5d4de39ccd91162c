// SPDX-License-Identifier: GPL-3.0-or-later
// Decodes and encodes the program's text files. The values of the two encodings are the numbers
// that the source platform uses for them.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

enum class DBCTextEncoding : quint32 {
    Utf8 = 4, // the log
    Utf16 = 10, // the data file and "Version.txt": UTF-16 with a byte-order mark
};

// Decodes a file that is read in pieces. A byte-order mark is recognised only at the start of the
// first piece, which determines the byte order of all pieces.
class DBCTextDecoder {
public:
    enum class Result : quint8 {
        Complete,
        Incomplete, // the piece ends inside a character: pass it again, joined with the next piece
        Invalid, // the piece is not valid text, whatever bytes follow
    };

    explicit DBCTextDecoder(DBCTextEncoding encoding)
        : _encoding(encoding)
    {
    }

    // Sets text when the result is Complete. Otherwise neither text nor the decoder has changed.
    Result decode(QByteArrayView piece, QString* text);

private:
    enum class ByteOrder : quint8 { LittleEndian, BigEndian };

    Result decodeUtf16(QByteArrayView piece, QString* text);
    Result decodeUtf8(QByteArrayView piece, QString* text);
    static ByteOrder byteOrderOf(QByteArrayView start);

    DBCTextEncoding _encoding;
    std::optional<ByteOrder> _byteOrder; // std::nullopt until the first piece is decoded
};

// Returns the text of a whole file without its byte-order mark. Returns std::nullopt when the bytes
// are not valid in the encoding; in UTF-16 an odd last byte and a lone surrogate are invalid.
// UTF-16 without a mark is read as little-endian, unless only big-endian gives a plausible first
// character.
std::optional<QString> decodeText(QByteArrayView bytes, DBCTextEncoding encoding);

// Returns the bytes of the text. Characters that cannot be encoded are replaced. UTF-16 is
// little-endian and always starts with the byte-order mark FF FE, even for an empty text.
QByteArray encodeText(QStringView text, DBCTextEncoding encoding);
