// SPDX-License-Identifier: GPL-3.0-or-later
// Reads a report for a test: the page, which people read, as XML, and the data, which programs
// read, as JSON.
#pragma once

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QXmlStreamReader>
#include <QtTest>

using namespace Qt::StringLiterals;

struct ReadPage {
    QString error; // empty if the page is well-formed
    QString language;
    QString end; // the style class of the body, which names the end of the conversion
    QString title;
    QStringList titles; // the headings of the sections
    QMap<QString, QString> values; // the values by their labels
    QStringList columns;
    // Each card has its number and its name, and then, for each of its problems, the text of the
    // problem and what became of the card.
    QList<QStringList> cards;
    QStringList reasons;
    QStringList others;
    QString everything; // all text of the page

    static ReadPage of(const QByteArray& bytes)
    {
        ReadPage page;
        QXmlStreamReader xml(bytes);
        QString label;
        while (!xml.atEnd()) {
            if (xml.readNext() == QXmlStreamReader::Characters)
                page.everything += xml.text();
            if (!xml.isStartElement())
                continue;
            const QString name = xml.name().toString();
            if (name == u"html"_s)
                page.language = xml.attributes().value(u"lang"_s).toString();
            else if (name == u"body"_s)
                page.end = xml.attributes().value(u"class"_s).toString();
            else if (name == u"tbody"_s)
                page.cards << QStringList();
            else if (name == u"td"_s || name == u"th"_s)
                page.takeCell(xml);
            else if (name == u"h1"_s)
                page.title = textOf(xml);
            else if (name == u"h2"_s)
                page.titles << textOf(xml);
            else if (name == u"dt"_s)
                label = textOf(xml);
            else if (name == u"dd"_s)
                page.values.insert(label, textOf(xml));
            else if (name == u"li"_s)
                page.others << textOf(xml);
            else if (xml.attributes().value(u"class"_s) == u"reason"_s)
                page.reasons << textOf(xml);
        }
        page.error = xml.hasError() ? xml.errorString() : QString();
        return page;
    }

    // Returns the card with that number, which may be a card number or a line number, as the page
    // shows it. Returns an empty list if the page does not list the card.
    QStringList card(int number) const
    {
        for (const QStringList& candidate : cards) {
            if (candidate.value(0) == QString::number(number))
                return candidate;
        }
        return {};
    }

private:
    void takeCell(QXmlStreamReader& xml)
    {
        (cards.isEmpty() ? columns : cards.last()) << textOf(xml);
    }

    static QString textOf(QXmlStreamReader& xml)
    {
        QString text;
        for (int depth = 1; depth > 0 && !xml.atEnd();) {
            xml.readNext();
            if (xml.isStartElement()) {
                ++depth;
                if (xml.name() == u"br"_s)
                    text += u'\n';
            } else if (xml.isEndElement()) {
                --depth;
            } else if (xml.isCharacters()) {
                text += xml.text();
            }
        }
        return text;
    }
};

inline QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return file.readAll();
}

inline QString dataPathOf(const QString& pagePath)
{
    return pagePath.chopped(4) + u"json"_s;
}

inline QJsonObject readData(const QString& pagePath)
{
    return QJsonDocument::fromJson(bytesOf(dataPathOf(pagePath))).object();
}
