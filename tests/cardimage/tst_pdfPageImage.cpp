// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/pdf/DBCPdfPageImage.h"

#include "tests/support/JpegBuilder.h"
#include "tests/support/PdfBuilder.h"

#include <QtTest>

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>

#include <cstring>

namespace {

const QByteArray Upright = "/Perceptual ri\nq\n252 0 0 144 0 0 cm\n/Im1 Do\nQ\n";
const QByteArray Turned90 = "/Perceptual ri\nq\n0 252 -144 0 0 144 cm\n/Im1 Do\nQ\n";
const QByteArray Turned180 = "/Perceptual ri\nq\n-252 0 0 -144 252 144 cm\n/Im1 Do\nQ\n";
const QByteArray Turned270 = "/Perceptual ri\nq\n0 252 -144 0 252 0 cm\n/Im1 Do\nQ\n";

QByteArray jpeg()
{
    return JpegBuilder(40, 20).bytes();
}

struct Acquired {
    DBCResultCode code = DBCResultCode::Success;
    QByteArray data;
    ImageDescriptor descriptor;
    qint32 rotation = 0;
};

Acquired acquire(const QByteArray& bytes)
{
    QPDF document;
    document.setSuppressWarnings(true);
    document.processMemoryFile("test", bytes.constData(), static_cast<size_t>(bytes.size()));
    Acquired result;
    result.code = AcquireImageFromPDFPage(
        document.getAllPages().at(0), &result.data, &result.descriptor, &result.rotation);
    return result;
}

Acquired acquire(PdfBuilder& pdf, const PdfPage& page)
{
    return acquire(pdf.page(page).bytes());
}

// Returns a page whose resources have an XObject dictionary with these entries.
PdfPage pageOf(const QByteArray& objects, const QByteArray& contents = Upright)
{
    PdfPage page;
    page.resources = "<< /XObject << " + objects + " >> >>";
    page.contents = contents;
    return page;
}

QByteArray named(const QByteArray& name, int number)
{
    return '/' + name + ' ' + PdfBuilder::reference(number) + ' ';
}

// Takes the image out of a page whose image stream has these entries in its dictionary instead of
// the usual ones.
Acquired acquireImage(const QByteArray& entries, const QByteArray& data)
{
    PdfBuilder pdf;
    const int image = pdf.stream(entries, data);
    return acquire(pdf, PdfPage::ofImage(image));
}

const QByteArray ImageEntries = "/Type /XObject /Subtype /Image /BitsPerComponent 8 /Width 40 "
                                "/Height 20 /ColorSpace /DeviceRGB ";

QPDFObjectHandle newStream(QPDF* document)
{
    return QPDFObjectHandle::newStream(document, "data");
}

} // namespace

