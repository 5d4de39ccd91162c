// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/carddb/TransferFixture.h"
#include "tests/support/JpegBuilder.h"
#include "tests/support/PdfBuilder.h"
#include "tests/support/ScopedHost.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

using Key = DBCRecordKey;

namespace {

const QString cardID = u"CARD-1"_s;
const QString storedName = u"CARD-1_N1.pdf"_s;

QByteArray jpeg(int width, int height)
{
    return JpegBuilder(width, height).dotsPerInch(300, 300).bytes();
}

QByteArray cardPdf()
{
    return PdfBuilder::cardPdf({jpeg(300, 180), jpeg(180, 300)});
}

// Returns a card PDF with one page that draws lines and contains no image.
QByteArray drawnPdf()
{
    PdfPage page;
    page.resources = "<< >>";
    page.contents = "0 0 1 RG 10 10 m 100 100 l S";
    return PdfBuilder().page(page).bytes();
}

QByteArray foreignPdf()
{
    return PdfBuilder().creator("Another producer").page({}).bytes();
}

// Returns a file that is accepted as a card PDF but has no page to draw.
QByteArray pdfWithoutPages()
{
    return PdfBuilder().bytes();
}

} // namespace

class tst_images_export : public QObject {
    Q_OBJECT

private:
    std::optional<QStringList> convert(const QString& pdfPath)
    {
        return DBCDataBaseController::convertPdf2Jpg(pdfPath, _target, u"6"_s, &_f->error);
    }
    std::optional<QStringList> exportCard(
        const TransferFixture::Values& values = {{Key::cardID, cardID}})
    {
        return _f->database->_exportImageFile(TransferFixture::record(values), _target, &_f->error);
    }
    void store(const QByteArray& pdf) const
    {
        _f->package.writeFile(u"Images/"_s + storedName, pdf);
    }
    QString written(const QByteArray& pdf) const { return _f->home.writeFile(u"card.pdf"_s, pdf); }
    QSize sizeOf(const QString& name) const
    {
        const auto facts = JpegFacts::of(_f->home.readFile(u"export/"_s + name));
        return facts ? QSize(facts->width, facts->height) : QSize();
    }
    QStringList filesWritten() const { return QDir(_target).entryList(QDir::Files); }
    static QString conversionWarning(qint64 code)
    {
        return TransferFixture::text("IDS_LOG_WRN_CONVERT_FAIL", {u"6"_s, u"Hanako"_s, code});
    }

    const QStringList none;
    const QStringList faceOnly {u"6_N1.jpg"_s};
    const QStringList both {u"6_N1.jpg"_s, u"6_N2.jpg"_s};
    std::unique_ptr<TransferFixture> _f;
    QString _target;

private Q_SLOTS:
    void init()
    {
        _f = std::make_unique<TransferFixture>();
        QVERIFY(_f->database);
        _target = _f->home.makeFolder(u"export"_s);
    }
    void cleanup() { _f.reset(); }

    void nameOfTheCardPdf_data()
    {
        QTest::addColumn<QString>("faceImage");
        QTest::addColumn<QString>("card");
        QTest::addColumn<QString>("name");
        QTest::newRow("stored name") << u"own.pdf"_s << cardID << u"own.pdf"_s;
        QTest::newRow("stored name without card ID") << u"own.pdf"_s << QString() << u"own.pdf"_s;
        QTest::newRow("no stored name") << QString() << cardID << storedName;
        QTest::newRow("blank stored name") << u"  "_s << cardID << storedName;
        QTest::newRow("both blank") << u"  "_s << u" "_s << u"  "_s;
        QTest::newRow("both empty") << QString() << QString() << QString();
    }
    void nameOfTheCardPdf()
    {
        QFETCH(QString, faceImage);
        QFETCH(QString, card);
        QFETCH(QString, name);
        QCOMPARE(DBCDataBaseController::imageFileName(TransferFixture::record(
                     {{Key::face_Image_File, faceImage}, {Key::cardID, card}})),
            name);
    }

    void nameOfTheCardPdfWithoutAnyKey()
    {
        QCOMPARE(DBCDataBaseController::imageFileName(DBCRecord()), QString());
    }

    void conversionWithoutAnArgumentGivesNothing()
    {
        const QString pdf = written(cardPdf());
        const QString number = u"6"_s;
        using Database = DBCDataBaseController;
        QVERIFY(!Database::convertPdf2Jpg({}, _target, number, &_f->error));
        QVERIFY(!Database::convertPdf2Jpg(pdf, {}, number, &_f->error));
        QVERIFY(!Database::convertPdf2Jpg(pdf, _target, {}, &_f->error));
        QVERIFY(!Database::convertPdf2Jpg(pdf, _target, number, nullptr));
        QVERIFY(!_f->error);
    }

