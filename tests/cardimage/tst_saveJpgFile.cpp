// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/DBCImageFiles.h"

#include "cardimage/pdf/DBCCardPdf.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/FailingCall.h"
#include "tests/support/JpegBuilder.h"
#include "tests/support/PdfBuilder.h"
#include "tests/support/ScopedHost.h"
#include "tests/support/TestHome.h"

#include <QtTest>

#include <cerrno>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

using ColorModel = DBCBitmap::ColorModel;

namespace {

constexpr qint32 ColorPicture = 1;
constexpr qint32 OneBitPicture = 0;

DBCBitmap colorBitmap(int width = 64, int height = 32)
{
    return DBCBitmap::of(JpegBuilder::quarters(width, height), ColorModel::DeviceRGB);
}

DBCBitmap grayBitmap(int width = 64, int height = 32)
{
    return DBCBitmap::of(
        JpegBuilder::quarters(width, height).convertToFormat(QImage::Format_Grayscale8),
        ColorModel::DeviceGray);
}

// Returns a 1-bit bitmap whose left half is black and whose right half is white.
DBCBitmap oneBitBitmap(int width = 64, int height = 32)
{
    DBCBitmap bitmap
        = DBCBitmap::blank(QSize(width, height), QImage::Format_Mono, ColorModel::DeviceBlack);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width / 2; ++x)
            bitmap.pixels.setPixel(x, y, 1);
    }
    return bitmap;
}

// Calls saveJpgFile() and reads the file that it wrote with QImageReader.
struct Saved {
    Saved(const DBCBitmap& bitmap, qint32 rotation, qint32 isColor, qint32 xResolution = 300,
        qint32 yResolution = 300)
    {
        const TestHome home;
        const QString path = home.path(u"card.jpg"_s);
        code = saveJpgFile(bitmap, rotation, xResolution, yResolution, isColor, path);
        bytes = home.readFile(u"card.jpg"_s);
        facts = JpegFacts::of(bytes).value_or(JpegFacts());
        pixels.loadFromData(bytes, "JPG");
    }

    DBCResultCode code;
    QByteArray bytes;
    JpegFacts facts;
    QImage pixels;
};

} // namespace

