// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/pdf/DBCPdfDrawingLimits.h"

#include "cardimage/bitmap/DBCBitmap.h"
#include "cardimage/jpeg/DBCJpegCodec.h"
#include "cardimage/pdf/DBCPdfMemory.h"
#include "cardimage/pdf/DBCPdfObjects.h"
#include "cardimage/pdf/DBCPdfStreamData.h"

#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <vector>

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFPageObjectHelper.hh>

namespace {

// The memory that the drawing library takes per pixel, in bits, depends on the format of the image.
constexpr int plainBits = 8;
constexpr int jpegBits = 48; // the coefficients of a progressive picture
constexpr int jpeg2000Bits = 96; // three integers

bool isTooLarge(QSizeF size, int bitsPerPixel)
{
    return !size.isEmpty() && !DBCBitmap::canHold(size, bitsPerPixel);
}

double numberAt(QPDFObjectHandle dictionary, const char* key, const char* shortKey)
{
    return numberOf(dictionary.getKey(dictionary.hasKey(key) ? key : shortKey)).value_or(0);
}

double numberAt(QPDFObjectHandle array, int index, double missing)
{
    if (!array.isArray() || index >= array.getArrayNItems())
        return missing;
    return numberOf(array.getArrayItem(index)).value_or(missing);
}

bool hasFilter(QPDFObjectHandle dictionary, const char* name)
{
    QPDFObjectHandle filter = dictionary.getKey("/Filter");
    if (!filter.isArray())
        return filter.isNameAndEquals(name);
    const std::vector<QPDFObjectHandle> each = filter.getArrayAsVector();
    return std::any_of(each.begin(), each.end(),
        [name](QPDFObjectHandle one) { return one.isNameAndEquals(name); });
}

// The decoder uses the size in the JPEG itself, which may differ from the size in the image
// dictionary. Each start of a scan (SOS, ITU-T T.81) means another pass over all pixels.
bool isTooLargeJpeg(const QPDFObjectHandle& stream)
{
    constexpr QByteArrayView scan("\xFF\xDA", 2);
    const auto jpeg = jpegStreamData(stream, DBCBitmap::maximumBytes);
    const auto header = jpeg ? readJpegHeader(*jpeg) : std::nullopt;
    if (!header)
        return false;
    const double pixels = double(header->size.width()) * header->size.height();
    return isTooLarge(header->size, jpegBits)
        || pixels * double(jpeg->count(scan)) > DBCMostScannedPixels;
}

QSizeF jpeg2000Size(const QPDFObjectHandle& stream)
{
    // The markers SOC and SIZ of JPEG 2000 (ITU-T T.800), which begin a picture.
    constexpr QByteArrayView start("\xFF\x4F\xFF\x51", 4);
    constexpr qsizetype widthBehindStart = 8; // bytes from start to the width; the height follows
    const QByteArray picture
        = jpegStreamData(stream, DBCBitmap::maximumBytes).value_or(QByteArray());
    const qsizetype found = picture.indexOf(start);
    const qsizetype width = found + widthBehindStart;
    if (found < 0 || width + 8 > picture.size())
        return {};
    return {double(qFromBigEndian<quint32>(picture.constData() + width)),
        double(qFromBigEndian<quint32>(picture.constData() + width + 4))};
}

bool isTooLargeImage(QPDFObjectHandle object)
{
    if (!object.isStream())
        return false;
    const QPDFObjectHandle dictionary = object.getDict();
    const QSizeF size(numberAt(dictionary, "/Width", "/W"), numberAt(dictionary, "/Height", "/H"));
    return isTooLarge(size, plainBits)
        || (hasFilter(dictionary, "/DCTDecode") && isTooLargeJpeg(object))
        || (hasFilter(dictionary, "/JPXDecode") && isTooLarge(jpeg2000Size(object), jpeg2000Bits));
}

// The drawing library draws every tile of a pattern by itself, so a page covered by very many tiles
// takes too long.
bool isTooFinePattern(QPDFObjectHandle object, QSizeF pagePoints)
{
    constexpr double mostTiles = 200'000;
    QPDFObjectHandle dictionary = object.isStream() ? object.getDict() : object;
    const auto across = numberOf(dictionary.getKey("/XStep"));
    const auto down = numberOf(dictionary.getKey("/YStep"));
    if (!across || !down)
        return false;
    const QPDFObjectHandle matrix = dictionary.getKey("/Matrix");
    const double scale = numberAt(matrix, 0, 1) * numberAt(matrix, 3, 1)
        - numberAt(matrix, 1, 0) * numberAt(matrix, 2, 0);
    const double tile = std::abs(*across * *down * scale);
    return !(pagePoints.width() * pagePoints.height() <= mostTiles * tile);
}

} // namespace

bool isTooMuchToDraw(const QByteArray& bytes, QSizeF pagePoints)
{
    try {
        QPDF document;
        openPdf(&document, bytes);
        const QPDFObjectHandle page = document.getAllPages().at(0);
        return reachesObject(QPDFPageObjectHelper(page).getAttribute("/Resources", false),
            [pagePoints](const QPDFObjectHandle& object) {
                return isTooLargeImage(object) || isTooFinePattern(object, pagePoints);
            });
    } catch (const std::exception& exception) {
        rethrowIfOutOfMemory(exception);
        // The drawing library may be able to repair this document, and then draw objects that could
        // not be examined here.
        return true;
    }
}
