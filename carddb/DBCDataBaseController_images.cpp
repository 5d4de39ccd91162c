// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCDataBaseController.h"

#include "carddb/DBCPackageLayout.h"
#include "carddb/DBCTransferLog.h"
#include "cardimage/DBCImageFiles.h"
#include "cardimage/pdf/DBCCardPdf.h"
#include "cardimage/pdf/DBCPdfDrawing.h"
#include "datafile/helpers/DBCCommonFunction.h"
#include "datafile/helpers/DBCInterchangeNames.h"
#include "datafile/helpers/DBCNamedFiles.h"
#include "system/DBCNameLookup.h"
#include "system/DBCOpenInside.h"
#include "text/DBCCharacterSets.h"

#include <QDir>
#include <QFileInfo>

#include <utility>
#include <vector>

#include <cerrno>
#include <fcntl.h>

using namespace Qt::StringLiterals;

namespace {

// Opens the images that the record names, the face before the back. An image that is missing is
// left out, and the log names it.
std::vector<DBCImageFile> openImages(const QString& folder, const DBCRecord& record)
{
    using Outcome = DBCNamedFile::Outcome;
    const auto subject = DBCTransferSubject::ofImport(record);
    std::vector<DBCImageFile> images;
    for (const DBCRecordKey key : {DBCRecordKey::face_Image_File, DBCRecordKey::back_Image_File}) {
        const QString name = record.textOrEmpty(key);
        DBCNamedFile image = openNamedImage(DBCNameLookup::threadInstance(), folder, name);
        if (image.outcome == Outcome::LeadsOut)
            DBCTransferLog::nameLeadsOut(subject, name, image.folder, DBCConsequence::WithoutImage);
        if (image.outcome == Outcome::LeadsOut || image.outcome == Outcome::Missing)
            DBCTransferLog::missing(subject, image.path, DBCConsequence::WithoutImage);
        else if (image.outcome == Outcome::Found)
            images.push_back({image.path, std::move(image.file)});
    }
    return images;
}

// A card's PDF. It stays open while it is read, because another program may replace the file at its
// path meanwhile.
class CardPdf {
public:
    CardPdf(const QString& folder, const QString& name)
        : _path(folder + u'/' + name)
        , _file(openInside(folder, _path, O_RDONLY | O_NONBLOCK))
        , _leadsOut((!_file && isLeadOutError(errno)) || !DBCNameLookup::staysInside(name))
    {
    }

    bool leadsOut() const { return _leadsOut; }
    // Returns a path that leads to the open file. If the file could not be opened, this is the
    // ordinary path, so that the attempt to read the PDF fails with the reason.
    QString path() const { return _file ? u"/proc/self/fd/%1"_s.arg(_file.get()) : _path; }

private:
    QString _path;
    DBCDescriptor _file;
    bool _leadsOut;
};

struct CardImages {
    DBCBitmap face;
    CardImageInfo faceInfo;
    DBCBitmap back;
    CardImageInfo backInfo;
};

// If the PDF cannot be loaded for drawing, this returns no error and leaves the face null.
DBCError drawFirstPage(const QString& pdfPath, CardImages* images)
{
    const DBCResultCode code
        = AcquireCardImageFromSearchablePDF(pdfPath, &images->face, &images->faceInfo);
    return isFailure(code) ? DBCError(DBCResultCode::PdfToJpegFailure) : DBCError();
}

DBCError takeImages(const QString& pdfPath, CardImages* images)
{
    switch (AcquireCardImageFromPDF(
        pdfPath, &images->face, &images->faceInfo, &images->back, &images->backInfo)) {
    case DBCResultCode::Success:
        return {};
    case DBCResultCode::GeneralFailure:
        // Fail, because drawing only the readable part would silently drop the back side.
        return DBCError(DBCResultCode::NoImageInPdf);
    default:
        return drawFirstPage(pdfPath, images);
    }
}

DBCError acquireImages(const QString& pdfPath, CardImages* images)
{
    switch (CheckPdfFile(pdfPath, nullptr)) {
    case DBCResultCode::PdfNotExist:
        return DBCError(DBCResultCode::FolderNotExist);
    case DBCResultCode::PdfCardImageOnly:
        return takeImages(pdfPath, images);
    case DBCResultCode::PdfCardWithText:
        return drawFirstPage(pdfPath, images);
    default:
        return DBCError(DBCResultCode::NoImageInPdf);
    }
}

DBCError writeImage(const DBCBitmap& image, const CardImageInfo& info, const QString& folder,
    const QString& name, QStringList* written)
{
    if (image.isNull())
        return {};
    const DBCResultCode code = saveJpgFile(image, info.rotation, info.xResolution, info.yResolution,
        info.isColor, folder + u'/' + name);
    if (isFailure(code))
        return DBCError(code);
    *written << name;
    return {};
}

DBCError writeImages(
    const CardImages& images, const QString& toPath, const QString& recordNo, QStringList* written)
{
    if (auto error = writeImage(images.face, images.faceInfo, toPath,
            DBCInterchangeNames::faceImageName(recordNo), written))
        return error;
    return writeImage(images.back, images.backInfo, toPath,
        DBCInterchangeNames::backImageName(recordNo), written);
}

DBCError convertPages(
    const QString& pdfPath, const QString& toPath, const QString& recordNo, QStringList* written)
{
    CardImages images;
    if (auto error = acquireImages(pdfPath, &images))
        return error;
    return writeImages(images, toPath, recordNo, written);
}

// Whether the error ends the whole export. After any other error the card is exported without
// images.
bool isFatalForExport(const DBCError& error)
{
    return error.code() == DBCResultCode::NoSpaceForExport
        || error.code() == DBCResultCode::FileSaveFailure;
}

void warnOfMissingImages(const DBCTransferSubject& subject, DBCResultCode code)
{
    const char* key = code == DBCResultCode::FolderNotExist ? "IDS_LOG_WRN_IMAGE_FILE_NO_EXISTS"
                                                            : "IDS_LOG_WRN_CONVERT_FAIL";
    DBCTransferLog::cardWarning(key, subject, DBCConsequence::WithoutImages, toNumber(code));
}

} // namespace

