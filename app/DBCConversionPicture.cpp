// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DBCConversionPicture.h"

#include <QPainter>

DBCConversionPicture::DBCConversionPicture(QWidget* parent)
    : QWidget(parent)
{
}

void DBCConversionPicture::setSubject(Subject subject)
{
    _subject = subject;
    updateGeometry();
    update();
}

QSize DBCConversionPicture::sizeHint() const
{
    return _subject == Subject::Downwards ? QSize(32, 24) : QSize(144, 56);
}

void DBCConversionPicture::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawLine(rect().center(), rect().topLeft());
}
