// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/pdf/DBCCardPdf.h"

#include "tests/support/JpegBuilder.h"
#include "tests/support/PdfBuilder.h"
#include "tests/support/TestHome.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QByteArray FacePicture = JpegBuilder(40, 20).bytes();
const QByteArray BackPicture = JpegBuilder(30, 50).gray().bytes();

// Holds one call and its outputs. A test may fill the outputs beforehand to find out whether the
// call changes them.
struct Call {
    DBCResultCode run(const QByteArray& bytes)
    {
        const TestHome home;
        return AcquireCardImageFromPDF(
            home.writeFile(u"card.pdf"_s, bytes), &face, &faceInfo, &back, &backInfo);
    }

    DBCBitmap face;
    DBCBitmap back;
    CardImageInfo faceInfo {-1, -1, -1, -1};
    CardImageInfo backInfo {-1, -1, -1, -1};
};

DBCBitmap anyBitmap()
{
    return DBCBitmap::of(JpegBuilder::quarters(4, 4), DBCBitmap::ColorModel::DeviceRGB);
}

// Returns a card PDF of one page that shows the face, with further entries in the dictionary of the
// page.
QByteArray onePage(const QByteArray& furtherEntries, const QByteArray& matrix = "252 0 0 144 0 0")
{
    PdfBuilder pdf;
    PdfPage page = PdfPage::ofImage(pdf.jpegImage(FacePicture));
    page.contents.replace("252 0 0 144 0 0", matrix);
    page.furtherEntries = furtherEntries;
    return pdf.page(page).bytes();
}

CardImageInfo faceInfoOf(const QByteArray& bytes)
{
    Call call;
    return call.run(bytes) == DBCResultCode::Success ? call.faceInfo : CardImageInfo {-9};
}

} // namespace