DBCResultCode DBCDataBaseController::createDirectoryIfNotExists(const QString& path)
{
    if (path.isEmpty())
        return DBCResultCode::GeneralFailure;
    if (QFileInfo(path).isDir() || QDir().mkdir(path))
        return DBCResultCode::Success;
    return DBCResultCode::FolderCreateFailure;
}

QString DBCDataBaseController::imageFileName(const DBCRecord& record)
{
    QString faceImage = record.textOrEmpty(DBCRecordKey::face_Image_File);
    const QString cardID = record.textOrEmpty(DBCRecordKey::cardID);
    if (!isBlank(faceImage) || isBlank(cardID))
        return faceImage;
    return DBCPackageLayout::cardPdfName(cardID);
}

std::optional<QString> DBCDataBaseController::_addImageFileIntoDB(
    const QString& folder, const DBCRecord& recordDic, const QString& cardId, DBCError* errors)
{
    if (folder.isEmpty() || cardId.isEmpty() || !errors || _strDBPath.isEmpty())
        return std::nullopt;

    const std::vector<DBCImageFile> images = openImages(folder, recordDic);
    if (images.empty())
        return u""_s;

    const auto subject = DBCTransferSubject::ofImport(recordDic);
    const QString imagesFolder = DBCPackageLayout::imagesFolder(_strDBPath);
    const DBCResultCode folderCode = createDirectoryIfNotExists(imagesFolder);
    if (folderCode != DBCResultCode::Success) {
        DBCTransferLog::errorPlace(subject, imagesFolder);
        *errors = DBCError(folderCode).withPathName(imagesFolder);
        return u""_s;
    }

    const QString name = DBCPackageLayout::cardPdfName(cardId);
    const QString target = imagesFolder + u'/' + name;
    const DBCResultCode code = joinJpegsIntoPdf(images, target);
    if (!isFailure(code))
        return name;

    const bool isCleaned = DBCCommonFunction::cleanTempFile(target);
    if (!isCleaned || code == DBCResultCode::NoSpaceForImport) {
        DBCTransferLog::errorPlace(subject, target);
        *errors = DBCError(code);
        return name;
    }
    DBCTransferLog::cardWarning(
        "IDS_LOG_WRN_CONVERT_FAIL", subject, DBCConsequence::WithoutImages, toNumber(code));
    return u""_s;
}

std::optional<QStringList> DBCDataBaseController::convertPdf2Jpg(
    const QString& pdfPath, const QString& toPath, const QString& recordNo, DBCError* errors)
{
    if (pdfPath.isEmpty() || toPath.isEmpty() || recordNo.isEmpty() || !errors)
        return std::nullopt;

    QStringList written;
    if (DBCError error = convertPages(pdfPath, toPath, recordNo, &written)) {
        *errors = error;
        return QStringList();
    }
    return written;
}

std::optional<QStringList> DBCDataBaseController::_exportImageFile(
    const DBCRecord& record, const QString& toPath, DBCError* errors)
{
    if (toPath.isEmpty() || !errors || _strDBPath.isEmpty())
        return std::nullopt;

    const auto subject = DBCTransferSubject::ofExport(record);
    const QString name = imageFileName(record);
    if (isBlank(name))
        return QStringList();

    const DBCResultCode folderCode = createDirectoryIfNotExists(toPath);
    if (folderCode != DBCResultCode::Success) {
        DBCTransferLog::error("IDS_LOG_ERR_IMAGE_FILE_COPY_FAILURE", subject);
        DBCTransferLog::errorPlace(subject, toPath);
        *errors = DBCError(folderCode).withPathName(toPath);
        return QStringList();
    }

    const CardPdf pdf(DBCPackageLayout::imagesFolder(_strDBPath), name);
    if (pdf.leadsOut()) {
        warnOfMissingImages(subject, DBCResultCode::FolderNotExist);
        return QStringList();
    }
    DBCError error;
    auto list
        = convertPdf2Jpg(pdf.path(), toPath, record.textOrEmpty(DBCRecordKey::recordNo), &error);
    if (list && !error)
        return list;
    if (isFatalForExport(error)) {
        if (error.code() == DBCResultCode::FileSaveFailure)
            DBCTransferLog::error("IDS_LOG_ERR_IMAGE_FILE_COPY_FAILURE", subject);
        DBCTransferLog::errorPlace(subject, toPath);
        *errors = error;
        return list;
    }
    warnOfMissingImages(subject, error ? error.code() : DBCResultCode::GeneralFailure);
    return list;
}
