// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/pdf/DBCCardPdf.h"
#include "cardimage/pdf/DBCPdfDrawing.h"

#include "tests/support/JpegBuilder.h"
#include "tests/support/PdfBuilder.h"
#include "tests/support/TestHome.h"

#include <QtTest>

#include <poppler-qt6.h>

using namespace Qt::StringLiterals;

namespace {

struct Drawing {
    explicit Drawing(const QByteArray& pdf)
    {
        const TestHome home;
        code
            = AcquireCardImageFromSearchablePDF(home.writeFile(u"card.pdf"_s, pdf), &bitmap, &info);
    }

    DBCBitmap bitmap;
    CardImageInfo info {-1, -1, -1, -1};
    DBCResultCode code;
};

// Returns a page of 72 x 36 points, which must be drawn with 300 x 150 pixels.
PdfPage smallPage(const QByteArray& contents)
{
    PdfPage page;
    page.mediaBox = "[0 0 72 36]";
    page.resources = "<< >>";
    page.contents = contents;
    return page;
}

// Adds a tiling pattern of red squares and returns its object number.
int patternOf(PdfBuilder* pdf, const QByteArray& steps)
{
    return pdf->stream("/Type /Pattern /PatternType 1 /PaintType 1 /TilingType 1 /BBox [0 0 1 1] "
                       "/Resources << >> "
            + steps,
        "1 0 0 rg 0 0 1 1 re f\n");
}

} // namespace