class tst_acquireCardImage : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void argumentsAreChecked_data()
    {
        QTest::addColumn<bool>("hasPath");
        QTest::addColumn<bool>("hasFace");
        QTest::addColumn<bool>("hasBack");
        QTest::addColumn<bool>("hasFaceInfo");
        QTest::addColumn<bool>("hasBackInfo");
        QTest::newRow("no path") << false << true << true << true << true;
        QTest::newRow("no image") << true << false << false << true << true;
        QTest::newRow("no info") << true << true << true << false << false;
        QTest::newRow("nothing") << false << false << false << false << false;
    }
    void argumentsAreChecked()
    {
        QFETCH(bool, hasPath);
        QFETCH(bool, hasFace);
        QFETCH(bool, hasBack);
        QFETCH(bool, hasFaceInfo);
        QFETCH(bool, hasBackInfo);
        const TestHome home;
        const QString path = home.writeFile(u"card.pdf"_s, PdfBuilder::cardPdf({FacePicture}));
        Call call;
        QCOMPARE(AcquireCardImageFromPDF(hasPath ? path : QString(), hasFace ? &call.face : nullptr,
                     hasFaceInfo ? &call.faceInfo : nullptr, hasBack ? &call.back : nullptr,
                     hasBackInfo ? &call.backInfo : nullptr),
            DBCResultCode::ParameterError);
    }

    void fileHoldsNoImage_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray card = PdfBuilder::cardPdf({FacePicture});
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("no PDF") << FacePicture;
        QTest::newRow("cut off") << card.left(40);
        QTest::newRow("locked") << PdfBuilder::encrypted(card, "secret");
        QTest::newRow("without pages") << PdfBuilder().bytes();
        QTest::newRow("page tree that leads back to itself")
            << PdfBuilder().kid(PdfBuilder::pagesNumber).bytes();
        QTest::newRow("text only") << PdfBuilder::searchableCardPdf("Sato");
    }
    void fileHoldsNoImage()
    {
        QFETCH(QByteArray, bytes);
        Call call;
        QCOMPARE(call.run(bytes), DBCResultCode::NoImageInPdf);
        QVERIFY(call.face.isNull());
    }

    void faceOfAOnePageCard()
    {
        Call call;
        QCOMPARE(call.run(PdfBuilder::cardPdf({FacePicture})), DBCResultCode::Success);
        QCOMPARE(call.face.pixels.size(), QSize(40, 20));
        QCOMPARE(call.face.pointSize, QSizeF(40, 20));
        QCOMPARE(call.faceInfo.rotation, 0);
        QCOMPARE(call.faceInfo.isColor, 1);
    }

    void faceAndBackOfATwoPageCard()
    {
        Call call;
        QCOMPARE(call.run(PdfBuilder::cardPdf({FacePicture, BackPicture})), DBCResultCode::Success);
        QCOMPARE(call.face.pixels.size(), QSize(40, 20));
        QCOMPARE(call.back.pixels.size(), QSize(30, 50));
        QCOMPARE(call.back.pointSize, QSizeF(30, 50));
        QCOMPARE(call.backInfo.rotation, 0);
    }

    void onePageCardLeavesTheBackAlone()
    {
        Call call;
        call.back = anyBitmap();
        QCOMPARE(call.run(PdfBuilder::cardPdf({FacePicture})), DBCResultCode::Success);
        QCOMPARE(call.back.pixels.size(), QSize(4, 4));
        QCOMPARE(call.backInfo.xResolution, -1);
    }

    void backAloneIsTakenFromTheSecondPage()
    {
        const TestHome home;
        const QString path
            = home.writeFile(u"card.pdf"_s, PdfBuilder::cardPdf({FacePicture, BackPicture}));
        Call call;
        QCOMPARE(AcquireCardImageFromPDF(path, nullptr, nullptr, &call.back, &call.backInfo),
            DBCResultCode::Success);
        QCOMPARE(call.back.pixels.size(), QSize(30, 50));
    }

    void faceAloneLeavesTheBackPageUnread()
    {
        const TestHome home;
        PdfBuilder pdf;
        pdf.page(PdfPage::ofImage(pdf.jpegImage(FacePicture))).page(PdfPage::ofText("no image"));
        const QString path = home.writeFile(u"card.pdf"_s, pdf.bytes());
        Call call;
        QCOMPARE(AcquireCardImageFromPDF(path, &call.face, &call.faceInfo, nullptr, nullptr),
            DBCResultCode::Success);
        QCOMPARE(call.face.pixels.size(), QSize(40, 20));
    }

    void pagesBeyondTheSecondAreIgnored()
    {
        PdfBuilder pdf;
        for (int i = 0; i < 2; ++i)
            pdf.page(PdfPage::ofImage(pdf.jpegImage(FacePicture)));
        pdf.page(PdfPage::ofText("no image"));
        QCOMPARE(Call().run(pdf.bytes()), DBCResultCode::Success);
    }

    void oneInfoIsEnough()
    {
        const TestHome home;
        const QString path
            = home.writeFile(u"card.pdf"_s, PdfBuilder::cardPdf({FacePicture, BackPicture}));
        Call call;
        QCOMPARE(AcquireCardImageFromPDF(path, &call.face, nullptr, &call.back, &call.backInfo),
            DBCResultCode::Success);
        QCOMPARE(call.backInfo.isColor, 1);
        QVERIFY(!call.face.isNull());
    }

    void failureOfTheBackTakesTheFaceAway()
    {
        PdfBuilder pdf;
        pdf.page(PdfPage::ofImage(pdf.jpegImage(FacePicture))).page(PdfPage::ofText("no image"));
        Call call;
        QCOMPARE(call.run(pdf.bytes()), DBCResultCode::NoImageInPdf);
        QVERIFY(call.face.isNull());
        QVERIFY(call.back.isNull());
    }

    void failureEmptiesBothImages()
    {
        Call call;
        call.face = anyBitmap();
        call.back = anyBitmap();
        QCOMPARE(call.run("no PDF"), DBCResultCode::NoImageInPdf);
        QVERIFY(call.face.isNull());
        QVERIFY(call.back.isNull());
    }

    void letterPageAt300Dpi()
    {
        PdfBuilder pdf;
        PdfPage page = PdfPage::ofImage(pdf.jpegImage(JpegBuilder(2550, 3300).gray().bytes()));
        page.mediaBox = "[0 0 612 792]";
        const CardImageInfo info = faceInfoOf(pdf.page(page).bytes());
        QCOMPARE(info.xResolution, 300);
        QCOMPARE(info.yResolution, 300);
    }

    void resolutionsOfWidthAndHeightAreNotMixedUp()
    {
        PdfBuilder pdf;
        PdfPage page = PdfPage::ofImage(pdf.jpegImage(FacePicture)); // 40 x 20 pixels
        page.mediaBox = "[0 0 14.4 14.4]";
        const CardImageInfo info = faceInfoOf(pdf.page(page).bytes());
        QCOMPARE(info.xResolution, 200);
        QCOMPARE(info.yResolution, 100);
    }

    void rotationsOfContentsAndPageAddUp_data()
    {
        QTest::addColumn<QByteArray>("matrix");
        QTest::addColumn<QByteArray>("rotate");
        QTest::addColumn<qint32>("rotation");
        const QByteArray upright = "252 0 0 144 0 0";
        const QByteArray turned90 = "0 252 -144 0 0 144";
        const QByteArray turned270 = "0 252 -144 0 252 0";
        QTest::newRow("none") << upright << QByteArray() << 0;
        QTest::newRow("page") << upright << QByteArray("/Rotate 90") << 90;
        QTest::newRow("contents") << turned90 << QByteArray("/Rotate 0") << 90;
        QTest::newRow("together a full turn") << turned90 << QByteArray("/Rotate 270") << 0;
        QTest::newRow("more than a full turn") << turned270 << QByteArray("/Rotate 180") << 90;
        QTest::newRow("page turned back") << upright << QByteArray("/Rotate -90") << 270;
        QTest::newRow("turned back to upright") << turned90 << QByteArray("/Rotate -90") << 0;
        QTest::newRow("brought back only once") << turned90 << QByteArray("/Rotate 720") << 450;
        QTest::newRow("brought forth only once") << upright << QByteArray("/Rotate -720") << -360;
        QTest::newRow("no number") << turned90 << QByteArray("/Rotate /Left") << 90;
    }
    void rotationsOfContentsAndPageAddUp()
    {
        QFETCH(QByteArray, matrix);
        QFETCH(QByteArray, rotate);
        QFETCH(qint32, rotation);
        QCOMPARE(faceInfoOf(onePage(rotate, matrix)).rotation, rotation);
    }

    void rotationOfTheParentIsNotLookedUp()
    {
        PdfBuilder pdf;
        pdf.inheritedEntries("/Rotate 90").page(PdfPage::ofImage(pdf.jpegImage(FacePicture)));
        QCOMPARE(faceInfoOf(pdf.bytes()).rotation, 0);
    }

    void jpegCountsAsColorEvenWhenGray()
    {
        Call call;
        QCOMPARE(call.run(PdfBuilder::cardPdf({BackPicture})), DBCResultCode::Success);
        QCOMPARE(call.faceInfo.isColor, 1);
        QCOMPARE(call.face.bitsPerPixel(), 8);
    }

    void bitmapIsNoColor()
    {
        PdfBuilder pdf;
        pdf.page(PdfPage::ofImage(pdf.bitImage(9, 2, QByteArray("\xF0\x80\x0F\x00", 4))));
        Call call;
        QCOMPARE(call.run(pdf.bytes()), DBCResultCode::Success);
        QCOMPARE(call.faceInfo.isColor, 0);
        QCOMPARE(call.face.bitsPerPixel(), 1);
        QCOMPARE(call.face.pixels.size(), QSize(9, 2));
        QCOMPARE(call.face.pixels.pixelColor(0, 0), QColor(Qt::black));
        QCOMPARE(call.face.pixels.pixelColor(8, 0), QColor(Qt::black));
        QCOMPARE(call.face.pixels.pixelColor(0, 1), QColor(Qt::white));
        QCOMPARE(call.face.pixels.pixelColor(7, 1), QColor(Qt::black));
    }

    void jpegBehindAnotherFilterIsTaken()
    {
        PdfBuilder pdf;
        const int image = pdf.stream("/Type /XObject /Subtype /Image /BitsPerComponent 8 /Width 40 "
                                     "/Height 20 /Filter [/FlateDecode /DCTDecode]",
            PdfBuilder::deflated(FacePicture));
        Call call;
        QCOMPARE(call.run(pdf.page(PdfPage::ofImage(image)).bytes()), DBCResultCode::Success);
        QCOMPARE(call.face.pixels.size(), QSize(40, 20));
        QCOMPARE(call.faceInfo.isColor, 1);
    }

    void flateImageInAnArrayIsNoImage()
    {
        PdfBuilder pdf;
        const int image = pdf.stream("/Type /XObject /Subtype /Image /BitsPerComponent 1 /Width 8 "
                                     "/Height 1 /Filter [/FlateDecode]",
            PdfBuilder::deflated("x"));
        QCOMPARE(
            Call().run(pdf.page(PdfPage::ofImage(image)).bytes()), DBCResultCode::NoImageInPdf);
    }

    void pictureIsDecodedAsStored()
    {
        // The Exif orientation of this picture means a turn, but the function must ignore it.
        Call call;
        const QByteArray picture = JpegBuilder(64, 32).exifOrientation(6).bytes();
        QCOMPARE(call.run(PdfBuilder::cardPdf({picture})), DBCResultCode::Success);
        const QImage& pixels = call.face.pixels;
        QCOMPARE(pixels.size(), QSize(64, 32));
        QVERIFY(isNearColor(pixels.pixelColor(8, 8), Qt::red));
        QVERIFY(isNearColor(pixels.pixelColor(56, 8), Qt::green));
        QVERIFY(isNearColor(pixels.pixelColor(8, 24), Qt::blue));
        QVERIFY(isNearColor(pixels.pixelColor(56, 24), Qt::yellow));
    }

    void pictureThatIsNoJpegIsNoImage()
    {
        PdfBuilder pdf;
        const int image = pdf.stream("/Type /XObject /Subtype /Image /BitsPerComponent 8 /Width 40 "
                                     "/Height 20 /Filter /DCTDecode",
            "no JPEG at all");
        QCOMPARE(
            Call().run(pdf.page(PdfPage::ofImage(image)).bytes()), DBCResultCode::NoImageInPdf);
    }

    void pictureTooLargeForAnyCardIsNoImage()
    {
        const QByteArray picture = JpegBuilder(8, 8).claimedSize(30000, 30000).bytes();
        QCOMPARE(Call().run(PdfBuilder::cardPdf({picture})), DBCResultCode::NoImageInPdf);
        PdfBuilder pdf;
        pdf.page(PdfPage::ofImage(pdf.bitImage(65535, 65535, "x")));
        QCOMPARE(Call().run(pdf.bytes()), DBCResultCode::NoImageInPdf);
    }
};

QTEST_GUILESS_MAIN(tst_acquireCardImage)
#include "tst_acquireCardImage.moc"
