// SPDX-License-Identifier: GPL-3.0-or-later
// Writes a card PDF, a page for each JPEG, the JPEG bytes as they are. The file exists from the
// start; the pages reach it with close().
#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>

#include <cstdio>
#include <memory>

class DBCCardPdfDocument;
struct DBCJpegProperties;

enum class DBCWriteOutcome : quint8 { Written, DiskFull, Failed };

// One at a time on a thread.
class DBCCardPdfWriter {
public:
    // Creates the file, replacing one that stands there.
    explicit DBCCardPdfWriter(const QString& path);
    ~DBCCardPdfWriter();
    DBCCardPdfWriter(const DBCCardPdfWriter&) = delete;
    DBCCardPdfWriter& operator=(const DBCCardPdfWriter&) = delete;

    // Anything but Written: the file could not be created.
    DBCWriteOutcome opened() const { return _opened; }

    // A page of that many points, filled by the JPEG. The library's exceptions pass.
    void addPage(const QByteArray& jpeg, const DBCJpegProperties& properties, QSize pointSize);

    // Unless it is written, the file holds anything. Nothing may follow.
    DBCWriteOutcome close();

private:
    struct FileCloser {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    std::unique_ptr<std::FILE, FileCloser> _file;
    DBCWriteOutcome _opened;
    DBCCardPdfDocument& _document; // the thread's
    bool _isBroken = false; // the document serves no other card
};
