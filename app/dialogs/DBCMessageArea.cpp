// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/dialogs/DBCMessageArea.h"

#include <QEvent>
#include <QPalette>

using namespace Qt::StringLiterals;

namespace {

constexpr QRgb redOnLight = 0xffb3001b;
constexpr QRgb redOnDark = 0xffff9a8f;
constexpr int middleLightness = 128;

QString html(const QString& text)
{
    return text.toHtmlEscaped().replace(u'\n', u"<br>"_s);
}

} // namespace

DBCMessageArea::DBCMessageArea(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::RichText);
    setWordWrap(true);
    setAlignment(Qt::AlignLeading | Qt::AlignTop);
    // The user can copy the text, and a screen reader reaches it with the Tab key.
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFocusPolicy(Qt::NoFocus);
}

void DBCMessageArea::clearTexts()
{
    showTexts(QString());
}

void DBCMessageArea::showTexts(const QString& text)
{
    showAttention(QString(), text);
}

void DBCMessageArea::showAttention(const QString& attention, const QString& text)
{
    if (attention == _attention && text == _text)
        return;
    _attention = attention;
    _text = text;
    render();
}

QColor DBCMessageArea::attentionColor(const QPalette& palette)
{
    const bool isDark = palette.color(QPalette::Window).lightness() < middleLightness;
    return isDark ? redOnDark : redOnLight;
}

void DBCMessageArea::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        render();
}

void DBCMessageArea::render()
{
    QStringList lines;
    if (!_attention.isEmpty())
        lines << u"<span style=\"color:%1\">%2</span>"_s.arg(
            attentionColor(palette()).name(), html(_attention));
    if (!_text.isEmpty())
        lines << html(_text);
    setText(lines.join(u"<br>"_s));
    const bool canBeRead = textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard);
    setFocusPolicy(canBeRead && !lines.isEmpty() ? Qt::StrongFocus : Qt::NoFocus);
    setAccessibleName(QStringList({_attention, _text}).join(u'\n').trimmed());
}
