// SPDX-License-Identifier: GPL-3.0-or-later
// Builds test PDFs object by object and without a library, so that a PDF may also be wrong:
//
//     PdfBuilder pdf;
//     pdf.page(PdfPage::ofImage(pdf.jpegImage(JpegBuilder(1050, 600).bytes())));
//     home.writeFile(u"card.pdf"_s, pdf.bytes());
#pragma once

#include <QByteArray>
#include <QList>

#include <optional>

// The entries of one page in PDF syntax. The page has no entry for an empty one.
struct PdfPage {
    // Returns a page that the image fills. The page's resources name the image Im1.
    static PdfPage ofImage(int image);
    // Returns a page with the text in Helvetica.
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

    // Returns a card PDF as the main application writes it: one page for each JPEG, at 300 dpi.
    static QByteArray cardPdf(const QList<QByteArray>& jpegs);
    static QByteArray searchableCardPdf(const QByteArray& text);
    // Encrypts the PDF. The user has to type the password to open it; if the password is empty, the
    // PDF opens without one and only restricts what the user may do.
    static QByteArray encrypted(const QByteArray& pdf, const QByteArray& userPassword);

    // Replaces the creator, which is "Trevant Manager #VelmoraConverter" by default.
    PdfBuilder& creator(const QByteArray& text);
    PdfBuilder& withoutCreator();
    PdfBuilder& withoutInfo();
    // Adds entries to the root of the page tree. All pages inherit them.
    PdfBuilder& inheritedEntries(const QByteArray& entries);

    // Each function that returns an int adds an object and returns its number.
    int object(const QByteArray& body);
    int stream(const QByteArray& entries, const QByteArray& data);
    // If entries are given, they replace "/Filter /DCTDecode".
    int jpegImage(const QByteArray& jpeg, const std::optional<QByteArray>& entries = {});
    // Adds a compressed image of one bit a pixel. Each row is padded to whole bytes.
    int bitImage(int width, int height, const QByteArray& rows);
    int form(const QByteArray& contents, const QByteArray& resources);
    // Adds a chain of times + 1 forms. Each form draws the next one twice, under the name X1, so
    // that the last form is drawn 2 to the power of times. Returns the number of the first form.
    int formsThatDouble(int times);
    // Returns the number that the next object will get.
    int nextNumber() const;

    PdfBuilder& page(const PdfPage& page);
    // Makes any object a child of the page tree's root, where only pages belong.
    PdfBuilder& kid(int number);

    QByteArray bytes() const;

    static QByteArray deflated(const QByteArray& data);

private:
    QByteArray _infoEntry = "/Creator (Trevant Manager #VelmoraConverter)";
    QByteArray _inheritedEntries;
    bool _hasInfo = true;
    QList<QByteArray> _objects; // all objects except the catalog, the page tree and the information
    QList<int> _kids;
};
