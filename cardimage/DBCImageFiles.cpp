// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/DBCImageFiles.h"

#include "cardimage/DBCDiskUsage.h"
#include "cardimage/bitmap/DBCBitmapDrawing.h"
#include "cardimage/jpeg/DBCJpegCodec.h"
#include "cardimage/jpeg/DBCJpegProperties.h"
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

namespace {

constexpr int pointsPerInch = 72;
constexpr int colorDepth = 24;

// Turns the bitmap upright. A gray picture that counts as colour becomes RGB only where the system
// is of this version or later.
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

// A 1-bit picture that needs no turning is written in colour; a turned one stays gray. Files that
// scripts compare have been so for ever.
DBCResultCode prepare(DBCBitmap* bitmap, qint32 rotation, qint32 isColor)
{
    if (rotation != 0)
        return turn(bitmap, rotation, isColor);
    if (bitmap->bitsPerPixel() == 1 || isColor == 0)
        return ConvertImageToDepth(*bitmap, colorDepth, bitmap);
    return DBCResultCode::Success;
}

DBCResultCode checkSpaceForPdf(const QStringList& paths, const QString& outputPath)
{
    quint64 size = DBCDiskSpaceMargin;
    for (const QString& path : paths) {
        DBCError error;
        size += getSizeWithPath(path, &error);
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

bool addPage(DBCCardPdfWriter* writer, const QString& path, const QString& insideFolder)
{
    // What is larger than any picture that could be shown again is not read.
    if (QFileInfo(path).size() > DBCBitmap::maximumBytes)
        return false;
    QByteArray jpeg;
    if (readJpgFile(QUrl::fromLocalFile(path), &jpeg, insideFolder) != 0)
        return false;
    const auto properties = readJpegProperties(jpeg);
    if (!properties)
        return false;
    writer->addPage(jpeg, *properties, pagePointSize(*properties));
    return true;
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
    // No resolution makes an endless size, which the encoder records as none.
    bitmap.pointSize *= xResolution == 0 ? std::numeric_limits<double>::infinity()
                                         : static_cast<double>(pointsPerInch) / xResolution;
    const QByteArray jpeg = encodeJpeg(bitmap);
    return jpeg.isEmpty() ? DBCResultCode::Success : DBCCommonFunction::saveFile(jpeg, path);
}

DBCResultCode convertJPG2PDF(
    const QStringList& paths, const QString& outputPath, const QString& insideFolder)
{
    if (paths.isEmpty() || outputPath.isEmpty())
        return DBCResultCode::GeneralFailure;
    if (const auto code = checkSpaceForPdf(paths, outputPath); isFailure(code))
        return code;
    try {
        DBCCardPdfWriter writer(outputPath);
        if (writer.opened() != DBCWriteOutcome::Written)
            return codeOf(writer.opened());
        for (const QString& path : paths) {
            if (!addPage(&writer, path, insideFolder))
                return DBCResultCode::PdfCreateFailure;
        }
        return codeOf(writer.close());
    } catch (const std::exception& exception) {
        rethrowIfOutOfMemory(exception);
        return DBCResultCode::PdfCreateFailure;
    }
}

qint32 readJpgFile(const QUrl& url, QByteArray* outBuffer, const QString& insideFolder)
{
    if (url.isEmpty() || !outBuffer)
        return toNumber(DBCResultCode::ParameterError);
    outBuffer->clear();
    if (!url.isLocalFile())
        return DBCNotReadWhole;
    const DBCDescriptor file = openForReading(url.toLocalFile(), insideFolder);
    return file ? readWholeFile(file, outBuffer) : -errno;
}
