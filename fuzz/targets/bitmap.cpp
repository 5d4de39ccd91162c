// SPDX-License-Identifier: GPL-3.0-or-later
// Turns a bitmap of any kind, converts its colour depth, and writes the bitmap as a JPEG file.
#include "cardimage/DBCImageFiles.h"
#include "cardimage/bitmap/DBCBitmapDrawing.h"
#include "fuzz/JpegClaims.h"

#include <algorithm>
#include <array>

namespace {

using ColorModel = DBCBitmap::ColorModel;

struct Kind {
    QImage::Format format;
    ColorModel model;
};
constexpr std::array<Kind, 6> Kinds {{
    {QImage::Format_Mono, ColorModel::DeviceBlack},
    {QImage::Format_Grayscale8, ColorModel::DeviceGray},
    {QImage::Format_Grayscale8, ColorModel::CalibratedGray},
    {QImage::Format_RGB888, ColorModel::DeviceRGB},
    {QImage::Format_RGB32, ColorModel::CalibratedRGB},
    {QImage::Format_RGBA8888_Premultiplied, ColorModel::CalibratedRGB},
}};
constexpr int LongestSide = 64;

DBCBitmap bitmapFrom(FuzzInput* input)
{
    const Kind kind = Kinds[static_cast<size_t>(input->below(int(Kinds.size())))];
    const QSize size(input->below(LongestSide), input->below(LongestSide));
    DBCBitmap bitmap = DBCBitmap::blank(size, kind.format, kind.model);
    if (bitmap.isNull()) {
        mustHold(size.isEmpty(), "a bitmap that has pixels is made");
        return bitmap;
    }
    const QByteArrayView bytes = input->remaining();
    std::copy_n(
        bytes.begin(), qMin(bytes.size(), bitmap.pixels.sizeInBytes()), bitmap.pixels.bits());
    return bitmap;
}

bool isSideways(int angle)
{
    return angle % 180 != 0 && angle % 90 == 0;
}

void judgeDrawing(const DBCBitmap& bitmap, int angle)
{
    DBCBitmap turned;
    mustHold(RotateBitmapImageRep(bitmap, angle, &turned) == DBCResultCode::Success,
        "a bitmap can be turned");
    const bool exchanges = isSideways(angle) && std::abs(angle) < 360;
    mustHold(turned.pixels.size()
            == (exchanges ? bitmap.pixels.size().transposed() : bitmap.pixels.size()),
        "a quarter turn exchanges width and height");
    DBCBitmap gray;
    mustHold(ConvertImageToDepth(bitmap, 8, &gray) == DBCResultCode::Success
            && gray.pixels.size() == bitmap.pixels.size() && gray.bitsPerPixel() == 8,
        "depth 8 is gray");
}

void judgeFile(const FuzzFile& file, const DBCBitmap& bitmap, int angle, qint32 resolution)
{
    const auto properties = readJpegProperties(file.read());
    judgeProperties(properties);
    const QSize size = isSideways(angle) ? bitmap.pixels.size().transposed() : bitmap.pixels.size();
    mustHold(properties && properties->pixelWidth == size.width()
            && properties->pixelHeight == size.height(),
        "the file holds the turned picture");
    mustHold(properties->xResolution == (resolution > 0 ? resolution : 0)
            && properties->yResolution == properties->xResolution,
        "the file tells the resolution both ways");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    constexpr std::array angles {0, 90, 180, 270, -90, 45, 360, 450};
    static FuzzFile file("card.jpg");
    FuzzInput input(data, size);
    const int angle = angles[static_cast<size_t>(input.below(int(angles.size())))];
    const qint32 isColor = input.below(2);
    const qint32 resolution = static_cast<qint16>(input.word());
    const DBCBitmap bitmap = bitmapFrom(&input);
    const DBCResultCode code
        = saveJpgFile(bitmap, angle, resolution, resolution, isColor, file.path());
    if (bitmap.isNull()) {
        mustHold(code == DBCResultCode::GeneralFailure, "no bitmap, no file");
        return 0;
    }
    mustHold(code == DBCResultCode::Success, "a bitmap can be saved");
    judgeDrawing(bitmap, angle);
    if (std::abs(angle) < 360)
        judgeFile(file, bitmap, angle, resolution);
    return 0;
}
