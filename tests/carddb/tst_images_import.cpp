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

using namespace Qt::StringLiterals;

using Key = DBCRecordKey;

namespace {

const QString cardId = u"0A1B-1"_s;
const QString pdfName = u"0A1B-1_N1.pdf"_s;

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
    QByteArray pdf() const { return _f->package.readFile(u"Images/"_s + pdfName); }
    bool pdfExists() const { return QFileInfo::exists(_f->packagePath(u"Images/"_s + pdfName)); }
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
        _f->folder.image(u"face.jpg"_s, faceJpeg());
        _f->folder.image(u"back.jpg"_s, backJpeg());
    }
    void cleanup() { _f.reset(); }

    void faceAndBackBecomeOnePdfFaceFirst()
    {
        QCOMPARE(
            add({{Key::face_Image_File, u"face.jpg"_s}, {Key::back_Image_File, u"back.jpg"_s}}),
            pdfName);
        QVERIFY(!_f->error);
        QVERIFY(_f->log.isEmpty());
        QVERIFY(pdf().contains(faceJpeg()));
        QVERIFY(pdf().contains(backJpeg()));

        DBCBitmap face;
        DBCBitmap back;
        CardImageInfo faceInfo;
        CardImageInfo backInfo;
        QCOMPARE(AcquireCardImageFromPDF(
                     _f->packagePath(u"Images/"_s + pdfName), &face, &faceInfo, &back, &backInfo),
            DBCResultCode::Success);
        QCOMPARE(face.pixels.size(), QSize(300, 180));
        QCOMPARE(back.pixels.size(), QSize(180, 300));
    }

    void missingFaceAndExistingBackGiveOnePageOfTheBack()
    {
        QCOMPARE(
            add({{Key::face_Image_File, u"none.jpg"_s}, {Key::back_Image_File, u"back.jpg"_s}}),
            pdfName);
        QVERIFY(!_f->error);
        QCOMPARE(_f->log.warnings, QStringList {missing(_f->folder.imagePath(u"none.jpg"_s))});
        QVERIFY(pdf().contains(backJpeg()));
        qint32 pages = 0;
        QCOMPARE(CheckPdfFile(_f->packagePath(u"Images/"_s + pdfName), &pages),
            DBCResultCode::PdfCardImageOnly);
        QCOMPARE(pages, 1);
    }

    void recordWithoutImageNamesHasNoImage_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("empty") << QString();
        QTest::newRow("blanks") << QString(u" \t"_s + QChar(0x3000));
    }
    void recordWithoutImageNamesHasNoImage()
    {
        QFETCH(QString, name);
        _f->package.remove(u"Images"_s);
        QCOMPARE(add({{Key::face_Image_File, name}, {Key::back_Image_File, name}}), u""_s);
        QVERIFY(!_f->error);
        QVERIFY(_f->log.isEmpty());
        QVERIFY(!QFileInfo::exists(_f->packagePath(u"Images"_s)));
    }

    void recordWithoutImageKeysHasNoImage()
    {
        QCOMPARE(add({}), u""_s);
        QVERIFY(!_f->error);
        QVERIFY(_f->log.isEmpty());
    }

    void bothImagesMissingIsTwoWarnings()
    {
        QCOMPARE(
            add({{Key::face_Image_File, u"1.jpg"_s}, {Key::back_Image_File, u"2.jpg"_s}}), u""_s);
        QVERIFY(!_f->error);
        QCOMPARE(_f->log.warnings,
            (QStringList {missing(_f->folder.imagePath(u"1.jpg"_s)),
                missing(_f->folder.imagePath(u"2.jpg"_s))}));
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
        _f->package.remove(u"Images"_s);
        QCOMPARE(add({{Key::face_Image_File, u"face.jpg"_s}}), pdfName);
        QVERIFY(pdfExists());
    }

    void imagesFolderThatCannotBeMadeIsAnError()
    {
        _f->package.remove(u"Images"_s);
        _f->package.writeFile(u"Images"_s, "a file");
        QCOMPARE(add({{Key::face_Image_File, u"face.jpg"_s}}), u""_s);
        QCOMPARE(_f->error.code(), DBCResultCode::FolderCreateFailure);
        QCOMPARE(_f->error.pathName(), _f->packagePath(u"Images"_s));
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
        _f->folder.image(u"bad.jpg"_s, bytes);
        QCOMPARE(add({{Key::face_Image_File, u"face.jpg"_s}, {Key::back_Image_File, u"bad.jpg"_s}}),
            u""_s);
        QVERIFY(!_f->error);
        QCOMPARE(_f->log.warnings,
            QStringList {
                TransferFixture::text("IDS_LOG_WRN_CONVERT_FAIL", {u"7"_s, u"Hanako"_s, -109})});
        QVERIFY(!pdfExists());
    }

    void warningOfARecordWithoutLineAndNameHasEmptyTextsThere()
    {
        _f->folder.image(u"bad.jpg"_s, "no picture");
        DBCRecord record;
        record.setValue(Key::face_Image_File, u"bad.jpg"_s);
        QCOMPARE(_f->database->_addImageFileIntoDB(_f->folder.path(), record, cardId, &_f->error),
            u""_s);
        QCOMPARE(_f->log.warnings,
            QStringList {
                TransferFixture::text("IDS_LOG_WRN_CONVERT_FAIL", {QString(), QString(), -109})});
    }

    void fullDiskIsAnErrorThatComesWithTheName()
    {
        ScopedHost host;
        host.setFreeBytes(1000);
        QCOMPARE(add({{Key::face_Image_File, u"face.jpg"_s}}), pdfName);
        QCOMPARE(_f->error.code(), DBCResultCode::NoSpaceForImport);
        QVERIFY(!pdfExists());
        QVERIFY(_f->log.warnings.isEmpty());
    }

    void fullDiskIsAnErrorAlsoWhenAFileCouldBeCleanedAway()
    {
        _f->package.writeFile(u"Images/"_s + pdfName, "old");
        ScopedHost host;
        host.setFreeBytes(1000);
        QCOMPARE(add({{Key::face_Image_File, u"face.jpg"_s}}), pdfName);
        QCOMPARE(_f->error.code(), DBCResultCode::NoSpaceForImport);
        QVERIFY(!pdfExists());
    }

    void imageThatCannotBeMeasuredIsAnError()
    {
        ScopedHost host;
        host->diskUsageProgram = u"/bin/false"_s;
        QCOMPARE(add({{Key::face_Image_File, u"face.jpg"_s}}), pdfName);
        QCOMPARE(_f->error.code(), DBCResultCode::SizeMeasureFailure);
    }

    void failedPdfThatCannotBeRemovedIsAnError()
    {
        QVERIFY(QDir(_f->package.path()).mkpath(u"Images/"_s + pdfName));
        QCOMPARE(add({{Key::face_Image_File, u"face.jpg"_s}}), pdfName);
        QCOMPARE(_f->error.code(), DBCResultCode::PdfCreateFailure);
    }

    void imageIsFoundWithoutRegardToCaseAndNormalForm()
    {
        const QString composed = QString(QChar(0x304C)) + u".jpg"_s;
        const QString decomposed = QString(QChar(0x304B)) + QChar(0x3099) + u".JPG"_s;
        _f->folder.image(decomposed, faceJpeg());
        QCOMPARE(add({{Key::face_Image_File, composed}, {Key::back_Image_File, u"BACK.JPG"_s}}),
            pdfName);
        QVERIFY(_f->log.isEmpty());
        QVERIFY(pdf().contains(faceJpeg()));
        QVERIFY(pdf().contains(backJpeg()));
    }

    void imageInASubfolderIsTaken()
    {
        _f->folder.image(u"sub/face.jpg"_s, faceJpeg());
        QCOMPARE(add({{Key::face_Image_File, u"sub/face.jpg"_s}}), pdfName);
        QVERIFY(pdf().contains(faceJpeg()));
    }

    void nameThatLeadsOutIsMissingAndLoggedWithItsLine_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("parent folder") << u"../secret.jpg"_s;
        QTest::newRow("link") << u"link.jpg"_s;
    }
    void nameThatLeadsOutIsMissingAndLoggedWithItsLine()
    {
        QFETCH(QString, name);
        _f->home.writeFile(u"Interchange/secret.jpg"_s, faceJpeg());
        QVERIFY(QFile::link(u"../secret.jpg"_s, _f->folder.imagePath(u"link.jpg"_s)));
        QCOMPARE(add({{Key::face_Image_File, name}}), u""_s);
        QVERIFY(!_f->error);
        QCOMPARE(_f->log.warnings,
            (QStringList {
                TransferFixture::text("IDS_LOG_WRN_NAME_LEADS_OUT",
                    {u"7"_s, u"Hanako"_s, name, _f->folder.imageFolder()}),
                missing(_f->folder.imagePath(name)),
            }));
    }

    // The import looks the image up, measures the disk space, and then reads the image. In this
    // test the program that measures replaces the image with a link, which the import must not
    // follow.
    void imageExchangedForALinkAfterTheLookUpIsNotFollowed()
    {
        const QByteArray secret = backJpeg();
        const QString outside = _f->home.writeFile(u"secret.jpg"_s, secret);
        const QByteArray script
            = "#!/bin/sh\nln -sf '" + QFile::encodeName(outside) + "' \"$3\" && printf '4\\t'\n";
        const QString program = _f->home.writeFile(u"du"_s, script);
        QCOMPARE(chmod(QFile::encodeName(program).constData(), 0700), 0);
        ScopedHost host;
        host->diskUsageProgram = program;
        QCOMPARE(add({{Key::face_Image_File, u"face.jpg"_s}}), pdfName);
        QVERIFY(QFileInfo(_f->folder.imagePath(u"face.jpg"_s)).isSymLink());
        QVERIFY(pdf().contains(faceJpeg()));
        QVERIFY(!pdf().contains(secret));
    }

    void absoluteNameIsMissing()
    {
        const QString outside = _f->home.writeFile(u"secret.jpg"_s, faceJpeg());
        QCOMPARE(add({{Key::face_Image_File, outside}}), u""_s);
        QCOMPARE(_f->log.warnings.size(), 2);
        QVERIFY(!pdfExists());
    }

    void pipeAndFolderAreMissing()
    {
        const QString pipe = _f->folder.imagePath(u"pipe.jpg"_s);
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        const QString folder = _f->folder.imagePath(u"folder.jpg"_s);
        QVERIFY(QDir().mkdir(folder));
        QCOMPARE(
            add({{Key::face_Image_File, u"pipe.jpg"_s}, {Key::back_Image_File, u"folder.jpg"_s}}),
            u""_s);
        QCOMPARE(_f->log.warnings, (QStringList {missing(pipe), missing(folder)}));
    }

    void folderIsMadeOnlyOnceItsParentExists()
    {
        using Database = DBCDataBaseController;
        const QString parent = _f->home.path(u"new"_s);
        const QString child = parent + u"/child"_s;
        QCOMPARE(Database::createDirectoryIfNotExists({}), DBCResultCode::GeneralFailure);
        QCOMPARE(Database::createDirectoryIfNotExists(child), DBCResultCode::FolderCreateFailure);
        QCOMPARE(Database::createDirectoryIfNotExists(parent), DBCResultCode::Success);
        QCOMPARE(Database::createDirectoryIfNotExists(parent), DBCResultCode::Success);
        QCOMPARE(Database::createDirectoryIfNotExists(child), DBCResultCode::Success);
        QVERIFY(QFileInfo(child).isDir());
    }

    void folderIsNotMadeWhereAFileStands()
    {
        const QString file = _f->home.writeFile(u"file"_s, "x");
        QCOMPARE(DBCDataBaseController::createDirectoryIfNotExists(file),
            DBCResultCode::FolderCreateFailure);
    }
};

QTEST_GUILESS_MAIN(tst_images_import)
#include "tst_images_import.moc"
