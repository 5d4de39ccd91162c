// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/DBCControlCharacters.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool changesDirection(QChar character)
{
    const char16_t unit = character.unicode();
    return (unit >= u'\u202a' && unit <= u'\u202e') || (unit >= u'\u2066' && unit <= u'\u2069');
}

bool isControl(QChar character)
{
    return character.category() == QChar::Other_Control || changesDirection(character)
        || character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
}

} // namespace

QString escapedControls(const QString& text)
{
    // Hardly any text contains a control character. All other texts are returned without building a
    // copy.
    if (std::none_of(text.begin(), text.end(), isControl))
        return text;
    QString escaped;
    escaped.reserve(text.size());
    for (const QChar character : text) {
        if (isControl(character))
            escaped += u"\\u%1"_s.arg(QString::number(character.unicode(), 16).toUpper(), 4, u'0');
        else
            escaped += character;
    }
    return escaped;
}

QString asOneLine(QString text)
{
    QStringList parts;
    for (const QString& part : text.replace(u'\n', u' ').split(u'\t'))
        parts << escapedControls(part);
    return parts.join(u'\t');
}
