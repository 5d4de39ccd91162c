// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/pdf/DBCCardPdf.h"
#include "tests/carddb/TransferFixture.h"
#include "tests/support/JpegBuilder.h"
#include "tests/support/ScopedHost.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

#include <sys/stat.h>

#include <memory>

using Key = DBCRecordKey;

namespace {

const QString cardId = QStringLiteral("0A1B-1");
const QString pdfName = QStringLiteral("0A1B-1_N1.pdf");

QByteArray faceJpeg()
{
    return JpegBuilder(300, 180).dotsPerInch(300, 300).bytes();
}

QByteArray backJpeg()
{
    return JpegBuilder(180, 300).dotsPerInch(300, 300).gray().bytes();
}

} // namespace

class tst_images_import : public QObject {
    Q_OBJECT

private:
    std::optional<QString> add(const TransferFixture::Values& values)
    {
        return _f->database->_addImageFileIntoDB(
            _f->folder.path(), TransferFixture::record(values), cardId, &_f->error);
    }
    QByteArray pdf() const { return _f->package.readFile(QStringLiteral("Images/") + pdfName); }
    bool pdfExists() const
    {
        return QFileInfo::exists(_f->packagePath(QStringLiteral("Images/") + pdfName));
    }
    QString missing(const QString& path) const
    {
        return TransferFixture::text("IDS_LOG_WRN_FILE_NO_EXISTS", {path});
    }

    std::unique_ptr<TransferFixture> _f;

private Q_SLOTS:
    void init()
    {
        _f = std::make_unique<TransferFixture>();
        QVERIFY(_f->database);
        _f->folder.image(QStringLiteral("face.jpg"), faceJpeg());
        _f->folder.image(QStringLiteral("back.jpg"), backJpeg());
    }
    void cleanup() { _f.reset(); }

    void faceAndBackBecomeOnePdfFaceFirst()
    {
        QCOMPARE(add({{Key::face_Image_File, QStringLiteral("face.jpg")},
                     {Key::back_Image_File, QStringLiteral("back.jpg")}}),
            pdfName);
        QVERIFY(!_f->error);
        QVERIFY(_f->log.isEmpty());
        QVERIFY(pdf().contains(faceJpeg()));
        QVERIFY(pdf().contains(backJpeg()));

        DBCBitmap face;
        DBCBitmap back;
        CardImageInfo faceInfo;
        CardImageInfo backInfo;
        QCOMPARE(AcquireCardImageFromPDF(_f->packagePath(QStringLiteral("Images/") + pdfName),
                     &face, &faceInfo, &back, &backInfo),
            DBCResultCode::Success);
        QCOMPARE(face.pixels.size(), QSize(300, 180));
        QCOMPARE(back.pixels.size(), QSize(180, 300));
    }

    void missingFaceAndExistingBackGiveOnePageOfTheBack()
    {
        QCOMPARE(add({{Key::face_Image_File, QStringLiteral("none.jpg")},
                     {Key::back_Image_File, QStringLiteral("back.jpg")}}),
            pdfName);
        QVERIFY(!_f->error);
        QCOMPARE(_f->log.warnings,
            QStringList {missing(_f->folder.imagePath(QStringLiteral("none.jpg")))});
        QVERIFY(pdf().contains(backJpeg()));
        qint32 pages = 0;
        QCOMPARE(CheckPdfFile(_f->packagePath(QStringLiteral("Images/") + pdfName), &pages),
            DBCResultCode::PdfCardImageOnly);
        QCOMPARE(pages, 1);
    }

