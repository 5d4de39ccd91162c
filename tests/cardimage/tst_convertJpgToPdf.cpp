// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/DBCImageFiles.h"

#include "cardimage/pdf/DBCCardPdf.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/JpegBuilder.h"
#include "tests/support/ScopedHost.h"
#include "tests/support/TestHome.h"

#include <QtTest>

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>

#include <clocale>
#include <csignal>
#include <thread>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

// Holds JPEG files in a folder of their own, and the PDF that convertJPG2PDF() makes of these
// files.
class Conversion {
public:
    Conversion& add(const QByteArray& bytes)
    {
        _paths << _home.writeFile(u"%1.jpg"_s.arg(_paths.size()), bytes);
        return *this;
    }
    Conversion& addPath(const QString& path)
    {
        _paths << path;
        return *this;
    }

    DBCResultCode run() const { return convertJPG2PDF(_paths, output()); }
    QString output() const { return _home.path(u"card.pdf"_s); }
    const TestHome& home() const { return _home; }

private:
    TestHome _home;
    QStringList _paths;
};

class Document {
public:
    explicit Document(const QString& path)
    {
        _pdf.processFile(QFile::encodeName(path).constData());
    }

    int pageCount() { return static_cast<int>(_pdf.getAllPages().size()); }
    QPDFObjectHandle page(size_t index) { return _pdf.getAllPages().at(index); }
    QPDFObjectHandle image(size_t index)
    {
        return page(index).getKey("/Resources").getKey("/XObject").getKey("/Im1");
    }
    QByteArray box(size_t index)
    {
        return QByteArray::fromStdString(page(index).getKey("/MediaBox").unparseResolved());
    }
    QByteArray contents(size_t index)
    {
        const auto data = page(index).getKey("/Contents").getStreamData();
        return {reinterpret_cast<const char*>(data->getBuffer()),
            static_cast<qsizetype>(data->getSize())};
    }
    QByteArray creator()
    {
        return QByteArray::fromStdString(
            _pdf.getTrailer().getKey("/Info").getKey("/Creator").getUTF8Value());
    }

private:
    QPDF _pdf;
};

JpegBuilder picture(int width, int height)
{
    return JpegBuilder(8, 8).claimedSize(width, height);
}

QByteArray smallPicture()
{
    return JpegBuilder(40, 20).dotsPerInch(300, 300).bytes();
}

// Returns a JPEG that is far larger than the buffer of a file, so that writing the PDF fails before
// the file is closed.
QByteArray noisyPicture()
{
    QImage noise(300, 200, QImage::Format_RGB888);
    QRandomGenerator(1).generate(noise.bits(), noise.bits() + noise.sizeInBytes());
    return JpegBuilder(noise).fullColor().quality(100).bytes();
}

// Runs the program, which must end with exit code 0, and returns its standard output.
QByteArray outputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit
        || process.exitCode() != 0)
        return "failed: " + process.readAll();
    return process.readAll();
}

} // namespace

