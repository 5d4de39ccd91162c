// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DBCConversionPicture.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace {

// All sizes are device-independent pixels. Straight lines have even coordinates, because even
// coordinates lie on whole pixels of the screen at scales of 100, 150 and 200 %.
constexpr QSize sizeOfConversion {156, 60};
constexpr QSize sizeOfArrow {30, 24};

constexpr QRectF drum {4, 6, 40, 48};
constexpr QRectF cardBeforeDrum {28, 34, 28, 18};
constexpr QRectF folder {4, 14, 48, 40};
constexpr qreal databaseWidth = 56;
constexpr qreal folderWidth = 52;
constexpr qreal middle = 30;
constexpr qreal arrowGap = 10;
constexpr qreal arrowLength = 30;

constexpr qreal lineWidth = 1.25;
constexpr qreal arrowWidth = 2;

QColor mixed(const QColor& color, const QColor& other, qreal share)
{
    const auto mix = [&](float a, float b) { return a + (b - a) * static_cast<float>(share); };
    return QColor::fromRgbF(mix(color.redF(), other.redF()), mix(color.greenF(), other.greenF()),
        mix(color.blueF(), other.blueF()));
}

class Pencil {
public:
    Pencil(QPainter& painter, const QPalette& palette)
        : _painter(painter)
        , _scale(painter.device()->devicePixelRatio())
        , _window(palette.color(QPalette::Window))
        , _paper(palette.color(QPalette::Base))
        , _accent(palette.color(QPalette::Highlight))
        , _ink(mixed(palette.color(QPalette::WindowText), _window, 0.2))
    {
        painter.setRenderHint(QPainter::Antialiasing);
    }

