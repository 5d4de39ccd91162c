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

using Key = DBCRecordKey;

namespace {

const QString cardID = QStringLiteral("CARD-1");
const QString storedName = QStringLiteral("CARD-1_N1.pdf");

QByteArray jpeg(int width, int height)
{
    return JpegBuilder(width, height).dotsPerInch(300, 300).bytes();
}

QByteArray cardPdf()
{
    return PdfBuilder::cardPdf({jpeg(300, 180), jpeg(180, 300)});
}

// A card PDF whose only page draws lines and holds no image.
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

// Passes as a card PDF, and has nothing to draw.
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
        return DBCDataBaseController::convertPdf2Jpg(
            pdfPath, _target, QStringLiteral("6"), &_f->error);
    }
    std::optional<QStringList> exportCard(
        const TransferFixture::Values& values = {{Key::cardID, cardID}})
    {
        return _f->database->_exportImageFile(TransferFixture::record(values), _target, &_f->error);
    }
    void store(const QByteArray& pdf) const
    {
        _f->package.writeFile(QStringLiteral("Images/") + storedName, pdf);
    }
    QString written(const QByteArray& pdf) const
    {
        return _f->home.writeFile(QStringLiteral("card.pdf"), pdf);
    }
    QSize sizeOf(const QString& name) const
    {
        const auto facts = JpegFacts::of(_f->home.readFile(QStringLiteral("export/") + name));
        return facts ? QSize(facts->width, facts->height) : QSize();
    }
    QStringList filesWritten() const { return QDir(_target).entryList(QDir::Files); }
    static QString conversionWarning(qint64 code)
    {
        return TransferFixture::text(
            "IDS_LOG_WRN_CONVERT_FAIL", {QStringLiteral("6"), QStringLiteral("Hanako"), code});
    }

    const QStringList none;
    const QStringList faceOnly {QStringLiteral("6_N1.jpg")};
    const QStringList both {QStringLiteral("6_N1.jpg"), QStringLiteral("6_N2.jpg")};
    std::unique_ptr<TransferFixture> _f;
    QString _target;

private Q_SLOTS:
    void init()
    {
        _f = std::make_unique<TransferFixture>();
        QVERIFY(_f->database);
        _target = _f->home.makeFolder(QStringLiteral("export"));
    }
    void cleanup() { _f.reset(); }

    void nameOfTheCardPdf_data()
    {
        QTest::addColumn<QString>("faceImage");
        QTest::addColumn<QString>("card");
        QTest::addColumn<QString>("name");
        QTest::newRow("stored name")
            << QStringLiteral("own.pdf") << cardID << QStringLiteral("own.pdf");
        QTest::newRow("stored name without card ID")
            << QStringLiteral("own.pdf") << QString() << QStringLiteral("own.pdf");
        QTest::newRow("no stored name") << QString() << cardID << storedName;
        QTest::newRow("blank stored name") << QStringLiteral("  ") << cardID << storedName;
        QTest::newRow("both blank")
            << QStringLiteral("  ") << QStringLiteral(" ") << QStringLiteral("  ");
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
        const QString number = QStringLiteral("6");
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
        // The page of 252 x 144 points.
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
        QCOMPARE(convert(_f->home.path(QStringLiteral("none.pdf"))), none);
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
        _f->package.writeFile(
            QStringLiteral("Images/own.pdf"), PdfBuilder::cardPdf({jpeg(300, 180)}));
        QCOMPARE(
            exportCard({{Key::cardID, cardID}, {Key::face_Image_File, QStringLiteral("own.pdf")}}),
            faceOnly);
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
        _target = _f->home.path(QStringLiteral("not made"));
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
            QStringList {TransferFixture::text("IDS_LOG_WRN_IMAGE_FILE_NO_EXISTS",
                {QStringLiteral("6"), QStringLiteral("Hanako"), -108})});
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
        _target = _f->home.path(QStringLiteral("made"));
        QCOMPARE(exportCard(), both);
        QVERIFY(QFileInfo(_target).isDir());
    }

    void imageFolderThatCannotBeMadeIsAnError()
    {
        store(cardPdf());
        _target = _f->home.path(QStringLiteral("missing/folder"));
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
        QTest::addColumn<QString>("name"); // %1: the folder in which the package lies
        QTest::newRow("climbing") << QStringLiteral("../../outside.pdf");
        QTest::newRow("absolute") << QStringLiteral("%1/outside.pdf");
    }
    void storedNameThatLeadsOutOfThePackageIsMissing()
    {
        QFETCH(QString, name);
        _f->home.writeFile(QStringLiteral("outside.pdf"), cardPdf());
        name.replace(QStringLiteral("%1"), _f->home.path());
        // Where an absolute name would be found if it were taken for a relative one.
        _f->package.writeFile(
            QStringLiteral("Images/") + _f->home.path(QStringLiteral("outside.pdf")), cardPdf());
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
