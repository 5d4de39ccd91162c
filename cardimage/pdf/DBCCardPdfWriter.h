// SPDX-License-Identifier: GPL-3.0-or-later
// Writes one card PDF to a path. The caller creates a writer, adds a page for each JPEG and closes
// the writer. The writers of a thread share one DBCCardPdfDocument, so a thread may have only one
// writer at a time.
#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>

#include <cstdio>
#include <memory>

class DBCCardPdfDocument;
struct DBCJpegProperties;

// DiskFull means that the volume or the user's quota is full, Failed that writing failed for any
// other reason.
enum class DBCWriteOutcome : quint8 { Written, DiskFull, Failed };

class DBCCardPdfWriter {
public:
    // Creates the file, or empties an existing one. The pages are written to the file only by
    // close(). The writer never removes the file; after a failure the caller must remove it.
    explicit DBCCardPdfWriter(const QString& path);
    ~DBCCardPdfWriter();
    DBCCardPdfWriter(const DBCCardPdfWriter&) = delete;
    DBCCardPdfWriter& operator=(const DBCCardPdfWriter&) = delete;

    // Returns Written when the file could be created. After any other value no other function of
    // the writer may be called.
    DBCWriteOutcome opened() const { return _opened; }

    // Appends a page of pointSize points, filled by the JPEG, whose bytes are stored as they are.
    // The properties must be those of the JPEG. May throw the exceptions of the PDF library (QPDF).
    void addPage(const QByteArray& jpeg, const DBCJpegProperties& properties, QSize pointSize);

    // Writes the pages and closes the file. After any outcome but Written the content of the file
    // is undefined. No function of the writer may be called after close().
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
