// SPDX-License-Identifier: GPL-3.0-or-later
// Tests that the sample cards and card PDFs are what samples/README.md says.
#include "cardimage/jpeg/DBCJpegCodec.h"
#include "cardimage/pdf/DBCCardPdf.h"
#include "datafile/DBCFileReader.h"
#include "datafile/helpers/DBCCommonFunction.h"
#include "datafile/helpers/DBCInterchangeNames.h"
#include "operation/DBCChecker.h"
#include "tests/support/TestHome.h"

#include <QDir>
#include <QDirIterator>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString cardsFolder = u"" VELMORA_SOURCE_DIR "/samples/cards"_s;
const QString pdfsFolder = u"" VELMORA_SOURCE_DIR "/samples/pdfs"_s;
const QSize lying(1075, 650);
const QSize standing(650, 1075);

std::vector<DBCRecord> sampleRecords()
{
    const auto reader
        = DBCFileReader::initWithFullFileName(DBCInterchangeNames::dataFile(cardsFolder));
    DBCError error;
    auto records = reader->loadData(&error);
    if (error)
        qWarning("%s", qPrintable(error.toString()));
    return records && !error ? std::move(*records) : std::vector<DBCRecord>();
}

QSet<QString> valuesOf(std::initializer_list<DBCRecordKey> keys)
{
    QSet<QString> values;
    for (const DBCRecord& record : sampleRecords()) {
        for (const DBCRecordKey key : keys)
            values << record.textOrEmpty(key);
    }
    values.remove(QString());
    return values;
}

