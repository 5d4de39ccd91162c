// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/DBCImageFiles.h"

#include "cardimage/DBCDiskUsage.h"
#include "cardimage/bitmap/DBCBitmapDrawing.h"
#include "cardimage/jpeg/DBCJpegCodec.h"
#include "cardimage/pdf/DBCCardPageSize.h"
#include "cardimage/pdf/DBCCardPdfWriter.h"
#include "cardimage/pdf/DBCPdfMemory.h"
#include "datafile/helpers/DBCCommonFunction.h"
#include "operation/base/DBCError.h"
#include "system/DBCPathChecks.h"
#include "system/DBCWholeFile.h"

#include <QFileInfo>

#include <cerrno>
#include <limits>

#include <sys/stat.h>

namespace {

constexpr int pointsPerInch = 72;
constexpr int colorDepth = 24;

// Turns the bitmap upright. If isColor marks a gray picture as coloured, the picture becomes RGB,
// but only if the system's version is versionWithColorGray or later.
DBCResultCode turn(DBCBitmap* bitmap, qint32 rotation, qint32 isColor)
{
    constexpr qint32 versionWithColorGray = 0x1060;
    const int originalDepth = bitmap->bitsPerPixel();
    const DBCResultCode code = RotateBitmapImageRep(*bitmap, rotation, bitmap);
    if (code != DBCResultCode::Success)
        return code;
    if (originalDepth == 8 && isColor == 1 && getSystemVersion() >= versionWithColorGray)
        return ConvertImageToDepth(*bitmap, colorDepth, bitmap);
    return DBCResultCode::Success;
}

// A 1-bit picture is written in colour, or in gray if it has to be turned. This difference is kept
// on purpose, because users' scripts compare the files byte by byte.
DBCResultCode prepare(DBCBitmap* bitmap, qint32 rotation, qint32 isColor)
{
    if (rotation != 0)
        return turn(bitmap, rotation, isColor);
    if (bitmap->bitsPerPixel() == 1 || isColor == 0)
        return ConvertImageToDepth(*bitmap, colorDepth, bitmap);
    return DBCResultCode::Success;
}

DBCResultCode checkSpaceForPdf(const std::vector<DBCImageFile>& images, const QString& outputPath)
{
    quint64 size = DBCDiskSpaceMargin;
    for (const DBCImageFile& image : images) {
        DBCError error;
        size += getSizeWithPath(image.path, &error);
        if (isFailure(error.code()))
            return error.code();
    }
    return hasFreeBytes(QFileInfo(outputPath).absolutePath(), size)
        ? DBCResultCode::Success
        : DBCResultCode::NoSpaceForImport;
}

DBCResultCode codeOf(DBCWriteOutcome outcome)
{
    switch (outcome) {
    case DBCWriteOutcome::Written:
        return DBCResultCode::Success;
    case DBCWriteOutcome::DiskFull:
        return DBCResultCode::NoSpaceForImport;
    case DBCWriteOutcome::Failed:
        break;
    }
    return DBCResultCode::PdfCreateFailure;
}

bool addPage(DBCCardPdfWriter* writer, const DBCDescriptor& file)
{
    const DBCImportedJpeg jpeg = readJpegForImport(file);
    if (jpeg.verdict != DBCImportedJpeg::Verdict::Usable)
        return false;
    writer->addPage(jpeg.bytes, jpeg.properties, pagePointSize(jpeg.properties));
    return true;
}

bool isTooLarge(const DBCDescriptor& file)
{
    struct stat status { };
    return fstat(file.get(), &status) == 0 && status.st_size > DBCBitmap::maximumBytes;
}

} // namespace

DBCResultCode saveJpgFile(const DBCBitmap& image, qint32 rotation, qint32 xResolution,
    qint32 /*yResolution*/, qint32 isColor, const QString& path)
{
    if (image.isNull() || path.isEmpty())
        return DBCResultCode::GeneralFailure;
    DBCBitmap bitmap = image;
    if (prepare(&bitmap, rotation, isColor) != DBCResultCode::Success)
        return DBCResultCode::PdfToJpegFailure;
    // If the resolution is unknown (0), the point size becomes infinite, and the encoder then
    // records no resolution.
    bitmap.pointSize *= xResolution == 0 ? std::numeric_limits<double>::infinity()
                                         : static_cast<double>(pointsPerInch) / xResolution;
    const QByteArray jpeg = encodeJpeg(bitmap);
    return jpeg.isEmpty() ? DBCResultCode::Success : DBCCommonFunction::saveFile(jpeg, path);
}

DBCImportedJpeg readJpegForImport(const DBCDescriptor& file)
{
    using Verdict = DBCImportedJpeg::Verdict;
    if (!file)
        return {Verdict::Unreadable, {}, {}};
    if (isTooLarge(file))
        return {Verdict::TooLarge, {}, {}};
    QByteArray bytes;
    if (readWholeFile(file, &bytes) != 0)
        return {Verdict::Unreadable, {}, {}};
    const auto properties = readJpegProperties(bytes);
    return properties ? DBCImportedJpeg {Verdict::Usable, bytes, *properties}
                      : DBCImportedJpeg {Verdict::NoJpeg, {}, {}};
}

DBCResultCode joinJpegsIntoPdf(const std::vector<DBCImageFile>& images, const QString& outputPath)
{
    if (images.empty() || outputPath.isEmpty())
        return DBCResultCode::GeneralFailure;
    if (const auto code = checkSpaceForPdf(images, outputPath); isFailure(code))
        return code;
    try {
        DBCCardPdfWriter writer(outputPath);
        if (writer.opened() != DBCWriteOutcome::Written)
            return codeOf(writer.opened());
        for (const DBCImageFile& image : images) {
            if (!addPage(&writer, image.file))
                return DBCResultCode::PdfCreateFailure;
        }
        return codeOf(writer.close());
    } catch (const std::exception& exception) {
        rethrowIfOutOfMemory(exception);
        return DBCResultCode::PdfCreateFailure;
    }
}

DBCResultCode convertJPG2PDF(const QStringList& paths, const QString& outputPath)
{
    std::vector<DBCImageFile> images;
    for (const QString& path : paths)
        images.push_back({path, openForReading(path)});
    return joinJpegsIntoPdf(images, outputPath);
}

qint32 readJpgFile(const QUrl& url, QByteArray* outBuffer)
{
    if (url.isEmpty() || !outBuffer)
        return toNumber(DBCResultCode::ParameterError);
    outBuffer->clear();
    if (!url.isLocalFile())
        return DBCNotReadWhole;
    const DBCDescriptor file = openForReading(url.toLocalFile());
    return file ? readWholeFile(file, outBuffer) : -errno;
}
