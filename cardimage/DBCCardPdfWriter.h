// SPDX-License-Identifier: GPL-3.0-or-later
// Writes a card PDF, a page for each JPEG, the JPEG bytes as they are. The file exists from the
// start; the pages reach it with close().
#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>

#include <cstdio>
#include <deque>
#include <memory>

#include <qpdf/QPDF.hh>

struct DBCJpegProperties;

class DBCCardPdfWriter {
public:
    // By it the main application and CheckPdfFile() know their own.
    static constexpr const char* creator = "Trevant Manager #VelmoraConverter";

    // Creates the file, replacing one that stands there.
    explicit DBCCardPdfWriter(const QString& path);

    // False when the file could not be created.
    bool isOpen() const { return _file != nullptr; }

    // A page of that many points, filled by the JPEG. The library's exceptions pass.
    void addPage(QByteArray jpeg, const DBCJpegProperties& properties, QSize pointSize);

    // False when the file cannot be written; it then holds anything. Nothing may follow.
    bool close();

private:
    struct FileCloser {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    std::unique_ptr<std::FILE, FileCloser> _file;
    std::deque<QByteArray> _jpegs; // stay where they are while the document refers to them
    QPDF _document;
};
