// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QSize>

#include <cstdio>
#include <vector>

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>

struct DBCJpegProperties;

// The document of a card PDF, to be filled and written for one card after the other: making its
// frame anew would take as long as writing it. The library's exceptions pass.
class DBCCardPdfDocument {
public:
    // By it the main application and CheckPdfFile() know their own.
    static constexpr const char* creator = "Trevant Manager #VelmoraConverter";

    DBCCardPdfDocument();

    // A page of that many points, filled by the JPEG. The bytes are held, not copied.
    void addPage(const QByteArray& jpeg, const DBCJpegProperties& properties, QSize pointSize);

    // The file is not closed. Also throws when the library has lost a part of the document on the
    // way, for want of memory: it would write what is left without a word.
    void write(std::FILE* file);

    // No page is left, and no JPEG held.
    void clear();

private:
    void expectNoLoss();

    struct Page {
        QPDFObjectHandle object;
        QPDFObjectHandle image;
        QPDFObjectHandle contents;
    };

    Page newPage();

    QPDF _document;
    std::vector<Page> _pages; // as many as a card ever needed
    std::size_t _pageCount = 0; // of this card
};