class tst_convertJpgToPdf : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void missingArgumentIsAGeneralFailure()
    {
        const TestHome home;
        const QString output = home.path(u"card.pdf"_s);
        QCOMPARE(convertJPG2PDF({}, output), DBCResultCode::GeneralFailure);
        QVERIFY(!QFile::exists(output));
        const QString jpeg = home.writeFile(u"a.jpg"_s, smallPicture());
        QCOMPARE(convertJPG2PDF({jpeg}, {}), DBCResultCode::GeneralFailure);
    }

    void interruptedWriteGoesOn()
    {
        Conversion onDisk;
        QCOMPARE(onDisk.add(noisyPicture()).run(), DBCResultCode::Success);
        Conversion conversion;
        conversion.add(noisyPicture());
        QCOMPARE(mkfifo(QFile::encodeName(conversion.output()).constData(), S_IRWXU), 0);

        // Because the handler is set without SA_RESTART, a signal ends a waiting system call with
        // EINTR.
        struct sigaction interrupt { };
        interrupt.sa_handler = [](int) {};
        struct sigaction former { };
        sigaction(SIGUSR1, &interrupt, &former);
        const pthread_t writer = pthread_self();
        QByteArray received;
        std::thread reader([&] {
            QFile pipe(conversion.output());
            if (!pipe.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
                return;
            constexpr int interruptions = 20;
            for (int i = 0; i < interruptions; ++i) {
                QThread::msleep(10); // the writer waits, since nothing reads
                pthread_kill(writer, SIGUSR1);
            }
            while (true) {
                const QByteArray part = pipe.read(65536);
                if (part.isEmpty())
                    return;
                received += part;
            }
        });
        const DBCResultCode code = conversion.run();
        reader.join();
        sigaction(SIGUSR1, &former, nullptr);

        QCOMPARE(code, DBCResultCode::Success);
        QFile file(onDisk.output());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(received.size(), file.size());
        QCOMPARE(received.right(6), "%%EOF\n");
    }

    void pageSize_data()
    {
        QTest::addColumn<QByteArray>("jpeg");
        QTest::addColumn<QByteArray>("box");
        const auto row = [](const char* name, const JpegBuilder& builder, const char* box) {
            QTest::newRow(name) << builder.bytes() << QByteArray(box);
        };
        row("300 dpi", picture(2100, 1200).dotsPerInch(300, 300), "[ 0 0 504 288 ]");
        row("0 dpi", picture(2100, 1200), "[ 0 0 2100 1200 ]");
        row("orientation 6", picture(2100, 1200).dotsPerInch(300, 200).exifOrientation(6),
            "[ 0 0 432 504 ]");
        row("orientation 5", picture(2100, 1200).dotsPerInch(300, 200).exifOrientation(5),
            "[ 0 0 432 504 ]");
        row("orientation 8", picture(2100, 1200).dotsPerInch(300, 200).exifOrientation(8),
            "[ 0 0 432 504 ]");
        row("orientation 4", picture(2100, 1200).dotsPerInch(300, 200).exifOrientation(4),
            "[ 0 0 504 432 ]");
        row("orientation 9", picture(2100, 1200).dotsPerInch(300, 200).exifOrientation(9),
            "[ 0 0 504 432 ]");
        row("orientation 6 without a resolution", picture(2100, 1200).exifOrientation(6),
            "[ 0 0 1200 2100 ]");
        row("one resolution is 0", picture(2100, 1200).dotsPerInch(300, 0), "[ 0 0 2100 1200 ]");
        row("remainder is dropped", picture(1051, 599).dotsPerInch(300, 300), "[ 0 0 252 143 ]");
        row("Exif resolution", picture(2100, 1200).withoutJfif().exifResolution(300, 150),
            "[ 0 0 504 576 ]");
        row("30000 pixels", picture(30000, 30000).dotsPerInch(600, 600), "[ 0 0 3600 3600 ]");
        row("65500 pixels", picture(65500, 1), "[ 0 0 65500 1 ]");
        row("less than a point", picture(4, 4).dotsPerInch(300, 300), "[ 0 0 0 0 ]");
    }
    void pageSize()
    {
        QFETCH(QByteArray, jpeg);
        QFETCH(QByteArray, box);
        Conversion conversion;
        QCOMPARE(conversion.add(jpeg).run(), DBCResultCode::Success);
        QCOMPARE(Document(conversion.output()).box(0), box);
    }

    void pagesFollowTheList()
    {
        Conversion conversion;
        conversion.add(JpegBuilder(10, 10).bytes());
        conversion.add(JpegBuilder(20, 20).bytes());
        conversion.add(JpegBuilder(30, 30).bytes());
        QCOMPARE(conversion.run(), DBCResultCode::Success);
        Document document(conversion.output());
        QCOMPARE(document.pageCount(), 3);
        for (size_t i = 0; i < 3; ++i)
            QCOMPARE(
                document.image(i).getDict().getKey("/Width").getIntValueAsInt(), int(i + 1) * 10);
    }

    void creatorIsOurs()
    {
        Conversion conversion;
        QCOMPARE(conversion.add(smallPicture()).run(), DBCResultCode::Success);
        QCOMPARE(Document(conversion.output()).creator(),
            QByteArray("Trevant Manager #VelmoraConverter"));
    }

    void pageIsLaidOutAsReadersExpect()
    {
        Conversion conversion;
        QCOMPARE(conversion.add(picture(2100, 1200).dotsPerInch(300, 300).bytes()).run(),
            DBCResultCode::Success);
        Document document(conversion.output());
        const QByteArray contents = document.contents(0);
        const QRegularExpression layout(
            u"/Perceptual ri\\s+q\\s504 0 0 288 0 0 cm\\s+/Im1 Do\\s+Q"_s);
        QVERIFY2(layout.match(QString::fromLatin1(contents)).hasMatch(), contents.constData());

        QPDFObjectHandle image = document.image(0).getDict();
        QCOMPARE(image.getKey("/Type").getName(), "/XObject");
        QCOMPARE(image.getKey("/Subtype").getName(), "/Image");
        QCOMPARE(image.getKey("/Filter").getName(), "/DCTDecode");
        QCOMPARE(image.getKey("/BitsPerComponent").getIntValueAsInt(), 8);
        QCOMPARE(image.getKey("/Width").getIntValueAsInt(), 2100);
        QCOMPARE(image.getKey("/Height").getIntValueAsInt(), 1200);
        QVERIFY(!image.hasKey("/Interpolate"));
    }

    void numbersHaveAPointInEveryLocale()
    {
        const QByteArray before = std::setlocale(LC_ALL, nullptr);
        // If this locale is not installed, the test passes without testing the effect of a locale.
        std::setlocale(LC_ALL, "de_DE.UTF-8");
        Conversion conversion;
        const DBCResultCode code = conversion.add(picture(21000, 12000).bytes()).run();
        std::setlocale(LC_ALL, before.constData());
        QCOMPARE(code, DBCResultCode::Success);
        QCOMPARE(Document(conversion.output()).box(0), QByteArray("[ 0 0 21000 12000 ]"));
    }

    void colorSpaceFollowsTheComponents_data()
    {
        QTest::addColumn<QByteArray>("jpeg");
        QTest::addColumn<QByteArray>("space");
        QTest::addColumn<bool>("isInverted");
        QTest::newRow("gray") << JpegBuilder(8, 8).gray().bytes() << QByteArray("/DeviceGray")
                              << false;
        QTest::newRow("colour") << JpegBuilder(8, 8).bytes() << QByteArray("/DeviceRGB") << false;
        QTest::newRow("four inks")
            << JpegBuilder(8, 8).plainCmyk().bytes() << QByteArray("/DeviceCMYK") << false;
        QTest::newRow("four inks, inverted")
            << JpegBuilder(8, 8).cmyk().bytes() << QByteArray("/DeviceCMYK") << true;
    }
    void colorSpaceFollowsTheComponents()
    {
        QFETCH(QByteArray, jpeg);
        QFETCH(QByteArray, space);
        QFETCH(bool, isInverted);
        Conversion conversion;
        QCOMPARE(conversion.add(jpeg).run(), DBCResultCode::Success);
        QPDFObjectHandle image = Document(conversion.output()).image(0).getDict();
        QCOMPARE(QByteArray::fromStdString(image.getKey("/ColorSpace").getName()), space);
        QCOMPARE(image.hasKey("/Decode"), isInverted);
    }

    void documentIsSound()
    {
        Conversion conversion;
        conversion.add(smallPicture()).add(JpegBuilder(30, 50).gray().bytes());
        conversion.add(JpegBuilder(30, 50).progressive().exifOrientation(6).bytes());
        QCOMPARE(conversion.run(), DBCResultCode::Success);
        const QByteArray report = outputOf(u"qpdf"_s, {u"--check"_s, conversion.output()});
        QVERIFY2(report.contains("No syntax or stream encoding errors found"), report.constData());
        QVERIFY2(!report.contains("WARNING"), report.constData());
    }

    void jpegsComeOutByteForByte()
    {
        const QList<QByteArray> jpegs {
            JpegBuilder(300, 200).dotsPerInch(300, 300).exifOrientation(6).bytes(),
            JpegBuilder(200, 300).gray().bytes(),
        };
        Conversion conversion;
        QCOMPARE(conversion.add(jpegs[0]).add(jpegs[1]).run(), DBCResultCode::Success);
        const QString root = conversion.home().makeFolder(u"out"_s) + u'/';
        QCOMPARE(outputOf(u"pdfimages"_s, {u"-all"_s, conversion.output(), root}), QByteArray());
        QVERIFY(conversion.home().readFile(u"out/-000.jpg"_s) == jpegs[0]);
        QVERIFY(conversion.home().readFile(u"out/-001.jpg"_s) == jpegs[1]);
    }

    void documentIsAnImageOnlyCard()
    {
        Conversion conversion;
        QCOMPARE(conversion.add(smallPicture()).add(smallPicture()).run(), DBCResultCode::Success);
        qint32 pageCount = 0;
        QCOMPARE(CheckPdfFile(conversion.output(), &pageCount), DBCResultCode::PdfCardImageOnly);
        QCOMPARE(pageCount, 2);
    }

    void imagesComeBackUpright()
    {
        Conversion conversion;
        conversion.add(JpegBuilder(1050, 600).dotsPerInch(300, 300).bytes());
        conversion.add(JpegBuilder(600, 1050).gray().dotsPerInch(200, 200).bytes());
        QCOMPARE(conversion.run(), DBCResultCode::Success);
        DBCBitmap face;
        DBCBitmap back;
        CardImageInfo faceInfo;
        CardImageInfo backInfo;
        QCOMPARE(AcquireCardImageFromPDF(conversion.output(), &face, &faceInfo, &back, &backInfo),
            DBCResultCode::Success);
        QCOMPARE(face.pixels.size(), QSize(1050, 600));
        QCOMPARE(faceInfo.rotation, 0);
        QCOMPARE(faceInfo.xResolution, 300);
        QCOMPARE(faceInfo.yResolution, 300);
        QCOMPARE(faceInfo.isColor, 1);
        QVERIFY(isNearColor(face.pixels.pixelColor(10, 10), Qt::red));
        QCOMPARE(back.pixels.size(), QSize(600, 1050));
        QCOMPARE(backInfo.xResolution, 200);
        QCOMPARE(backInfo.yResolution, 200);
    }

    void picturesOfFourInksLookTheSameInOtherReaders()
    {
        for (const QByteArray& jpeg :
            {JpegBuilder(72, 36).cmyk().bytes(), JpegBuilder(72, 36).plainCmyk().bytes()}) {
            Conversion conversion;
            QCOMPARE(conversion.add(jpeg).run(), DBCResultCode::Success);
            const QString root = conversion.home().path(u"page"_s);
            QCOMPARE(outputOf(u"pdftoppm"_s, {u"-singlefile"_s, conversion.output(), root}),
                QByteArray());
            const QColor drawn = QImage(root + u".ppm"_s).pixelColor(140, 8);
            QVERIFY2(drawn.green() > drawn.red() && drawn.green() > drawn.blue(),
                qPrintable(drawn.name())); // top right is green
            DBCBitmap face;
            CardImageInfo info;
            QCOMPARE(AcquireCardImageFromPDF(conversion.output(), &face, &info, nullptr, nullptr),
                DBCResultCode::Success);
            QVERIFY(isNearColor(face.pixels.pixelColor(64, 4), Qt::green));
        }
    }

    void pageWithoutExtentIsStillExtracted()
    {
        Conversion conversion;
        QCOMPARE(conversion.add(JpegBuilder(4, 4).dotsPerInch(300, 300).bytes()).run(),
            DBCResultCode::Success);
        DBCBitmap face;
        CardImageInfo info;
        QCOMPARE(AcquireCardImageFromPDF(conversion.output(), &face, &info, nullptr, nullptr),
            DBCResultCode::Success);
        QCOMPARE(face.pixels.size(), QSize(4, 4));
        QCOMPARE(info.xResolution, 0);
    }

    void cardHasNothingOfTheOneBefore()
    {
        Conversion before;
        before.add(JpegBuilder(60, 40).cmyk().dotsPerInch(300, 300).bytes());
        before.add(JpegBuilder(50, 50).bytes()).add(JpegBuilder(20, 30).bytes());
        QCOMPARE(before.run(), DBCResultCode::Success);

        const QByteArray jpeg = JpegBuilder(30, 20).gray().bytes();
        Conversion conversion;
        QCOMPARE(conversion.add(jpeg).run(), DBCResultCode::Success);
        Document document(conversion.output());
        QCOMPARE(document.pageCount(), 1);
        QCOMPARE(document.box(0), QByteArray("[ 0 0 30 20 ]"));
        QVERIFY(document.contents(0).contains("30 0 0 20 0 0 cm"));
        QVERIFY(!document.image(0).getDict().hasKey("/Decode"));
        QVERIFY(conversion.home().readFile(u"card.pdf"_s).size() < jpeg.size() + 2000);
    }

    void cardHasNothingOfOneThatFailed()
    {
        Conversion failing;
        QCOMPARE(failing.add(JpegBuilder(60, 40).bytes()).add("no JPEG").run(),
            DBCResultCode::PdfCreateFailure);
        Conversion conversion;
        QCOMPARE(conversion.add(JpegBuilder(30, 20).bytes()).run(), DBCResultCode::Success);
        Document document(conversion.output());
        QCOMPARE(document.pageCount(), 1);
        QCOMPARE(document.image(0).getDict().getKey("/Width").getIntValueAsInt(), 30);
    }

    void fileIsNoUsableJpeg_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray jpeg = smallPicture();
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("a text");
        QTest::newRow("PNG under a JPEG's name")
            << QByteArray::fromBase64("iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNk"
                                      "+M9QDwADhgGAWjR9awAAAABJRU5Er"
                                      "kJggg==");
        QTest::newRow("cut off before the frame header")
            << jpeg.left(JpegFacts::of(jpeg)->frameHeaderAt);
        QTest::newRow("without a start") << jpeg.mid(2);
        QTest::newRow("no height") << picture(8, 0).bytes();
        QTest::newRow("two components") << JpegBuilder(8, 8).twoComponents().bytes();
    }
    void fileIsNoUsableJpeg()
    {
        QFETCH(QByteArray, bytes);
        Conversion conversion;
        QCOMPARE(conversion.add(bytes).run(), DBCResultCode::PdfCreateFailure);
    }

    void missingFileIsAPdfFailure()
    {
        Conversion conversion;
        QCOMPARE(conversion.addPath(u"/nowhere/a.jpg"_s).run(), DBCResultCode::PdfCreateFailure);
    }

    void pipeIsNotWaitedFor()
    {
        Conversion conversion;
        const QString pipe = conversion.home().path(u"pipe.jpg"_s);
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        QCOMPARE(conversion.addPath(pipe).run(), DBCResultCode::PdfCreateFailure);
    }

    void outputExistsBeforeTheFirstJpegIsRead()
    {
        Conversion conversion;
        QCOMPARE(conversion.add("no JPEG").run(), DBCResultCode::PdfCreateFailure);
        QVERIFY(QFile::exists(conversion.output()));
    }

    void secondFileDecidesToo()
    {
        Conversion conversion;
        QCOMPARE(
            conversion.add(smallPicture()).add("no JPEG").run(), DBCResultCode::PdfCreateFailure);
        QVERIFY(QFile::exists(conversion.output()));
    }

    void jpegCutOffInThePictureIsTaken()
    {
        const QByteArray jpeg = JpegBuilder(200, 200).bytes();
        Conversion conversion;
        QCOMPARE(conversion.add(jpeg.chopped(500)).run(), DBCResultCode::Success);
        DBCBitmap face;
        CardImageInfo info;
        QCOMPARE(AcquireCardImageFromPDF(conversion.output(), &face, &info, nullptr, nullptr),
            DBCResultCode::Success);
        QCOMPARE(face.pixels.size(), QSize(200, 200));
    }

    void hugePictureIsNotDecoded()
    {
        Conversion conversion;
        QCOMPARE(conversion.add(picture(30000, 30000).bytes()).run(), DBCResultCode::Success);
    }

    void fileLargerThanAnyPictureIsNotRead()
    {
        Conversion conversion;
        const QString path = conversion.home().writeFile(u"huge.jpg"_s, smallPicture());
        QVERIFY(QFile::resize(path, 1024LL * 1024 * 1024)); // sparse: takes no disk space
        QCOMPARE(conversion.addPath(path).run(), DBCResultCode::PdfCreateFailure);
    }

    void existingOutputIsReplaced()
    {
        Conversion conversion;
        conversion.home().writeFile(u"card.pdf"_s, QByteArray(100000, 'x'));
        QCOMPARE(conversion.add(smallPicture()).run(), DBCResultCode::Success);
        QVERIFY(QFileInfo(conversion.output()).size() < 100000);
        QCOMPARE(Document(conversion.output()).pageCount(), 1);
    }

    void outputCannotBeCreated_data()
    {
        QTest::addColumn<QString>("relative");
        QTest::newRow("folder at the path") << u"folder"_s;
        QTest::newRow("file as the folder") << u"file/card.pdf"_s;
    }
    void outputCannotBeCreated()
    {
        QFETCH(QString, relative);
        const TestHome home;
        home.makeFolder(u"folder"_s);
        home.writeFile(u"file"_s, "x");
        const QString jpeg = home.writeFile(u"a.jpg"_s, smallPicture());
        ScopedHost host;
        host.setFreeBytes(1 << 30);
        QCOMPARE(convertJPG2PDF({jpeg}, home.path(relative)), DBCResultCode::PdfCreateFailure);
    }

    void fullDiskIsRefusedBeforeTheOutputExists()
    {
        ScopedHost host;
        host.setFreeBytes(1000);
        Conversion conversion;
        QCOMPARE(conversion.add(smallPicture()).run(), DBCResultCode::NoSpaceForImport);
        QVERIFY(!QFile::exists(conversion.output()));
    }

    void spaceIsNeededForAllFilesAndAMargin()
    {
        // A script takes the place of "du" and reports 100 KiB for every file.
        ScopedHost host;
        Conversion conversion;
        const QString du
            = conversion.home().writeFile(u"du"_s, "#!/bin/sh\nprintf '100\\t%s\\n' \"$3\"\n");
        QVERIFY(QFile::setPermissions(
            du, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadUser));
        host->diskUsageProgram = du;
        conversion.add(smallPicture()).add(smallPicture());
        constexpr quint64 needed = 2 * 100 * 1024 + 0x80000;
        host.setFreeBytes(needed - 1);
        QCOMPARE(conversion.run(), DBCResultCode::NoSpaceForImport);
        host.setFreeBytes(needed);
        QCOMPARE(conversion.run(), DBCResultCode::Success);
    }

    void spaceIsLookedForWhereTheOutputGoes()
    {
        QStringList asked;
        ScopedHost host;
        host->freeBytes = [&asked](const QString& path) {
            asked << path;
            return std::optional<quint64>(1 << 30);
        };
        Conversion conversion;
        QCOMPARE(conversion.add(smallPicture()).run(), DBCResultCode::Success);
        QCOMPARE(asked, {conversion.home().path()});
    }

    void failedMeasurementIsReported()
    {
        ScopedHost host;
        Conversion conversion;
        const QString du = conversion.home().writeFile(u"du"_s, "#!/bin/sh\nexit 1\n");
        QVERIFY(QFile::setPermissions(
            du, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadUser));
        host->diskUsageProgram = du;
        QCOMPARE(conversion.add(smallPicture()).run(), DBCResultCode::SizeMeasureFailure);
        QVERIFY(!QFile::exists(conversion.output()));
    }

    void diskThatFillsUpWhileThePdfIsWrittenIsNoSpace()
    {
        const TestHome home;
        for (const QByteArray& bytes : {smallPicture(), noisyPicture()}) {
            const QString jpeg = home.writeFile(u"a.jpg"_s, bytes);
            QCOMPARE(convertJPG2PDF({jpeg}, u"/dev/full"_s), DBCResultCode::NoSpaceForImport);
        }
    }

    void writeThatIsRefusedInThePictureIsAPdfFailure()
    {
        Conversion conversion;
        conversion.add(noisyPicture());
        {
            const FileSizeLimit limit(8192);
            QCOMPARE(conversion.run(), DBCResultCode::PdfCreateFailure);
        }
        QCOMPARE(conversion.run(), DBCResultCode::Success);
        QCOMPARE(Document(conversion.output()).pageCount(), 1);
    }
};

QTEST_GUILESS_MAIN(tst_convertJpgToPdf)
#include "tst_convertJpgToPdf.moc"
