// SPDX-License-Identifier: GPL-3.0-or-later
// A card PDF in memory: one page per JPEG, laid out so that AcquireImageFromPDFPage() finds each
// JPEG again, byte for byte, with rotation 0. Creating a document takes as long as writing one;
// callers should therefore fill, write and clear the same document for one card after another.
//
// A page's contents are "/Perceptual ri", then "q", a matrix that scales the image to the page,
// "Do" and "Q"; the image is the resource /Im1 with the filter /DCTDecode (operators and names of
// ISO 32000). Every operation may throw the exceptions of the PDF library (QPDF). After an
// exception the document must not be used again. Only one thread may use a document at a time.
#pragma once

#include <QByteArray>
#include <QSize>

#include <cstdio>
#include <vector>

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>

struct DBCJpegProperties;

class DBCCardPdfDocument {
public:
    // The Creator entry of the document information, by which the main application and
    // CheckPdfFile() recognise a card PDF.
    static constexpr const char* creator = "Trevant Manager #VelmoraConverter";

    DBCCardPdfDocument();

    // Appends a page of pointSize points that is filled by the JPEG. The properties must be those
    // of the JPEG. The document shares the bytes and keeps them until clear().
    void addPage(const QByteArray& jpeg, const DBCJpegProperties& properties, QSize pointSize);

    // Writes the document to the open file, which stays open and may not be flushed yet. Throws
    // QPDFSystemError when writing fails, and std::runtime_error when the library ran out of memory
    // and dropped a part of the document: the library itself would write the rest without reporting
    // the loss.
    void write(std::FILE* file);

    // Removes all pages and releases their JPEGs. The page objects are kept for the next card.
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
    std::vector<Page> _pages; // as many as the card with the most pages needed
    std::size_t _pageCount = 0; // the number of pages of the current card
};
