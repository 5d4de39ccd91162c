// SPDX-License-Identifier: GPL-3.0-or-later
// Builds interchange data files for tests without the program's own writer, so that a file may also
// be wrong:
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

    // Every line ends with "\r\n". mark says whether the file begins with a byte-order mark.
    explicit DataFileBuilder(
        Encoding encoding = Encoding::Utf16LittleEndian, Mark mark = Mark::Written);

    // Adds the line of titles: the 21 titles in the order in which an export writes them, or the
    // given ones.
    DataFileBuilder& titleLine();
    DataFileBuilder& titleLine(const QStringList& titles);
    static QStringList titles();

    // Adds a card with these items, in the order of titles(). All other items are empty.
    DataFileBuilder& row(const Items& items);
    // Adds a line of that many items: "item 1", "item 2" and so on.
    DataFileBuilder& row(int itemCount);
    DataFileBuilder& blankLine();
    // Adds the text and a line end.
    DataFileBuilder& line(const QString& text);
    // Adds the text without a line end.
    DataFileBuilder& text(const QString& text);
    // Adds the bytes as they are, without encoding them.
    DataFileBuilder& bytes(const QByteArray& bytes);

    QByteArray build() const { return _bytes; }
    // Writes the file and returns its path.
    QString writeTo(const QString& path) const;

private:
    Encoding _encoding;
    QByteArray _bytes;
};