    void twoPagesBecomeFaceAndBack()
    {
        QCOMPARE(convert(written(cardPdf())), both);
        QVERIFY(!_f->error);
        QCOMPARE(sizeOf(both[0]), QSize(300, 180));
        QCOMPARE(sizeOf(both[1]), QSize(180, 300));
    }

    void onePageBecomesTheFace()
    {
        QCOMPARE(convert(written(PdfBuilder::cardPdf({jpeg(300, 180)}))), faceOnly);
        QVERIFY(!_f->error);
        QCOMPARE(filesWritten(), faceOnly);
    }

    void searchablePdfIsDrawnAt300DotsPerInch()
    {
        QCOMPARE(convert(written(PdfBuilder::searchableCardPdf("Taro Yamada"))), faceOnly);
        QVERIFY(!_f->error);
        // The expected size follows from the page, which has 252 x 144 points.
        QCOMPARE(sizeOf(faceOnly[0]), QSize(1050, 600));
    }

    void pageWithoutImageIsDrawnWithoutAWord()
    {
        QCOMPARE(convert(written(drawnPdf())), faceOnly);
        QVERIFY(!_f->error);
        QVERIFY(_f->log.isEmpty());
        QCOMPARE(sizeOf(faceOnly[0]), QSize(1050, 600));
    }

    void missingPdfIsFolderNotExist()
    {
        QCOMPARE(convert(_f->home.path(u"none.pdf"_s)), none);
        QCOMPARE(_f->error.code(), DBCResultCode::FolderNotExist);
    }