    void recordWithoutImageNamesHasNoImage_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("empty") << QString();
        QTest::newRow("blanks") << QString(QStringLiteral(" \t") + QChar(0x3000));
    }
    void recordWithoutImageNamesHasNoImage()
    {
        QFETCH(QString, name);
        _f->package.remove(QStringLiteral("Images"));
        QCOMPARE(
            add({{Key::face_Image_File, name}, {Key::back_Image_File, name}}), QStringLiteral(""));
        QVERIFY(!_f->error);
        QVERIFY(_f->log.isEmpty());
        QVERIFY(!QFileInfo::exists(_f->packagePath(QStringLiteral("Images"))));
    }

    void recordWithoutImageKeysHasNoImage()
    {
        QCOMPARE(add({}), QStringLiteral(""));
        QVERIFY(!_f->error);
        QVERIFY(_f->log.isEmpty());
    }

    void bothImagesMissingIsTwoWarnings()
    {
        QCOMPARE(add({{Key::face_Image_File, QStringLiteral("1.jpg")},
                     {Key::back_Image_File, QStringLiteral("2.jpg")}}),
            QStringLiteral(""));
        QVERIFY(!_f->error);
        QCOMPARE(_f->log.warnings,
            (QStringList {missing(_f->folder.imagePath(QStringLiteral("1.jpg"))),
                missing(_f->folder.imagePath(QStringLiteral("2.jpg")))}));
    }

    void missingArgumentsGiveNothing()
    {
        const DBCRecord record = TransferFixture::record({});
        const QString folder = _f->folder.path();
        QVERIFY(!_f->database->_addImageFileIntoDB({}, record, cardId, &_f->error));
        QVERIFY(!_f->database->_addImageFileIntoDB(folder, record, {}, &_f->error));
        QVERIFY(!_f->database->_addImageFileIntoDB(folder, record, cardId, nullptr));
        QVERIFY(!_f->error);
    }

    void imagesFolderIsMadeOnDemand()
    {
        _f->package.remove(QStringLiteral("Images"));
        QCOMPARE(add({{Key::face_Image_File, QStringLiteral("face.jpg")}}), pdfName);
        QVERIFY(pdfExists());
    }

    void imagesFolderThatCannotBeMadeIsAnError()
    {
        _f->package.remove(QStringLiteral("Images"));
        _f->package.writeFile(QStringLiteral("Images"), "a file");
        QCOMPARE(add({{Key::face_Image_File, QStringLiteral("face.jpg")}}), QStringLiteral(""));
        QCOMPARE(_f->error.code(), DBCResultCode::FolderCreateFailure);
        QCOMPARE(_f->error.pathName(), _f->packagePath(QStringLiteral("Images")));
    }

    void fileThatIsNoJpegIsAWarningAndTheCardHasNoImage_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("text") << QByteArray("no picture");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("PNG") << QByteArray("\x89PNG\r\n\x1a\n");
    }
    void fileThatIsNoJpegIsAWarningAndTheCardHasNoImage()
    {
        QFETCH(QByteArray, bytes);
        _f->folder.image(QStringLiteral("bad.jpg"), bytes);
        QCOMPARE(add({{Key::face_Image_File, QStringLiteral("face.jpg")},
                     {Key::back_Image_File, QStringLiteral("bad.jpg")}}),
            QStringLiteral(""));
        QVERIFY(!_f->error);
        QCOMPARE(_f->log.warnings,
            QStringList {TransferFixture::text("IDS_LOG_WRN_CONVERT_FAIL",
                {QStringLiteral("7"), QStringLiteral("Hanako"), -109})});
        QVERIFY(!pdfExists());
    }

    void warningOfARecordWithoutLineAndNameHasEmptyTextsThere()
    {
        _f->folder.image(QStringLiteral("bad.jpg"), "no picture");
        DBCRecord record;
        record.setValue(Key::face_Image_File, QStringLiteral("bad.jpg"));
        QCOMPARE(_f->database->_addImageFileIntoDB(_f->folder.path(), record, cardId, &_f->error),
            QStringLiteral(""));
        QCOMPARE(_f->log.warnings,
            QStringList {
                TransferFixture::text("IDS_LOG_WRN_CONVERT_FAIL", {QString(), QString(), -109})});
    }

    void fullDiskIsAnErrorThatComesWithTheName()
    {
        ScopedHost host;
        host.setFreeBytes(1000);
        QCOMPARE(add({{Key::face_Image_File, QStringLiteral("face.jpg")}}), pdfName);
        QCOMPARE(_f->error.code(), DBCResultCode::NoSpaceForImport);
        QVERIFY(!pdfExists());
        QVERIFY(_f->log.warnings.isEmpty());
    }

    void fullDiskIsAnErrorAlsoWhenAFileCouldBeCleanedAway()
    {
        _f->package.writeFile(QStringLiteral("Images/") + pdfName, "old");
        ScopedHost host;
        host.setFreeBytes(1000);
        QCOMPARE(add({{Key::face_Image_File, QStringLiteral("face.jpg")}}), pdfName);
        QCOMPARE(_f->error.code(), DBCResultCode::NoSpaceForImport);
        QVERIFY(!pdfExists());
    }

    void imageThatCannotBeMeasuredIsAnError()
    {
        ScopedHost host;
        host->diskUsageProgram = QStringLiteral("/bin/false");
        QCOMPARE(add({{Key::face_Image_File, QStringLiteral("face.jpg")}}), pdfName);
        QCOMPARE(_f->error.code(), DBCResultCode::SizeMeasureFailure);
    }

    void failedPdfThatCannotBeRemovedIsAnError()
    {
        QVERIFY(QDir(_f->package.path()).mkpath(QStringLiteral("Images/") + pdfName));
        QCOMPARE(add({{Key::face_Image_File, QStringLiteral("face.jpg")}}), pdfName);
        QCOMPARE(_f->error.code(), DBCResultCode::PdfCreateFailure);
    }

    void imageIsFoundWithoutRegardToCaseAndNormalForm()
    {
        const QString composed = QString(QChar(0x304C)) + QStringLiteral(".jpg");
        const QString decomposed = QString(QChar(0x304B)) + QChar(0x3099) + QStringLiteral(".JPG");
        _f->folder.image(decomposed, faceJpeg());
        QCOMPARE(add({{Key::face_Image_File, composed},
                     {Key::back_Image_File, QStringLiteral("BACK.JPG")}}),
            pdfName);
        QVERIFY(_f->log.isEmpty());
        QVERIFY(pdf().contains(faceJpeg()));
        QVERIFY(pdf().contains(backJpeg()));
    }

    void imageInASubfolderIsTaken()
    {
        _f->folder.image(QStringLiteral("sub/face.jpg"), faceJpeg());
        QCOMPARE(add({{Key::face_Image_File, QStringLiteral("sub/face.jpg")}}), pdfName);
        QVERIFY(pdf().contains(faceJpeg()));
    }

    void nameThatLeadsOutIsMissingAndLoggedWithItsLine_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("parent folder") << QStringLiteral("../secret.jpg");
        QTest::newRow("link") << QStringLiteral("link.jpg");
    }
    void nameThatLeadsOutIsMissingAndLoggedWithItsLine()
    {
        QFETCH(QString, name);
        _f->home.writeFile(QStringLiteral("Interchange/secret.jpg"), faceJpeg());
        QVERIFY(QFile::link(
            QStringLiteral("../secret.jpg"), _f->folder.imagePath(QStringLiteral("link.jpg"))));
        QCOMPARE(add({{Key::face_Image_File, name}}), QStringLiteral(""));
        QVERIFY(!_f->error);
        QCOMPARE(_f->log.warnings,
            (QStringList {
                TransferFixture::text("IDS_LOG_WRN_NAME_LEADS_OUT",
                    {QStringLiteral("7"), QStringLiteral("Hanako"), name,
                        _f->folder.imageFolder()}),
                missing(_f->folder.imagePath(name)),
            }));
    }

    void absoluteNameIsMissing()
    {
        const QString outside = _f->home.writeFile(QStringLiteral("secret.jpg"), faceJpeg());
        QCOMPARE(add({{Key::face_Image_File, outside}}), QStringLiteral(""));
        QCOMPARE(_f->log.warnings.size(), 2);
        QVERIFY(!pdfExists());
    }

    void pipeAndFolderAreMissing()
    {
        const QString pipe = _f->folder.imagePath(QStringLiteral("pipe.jpg"));
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        const QString folder = _f->folder.imagePath(QStringLiteral("folder.jpg"));
        QVERIFY(QDir().mkdir(folder));
        QCOMPARE(add({{Key::face_Image_File, QStringLiteral("pipe.jpg")},
                     {Key::back_Image_File, QStringLiteral("folder.jpg")}}),
            QStringLiteral(""));
        QCOMPARE(_f->log.warnings, (QStringList {missing(pipe), missing(folder)}));
    }

    void folderIsMadeOnlyOnceItsParentExists()
    {
        using Database = DBCDataBaseController;
        const QString parent = _f->home.path(QStringLiteral("new"));
        const QString child = parent + QStringLiteral("/child");
        QCOMPARE(Database::createDirectoryIfNotExists({}), DBCResultCode::GeneralFailure);
        QCOMPARE(Database::createDirectoryIfNotExists(child), DBCResultCode::FolderCreateFailure);
        QCOMPARE(Database::createDirectoryIfNotExists(parent), DBCResultCode::Success);
        QCOMPARE(Database::createDirectoryIfNotExists(parent), DBCResultCode::Success);
        QCOMPARE(Database::createDirectoryIfNotExists(child), DBCResultCode::Success);
        QVERIFY(QFileInfo(child).isDir());
    }

    void folderIsNotMadeWhereAFileStands()
    {
        const QString file = _f->home.writeFile(QStringLiteral("file"), "x");
        QCOMPARE(DBCDataBaseController::createDirectoryIfNotExists(file),
            DBCResultCode::FolderCreateFailure);
    }
};

QTEST_GUILESS_MAIN(tst_images_import)
#include "tst_images_import.moc"
