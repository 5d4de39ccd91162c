// SPDX-License-Identifier: GPL-3.0-or-later
// Writes one card PDF to a path: create a writer, add a page for each JPEG, close it. The writers
// of a thread share one DBCCardPdfDocument, so a thread may have only one writer at a time.
#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>

#include <cstdio>
#include <memory>

class DBCCardPdfDocument;
struct DBCJpegProperties;

// DiskFull: the volume or the user's quota is full. Failed: any other reason.
enum class DBCWriteOutcome : quint8 { Written, DiskFull, Failed };

class DBCCardPdfWriter {
public:
    // Creates the file, or empties one that exists. The pages reach it only with close(). The
    // writer never removes the file: after a failure the caller does.
    explicit DBCCardPdfWriter(const QString& path);
    ~DBCCardPdfWriter();
    DBCCardPdfWriter(const DBCCardPdfWriter&) = delete;
    DBCCardPdfWriter& operator=(const DBCCardPdfWriter&) = delete;

    // Written when the file could be created. Otherwise nothing else may be called.
    DBCWriteOutcome opened() const { return _opened; }

    // Appends a page of pointSize points, filled by the JPEG, whose bytes are stored as they are.
    // The properties must be those of the JPEG. Exceptions of the PDF library pass through.
    void addPage(const QByteArray& jpeg, const DBCJpegProperties& properties, QSize pointSize);

    // Writes the pages and closes the file. After any outcome but Written the content of the file
    // is undefined. Nothing may be called after it.
    DBCWriteOutcome close();

private:
    struct FileCloser {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    std::unique_ptr<std::FILE, FileCloser> _file;
    DBCWriteOutcome _opened;
    DBCCardPdfDocument& _document; // belongs to the thread
    bool _isBroken = false; // the document threw and must not be used for another card
};