    void fileThatIsNoCardPdfHasNoImage_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("another producer") << foreignPdf();
        QTest::newRow("without a creator") << PdfBuilder().withoutCreator().page({}).bytes();
        QTest::newRow("with a password") << PdfBuilder::encrypted(cardPdf(), "secret");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("no document");
    }
    void fileThatIsNoCardPdfHasNoImage()
    {
        QFETCH(QByteArray, bytes);
        QCOMPARE(convert(written(bytes)), none);
        QCOMPARE(_f->error.code(), DBCResultCode::NoImageInPdf);
        QVERIFY(filesWritten().isEmpty());
    }

    void pageThatCannotBeDrawnIsPdfToJpegFailure()
    {
        QCOMPARE(convert(written(pdfWithoutPages())), none);
        QCOMPARE(_f->error.code(), DBCResultCode::PdfToJpegFailure);
    }

    void failedFaceEndsTheWriting()
    {
        QVERIFY(QDir(_target).mkdir(both[0]));
        QCOMPARE(convert(written(cardPdf())), none);
        QCOMPARE(_f->error.code(), DBCResultCode::FileSaveFailure);
        QVERIFY(filesWritten().isEmpty());
    }

    void failedBackLeavesNoNames()
    {
        QVERIFY(QDir(_target).mkdir(both[1]));
        QCOMPARE(convert(written(cardPdf())), none);
        QCOMPARE(_f->error.code(), DBCResultCode::FileSaveFailure);
        QCOMPARE(filesWritten(), faceOnly);
    }

    void fullDiskIsNoSpaceForExport()
    {
        const QString pdf = written(cardPdf());
        ScopedHost host;
        host.setFreeBytes(1000);
        QCOMPARE(convert(pdf), none);
        QCOMPARE(_f->error.code(), DBCResultCode::NoSpaceForExport);
    }

    void cardIsExportedUnderItsNumber()
    {
        store(cardPdf());
        QCOMPARE(exportCard(), both);
        QVERIFY(!_f->error);
        QVERIFY(_f->log.isEmpty());
        QCOMPARE(filesWritten(), both);
    }

    void cardWithoutFaceImageNameLooksForItsId()
    {
        store(cardPdf());
        QCOMPARE(exportCard({{Key::cardID, cardID}, {Key::face_Image_File, QString()}}), both);
    }

    void storedNameGoesBeforeTheCardId()
    {
        store(cardPdf());
        _f->package.writeFile(u"Images/own.pdf"_s, PdfBuilder::cardPdf({jpeg(300, 180)}));
        QCOMPARE(
            exportCard({{Key::cardID, cardID}, {Key::face_Image_File, u"own.pdf"_s}}), faceOnly);
    }

    void exportWithoutAnArgumentGivesNothing()
    {
        const DBCRecord record = TransferFixture::record({{Key::cardID, cardID}});
        QVERIFY(!_f->database->_exportImageFile(record, {}, &_f->error));
        QVERIFY(!_f->database->_exportImageFile(record, _target, nullptr));
        _f->database->setDBPath({});
        QVERIFY(!_f->database->_exportImageFile(record, _target, &_f->error));
        QVERIFY(!_f->error);
    }

    void cardWithoutAnyNameHasNoImageAndNoMessage()
    {
        _target = _f->home.path(u"not made"_s);
        QCOMPARE(exportCard({}), none);
        QVERIFY(!_f->error);
        QVERIFY(_f->log.isEmpty());
        QVERIFY(!QFileInfo::exists(_target));
    }

    void missingPdfIsAWarningAndTheExportGoesOn()
    {
        QCOMPARE(exportCard(), none);
        QVERIFY(!_f->error);
        QCOMPARE(_f->log.warnings,
            QStringList {TransferFixture::text(
                "IDS_LOG_WRN_IMAGE_FILE_NO_EXISTS", {u"6"_s, u"Hanako"_s, -108})});
    }

    void foreignPdfIsAWarning()
    {
        store(foreignPdf());
        QCOMPARE(exportCard(), none);
        QVERIFY(!_f->error);
        QCOMPARE(_f->log.warnings, QStringList {conversionWarning(-301)});
    }

    void pdfThatCannotBeDrawnIsAWarning()
    {
        store(pdfWithoutPages());
        QCOMPARE(exportCard(), none);
        QVERIFY(!_f->error);
        QCOMPARE(_f->log.warnings, QStringList {conversionWarning(-303)});
    }

    void drawnPageIsNoWarning()
    {
        store(drawnPdf());
        QCOMPARE(exportCard(), faceOnly);
        QVERIFY(_f->log.isEmpty());
    }

    void cardWithoutNumberGivesNothingAndTheGeneralCode()
    {
        store(cardPdf());
        DBCRecord record;
        record.setValue(Key::cardID, cardID);
        QVERIFY(!_f->database->_exportImageFile(record, _target, &_f->error));
        QVERIFY(!_f->error);
        QCOMPARE(_f->log.warnings,
            QStringList {
                TransferFixture::text("IDS_LOG_WRN_CONVERT_FAIL", {QString(), QString(), -1})});
    }

    void imageFolderIsMade()
    {
        store(cardPdf());
        _target = _f->home.path(u"made"_s);
        QCOMPARE(exportCard(), both);
        QVERIFY(QFileInfo(_target).isDir());
    }

    void imageFolderThatCannotBeMadeIsAnError()
    {
        store(cardPdf());
        _target = _f->home.path(u"missing/folder"_s);
        QCOMPARE(exportCard(), none);
        QCOMPARE(_f->error.code(), DBCResultCode::FolderCreateFailure);
        QCOMPARE(_f->error.pathName(), _target);
        QVERIFY(
            _f->log.errors.contains(TransferFixture::text("IDS_LOG_ERR_IMAGE_FILE_COPY_FAILURE")));
    }

    void imageThatCannotBeWrittenIsFatal()
    {
        store(cardPdf());
        QVERIFY(QDir(_target).mkdir(both[0]));
        QCOMPARE(exportCard(), none);
        QCOMPARE(_f->error.code(), DBCResultCode::FileSaveFailure);
        QVERIFY(
            _f->log.errors.contains(TransferFixture::text("IDS_LOG_ERR_IMAGE_FILE_COPY_FAILURE")));
        QVERIFY(_f->log.warnings.isEmpty());
    }

    void fullDiskIsFatal()
    {
        store(cardPdf());
        ScopedHost host;
        host.setFreeBytes(1000);
        QCOMPARE(exportCard(), none);
        QCOMPARE(_f->error.code(), DBCResultCode::NoSpaceForExport);
        QVERIFY(
            !_f->log.errors.contains(TransferFixture::text("IDS_LOG_ERR_IMAGE_FILE_COPY_FAILURE")));
        QVERIFY(_f->log.warnings.isEmpty());
    }

    void storedNameThatLeadsOutOfThePackageIsMissing_data()
    {
        QTest::addColumn<QString>("name"); // %1 stands for the folder in which the package lies
        QTest::newRow("climbing") << u"../../outside.pdf"_s;
        QTest::newRow("absolute") << u"%1/outside.pdf"_s;
    }
    void storedNameThatLeadsOutOfThePackageIsMissing()
    {
        QFETCH(QString, name);
        _f->home.writeFile(u"outside.pdf"_s, cardPdf());
        name.replace(u"%1"_s, _f->home.path());
        // If the export took an absolute name for one relative to "Images", it would find this
        // file.
        _f->package.writeFile(u"Images/"_s + _f->home.path(u"outside.pdf"_s), cardPdf());
        QCOMPARE(exportCard({{Key::face_Image_File, name}}), none);
        QVERIFY(!_f->error);
        QCOMPARE(_f->log.warnings.size(), 1);
        QVERIFY(filesWritten().isEmpty());
    }

    void errorOfTheCallerStays()
    {
        store(cardPdf());
        _f->error = DBCError(DBCResultCode::FetchFailure);
        QCOMPARE(exportCard(), both);
        QCOMPARE(_f->error.code(), DBCResultCode::FetchFailure);
    }
};

QTEST_GUILESS_MAIN(tst_images_export)
#include "tst_images_export.moc"
