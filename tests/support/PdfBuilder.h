// SPDX-License-Identifier: GPL-3.0-or-later
// Test PDFs, written object by object without a library, so that wrong ones are possible too:
//
//     PdfBuilder pdf;
//     pdf.page(PdfPage::ofImage(pdf.jpegImage(JpegBuilder(1050, 600).bytes())));
//     home.writeFile(u"card.pdf"_s, pdf.bytes());
#pragma once

#include <QByteArray>
#include <QList>

#include <optional>

// The entries of one page, in PDF syntax; an empty one is left out.
struct PdfPage {
    // The image fills the page under the name Im1.
    static PdfPage ofImage(int image);
    // Text in Helvetica, besides whatever the resources already hold.
    static PdfPage ofText(const QByteArray& text);

    QByteArray mediaBox = "[0 0 252 144]";
    QByteArray resources;
    QByteArray contents; // the stream's data
    QByteArray contentsEntry; // the entry's value instead of a stream made of contents
    QByteArray furtherEntries;
};

class PdfBuilder {
public:
    static constexpr int pagesNumber = 2; // the object that is the root of the page tree

    static QByteArray reference(int number);

    // Card PDFs as the main application writes them: a page for each JPEG, 300 dpi.
    static QByteArray cardPdf(const QList<QByteArray>& jpegs);
    static QByteArray searchableCardPdf(const QByteArray& text);
    // The PDF behind a password that has to be typed, or, with an empty one, only restricted.
    static QByteArray encrypted(const QByteArray& pdf, const QByteArray& userPassword);

    // "Trevant Manager #VelmoraConverter" unless changed.
    PdfBuilder& creator(const QByteArray& text);
    PdfBuilder& withoutCreator();
    PdfBuilder& withoutInfo();
    // Entries of the page tree's root, which the pages inherit.
    PdfBuilder& inheritedEntries(const QByteArray& entries);

    // Each adds an object and returns its number.
    int object(const QByteArray& body);
    int stream(const QByteArray& entries, const QByteArray& data);
    // entries stand for "/Filter /DCTDecode" when given.
    int jpegImage(const QByteArray& jpeg, const std::optional<QByteArray>& entries = {});
    // One bit a pixel, rows padded to bytes, compressed.
    int bitImage(int width, int height, const QByteArray& rows);
    int form(const QByteArray& contents, const QByteArray& resources);
    // A form that draws another one twice, which draws another one twice, and so on. All of them
    // have X1 for the next one's name.
    int formsThatDouble(int times);
    // The number that the next object gets.
    int nextNumber() const;

    PdfBuilder& page(const PdfPage& page);
    // Any object as an entry of the page tree's root.
    PdfBuilder& kid(int number);

    QByteArray bytes() const;

    static QByteArray deflated(const QByteArray& data);

private:
    QByteArray _infoEntry = "/Creator (Trevant Manager #VelmoraConverter)";
    QByteArray _inheritedEntries;
    bool _hasInfo = true;
    QList<QByteArray> _objects; // those behind the catalog, the page tree and the information
    QList<int> _kids;
};
