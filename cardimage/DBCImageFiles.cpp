// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/DBCImageFiles.h"

#include "cardimage/DBCBitmapDrawing.h"
#include "cardimage/DBCCardPdfWriter.h"
#include "cardimage/DBCDiskUsage.h"
#include "cardimage/DBCJpegCodec.h"
#include "cardimage/DBCJpegProperties.h"
#include "cardimage/DBCPdfMemory.h"
#include "datafile/DBCCommonFunction.h"
#include "operation/DBCChecker.h"
#include "operation/DBCDescriptor.h"
#include "operation/DBCError.h"
#include "operation/DBCOpenInside.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <limits>
#include <new>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

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
    return DBCChecker::checkDiskSizeIsEnough(QFileInfo(outputPath).absolutePath(), size)
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

DBCDescriptor openPicture(const QString& path, const QString& insideFolder)
{
    // A pipe must not keep us waiting for its other end.
    constexpr int flags = O_RDONLY | O_NONBLOCK;
    if (!insideFolder.isEmpty())
        return openInside(insideFolder, path, flags);
    return DBCDescriptor(::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC));
}

// 0 or minus errno. Sets length to the number of bytes read.
qint32 readFully(int descriptor, QByteArray* buffer, qsizetype* length)
{
    for (*length = 0; *length < buffer->size();) {
        const ssize_t count = ::read(
            descriptor, buffer->data() + *length, static_cast<size_t>(buffer->size() - *length));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return -errno;
        if (count == 0)
            break;
        *length += count;
    }
    return 0;
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
    constexpr qint32 readFailure = -4960;
    constexpr qint64 lengthLimit = 4LL * 1024 * 1024 * 1024;
    if (url.isEmpty() || !outBuffer)
        return toNumber(DBCResultCode::ParameterError);
    outBuffer->clear();
    if (!url.isLocalFile())
        return readFailure;
    const DBCDescriptor file = openPicture(url.toLocalFile(), insideFolder);
    if (!file)
        return -errno;
    struct stat status { };
    if (::fstat(file.get(), &status) != 0)
        return -errno;
    if (!S_ISREG(status.st_mode) || status.st_size >= lengthLimit)
        return readFailure;
    QByteArray buffer;
    try {
        buffer.resize(status.st_size);
    } catch (const std::bad_alloc&) {
        return readFailure;
    }
    qsizetype length = 0;
    if (const qint32 error = readFully(file.get(), &buffer, &length); error != 0)
        return error;
    if (length != buffer.size())
        return readFailure;
    *outBuffer = std::move(buffer);
    return 0;
}
