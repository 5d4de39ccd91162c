// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DBCConversionPicture.h"

#include <QPainter>
#include <QPainterPath>

namespace {

constexpr QSizeF smallArrow {30, 22}; // device-independent pixels, as everything here
constexpr QSizeF threeParts {148, 52};
constexpr qreal lineWidth = 1.6;

// A store of cards: a drum with two bands.
void drawDatabase(QPainter& painter, const QRectF& place)
{
    const qreal lid = place.height() * 0.26;
    const QRectF top(place.left(), place.top(), place.width(), lid);
    const auto lowerHalf = [&](qreal fromTop) {
        QPainterPath arc;
        const QRectF ellipse = top.translated(0, fromTop);
        arc.arcMoveTo(ellipse, 180);
        arc.arcTo(ellipse, 180, 180);
        return arc;
    };
    const qreal depth = place.height() - lid;
    QPainterPath body = lowerHalf(depth);
    body.lineTo(place.right(), top.center().y());
    body.arcTo(top, 0, 180);
    body.closeSubpath();
    painter.drawPath(body);
    painter.drawPath(lowerHalf(0));
    painter.drawPath(lowerHalf(depth / 3));
    painter.drawPath(lowerHalf(depth * 2 / 3));
}

// A folder with two cards that look out of it.
void drawFolder(QPainter& painter, const QRectF& place)
{
    const QSizeF cardSize(place.width() * 0.62, place.height() * 0.6);
    const QRectF backCard(QPointF(place.left() + place.width() * 0.26, place.top()), cardSize);
    const QRectF card = backCard.translated(-place.width() * 0.14, place.height() * 0.12);
    painter.drawRoundedRect(backCard, 2, 2);
    painter.drawRoundedRect(card, 2, 2);
    const qreal writing = card.top() + card.height() * 0.22;
    painter.drawLine(QPointF(card.left() + 5, writing), QPointF(card.center().x(), writing));
    const qreal pocket = place.height() * 0.42;
    painter.drawRoundedRect(place.adjusted(0, pocket, 0, 0), 3, 3);
}

void drawArrow(QPainter& painter, const QPointF& from, const QPointF& to, qreal head)
{
    const QLineF shaft(from, to);
    painter.drawLine(shaft);
    for (const qreal angle : {145.0, -145.0}) {
        QLineF side(to, to + QPointF(head, 0));
        side.setAngle(shaft.angle() + angle);
        painter.drawLine(side);
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
    return (_subject == Subject::Downwards ? smallArrow : threeParts).toSize();
}

void DBCConversionPicture::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ink = palette().color(QPalette::WindowText);
    const QColor accent = palette().color(QPalette::Highlight);
    const QPen plain(ink, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    const QPen strong(accent, lineWidth * 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    const QSizeF size = sizeHint();
    painter.translate((width() - size.width()) / 2, (height() - size.height()) / 2);

    if (_subject == Subject::Downwards) {
        painter.setPen(strong);
        drawArrow(
            painter, QPointF(size.width() / 2, 2), QPointF(size.width() / 2, size.height() - 2), 9);
        return;
    }
    painter.setPen(plain);
    painter.setBrush(palette().color(QPalette::Base));
    const QRectF left(2, 5, 42, 42);
    const QRectF right(size.width() - 46, 5, 44, 42);
    if (_subject == Subject::Export) {
        drawDatabase(painter, left);
        drawFolder(painter, right);
    } else {
        drawFolder(painter, left);
        drawDatabase(painter, right);
    }
    painter.setPen(strong);
    drawArrow(painter, QPointF(56, 26), QPointF(size.width() - 58, 26), 9);
}
