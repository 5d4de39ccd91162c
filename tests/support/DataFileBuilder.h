// SPDX-License-Identifier: GPL-3.0-or-later
// Interchange data files for tests, byte by byte and without the program's own writer:
//
//     DataFileBuilder().titleLine().row({{Key::full_Name, u"星野 太郎"_s}}).row(20).blankLine();
#pragma once

#include "datafile/records/DBCRecord.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <utility>
#include <vector>

class DataFileBuilder {
public:
    using Key = DBCRecordKey;
    using Items = std::vector<std::pair<Key, QString>>;
    enum class Encoding : quint8 { Utf16LittleEndian, Utf16BigEndian, Utf8 };
    enum class Mark : quint8 { Written, Missing };

    // Little-endian UTF-16 with its byte-order mark, lines ended by "\r\n".
    explicit DataFileBuilder(
        Encoding encoding = Encoding::Utf16LittleEndian, Mark mark = Mark::Written);

    // The 21 titles in the order of the written file, or these titles.
    DataFileBuilder& titleLine();
    DataFileBuilder& titleLine(const QStringList& titles);
    static QStringList titles();

    // A card with these items; all others are empty. Items stand in the order of titles().
    DataFileBuilder& row(const Items& items);
    // A line of that many items, "item 1", "item 2" and so on.
    DataFileBuilder& row(int itemCount);
    DataFileBuilder& blankLine();
    // text and a line end.
    DataFileBuilder& line(const QString& text);
    // text without a line end.
    DataFileBuilder& text(const QString& text);
    // Anything at all.
    DataFileBuilder& bytes(const QByteArray& bytes);

    QByteArray build() const { return _bytes; }
    // Writes the file and returns its path.
    QString writeTo(const QString& path) const;

private:
    Encoding _encoding;
    QByteArray _bytes;
};
