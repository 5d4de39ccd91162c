// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/pdf/DBCPdfPageImage.h"

#include "cardimage/bitmap/DBCBitmap.h"
#include "cardimage/pdf/DBCContentRotation.h"
#include "cardimage/pdf/DBCPdfMemory.h"
#include "cardimage/pdf/DBCPdfObjects.h"
#include "cardimage/pdf/DBCPdfStreamData.h"

#include <QSizeF>

#include <qpdf/QPDFObjectHandle.hh>

#include <cmath>
#include <limits>
#include <optional>
#include <set>
#include <string>

std::array<char, 16> g_imagestr {};

namespace {

// The limit in bytes for the contents that are unpacked. Only the first matrix matters, and the
// contents of real cards are far shorter.
constexpr qint64 longestContents = 16LL * 1024 * 1024;
constexpr qint64 longestSide = std::numeric_limits<quint16>::max();
constexpr qint32 fullTurn = 360;

std::optional<QSizeF> pageSizeOf(QPDFObjectHandle page)
{
    QPDFObjectHandle box = page.getKey("/MediaBox");
    // From version 12 on, the library (QPDF) adds a box of its own to a page without a usable one.
    // Such a box did not come from the file and has a negative offset.
    if (box.getParsedOffset() < 0)
        return std::nullopt;
    std::array<double, 4> sides {};
    for (size_t i = 0; i < sides.size(); ++i) {
        if (!box.isArray() || static_cast<int>(i) >= box.getArrayNItems())
            return std::nullopt;
        const auto side = numberOf(box.getArrayItem(static_cast<int>(i)));
        if (!side)
            return std::nullopt;
        sides[i] = *side;
    }
    // Each difference uses the wrong coordinate of the origin. This is kept on purpose, because the
    // resolutions must stay the same as in earlier exports. The error has no effect on a box that
    // begins at 0 0.
    return QSizeF(sides[2] - sides[1], sides[3] - sides[0]);
}

qint32 rotationOfContents(QByteArrayView contents)
{
    qint32 degrees = 0;
    GetRotateDegreeFromStreamData(contents, &degrees);
    return degrees;
}

// The dictionary is sorted by the bytes of its keys, so that an image ("Im...") comes after a form
// ("Fm...") and is preferred to it.
std::string lastImageOrFormName(QPDFObjectHandle objects)
{
    g_imagestr.fill('\0');
    for (const auto& [key, object] : objects.getDictAsMap())
        VMCGPDFDictionaryApplierFunctionForImage(key.c_str() + 1, object, nullptr);
    return g_imagestr.data();
}

// Returns the image that the resources, or the resources of nested forms, name. Adds the rotations
// of these forms to `rotation`. Returns a null object when there is no image.
QPDFObjectHandle findImage(QPDFObjectHandle resources, qint32* rotation)
{
    std::set<QPDFObjGen> forms;
    while (resources.isDictionary()) {
        QPDFObjectHandle objects = resources.getKey("/XObject");
        if (!objects.isDictionary())
            break;
        const std::string name = lastImageOrFormName(objects);
        QPDFObjectHandle object = objects.getKey('/' + name);
        if (name.starts_with("Im"))
            return object;
        // Without this check a form that contains itself would be followed for ever.
        if (!name.starts_with("Fm") || !object.isStream()
            || !forms.insert(object.getObjGen()).second)
            break;
        const auto contents = decodedStreamData(object, longestContents);
        if (!contents)
            break;
        *rotation += rotationOfContents(*contents);
        if (*rotation >= fullTurn)
            *rotation -= fullTurn;
        resources = object.getDict().getKey("/Resources");
    }
    return QPDFObjectHandle::newNull();
}

bool isImageDictionary(QPDFObjectHandle dictionary)
{
    return dictionary.getKey("/Type").isNameAndEquals("/XObject")
        && dictionary.getKey("/Subtype").isNameAndEquals("/Image")
        && dictionary.getKey("/BitsPerComponent").isInteger();
}

std::optional<DBCImageDepth> depthOf(QPDFObjectHandle filter)
{
    if (filter.isNameAndEquals("/FlateDecode"))
        return DBCBitmapDepth;
    if (filter.isName() || filter.isArray())
        return DBCJpegDepth;
    return std::nullopt;
}

std::optional<quint16> sideOf(QPDFObjectHandle value)
{
    if (!value.isInteger() || value.getIntValue() < 0 || value.getIntValue() > longestSide)
        return std::nullopt;
    return static_cast<quint16>(value.getIntValue());
}

// Returns one byte more than the rows need, so that dataSize shows when there is surplus data.
qint64 longestBitmapData(const ImageDescriptor& descriptor)
{
    return qint64(descriptor.height) * ((descriptor.width + 7) / 8) + 1;
}

// Returns the dots per inch, rounded to three decimals and then truncated: 299.9996 gives 300, and
// 299.99 gives 299. Returns 0 when the page has no extent.
qint32 resolutionOf(double pixels, double points)
{
    constexpr double pointsPerInch = 72;
    constexpr double precision = 1000;
    const double value = std::round(pixels / points * pointsPerInch * precision) / precision;
    constexpr double limit = std::numeric_limits<qint32>::max();
    return std::abs(value) <= limit ? static_cast<qint32>(value) : 0;
}

void setResolutions(ImageDescriptor* descriptor, QSizeF pageSize, qint32 rotation)
{
    const QSizeF size = rotation % 180 == 0 ? pageSize : pageSize.transposed();
    descriptor->horizontalResolution = resolutionOf(descriptor->height, size.height());
    descriptor->verticalResolution = resolutionOf(descriptor->width, size.width());
}

template <size_t length> void setText(std::array<char, length>* field, QByteArrayView text)
{
    field->fill('\0');
    std::copy(text.begin(), text.end(), field->begin());
}

void setConstantFields(ImageDescriptor* descriptor, DBCImageDepth depth)
{
    constexpr qint32 normalQuality = 512;
    const bool isJpeg = depth == DBCJpegDepth;
    descriptor->recordSize = sizeof(ImageDescriptor);
    setText(&descriptor->codecType, isJpeg ? "jpeg" : "raw ");
    descriptor->temporalQuality = normalQuality;
    descriptor->spatialQuality = normalQuality;
    descriptor->frameCount = 1;
    setText(&descriptor->name, isJpeg ? "Trevant_JPEG" : "Trevant_Tiff");
    descriptor->depth = depth;
    descriptor->colorTableId = -1;
}

std::optional<QByteArray> imageData(
    const QPDFObjectHandle& image, const ImageDescriptor& descriptor)
{
    return descriptor.depth == DBCBitmapDepth
        ? decodedStreamData(image, longestBitmapData(descriptor))
        : jpegStreamData(image, DBCBitmap::maximumBytes);
}

// Returns false when the page has no image that can be taken out.
bool acquireImage(
    QPDFObjectHandle page, QByteArray* outData, ImageDescriptor* descriptor, qint32* outRotation)
{
    QPDFObjectHandle contents = page.getKey("/Contents");
    if (!contents.isStream())
        return false;
    *outRotation
        = rotationOfContents(decodedStreamData(contents, longestContents).value_or(QByteArray()));
    const auto pageSize = pageSizeOf(page);
    if (!pageSize)
        return false;

    QPDFObjectHandle image = findImage(page.getKey("/Resources"), outRotation);
    if (!image.isStream() || !isImageDictionary(image.getDict()))
        return false;
    const auto depth = depthOf(image.getDict().getKey("/Filter"));
    const auto width = sideOf(image.getDict().getKey("/Width"));
    const auto height = sideOf(image.getDict().getKey("/Height"));
    if (!depth || !width || !height)
        return false;

    if (*depth == DBCBitmapDepth && !DBCBitmap::canHold(QSizeF(*width, *height), 1))
        return false;

    setConstantFields(descriptor, *depth);
    descriptor->width = *width;
    descriptor->height = *height;
    setResolutions(descriptor, *pageSize, *outRotation);
    *outData = imageData(image, *descriptor).value_or(QByteArray());
    descriptor->dataSize = static_cast<quint32>(outData->size());
    return !outData->isEmpty();
}

} // namespace

void VMCGPDFDictionaryApplierFunctionForImage(
    const char* key, QPDFObjectHandle object, void* /*context*/)
{
    const QByteArrayView name(key);
    if (object.isStream() && (name.startsWith("Im") || name.startsWith("Fm")))
        qstrncpy(g_imagestr.data(), key, g_imagestr.size());
}

DBCResultCode AcquireImageFromPDFPage(
    QPDFObjectHandle page, QByteArray* outData, ImageDescriptor* descriptor, qint32* outRotation)
{
    try {
        if (page.isInitialized() && page.isDictionary()
            && acquireImage(page, outData, descriptor, outRotation))
            return DBCResultCode::Success;
    } catch (const std::exception& exception) {
        rethrowIfOutOfMemory(exception);
        // A document that is too damaged has no usable image. The result is NoImageInPdf.
    }
    return DBCResultCode::NoImageInPdf;
}