    void drawDatabase() const;
    void drawFolder() const;
    void drawArrow(const QPointF& from, const QPointF& to) const;

private:
    // The pen is a whole number of screen pixels wide, and shift() moves a line from its even
    // coordinate so that the line covers whole pixels. A line that covered two pixels by half would
    // look twice as wide and half as dark.
    QPen sharpPen(const QColor& color, qreal width) const
    {
        return {color, pixels(width) / _scale, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
    }
    QPointF shift(qreal width) const
    {
        const qreal half = pixels(width) % 2 / (2 * _scale);
        return {half, half};
    }
    int pixels(qreal width) const { return std::max(1, qRound(width * _scale)); }
    void outline(const QPainterPath& shape, const QColor& fill) const;
    void line(const QPointF& from, const QPointF& to, const QColor& color, qreal width) const;
    void drawCard(const QRectF& place) const;

    QPainter& _painter;
    qreal _scale;
    QColor _window;
    QColor _paper;
    QColor _accent;
    QColor _ink;
};

void Pencil::outline(const QPainterPath& shape, const QColor& fill) const
{
    _painter.setPen(sharpPen(_ink, lineWidth));
    _painter.setBrush(fill);
    _painter.drawPath(shape.translated(shift(lineWidth)));
}

void Pencil::line(const QPointF& from, const QPointF& to, const QColor& color, qreal width) const
{
    _painter.setPen(sharpPen(color, width));
    _painter.drawLine(from + shift(width), to + shift(width));
}

// Draws a short line in the accent colour for the name and a grey line below it.
void Pencil::drawCard(const QRectF& place) const
{
    QPainterPath edge;
    edge.addRoundedRect(place, 2, 2);
    outline(edge, _paper);
    const qreal left = place.left() + 6;
    line({left, place.top() + 6}, {left + 8, place.top() + 6}, _accent, arrowWidth);
    line({left, place.top() + 12}, {place.right() - 6, place.top() + 12}, mixed(_ink, _paper, 0.5),
        lineWidth);
}

void Pencil::drawDatabase() const
{
    constexpr qreal lidHeight = 12;
    constexpr int tiers = 3;
    const QRectF lid(drum.topLeft(), QSizeF(drum.width(), lidHeight));
    const qreal depth = drum.height() - lidHeight;
    const auto rim = [&](qreal below) {
        QPainterPath arc;
        arc.arcMoveTo(lid.translated(0, below), 180);
        arc.arcTo(lid.translated(0, below), 180, 180);
        return arc;
    };
    QPainterPath body = rim(depth);
    body.arcTo(lid, 0, 180);
    body.closeSubpath();
    outline(body, _paper);
    QPainterPath top;
    top.addEllipse(lid);
    outline(top, mixed(_paper, _accent, 0.35));
    for (int tier = 1; tier < tiers; ++tier)
        outline(rim(depth * tier / tiers), Qt::transparent);

    // A margin in the window's colour separates the card from the drum.
    constexpr qreal margin = 3;
    QPainterPath around;
    around.addRoundedRect(
        cardBeforeDrum.adjusted(-margin, -margin, margin, margin), 2 + margin, 2 + margin);
    _painter.fillPath(around, _window);
    drawCard(cardBeforeDrum);
}

void Pencil::drawFolder() const
{
    constexpr qreal corner = 3;
    constexpr qreal tabWidth = 16;
    constexpr qreal tabHeight = 4;
    constexpr qreal pocketHeight = 26;
    QPainterPath back;
    back.moveTo(folder.left(), folder.bottom() - corner);
    back.lineTo(folder.left(), folder.top() + corner);
    back.quadTo(folder.topLeft(), folder.topLeft() + QPointF(corner, 0));
    back.lineTo(folder.left() + tabWidth, folder.top());
    back.lineTo(folder.left() + tabWidth + tabHeight, folder.top() + tabHeight);
    back.lineTo(folder.right() - corner, folder.top() + tabHeight);
    back.quadTo(folder.right(), folder.top() + tabHeight, folder.right(),
        folder.top() + tabHeight + corner);
    back.lineTo(folder.right(), folder.bottom() - corner);
    outline(back, mixed(_paper, _accent, 0.35));

    QPainterPath cardBehind;
    cardBehind.addRoundedRect(QRectF(folder.left() + 12, 6, 32, 30), 2, 2);
    outline(cardBehind, _paper);
    drawCard({folder.left() + 6, 10, 32, 30});

    QPainterPath pocket;
    pocket.addRoundedRect(folder.adjusted(0, folder.height() - pocketHeight, 0, 0), corner, corner);
    outline(pocket, mixed(_paper, _accent, 0.18));
}

void Pencil::drawArrow(const QPointF& from, const QPointF& to) const
{
    constexpr qreal headAngle = 140; // degrees between shaft and barb
    constexpr qreal headLength = 8;
    line(from, to, _accent, arrowWidth);
    for (const qreal side : {headAngle, -headAngle}) {
        QLineF barb(to, to + QPointF(headLength, 0));
        barb.setAngle(QLineF(from, to).angle() + side);
        line(barb.p1(), barb.p2(), _accent, arrowWidth);
    }
}

} // namespace

DBCConversionPicture::DBCConversionPicture(QWidget* parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void DBCConversionPicture::setSubject(Subject subject)
{
    _subject = subject;
    updateGeometry();
    update();
}

QSize DBCConversionPicture::sizeHint() const
{
    return _subject == Subject::Downwards ? sizeOfArrow : sizeOfConversion;
}

void DBCConversionPicture::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const QSize size = sizeHint();
    // The offset is even, so that the lines keep even coordinates.
    const int left = (width() - size.width()) / 4 * 2;
    const int top = (height() - size.height()) / 4 * 2;
    painter.translate(left, top);
    const Pencil pencil(painter, palette());
    switch (_subject) {
    case Subject::Downwards:
        pencil.drawArrow({size.width() / 2.0, 4}, {size.width() / 2.0, size.height() - 4.0});
        return;
    case Subject::Export:
        pencil.drawDatabase();
        painter.translate(databaseWidth + arrowGap, 0);
        pencil.drawArrow({0, middle}, {arrowLength, middle});
        painter.translate(arrowLength + arrowGap - folder.left(), 0);
        pencil.drawFolder();
        return;
    case Subject::Import:
        pencil.drawFolder();
        painter.translate(folderWidth + arrowGap, 0);
        pencil.drawArrow({0, middle}, {arrowLength, middle});
        painter.translate(arrowLength + arrowGap - drum.left(), 0);
        pencil.drawDatabase();
        return;
    }
}