QSet<QString> entriesOf(const QString& folder)
{
    const QStringList names
        = QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
    return QSet<QString>(names.begin(), names.end());
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class tst_samples : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void versionFileLetsAnImportBegin()
    {
        const auto version
            = DBCCommonFunction::getVersionInfo(DBCInterchangeNames::versionFile(cardsFolder));
        QCOMPARE(DBCChecker::checkVersionInfo(version), DBCResultCode::Success);
    }

    void dataFileHoldsTwelveCardsWithoutAWarning()
    {
        const TestHome home;
        QStringList names;
        for (const DBCRecord& record : sampleRecords())
            names << record.textOrEmpty(DBCRecordKey::full_Name);
        QCOMPARE(names,
            QStringList({u"青柳　慎一郎"_s, u"小野寺　美月"_s, u"高瀬　源"_s, u"三浦　健太"_s,
                u"Anna Sofia Lindholm"_s, u"早川　千尋"_s, u"藤村　汐里"_s, u"大塚　陽介"_s,
                u"西園寺　理央"_s, u"月岡　蓮"_s, u"渡会　航"_s, u"霧島　ことは"_s}));
        QVERIFY2(!home.logText().contains(u"[Warning]"_s), qPrintable(home.logText()));
    }

    void everyImageIsNamedByACardAndThere()
    {
        QCOMPARE(entriesOf(DBCInterchangeNames::imageFolder(cardsFolder)),
            valuesOf({DBCRecordKey::face_Image_File, DBCRecordKey::back_Image_File}));
    }

    void everyAttachmentFolderIsNamedByACardAndHoldsSomething()
    {
        const QString folder = DBCInterchangeNames::attachmentFolder(cardsFolder);
        const QSet<QString> named = valuesOf({DBCRecordKey::attachmentFile});
        QCOMPARE(entriesOf(folder), named);
        for (const QString& name : named)
            QVERIFY2(!entriesOf(folder + u'/' + name).isEmpty(), qPrintable(name));
    }

    void imageIsACardAt300DotsPerInch_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("components");
        const auto row = [](const char* name, QSize size, int components) {
            QTest::newRow(name) << QString::fromUtf8(name) << size << components;
        };
        row("0001_表.jpg", lying, 3);
        row("0001_裏.jpg", lying, 3);
        row("0002_表.jpg", lying, 3);
        row("0002_裏.jpg", lying, 3);
        row("0003_表.jpg", standing, 3);
        row("0004_表.jpg", lying, 1);
        row("0005_front.jpg", lying, 3);
        row("0005_back.jpg", lying, 3);
        row("0006_表.jpg", lying, 3);
        row("0007_裏.jpg", lying, 3);
        row("0008_表.jpg", lying, 3);
        row("0009_表.jpg", lying, 1);
        row("0009_裏.jpg", lying, 1);
        row("0010_表.jpg", standing, 3);
        row("0010_裏.jpg", standing, 3);
        row("0011_表.jpg", lying, 3);
        row("0011_裏.jpg", lying, 3);
        row("0012_表.jpg", standing, 1);
        row("0012_裏.jpg", standing, 3);
    }
    void imageIsACardAt300DotsPerInch()
    {
        QFETCH(QString, name);
        QFETCH(QSize, size);
        QFETCH(int, components);
        const auto header
            = readJpegHeader(bytesOf(DBCInterchangeNames::imageFolder(cardsFolder) + u'/' + name));
        QVERIFY(header);
        QCOMPARE(header->size, size);
        QCOMPARE(header->components, components);
        QCOMPARE(header->densityUnit, DBCJpegHeader::DensityUnit::Inch);
        QCOMPARE(header->xDensity, 300);
        QCOMPARE(header->yDensity, 300);
    }

    void pdfIsOfItsKind_data()
    {
        QTest::addColumn<DBCResultCode>("kind");
        QTest::addColumn<int>("pages"); // 0 for kinds whose pages CheckPdfFile() does not count
        const auto row = [](const char* name, DBCResultCode kind, int pages) {
            QTest::newRow(name) << kind << pages;
        };
        row("image-colour.pdf", DBCResultCode::PdfCardImageOnly, 1);
        row("image-two-pages.pdf", DBCResultCode::PdfCardImageOnly, 2);
        row("image-mono-flate.pdf", DBCResultCode::PdfCardImageOnly, 1);
        row("image-flate-around-jpeg.pdf", DBCResultCode::PdfCardImageOnly, 1);
        row("image-in-form.pdf", DBCResultCode::PdfCardImageOnly, 1);
        row("image-turned-90.pdf", DBCResultCode::PdfCardImageOnly, 1);
        row("searchable.pdf", DBCResultCode::PdfCardWithText, 0);
        row("other-producer.pdf", DBCResultCode::PdfNotCard, 0);
        row("encrypted.pdf", DBCResultCode::PdfNotCard, 0);
    }
    void pdfIsOfItsKind()
    {
        QFETCH(DBCResultCode, kind);
        QFETCH(int, pages);
        qint32 pageCount = 0;
        const QString path = pdfsFolder + u'/' + QString::fromLatin1(QTest::currentDataTag());
        QCOMPARE(CheckPdfFile(path, &pageCount), kind);
        QCOMPARE(pageCount, pages);
    }

    void pdfGivesItsImage_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("bits");
        QTest::addColumn<int>("rotation");
        QTest::newRow("image-colour.pdf") << lying << 24 << 0;
        QTest::newRow("image-mono-flate.pdf") << lying << 1 << 0;
        QTest::newRow("image-flate-around-jpeg.pdf") << lying << 24 << 0;
        QTest::newRow("image-in-form.pdf") << lying << 24 << 0;
        QTest::newRow("image-turned-90.pdf") << lying << 24 << 90;
    }
    void pdfGivesItsImage()
    {
        QFETCH(QSize, size);
        QFETCH(int, bits);
        QFETCH(int, rotation);
        const QString path = pdfsFolder + u'/' + QString::fromLatin1(QTest::currentDataTag());
        DBCBitmap face;
        CardImageInfo info;
        QCOMPARE(
            AcquireCardImageFromPDF(path, &face, &info, nullptr, nullptr), DBCResultCode::Success);
        QCOMPARE(face.pixels.size(), size);
        QCOMPARE(face.bitsPerPixel(), bits);
        QCOMPARE(info.isColor, bits == 1 ? 0 : 1);
        QCOMPARE(info.rotation, rotation);
        QCOMPARE(info.xResolution, 300);
        QCOMPARE(info.yResolution, 300);
    }

    void secondPageIsTheBack()
    {
        DBCBitmap face;
        DBCBitmap back;
        CardImageInfo faceInfo;
        CardImageInfo backInfo;
        const QString path = pdfsFolder + u"/image-two-pages.pdf"_s;
        QCOMPARE(AcquireCardImageFromPDF(path, &face, &faceInfo, &back, &backInfo),
            DBCResultCode::Success);
        QCOMPARE(face.bitsPerPixel(), 24);
        QCOMPARE(back.bitsPerPixel(), 8);
        QCOMPARE(back.pixels.size(), lying);
    }

    void samplesStaySmall()
    {
        constexpr qint64 limit = 3'000'000;
        qint64 bytes = 0;
        QDirIterator files(u"" VELMORA_SOURCE_DIR "/samples"_s, QDir::Files | QDir::Hidden,
            QDirIterator::Subdirectories);
        while (files.hasNext()) {
            files.next();
            bytes += files.fileInfo().size();
        }
        QVERIFY2(bytes > 0 && bytes < limit, qPrintable(QString::number(bytes)));
    }
};

QTEST_GUILESS_MAIN(tst_samples)
#include "tst_samples.moc"