class tst_saveJpgFile : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void missingArgumentIsAGeneralFailure()
    {
        const TestHome home;
        const QString path = home.path(u"card.jpg"_s);
        QCOMPARE(saveJpgFile({}, 0, 300, 300, 1, path), DBCResultCode::GeneralFailure);
        QCOMPARE(saveJpgFile(colorBitmap(), 0, 300, 300, 1, {}), DBCResultCode::GeneralFailure);
        QVERIFY(!QFile::exists(path));
    }

    void uprightColorPictureKeepsItsPixels()
    {
        const Saved saved(colorBitmap(1050, 600), 0, ColorPicture);
        QCOMPARE(saved.code, DBCResultCode::Success);
        QCOMPARE(saved.facts.width, 1050);
        QCOMPARE(saved.facts.height, 600);
        QCOMPARE(saved.facts.components, 3);
        QCOMPARE(saved.facts.densityUnit, 1);
        QCOMPARE(saved.facts.xDensity, 300);
        QCOMPARE(saved.facts.yDensity, 300);
        QVERIFY(isNearColor(saved.pixels.pixelColor(20, 20), Qt::red));
        QVERIFY(isNearColor(saved.pixels.pixelColor(1030, 580), Qt::yellow));
    }

    void resolutionIsThatOfTheFirstNumber()
    {
        const Saved saved(colorBitmap(), 0, ColorPicture, 400, 200);
        QCOMPARE(saved.facts.xDensity, 400);
        QCOMPARE(saved.facts.yDensity, 400);
    }

    void resolutionFollowsThePointSize()
    {
        DBCBitmap bitmap = colorBitmap(64, 32);
        bitmap.pointSize = QSizeF(32, 32);
        const Saved saved(bitmap, 0, ColorPicture, 300, 300);
        QCOMPARE(saved.facts.xDensity, 600);
        QCOMPARE(saved.facts.yDensity, 300);
    }

    void noResolutionIsRecordedAsNone_data()
    {
        QTest::addColumn<qint32>("resolution");
        QTest::newRow("none") << 0;
        QTest::newRow("negative") << -300;
        QTest::newRow("more than a file holds") << 70000;
        QTest::newRow("largest number") << std::numeric_limits<qint32>::max();
        QTest::newRow("smallest number") << std::numeric_limits<qint32>::min();
    }
    void noResolutionIsRecordedAsNone()
    {
        QFETCH(qint32, resolution);
        const Saved saved(colorBitmap(), 0, ColorPicture, resolution, resolution);
        QCOMPARE(saved.code, DBCResultCode::Success);
        QCOMPARE(saved.facts.densityUnit, 0);
        QCOMPARE(saved.facts.width, 64);
    }

    void componentsWritten_data()
    {
        QTest::addColumn<DBCBitmap>("bitmap");
        QTest::addColumn<qint32>("rotation");
        QTest::addColumn<qint32>("isColor");
        QTest::addColumn<qint32>("systemVersion");
        QTest::addColumn<int>("components");
        constexpr qint32 former = 0x1059;
        constexpr qint32 later = 0x1060;
        const auto row = [](const char* name, const DBCBitmap& bitmap, qint32 rotation,
                             qint32 isColor, qint32 systemVersion, int components) {
            QTest::newRow(name) << bitmap << rotation << isColor << systemVersion << components;
        };
        row("1 bit, upright", oneBitBitmap(1000, 600), 0, OneBitPicture, former, 3);
        row("1 bit, half turn", oneBitBitmap(1000, 600), 180, OneBitPicture, former, 1);
        row("1 bit, quarter turn", oneBitBitmap(), 90, OneBitPicture, later, 1);
        row("1 bit that counts as colour, upright", oneBitBitmap(), 0, ColorPicture, former, 3);
        row("1 bit that counts as colour, turned", oneBitBitmap(), 90, ColorPicture, later, 1);
        row("gray, upright", grayBitmap(), 0, ColorPicture, later, 1);
        row("gray that is no colour, upright", grayBitmap(), 0, OneBitPicture, former, 3);
        row("gray, turned, former system", grayBitmap(), 90, ColorPicture, former, 1);
        row("gray, turned, later system", grayBitmap(), 90, ColorPicture, later, 3);
        row("gray that is no colour, turned, later system", grayBitmap(), 90, OneBitPicture, later,
            1);
        row("colour, upright", colorBitmap(), 0, ColorPicture, former, 3);
        row("colour, turned", colorBitmap(), 270, ColorPicture, former, 3);
        row("colour that is no colour, upright", colorBitmap(), 0, OneBitPicture, former, 3);
    }
    void componentsWritten()
    {
        QFETCH(DBCBitmap, bitmap);
        QFETCH(qint32, rotation);
        QFETCH(qint32, isColor);
        QFETCH(qint32, systemVersion);
        QFETCH(int, components);
        ScopedHost host;
        host->systemVersion = [systemVersion] { return systemVersion; };
        const Saved saved(bitmap, rotation, isColor);
        QCOMPARE(saved.code, DBCResultCode::Success);
        QCOMPARE(saved.facts.components, components);
        const QSize size = bitmap.pixels.size();
        QCOMPARE(saved.pixels.size(), rotation % 180 == 0 ? size : size.transposed());
    }

    void oneBitPictureIsBlackOnWhite_data()
    {
        QTest::addColumn<qint32>("rotation");
        QTest::addColumn<QPoint>("black");
        QTest::addColumn<QPoint>("white");
        QTest::newRow("upright") << 0 << QPoint(8, 16) << QPoint(56, 16);
        QTest::newRow("half turn") << 180 << QPoint(56, 16) << QPoint(8, 16);
    }
    void oneBitPictureIsBlackOnWhite()
    {
        QFETCH(qint32, rotation);
        QFETCH(QPoint, black);
        QFETCH(QPoint, white);
        const QImage pixels = Saved(oneBitBitmap(), rotation, OneBitPicture).pixels;
        QVERIFY(isNearColor(pixels.pixelColor(black), Qt::black));
        QVERIFY(isNearColor(pixels.pixelColor(white), Qt::white));
    }

    void pictureIsTurnedClockwise_data()
    {
        QTest::addColumn<qint32>("rotation");
        QTest::addColumn<QList<QColor>>(
            "corners"); // in the order top left, top right, bottom left, bottom right
        const QColor red(Qt::red);
        const QColor green(Qt::green);
        const QColor blue(Qt::blue);
        const QColor yellow(Qt::yellow);
        QTest::newRow("none") << 0 << QList<QColor> {red, green, blue, yellow};
        QTest::newRow("quarter") << 90 << QList<QColor> {blue, red, yellow, green};
        QTest::newRow("half") << 180 << QList<QColor> {yellow, blue, green, red};
        QTest::newRow("three quarters") << 270 << QList<QColor> {green, yellow, red, blue};
    }
    void pictureIsTurnedClockwise()
    {
        QFETCH(qint32, rotation);
        QFETCH(QList<QColor>, corners);
        const QImage pixels = Saved(colorBitmap(64, 32), rotation, ColorPicture).pixels;
        const int right = pixels.width() - 1;
        const int bottom = pixels.height() - 1;
        QVERIFY(isNearColor(pixels.pixelColor(0, 0), corners[0]));
        QVERIFY(isNearColor(pixels.pixelColor(right, 0), corners[1]));
        QVERIFY(isNearColor(pixels.pixelColor(0, bottom), corners[2]));
        QVERIFY(isNearColor(pixels.pixelColor(right, bottom), corners[3]));
    }

    void resolutionSurvivesATurn()
    {
        for (const qint32 rotation : {90, 180, 270}) {
            const Saved saved(colorBitmap(), rotation, ColorPicture, 300, 200);
            QCOMPARE(saved.facts.densityUnit, 1);
            QCOMPARE(saved.facts.xDensity, 300);
            QCOMPARE(saved.facts.yDensity, 300);
        }
    }

    void pictureTooLargeToConvertIsAFailure()
    {
        // At one bit per pixel the bitmap is within the limit. It exceeds the limit at 32 bits, and
        // also at the 8 bits that a turned bitmap has.
        const DBCBitmap large
            = DBCBitmap::blank(QSize(30000, 30000), QImage::Format_Mono, ColorModel::DeviceBlack);
        QVERIFY(!large.isNull());
        QCOMPARE(Saved(large, 0, OneBitPicture).code, DBCResultCode::PdfToJpegFailure);
        QCOMPARE(Saved(large, 90, OneBitPicture).code, DBCResultCode::PdfToJpegFailure);
    }

    void pictureThatNoJpegHoldsIsAQuietSuccess()
    {
        const DBCBitmap wide
            = DBCBitmap::blank(QSize(70000, 1), QImage::Format_Grayscale8, ColorModel::DeviceGray);
        const Saved saved(wide, 0, ColorPicture);
        QCOMPARE(saved.code, DBCResultCode::Success);
        QVERIFY(saved.bytes.isEmpty());
    }

    void existingFileIsReplaced()
    {
        const TestHome home;
        const QString path = home.writeFile(u"card.jpg"_s, QByteArray(100000, 'x'));
        QCOMPARE(saveJpgFile(colorBitmap(), 0, 300, 300, 1, path), DBCResultCode::Success);
        QVERIFY(home.readFile(u"card.jpg"_s).size() < 100000);
        QVERIFY(JpegFacts::of(home.readFile(u"card.jpg"_s)));
    }

    void missingFolderIsASaveFailure()
    {
        const TestHome home;
        QCOMPARE(saveJpgFile(colorBitmap(), 0, 300, 300, 1, home.path(u"none/card.jpg"_s)),
            DBCResultCode::FileSaveFailure);
    }

    void fullDiskIsReported()
    {
        ScopedHost host;
        host.setFreeBytes(1000);
        QCOMPARE(Saved(colorBitmap(), 0, ColorPicture).code, DBCResultCode::NoSpaceForExport);
    }

    void cardPdfBecomesAFileOfItsPixels()
    {
        const TestHome home;
        PdfBuilder pdf;
        PdfPage page = PdfPage::ofImage(pdf.jpegImage(JpegBuilder(1050, 600).bytes()));
        page.furtherEntries = "/Rotate 90";
        const QString source = home.writeFile(u"card.pdf"_s, pdf.page(page).bytes());
        const QString target = home.path(u"card.jpg"_s);
        DBCBitmap face;
        CardImageInfo info;
        QCOMPARE(AcquireCardImageFromPDF(source, &face, &info, nullptr, nullptr),
            DBCResultCode::Success);
        QCOMPARE(saveJpgFile(
                     face, info.rotation, info.xResolution, info.yResolution, info.isColor, target),
            DBCResultCode::Success);
        const JpegFacts facts = JpegFacts::of(home.readFile(u"card.jpg"_s)).value_or(JpegFacts());
        QCOMPARE(facts.width, 600);
        QCOMPARE(facts.height, 1050);
        QCOMPARE(facts.xDensity, 300);
        QVERIFY(isNearColor(QImage(target).pixelColor(10, 10), Qt::blue));
    }

    void wholeFileIsRead()
    {
        const TestHome home;
        const QByteArray bytes = JpegBuilder(300, 200).bytes();
        const QString path = home.writeFile(u"名刺 1%20.jpg"_s, bytes);
        QByteArray buffer;
        QCOMPARE(readJpgFile(QUrl::fromLocalFile(path), &buffer), 0);
        QVERIFY(buffer == bytes);
    }

    void fileOfAnyKindIsRead()
    {
        const TestHome home;
        const QByteArray bytes("no\0JPEG", 7);
        QByteArray buffer;
        QCOMPARE(readJpgFile(QUrl::fromLocalFile(home.writeFile(u"a.txt"_s, bytes)), &buffer), 0);
        QCOMPARE(buffer, bytes);
        QCOMPARE(readJpgFile(QUrl::fromLocalFile(home.writeFile(u"b.txt"_s, {})), &buffer), 0);
        QVERIFY(buffer.isEmpty());
    }

    void fileCannotBeRead_data()
    {
        QTest::addColumn<QUrl>("url");
        QTest::addColumn<qint32>("code");
        QTest::newRow("missing") << QUrl::fromLocalFile(u"/nowhere/a.jpg"_s) << -ENOENT;
        QTest::newRow("folder") << QUrl::fromLocalFile(u"/tmp"_s) << -4960;
        QTest::newRow("device") << QUrl::fromLocalFile(u"/dev/zero"_s) << -4960;
        QTest::newRow("elsewhere") << QUrl(u"http://127.0.0.1/a.jpg"_s) << -4960;
    }
    void fileCannotBeRead()
    {
        QFETCH(QUrl, url);
        QFETCH(qint32, code);
        QByteArray buffer = "before";
        QCOMPARE(readJpgFile(url, &buffer), code);
        QVERIFY(buffer.isEmpty());
    }

    void readingNeedsItsArguments()
    {
        QByteArray buffer;
        QCOMPARE(readJpgFile(QUrl(), &buffer), -50);
        QCOMPARE(readJpgFile(QUrl::fromLocalFile(u"/tmp/a.jpg"_s), nullptr), -50);
    }

    void unreadableFileIsRefused()
    {
        const AsOrdinaryUser user;
        const TestHome home;
        const QString path = home.writeFile(u"card.jpg"_s, "x");
        QVERIFY(QFile::setPermissions(path, {}));
        QByteArray buffer;
        QCOMPARE(readJpgFile(QUrl::fromLocalFile(path), &buffer), -EACCES);
    }

    // A file of sysfs claims the size of a memory page, but reading the file gives fewer bytes or
    // fails.
    void fileThatEndsEarlyIsRefused()
    {
        const QString path = u"/sys/class/net/lo/mtu"_s;
        if (QFileInfo(path).size() == 0)
            QSKIP("no such file here");
        QByteArray buffer = "before";
        QCOMPARE(readJpgFile(QUrl::fromLocalFile(path), &buffer), -4960);
        QVERIFY(buffer.isEmpty());
    }

    void failingReadIsReported()
    {
        const QString path = u"/sys/class/net/lo/speed"_s;
        if (QFileInfo(path).size() == 0)
            QSKIP("no such file here");
        QByteArray buffer = "before";
        QCOMPARE(readJpgFile(QUrl::fromLocalFile(path), &buffer), -EINVAL);
        QVERIFY(buffer.isEmpty());
    }

    void fileThatCannotBeLookedAtIsReported()
    {
        const TestHome home;
        const QUrl url = QUrl::fromLocalFile(home.writeFile(u"card.jpg"_s, "x"));
        QByteArray buffer = "before";
        qint32 code = 0;
        if (!FailingCall::lookingAtAFile(EIO).during([&] { code = readJpgFile(url, &buffer); }))
            QSKIP("calls cannot be made to fail here");
        QCOMPARE(code, -EIO);
        QVERIFY(buffer.isEmpty());
    }

    void hugeFileIsRefusedUnread()
    {
        const TestHome home;
        const QString path = home.writeFile(u"card.jpg"_s, "x");
        QVERIFY(QFile::resize(path, 4LL * 1024 * 1024 * 1024)); // sparse: takes no disk space
        QByteArray buffer;
        QCOMPARE(readJpgFile(QUrl::fromLocalFile(path), &buffer), -4960);
    }
};

QTEST_GUILESS_MAIN(tst_saveJpgFile)
#include "tst_saveJpgFile.moc"
