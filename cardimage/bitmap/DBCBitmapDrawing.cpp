// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/bitmap/DBCBitmapDrawing.h"

#include <QPainter>
#include <QTransform>

namespace {

constexpr int grayDepth = 8;

enum class Canvas { Gray, ColorWithAlpha };

DBCBitmap blankCanvas(QSize size, Canvas canvas)
{
    return canvas == Canvas::Gray
        ? DBCBitmap::blank(size, QImage::Format_Grayscale8, DBCBitmap::ColorModel::CalibratedGray)
        : DBCBitmap::blank(
            size, QImage::Format_RGBA8888_Premultiplied, DBCBitmap::ColorModel::CalibratedRGB);
}

bool isQuarterTurn(int angle)
{
    return angle == 90 || angle == -90 || angle == 270 || angle == -270;
}

Canvas canvasFor(DBCBitmap::ColorModel model)
{
    const bool isColor = model == DBCBitmap::ColorModel::CalibratedRGB
        || model == DBCBitmap::ColorModel::DeviceRGB;
    return isColor ? Canvas::ColorWithAlpha : Canvas::Gray;
}

// In Qt's coordinates the y axis points down, so a positive angle turns clockwise.
QTransform transformFor(int angle, QSize size)
{
    QTransform transform;
    if (angle == 90 || angle == -270)
        return transform.translate(size.height(), 0).rotate(90);
    if (angle == -90 || angle == 270)
        return transform.translate(0, size.width()).rotate(-90);
    const QPointF center(size.width() / 2.0, size.height() / 2.0);
    return transform.translate(center.x(), center.y())
        .rotate(-angle)
        .translate(-center.x(), -center.y());
}

DBCResultCode draw(
    const QImage& pixels, const QTransform& transform, DBCBitmap canvas, DBCBitmap* outImage)
{
    if (canvas.isNull())
        return DBCResultCode::GeneralFailure;
    QPainter painter(&canvas.pixels);
    painter.setTransform(transform);
    painter.drawImage(0, 0, pixels);
    painter.end();
    *outImage = canvas;
    return DBCResultCode::Success;
}

} // namespace

DBCResultCode ConvertImageToDepth(const DBCBitmap& image, int depth, DBCBitmap* outImage)
{
    if (image.isNull())
        return DBCResultCode::ParameterError;
    const Canvas canvas = depth == grayDepth ? Canvas::Gray : Canvas::ColorWithAlpha;
    return draw(image.pixels, {}, blankCanvas(image.pixels.size(), canvas), outImage);
}

DBCResultCode RotateBitmapImageRep(const DBCBitmap& image, int angle, DBCBitmap* outImage)
{
    if (image.isNull())
        return DBCResultCode::ParameterError;
    const QSize size = image.pixels.size();
    const QSize canvasSize = isQuarterTurn(angle) ? size.transposed() : size;
    return draw(image.pixels, transformFor(angle, size),
        blankCanvas(canvasSize, canvasFor(image.colorModel)), outImage);
}