class tst_pdfPageImage : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void walkKeepsTheNamesOfImagesAndForms_data()
    {
        QTest::addColumn<QByteArray>("key");
        QTest::addColumn<QByteArray>("kept");
        QTest::newRow("image") << QByteArray("Im1") << QByteArray("Im1");
        QTest::newRow("form") << QByteArray("Fm0") << QByteArray("Fm0");
        QTest::newRow("nothing but the prefix") << QByteArray("Im") << QByteArray("Im");
        QTest::newRow("other name") << QByteArray("X1") << QByteArray("before");
        QTest::newRow("other letter case") << QByteArray("im1") << QByteArray("before");
        QTest::newRow("prefix inside") << QByteArray("XIm1") << QByteArray("before");
        QTest::newRow("empty") << QByteArray("") << QByteArray("before");
    }
    void walkKeepsTheNamesOfImagesAndForms()
    {
        QFETCH(QByteArray, key);
        QFETCH(QByteArray, kept);
        QPDF document;
        document.emptyPDF();
        qstrcpy(g_imagestr.data(), "before");
        VMCGPDFDictionaryApplierFunctionForImage(key.constData(), newStream(&document), nullptr);
        QCOMPARE(QByteArray(g_imagestr.data()), kept);
    }

    void walkIgnoresWhatIsNoStream()
    {
        qstrcpy(g_imagestr.data(), "before");
        VMCGPDFDictionaryApplierFunctionForImage("Im1", QPDFObjectHandle::newDictionary(), nullptr);
        QCOMPARE(QByteArray(g_imagestr.data()), QByteArray("before"));
    }

    void walkIgnoresItsContext()
    {
        QPDF document;
        document.emptyPDF();
        int context = 5;
        VMCGPDFDictionaryApplierFunctionForImage("Im7", newStream(&document), &context);
        QCOMPARE(QByteArray(g_imagestr.data()), QByteArray("Im7"));
        QCOMPARE(context, 5);
    }

    void longNameIsCutToFifteenCharacters()
    {
        QPDF document;
        document.emptyPDF();
        VMCGPDFDictionaryApplierFunctionForImage("Im3456789012345", newStream(&document), nullptr);
        QCOMPARE(QByteArray(g_imagestr.data()), QByteArray("Im3456789012345"));
        VMCGPDFDictionaryApplierFunctionForImage(
            "Im34567890123456789", newStream(&document), nullptr);
        QCOMPARE(QByteArray(g_imagestr.data()), QByteArray("Im3456789012345"));
    }

    void noPageHoldsNoImage()
    {
        Acquired result;
        QCOMPARE(AcquireImageFromPDFPage(
                     QPDFObjectHandle(), &result.data, &result.descriptor, &result.rotation),
            DBCResultCode::NoImageInPdf);
        QCOMPARE(AcquireImageFromPDFPage(QPDFObjectHandle::newNull(), &result.data,
                     &result.descriptor, &result.rotation),
            DBCResultCode::NoImageInPdf);
    }

    void pageHoldsNoImage_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const auto row
            = [](const char* name, const std::function<void(PdfBuilder&, PdfPage&)>& spoil) {
                  PdfBuilder pdf;
                  PdfPage page = PdfPage::ofImage(pdf.jpegImage(jpeg()));
                  spoil(pdf, page);
                  QTest::newRow(name) << pdf.page(page).bytes();
              };
        const auto imageRow = [&row](const char* name, const QByteArray& entries, QByteArray data) {
            row(name, [&](PdfBuilder& pdf, PdfPage& page) {
                page = PdfPage::ofImage(pdf.stream(entries, data));
            });
        };
        row("no Contents", [](PdfBuilder&, PdfPage& page) { page.contents.clear(); });
        row("Contents in pieces", [](PdfBuilder& pdf, PdfPage& page) {
            page.contentsEntry = "[ " + PdfBuilder::reference(pdf.stream({}, Upright)) + " ]";
        });
        row("no MediaBox", [](PdfBuilder&, PdfPage& page) { page.mediaBox.clear(); });
        row("MediaBox of three numbers",
            [](PdfBuilder&, PdfPage& page) { page.mediaBox = "[0 0 252]"; });
        row("MediaBox with a name",
            [](PdfBuilder&, PdfPage& page) { page.mediaBox = "[0 0 252 /A4]"; });
        row("MediaBox that is no array", [](PdfBuilder&, PdfPage& page) { page.mediaBox = "252"; });
        row("no Resources", [](PdfBuilder&, PdfPage& page) { page.resources.clear(); });
        row("no XObject", [](PdfBuilder&, PdfPage& page) { page.resources = "<< /Font << >> >>"; });
        row("empty XObject",
            [](PdfBuilder&, PdfPage& page) { page.resources = "<< /XObject << >> >>"; });
        row("image under another name",
            [](PdfBuilder&, PdfPage& page) { page.resources.replace("/Im1", "/X1"); });
        row("name of a missing object", [](PdfBuilder&, PdfPage& page) {
            page.resources = "<< /XObject << /Im1 999 0 R >> >>";
        });

        const QByteArray filter = "/Filter /DCTDecode ";
        const auto without
            = [&](const char* entry) { return QByteArray(ImageEntries).replace(entry, ""); };
        imageRow("image without Type", without("/Type /XObject ") + filter, jpeg());
        imageRow("image without Subtype", without("/Subtype /Image ") + filter, jpeg());
        imageRow(
            "image without BitsPerComponent", without("/BitsPerComponent 8 ") + filter, jpeg());
        imageRow("image without Width", without("/Width 40 ") + filter, jpeg());
        imageRow("image without Height", without("/Height 20 ") + filter, jpeg());
        imageRow("image without Filter", ImageEntries, jpeg());
        imageRow("image without data", ImageEntries + filter, {});
        imageRow("Filter that is a number", ImageEntries + "/Filter 5", jpeg());
        imageRow("Width with a fraction", without("/Width 40 ") + "/Width 40.5 " + filter, jpeg());
        imageRow("Width below zero", without("/Width 40 ") + "/Width -40 " + filter, jpeg());
        imageRow("Height that no record holds", without("/Height 20 ") + "/Height 65536 " + filter,
            jpeg());
        imageRow(
            "Flate data that is none", ImageEntries + "/Filter /FlateDecode", "not compressed");
    }
    void pageHoldsNoImage()
    {
        QFETCH(QByteArray, bytes);
        QCOMPARE(acquire(bytes).code, DBCResultCode::NoImageInPdf);
    }

    void damagedDocumentIsMendedButForAMissingMediaBox()
    {
        PdfBuilder pdf;
        PdfPage page = PdfPage::ofImage(pdf.jpegImage(jpeg()));
        const auto damaged
            = [](QByteArray bytes) { return bytes.replace("startxref", "startxxxx"); };
        QCOMPARE(acquire(damaged(PdfBuilder(pdf).page(page).bytes())).code, DBCResultCode::Success);
        page.mediaBox.clear();
        QCOMPARE(
            acquire(damaged(PdfBuilder(pdf).page(page).bytes())).code, DBCResultCode::NoImageInPdf);
    }

    void entriesOfTheParentsAreNotLookedUp_data()
    {
        QTest::addColumn<bool>("isMediaBox");
        QTest::newRow("MediaBox") << true;
        QTest::newRow("Resources") << false;
    }
    void entriesOfTheParentsAreNotLookedUp()
    {
        QFETCH(bool, isMediaBox);
        PdfBuilder pdf;
        PdfPage page = PdfPage::ofImage(pdf.jpegImage(jpeg()));
        pdf.inheritedEntries(
            isMediaBox ? "/MediaBox " + page.mediaBox : "/Resources " + page.resources);
        (isMediaBox ? page.mediaBox : page.resources).clear();
        QCOMPARE(acquire(pdf, page).code, DBCResultCode::NoImageInPdf);
    }

    void jpegComesOutAsItWentIn()
    {
        const QByteArray picture
            = JpegBuilder(40, 20).dotsPerInch(300, 300).exifOrientation(6).bytes();
        const Acquired result = acquire(PdfBuilder::cardPdf({picture}));
        QCOMPARE(result.code, DBCResultCode::Success);
        QVERIFY(result.data == picture);
        QCOMPARE(result.rotation, 0);
    }

    void descriptorOfAJpeg()
    {
        const QByteArray picture = JpegBuilder(1050, 600).bytes();
        const ImageDescriptor descriptor = acquire(PdfBuilder::cardPdf({picture})).descriptor;
        QCOMPARE(qint32(descriptor.recordSize), 86);
        QCOMPARE(QByteArray(descriptor.codecType.data(), 4), QByteArray("jpeg"));
        QCOMPARE(qint32(descriptor.temporalQuality), 512);
        QCOMPARE(qint32(descriptor.spatialQuality), 512);
        QCOMPARE(quint16(descriptor.width), quint16(1050));
        QCOMPARE(quint16(descriptor.height), quint16(600));
        QCOMPARE(quint32(descriptor.dataSize), quint32(picture.size()));
        QCOMPARE(qint16(descriptor.frameCount), qint16(1));
        QCOMPARE(QByteArray(descriptor.name.data()), QByteArray("Trevant_JPEG"));
        QCOMPARE(qint16(descriptor.depth), qint16(24));
        QCOMPARE(qint16(descriptor.colorTableId), qint16(-1));
    }

    void descriptorOfABitmap()
    {
        PdfBuilder pdf;
        const int image = pdf.bitImage(10, 3, QByteArray("\x80\x00\xFF\xC0\x01\x40", 6));
        const ImageDescriptor descriptor = acquire(pdf, PdfPage::ofImage(image)).descriptor;
        QCOMPARE(QByteArray(descriptor.codecType.data(), 4), QByteArray("raw "));
        QCOMPARE(QByteArray(descriptor.name.data()), QByteArray("Trevant_Tiff"));
        QCOMPARE(quint32(descriptor.dataSize), quint32(6));
        QCOMPARE(qint16(descriptor.depth), qint16(1));
    }

    void descriptorHasTheKnownLayout()
    {
        PdfBuilder pdf;
        PdfPage page = PdfPage::ofImage(pdf.jpegImage(JpegBuilder(600, 300).bytes()));
        page.mediaBox = "[0 0 72 72]"; // the image then has 600 and 300 dots per inch
        const Acquired result = acquire(pdf, page);
        std::array<char, 86> record {};
        std::memcpy(record.data(), &result.descriptor, record.size());
        const auto number16
            = [&](size_t offset) { return qFromUnaligned<quint16>(record.data() + offset); };
        const auto number32
            = [&](size_t offset) { return qFromUnaligned<quint32>(record.data() + offset); };
        QCOMPARE(number32(0), 86U);
        QCOMPARE(QByteArray(record.data() + 4, 4), QByteArray("jpeg"));
        QCOMPARE(QByteArray(record.data() + 8, 16), QByteArray(16, '\0'));
        QCOMPARE(number32(24), 512U);
        QCOMPARE(number32(28), 512U);
        QCOMPARE(number16(32), quint16(600));
        QCOMPARE(number16(34), quint16(300));
        QCOMPARE(number32(36), 300U);
        QCOMPARE(number32(40), 600U);
        QCOMPARE(number32(44), quint32(result.data.size()));
        QCOMPARE(number16(48), quint16(1));
        QCOMPARE(
            QByteArray(record.data() + 50, 32), QByteArray("Trevant_JPEG").leftJustified(32, '\0'));
        QCOMPARE(number16(82), quint16(24));
        QCOMPARE(number16(84), quint16(0xFFFF));
    }

    void bitmapDataIsDecoded()
    {
        const QByteArray rows("\x80\x00\xFF\xC0\x01\x40", 6);
        PdfBuilder pdf;
        const int image = pdf.bitImage(10, 3, rows);
        const Acquired result = acquire(pdf, PdfPage::ofImage(image));
        QCOMPARE(result.code, DBCResultCode::Success);
        QCOMPARE(result.data, rows);
    }

    void bitmapWithPredictorIsDecoded()
    {
        // Two rows of one byte each; the second has filter type 2 (Up) and no difference.
        const QByteArray predicted = PdfBuilder::deflated(QByteArray("\x00\xA5\x02\x00", 4));
        const Acquired result = acquireImage(
            "/Type /XObject /Subtype /Image /BitsPerComponent 1 /Width 8 /Height 2 "
            "/Filter /FlateDecode /DecodeParms << /Predictor 15 /Colors 1 /BitsPerComponent 1 "
            "/Columns 8 >>",
            predicted);
        QCOMPARE(result.data, QByteArray("\xA5\xA5"));
    }

    void bitmapThatBreaksOffGivesTheFirstRows()
    {
        QByteArray rows;
        QRandomGenerator random(1);
        for (int i = 0; i < 20000; ++i)
            rows += static_cast<char>(random.bounded(256));
        const QByteArray compressed = PdfBuilder::deflated(rows);
        const Acquired result = acquireImage(
            "/Type /XObject /Subtype /Image /BitsPerComponent 1 /Width 800 /Height 200 "
            "/Filter /FlateDecode",
            compressed.left(compressed.size() / 2));
        QCOMPARE(result.code, DBCResultCode::Success);
        QVERIFY(result.data.size() > 9000);
        QVERIFY(result.data.size() < rows.size());
        QVERIFY(rows.startsWith(result.data));
    }

    void compressedZerosWithoutEndAreCut()
    {
        const QByteArray zeros = PdfBuilder::deflated(QByteArray(64 * 1024 * 1024, '\0'));
        const Acquired result
            = acquireImage("/Type /XObject /Subtype /Image /BitsPerComponent 1 /Width 16 /Height 4 "
                           "/Filter /FlateDecode",
                zeros);
        QCOMPARE(result.code, DBCResultCode::Success);
        QCOMPARE(result.data, QByteArray(9, '\0')); // four rows and one surplus byte
    }

    void depthFollowsTheFilter_data()
    {
        QTest::addColumn<QByteArray>("filter");
        QTest::addColumn<QByteArray>("data");
        QTest::addColumn<qint16>("depth");
        const QByteArray flate = PdfBuilder::deflated("rows");
        QTest::newRow("Flate") << QByteArray("/FlateDecode") << flate << qint16(1);
        QTest::newRow("DCT") << QByteArray("/DCTDecode") << jpeg() << qint16(24);
        QTest::newRow("other name")
            << QByteArray("/CCITTFaxDecode") << QByteArray("x") << qint16(24);
        QTest::newRow("unknown name") << QByteArray("/Whatever") << QByteArray("x") << qint16(24);
        QTest::newRow("Flate in an array") << QByteArray("[/FlateDecode]") << flate << qint16(24);
        QTest::newRow("DCT in an array") << QByteArray("[/DCTDecode]") << jpeg() << qint16(24);
        QTest::newRow("Flate and DCT") << QByteArray("[/FlateDecode /DCTDecode]")
                                       << PdfBuilder::deflated(jpeg()) << qint16(24);
    }
    void depthFollowsTheFilter()
    {
        QFETCH(QByteArray, filter);
        QFETCH(QByteArray, data);
        QFETCH(qint16, depth);
        const Acquired result = acquireImage(ImageEntries + "/Filter " + filter, data);
        QCOMPARE(result.code, DBCResultCode::Success);
        QCOMPARE(qint16(result.descriptor.depth), depth);
    }

    void filtersBeforeTheJpegAreUndone_data()
    {
        QTest::addColumn<QByteArray>("entries");
        QTest::addColumn<QByteArray>("data");
        const QByteArray flate = PdfBuilder::deflated(jpeg());
        QTest::newRow("Flate") << QByteArray("/Filter [/FlateDecode /DCTDecode]") << flate;
        QTest::newRow("hexadecimal") << QByteArray("/Filter [/ASCIIHexDecode /DCTDecode]")
                                     << QByteArray(jpeg().toHex() + '>');
        QTest::newRow("hexadecimal around Flate")
            << QByteArray("/Filter [/ASCIIHexDecode /FlateDecode /DCTDecode]")
            << QByteArray(flate.toHex() + '>');
        QTest::newRow("with parameters")
            << QByteArray("/Filter [/FlateDecode /DCTDecode] "
                          "/DecodeParms [<< /Predictor 1 >> << /ColorTransform 1 >>]")
            << flate;
        QTest::newRow("with fewer parameters than filters")
            << QByteArray("/Filter [/ASCIIHexDecode /FlateDecode /DCTDecode] /DecodeParms [null]")
            << QByteArray(flate.toHex() + '>');
    }
    void filtersBeforeTheJpegAreUndone()
    {
        QFETCH(QByteArray, entries);
        QFETCH(QByteArray, data);
        const Acquired result = acquireImage(ImageEntries + entries, data);
        QCOMPARE(result.code, DBCResultCode::Success);
        QVERIFY(result.data == jpeg());
    }

    void unknownFilterBeforeTheJpegHoldsNoImage()
    {
        QCOMPARE(acquireImage(ImageEntries + "/Filter [/Whatever /DCTDecode]", jpeg()).code,
            DBCResultCode::NoImageInPdf);
    }

    void resolution_data()
    {
        QTest::addColumn<QByteArray>("mediaBox");
        QTest::addColumn<QByteArray>("contents");
        QTest::addColumn<int>("fromWidth");
        QTest::addColumn<int>("fromHeight");
        // The image has 2550 x 3300 pixels in every row.
        QTest::newRow("letter") << QByteArray("[0 0 612 792]") << Upright << 300 << 300;
        QTest::newRow("different") << QByteArray("[0 0 306 396.0]") << Upright << 600 << 600;
        QTest::newRow("half turn") << QByteArray("[0 0 306 792]") << Turned180 << 600 << 300;
        QTest::newRow("quarter turn") << QByteArray("[0 0 792 612]") << Turned90 << 300 << 300;
        QTest::newRow("quarter turn, other page")
            << QByteArray("[0 0 396 612]") << Turned90 << 300 << 600;
        QTest::newRow("three quarter turn")
            << QByteArray("[0 0 792 306]") << Turned270 << 600 << 300;
        QTest::newRow("just below") << QByteArray("[0 0 612.0008 792.03]") << Upright << 300 << 299;
        QTest::newRow("just above") << QByteArray("[0 0 611.99 791.99]") << Upright << 300 << 300;
        QTest::newRow("upside-down box")
            << QByteArray("[0 0 -612 -792]") << Upright << -300 << -300;
    }
    void resolution()
    {
        QFETCH(QByteArray, mediaBox);
        QFETCH(QByteArray, contents);
        QFETCH(int, fromWidth);
        QFETCH(int, fromHeight);
        PdfBuilder pdf;
        PdfPage page
            = PdfPage::ofImage(pdf.jpegImage(JpegBuilder(8, 8).claimedSize(2550, 3300).bytes()));
        page.mediaBox = mediaBox;
        page.contents = contents;
        const Acquired result = acquire(pdf, page);
        QCOMPARE(result.code, DBCResultCode::Success);
        // The two fields are exchanged on purpose: the vertical field is computed from the width.
        QCOMPARE(qint32(result.descriptor.verticalResolution), fromWidth);
        QCOMPARE(qint32(result.descriptor.horizontalResolution), fromHeight);
    }

    void boxIsReadCrosswise()
    {
        PdfBuilder pdf;
        PdfPage page
            = PdfPage::ofImage(pdf.jpegImage(JpegBuilder(8, 8).claimedSize(720, 720).bytes()));
        page.mediaBox = "[20 28 100 100]"; // counts as 100 - 28 wide and 100 - 20 high
        const Acquired result = acquire(pdf, page);
        QCOMPARE(qint32(result.descriptor.verticalResolution), 720);
        QCOMPARE(qint32(result.descriptor.horizontalResolution), 648);
    }

    void pageWithoutExtentHasNoResolution()
    {
        PdfBuilder pdf;
        PdfPage page = PdfPage::ofImage(pdf.jpegImage(jpeg()));
        page.mediaBox = "[0 0 0 0.0000000001]";
        const Acquired result = acquire(pdf, page);
        QCOMPARE(result.code, DBCResultCode::Success);
        QCOMPARE(qint32(result.descriptor.verticalResolution), 0);
        QCOMPARE(qint32(result.descriptor.horizontalResolution), 0);
    }

    void lastImageNameWins()
    {
        PdfBuilder pdf;
        const QByteArray first = JpegBuilder(10, 10).bytes();
        const QByteArray last = JpegBuilder(20, 20).bytes();
        // The search visits the names in the order of their bytes, not in their order in the file.
        const QByteArray objects
            = named("Im2", pdf.jpegImage(last)) + named("Im1", pdf.jpegImage(first));
        QVERIFY(acquire(pdf, pageOf(objects)).data == last);
    }

    void imageIsPreferredToAForm()
    {
        PdfBuilder pdf;
        const int image = pdf.jpegImage(jpeg());
        const int form = pdf.form("/X Do\n", "<< >>");
        QVERIFY(acquire(pdf, pageOf(named("Fm1", form) + named("Im1", image))).data == jpeg());
    }

    void nameOfSixteenCharactersIsNotFound()
    {
        const auto code = [](const QByteArray& name) {
            PdfBuilder pdf;
            const int image = pdf.jpegImage(jpeg());
            return acquire(pdf, pageOf(named(name, image))).code;
        };
        QCOMPARE(code("Im3456789012345"), DBCResultCode::Success);
        QCOMPARE(code("Im34567890123456"), DBCResultCode::NoImageInPdf);
    }

    void imageInAForm()
    {
        PdfBuilder pdf;
        const int form = pdf.form(Upright, pageOf(named("Im1", pdf.jpegImage(jpeg()))).resources);
        const Acquired result = acquire(pdf, pageOf(named("Fm1", form)));
        QCOMPARE(result.code, DBCResultCode::Success);
        QVERIFY(result.data == jpeg());
    }

    void imageInAFormInAForm()
    {
        PdfBuilder pdf;
        const int inner = pdf.form(Turned90, pageOf(named("Im1", pdf.jpegImage(jpeg()))).resources);
        const int outer = pdf.form(Turned90, pageOf(named("Fm1", inner)).resources);
        const Acquired result = acquire(pdf, pageOf(named("Fm1", outer), Turned90));
        QVERIFY(result.data == jpeg());
        QCOMPARE(result.rotation, 270);
    }

    void rotationsOfPageAndFormAddUp_data()
    {
        QTest::addColumn<QByteArray>("page");
        QTest::addColumn<QByteArray>("form");
        QTest::addColumn<qint32>("rotation");
        QTest::newRow("both upright") << Upright << Upright << 0;
        QTest::newRow("form turned") << Upright << Turned90 << 90;
        QTest::newRow("page turned") << Turned270 << Upright << 270;
        QTest::newRow("together a half turn") << Turned90 << Turned90 << 180;
        QTest::newRow("together a full turn") << Turned180 << Turned180 << 0;
        QTest::newRow("more than a full turn") << Turned270 << Turned180 << 90;
    }
    void rotationsOfPageAndFormAddUp()
    {
        QFETCH(QByteArray, page);
        QFETCH(QByteArray, form);
        QFETCH(qint32, rotation);
        PdfBuilder pdf;
        const int number = pdf.form(form, pageOf(named("Im1", pdf.jpegImage(jpeg()))).resources);
        QCOMPARE(acquire(pdf, pageOf(named("Fm1", number), page)).rotation, rotation);
    }

    void turnedFormExchangesTheResolutions()
    {
        PdfBuilder pdf;
        const int image = pdf.jpegImage(JpegBuilder(8, 8).claimedSize(720, 720).bytes());
        const int form = pdf.form(Turned90, pageOf(named("Im1", image)).resources);
        PdfPage page = pageOf(named("Fm1", form));
        page.mediaBox = "[0 0 72 36]";
        const Acquired result = acquire(pdf, page);
        QCOMPARE(qint32(result.descriptor.verticalResolution), 1440);
        QCOMPARE(qint32(result.descriptor.horizontalResolution), 720);
    }

    void formThatNamesItselfHoldsNoImage()
    {
        PdfBuilder pdf;
        const int self = pdf.nextNumber();
        pdf.form("/Fm1 Do\n", pageOf(named("Fm1", self)).resources);
        QCOMPARE(acquire(pdf, pageOf(named("Fm1", self))).code, DBCResultCode::NoImageInPdf);
    }

    void formsThatNameEachOtherHoldNoImage()
    {
        PdfBuilder pdf;
        const int first = pdf.nextNumber();
        pdf.form("/Fm1 Do\n", pageOf(named("Fm1", first + 1)).resources);
        pdf.form("/Fm1 Do\n", pageOf(named("Fm1", first)).resources);
        QCOMPARE(acquire(pdf, pageOf(named("Fm1", first))).code, DBCResultCode::NoImageInPdf);
    }

    void formWithoutResourcesHoldsNoImage()
    {
        PdfBuilder pdf;
        const int form = pdf.form(Upright, {});
        QCOMPARE(acquire(pdf, pageOf(named("Fm1", form))).code, DBCResultCode::NoImageInPdf);
    }

    void formThatCannotBeDecodedHoldsNoImage()
    {
        PdfBuilder pdf;
        const QByteArray resources = pageOf(named("Im1", pdf.jpegImage(jpeg()))).resources;
        const int form = pdf.stream(
            "/Subtype /Form /BBox [0 0 9 9] /Filter /Whatever /Resources " + resources, Upright);
        QCOMPARE(acquire(pdf, pageOf(named("Fm1", form))).code, DBCResultCode::NoImageInPdf);
    }

    void contentsThatCannotBeDecodedAreUpright()
    {
        PdfBuilder pdf;
        PdfPage page = PdfPage::ofImage(pdf.jpegImage(jpeg()));
        page.contentsEntry = PdfBuilder::reference(pdf.stream("/Filter /Whatever", Turned90));
        const Acquired result = acquire(pdf, page);
        QCOMPARE(result.code, DBCResultCode::Success);
        QCOMPARE(result.rotation, 0);
    }

    void contentsWithoutEndAreReadToALimit()
    {
        PdfBuilder pdf;
        PdfPage page = PdfPage::ofImage(pdf.jpegImage(jpeg()));
        const QByteArray contents = Turned90 + QByteArray(64 * 1024 * 1024, ' ');
        page.contentsEntry = PdfBuilder::reference(
            pdf.stream("/Filter /FlateDecode", PdfBuilder::deflated(contents)));
        const Acquired result = acquire(pdf, page);
        QCOMPARE(result.code, DBCResultCode::Success);
        QCOMPARE(result.rotation, 90);
    }

    void encryptedImageIsDecrypted()
    {
        const Acquired result = acquire(PdfBuilder::encrypted(PdfBuilder::cardPdf({jpeg()}), {}));
        QCOMPARE(result.code, DBCResultCode::Success);
        QVERIFY(result.data == jpeg());
    }
};

QTEST_GUILESS_MAIN(tst_pdfPageImage)
#include "tst_pdfPageImage.moc"