class tst_searchablePdf : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void wholeDocumentIsLoaded()
    {
        const TestHome home;
        const QString path = home.writeFile(
            u"card.pdf"_s, PdfBuilder().page(smallPage("n\n")).page(smallPage("n\n")).bytes());
        std::unique_ptr<Poppler::Document> document;
        QCOMPARE(AcquireCardImageFromAllPDF(path, &document), DBCResultCode::Success);
        QVERIFY(document != nullptr);
        QCOMPARE(document->numPages(), 2);
    }

    void wholeDocumentNeedsItsArguments()
    {
        const TestHome home;
        const QString path = home.writeFile(u"card.pdf"_s, PdfBuilder::searchableCardPdf("Sato"));
        std::unique_ptr<Poppler::Document> document;
        QCOMPARE(AcquireCardImageFromAllPDF({}, &document), DBCResultCode::ParameterError);
        QCOMPARE(AcquireCardImageFromAllPDF(path, nullptr), DBCResultCode::ParameterError);
        QVERIFY(document == nullptr);
    }

    void documentCannotBeLoaded_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray card = PdfBuilder::searchableCardPdf("Sato");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("no PDF") << QByteArray("a text");
        QTest::newRow("locked") << PdfBuilder::encrypted(card, "secret");
    }
    void documentCannotBeLoaded()
    {
        QFETCH(QByteArray, bytes);
        const TestHome home;
        std::unique_ptr<Poppler::Document> document;
        QCOMPARE(AcquireCardImageFromAllPDF(home.writeFile(u"card.pdf"_s, bytes), &document),
            DBCResultCode::ParameterError);
        QVERIFY(document == nullptr);
    }

    void argumentsAreChecked()
    {
        DBCBitmap bitmap;
        CardImageInfo info;
        const QString path = u"/nowhere/card.pdf"_s;
        QCOMPARE(
            AcquireCardImageFromSearchablePDF({}, &bitmap, &info), DBCResultCode::GeneralFailure);
        QCOMPARE(
            AcquireCardImageFromSearchablePDF(path, nullptr, &info), DBCResultCode::GeneralFailure);
        QCOMPARE(AcquireCardImageFromSearchablePDF(path, &bitmap, nullptr),
            DBCResultCode::GeneralFailure);
    }

    void unreadableFileIsAQuietSuccess_data() { documentCannotBeLoaded_data(); }
    void unreadableFileIsAQuietSuccess()
    {
        QFETCH(QByteArray, bytes);
        const Drawing drawing(bytes);
        QCOMPARE(drawing.code, DBCResultCode::Success);
        QVERIFY(drawing.bitmap.isNull());
        QCOMPARE(drawing.info.rotation, -1);

        DBCBitmap bitmap;
        CardImageInfo info;
        QCOMPARE(AcquireCardImageFromSearchablePDF(u"/nowhere/card.pdf"_s, &bitmap, &info),
            DBCResultCode::Success);
        QVERIFY(bitmap.isNull());
    }

    void firstPageIsDrawnAt300Dpi()
    {
        const Drawing drawing(
            PdfBuilder().page(smallPage("n\n")).page(PdfPage::ofText("2")).bytes());
        QCOMPARE(drawing.code, DBCResultCode::Success);
        QCOMPARE(drawing.bitmap.pixels.size(), QSize(300, 150));
        QCOMPARE(drawing.bitmap.pointSize, QSizeF(300, 150));
        QCOMPARE(drawing.info.rotation, 0);
        QCOMPARE(drawing.info.xResolution, 300);
        QCOMPARE(drawing.info.yResolution, 300);
        QCOMPARE(drawing.info.isColor, 1);
    }

    void emptyPageIsWhite()
    {
        const QImage pixels = Drawing(PdfBuilder().page(smallPage("n\n")).bytes()).bitmap.pixels;
        for (const QPoint point : {QPoint(0, 0), QPoint(299, 149), QPoint(150, 75)})
            QCOMPARE(pixels.pixelColor(point), QColor(Qt::white));
    }

    void marksStandWhereTheyBelong()
    {
        // The origin is at the bottom left in PDF, but at the top left in the bitmap.
        const QImage pixels = Drawing(PdfBuilder()
                                          .page(smallPage("1 0 0 rg 0 0 36 18 re f\n"
                                                          "0 0 1 rg 36 18 36 18 re f\n"))
                                          .bytes())
                                  .bitmap.pixels;
        QCOMPARE(pixels.pixelColor(20, 130), QColor(Qt::red));
        QCOMPARE(pixels.pixelColor(280, 20), QColor(Qt::blue));
        QCOMPARE(pixels.pixelColor(20, 20), QColor(Qt::white));
    }

    void turnedPageIsDrawnUpright()
    {
        PdfPage page = smallPage("1 0 0 rg 0 0 36 18 re f\n");
        page.furtherEntries = "/Rotate 90";
        const QImage pixels = Drawing(PdfBuilder().page(page).bytes()).bitmap.pixels;
        QCOMPARE(pixels.size(), QSize(150, 300));
        QCOMPARE(pixels.pixelColor(20, 20),
            QColor(Qt::red)); // the bottom left corner was turned to the top left
        QCOMPARE(pixels.pixelColor(130, 280), QColor(Qt::white));
    }

    void textIsDrawn()
    {
        const QImage pixels = Drawing(PdfBuilder::searchableCardPdf("HHHH")).bitmap.pixels;
        QCOMPARE(pixels.size(), QSize(1050, 600));
        int darkPixels = 0;
        for (int y = 0; y < pixels.height(); ++y) {
            for (int x = 0; x < pixels.width(); ++x)
                darkPixels += pixels.pixelColor(x, y).lightness() < 64 ? 1 : 0;
        }
        QVERIFY(darkPixels > 1000);
    }

    void entriesOfTheParentsAreUsed()
    {
        PdfBuilder pdf;
        PdfPage page = PdfPage::ofImage(pdf.jpegImage(JpegBuilder(40, 20).bytes()));
        pdf.inheritedEntries("/MediaBox " + page.mediaBox + " /Resources " + page.resources);
        page.mediaBox.clear();
        page.resources.clear();
        const Drawing drawing(pdf.page(page).bytes());
        QCOMPARE(drawing.bitmap.pixels.size(), QSize(1050, 600));
        QVERIFY(isNearColor(drawing.bitmap.pixels.pixelColor(20, 20), Qt::red));
    }

    void damagedPageIsStillDrawn()
    {
        PdfBuilder pdf;
        PdfPage page = smallPage("1 0 0 rg 0 0 72 36 re f\n/Fm1 Do BT /F9 9 Tf (x) Tj\n");
        const QByteArray self = PdfBuilder::reference(pdf.nextNumber());
        pdf.form("/Fm1 Do\n", "<< /XObject << /Fm1 " + self + " >> >>");
        page.resources = "<< /XObject << /Fm1 " + self + " >> >>";
        const Drawing drawing(pdf.page(page).bytes());
        QCOMPARE(drawing.code, DBCResultCode::Success);
        QCOMPARE(drawing.bitmap.pixels.pixelColor(150, 75), QColor(Qt::red));
    }

    void documentWithoutPagesCannotBeDrawn()
    {
        const Drawing drawing(PdfBuilder().bytes());
        QCOMPARE(drawing.code, DBCResultCode::PdfToJpegFailure);
        QVERIFY(drawing.bitmap.isNull());
    }

    void pageTooLargeForAnyCardCannotBeDrawn_data()
    {
        QTest::addColumn<QByteArray>("mediaBox");
        QTest::newRow("200 inches") << QByteArray("[0 0 14400 14400]");
        QTest::newRow("long") << QByteArray("[0 0 20000000 72]");
        QTest::newRow("beyond all numbers") << QByteArray("[0 0 1" + QByteArray(300, '0') + " 72]");
    }
    void pageTooLargeForAnyCardCannotBeDrawn()
    {
        QFETCH(QByteArray, mediaBox);
        PdfPage page = smallPage("n\n");
        page.mediaBox = mediaBox;
        const Drawing drawing(PdfBuilder().page(page).bytes());
        QCOMPARE(drawing.code, DBCResultCode::PdfToJpegFailure);
        QVERIFY(drawing.bitmap.isNull());
    }

    void pageThatTakesForEverCannotBeDrawn_data()
    {
        QTest::addColumn<QByteArray>("pdf");
        const auto row = [](const char* name, PdfBuilder pdf, int object, const QByteArray& kind) {
            PdfPage page = smallPage("/Pattern cs /X1 scn 0 0 72 36 re f /X1 Do\n");
            page.resources = "<< /" + kind + " << /X1 " + PdfBuilder::reference(object) + " >> >>";
            QTest::newRow(name) << pdf.page(page).bytes();
        };
        PdfBuilder image;
        const int huge = image.bitImage(65535, 65535, "");
        row("image of four thousand million pixels", image, huge, "XObject");
        PdfBuilder jpeg;
        const int claimed
            = jpeg.jpegImage(JpegBuilder(8, 8).progressive().claimedSize(65500, 65500).bytes());
        row("JPEG of four thousand million pixels", jpeg, claimed, "XObject");
        PdfBuilder jpeg2000;
        const int codestream = jpeg2000.stream(
            "/Type /XObject /Subtype /Image /Width 8 /Height 8 /Filter /JPXDecode",
            QByteArray("\xFF\x4F\xFF\x51\0\x2F\0\0\0\1\0\0\0\1\0\0", 16) + QByteArray(40, '\0'));
        row("JPEG 2000 of four thousand million pixels", jpeg2000, codestream, "XObject");
        PdfBuilder pattern;
        const int fine = patternOf(&pattern, "/XStep .01 /YStep .01");
        row("pattern of twenty-five million tiles", pattern, fine, "Pattern");
        PdfBuilder scaled;
        const int small = patternOf(&scaled, "/XStep 1 /YStep 1 /Matrix [.01 0 0 .01 0 0]");
        row("pattern made that fine by its matrix", scaled, small, "Pattern");
        PdfBuilder still;
        const int standing = patternOf(&still, "/XStep 0 /YStep 0");
        row("pattern that stands still", still, standing, "Pattern");
        PdfBuilder doubled;
        const int forms = doubled.formsThatDouble(40);
        row("forms that double forty times", doubled, forms, "XObject");
    }
    void pageThatTakesForEverCannotBeDrawn()
    {
        QFETCH(QByteArray, pdf);
        const Drawing drawing(pdf);
        QCOMPARE(drawing.code, DBCResultCode::PdfToJpegFailure);
        QVERIFY(drawing.bitmap.isNull());
    }

    void finePatternIsDrawn()
    {
        PdfBuilder pdf;
        const int pattern = patternOf(&pdf, "/XStep .5 /YStep .5");
        PdfPage page = smallPage("/Pattern cs /X1 scn 0 0 72 36 re f\n");
        page.resources = "<< /Pattern << /X1 " + PdfBuilder::reference(pattern) + " >> >>";
        const Drawing drawing(pdf.page(page).bytes());
        QCOMPARE(drawing.code, DBCResultCode::Success);
        QCOMPARE(drawing.bitmap.pixels.pixelColor(150, 75), QColor(Qt::red));
    }
};

QTEST_GUILESS_MAIN(tst_searchablePdf)
#include "tst_searchablePdf.moc"
