// SPDX-License-Identifier: GPL-3.0-or-later
// The two encodings of the program's text files, under their old numbers.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

enum class DBCTextEncoding : quint32 {
    Utf8 = 4, // the log
    Utf16 = 10, // data file and "Version.txt": UTF-16 with byte-order mark
};

// Decodes a file that is read in pieces. A byte-order mark counts at the start of the first piece
// alone, and the byte order found there holds for all pieces.
class DBCTextDecoder {
public:
    enum class Result : quint8 {
        Complete,
        Incomplete, // the piece ends inside a character: give it again with what follows it
        Invalid, // no text, whatever follows
    };

    explicit DBCTextDecoder(DBCTextEncoding encoding)
        : _encoding(encoding)
    {
    }

    // text is set when the result is Complete; otherwise nothing has changed.
    Result decode(QByteArrayView piece, QString* text);

private:
    enum class ByteOrder : quint8 { LittleEndian, BigEndian };

    Result decodeUtf16(QByteArrayView piece, QString* text);
    Result decodeUtf8(QByteArrayView piece, QString* text);
    static ByteOrder byteOrderOf(QByteArrayView start);

    DBCTextEncoding _encoding;
    std::optional<ByteOrder> _byteOrder; // none until the first piece is decoded
};

// The bytes' text without its byte-order mark; none when the bytes are no text in that encoding (an
// odd last byte or a lone surrogate in UTF-16). UTF-16 without a mark is read as little-endian
// unless its first two bytes can only be big-endian text.
std::optional<QString> decodeText(QByteArrayView bytes, DBCTextEncoding encoding);

// Characters that cannot be encoded are replaced, not refused. UTF-16 is little-endian and starts
// with the mark FF FE, also for the empty text.
QByteArray encodeText(QStringView text, DBCTextEncoding encoding);
