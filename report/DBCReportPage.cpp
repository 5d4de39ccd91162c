// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/DBCReportPage.h"

#include "datafile/helpers/DBCLocalizable.h"
#include "report/DBCReportTexts.h"
#include "text/DBCControlCharacters.h"

#include <QFile>
#include <QUrl>
#include <QXmlStreamWriter>

using namespace Qt::StringLiterals;

namespace {

QString languageCode()
{
    return DBCLocalizable::locale().bcp47Name().section(u'-', 0, 0);
}

QString styleSheet()
{
    QFile file(u":/velmora/report.css"_s);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// Makes a text fit for XML. Names of files and of cards may hold unpaired surrogates, U+FFFE and
// U+FFFF, and a page with one of them would not open.
QString showable(const QString& value)
{
    QString shown = QString::fromUtf8(escapedControls(value).toUtf8());
    for (const char16_t none : {u'\ufffe', u'\uffff'})
        shown.replace(QChar(none), QChar(QChar::ReplacementCharacter));
    return shown;
}

QStringList linesOf(QString value)
{
    return value.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').split(u'\n');
}

class Page {
public:
    Page(const DBCRunReport& report, const QString& dataName)
        : _report(report)
        , _dataName(dataName)
        , _xml(&_bytes)
    {
    }

    QByteArray write()
    {
        _xml.writeDTD(u"<!DOCTYPE html>"_s);
        open("html");
        attribute("xmlns", u"http://www.w3.org/1999/xhtml"_s);
        attribute("lang", languageCode());
        writeHead();
        open("body");
        attribute("class", DBCReportTexts::endName(_report.end));
        open("main");
        writeTitle();
        writeFigures();
        writeMessages();
        writeCards();
        writeOthers();
        writePaths();
        writeFoot();
        _xml.writeEndDocument();
        return _xml.hasError() ? QByteArray() : _bytes;
    }

private:
    bool isImport() const { return _report.operation == OperationType::Import; }

    void open(const char* element) { _xml.writeStartElement(QString::fromLatin1(element)); }
    void close() { _xml.writeEndElement(); }
    void attribute(const char* name, const QString& value)
    {
        _xml.writeAttribute(QString::fromLatin1(name), value);
    }
    void attribute(const char* name, const char* value)
    {
        attribute(name, QString::fromLatin1(value));
    }
    void characters(const QString& value)
    {
        bool isFirst = true;
        for (const QString& line : linesOf(value)) {
            if (!std::exchange(isFirst, false))
                _xml.writeEmptyElement(u"br"_s);
            _xml.writeCharacters(showable(line));
        }
    }
    void element(const char* name, const QString& value, const char* styleClass = nullptr)
    {
        open(name);
        if (styleClass)
            attribute("class", styleClass);
        characters(value);
        close();
    }
    void meta(const char* name, const char* value, const QString& content)
    {
        _xml.writeEmptyElement(u"meta"_s);
        attribute(name, value);
        attribute("content", content);
    }

    void writeHead()
    {
        open("head");
        _xml.writeEmptyElement(u"meta"_s);
        attribute("charset", "utf-8");
        meta("http-equiv", "Content-Security-Policy",
            u"default-src 'none'; style-src 'unsafe-inline'"_s);
        meta("name", "viewport", u"width=device-width, initial-scale=1"_s);
        element("title",
            DBCReportTexts::title(_report) + u" - "_s + getLocalString("IDS_TITLE_WINDOW"));
        open("style");
        _xml.writeCharacters(styleSheet());
        close();
        close();
    }

    void writeTitle()
    {
        open("header");
        element("h1", DBCReportTexts::title(_report));
        element("p", DBCReportTexts::explanation(_report));
        close();
    }

    void figure(const QString& value, const char* labelKey)
    {
        open("div");
        element("dt", getLocalString(labelKey));
        element("dd", value);
        close();
    }

    // After a failure or a cancel the cards are only called "handled", since the import was undone.
    const char* countLabelKey() const
    {
        const bool isDone
            = _report.end == DBCRunEnd::Done || _report.end == DBCRunEnd::DoneWithWarnings;
        if (!isDone)
            return "IDS_REPORT_CARDS_HANDLED";
        return isImport() ? "IDS_REPORT_CARDS_IMPORTED" : "IDS_REPORT_CARDS_EXPORTED";
    }

    void writeFigures()
    {
        open("dl");
        attribute("class", "figures");
        figure(getLocalString("IDS_REPORT_COUNT", {_report.finishedCount, _report.maxCount}),
            countLabelKey());
        figure(getLocalString("IDS_REPORT_NUMBER_OF_CARDS", {_report.concernedCardCount}),
            "IDS_REPORT_CARDS_CONCERNED");
        figure(DBCReportTexts::timeTaken(_report), "IDS_REPORT_TIME");
        close();
    }

    void writeMessages()
    {
        if (_report.messages.empty())
            return;
        open("section");
        element("h2", getLocalString("IDS_REPORT_REASON"));
        for (const DBCLogEntry& message : _report.messages) {
            open("p");
            attribute("class", "reason");
            characters(message.text + u' ');
            element("small",
                getLocalString("IDS_REPORT_MESSAGE_NUMBER",
                    {qint64 {message.origin.messageNumber.value_or(0)}}));
            close();
        }
        close();
    }

    void writeCards()
    {
        open("section");
        element("h2", getLocalString("IDS_REPORT_CARDS_CONCERNED"));
        if (_report.cards.empty()) {
            element("p", getLocalString("IDS_REPORT_NOTHING"));
        } else {
            open("table");
            writeColumns();
            for (const DBCReportedCard& card : _report.cards)
                writeCard(card);
            close();
        }
        if (_report.leftOutCount != 0)
            element("p", getLocalString("IDS_REPORT_LEFT_OUT", {_report.leftOutCount}), "leftOut");
        close();
    }

    void writeColumns()
    {
        open("thead");
        open("tr");
        for (const char* const key : {isImport() ? "IDS_REPORT_LINE" : "IDS_REPORT_NUMBER",
                 "IDS_REPORT_NAME", "IDS_REPORT_WRONG", "IDS_REPORT_FATE"}) {
            open("th");
            attribute("scope", "col");
            characters(getLocalString(key));
            close();
        }
        close();
        close();
    }

    void writeCard(const DBCReportedCard& card)
    {
        open("tbody");
        for (const DBCLogEntry& problem : card.problems) {
            open("tr");
            if (&problem == &card.problems.front()) {
                sharedCell("td", "number", card, QString::number(card.number));
                sharedCell("th", "name", card,
                    card.name.isEmpty() ? getLocalString("IDS_REPORT_NO_NAME") : card.name);
            }
            writeProblem("td", problem);
            element("td", DBCReportTexts::fate(_report, problem), "fate");
            close();
        }
        close();
    }

    // A cell that all rows of a card share.
    void sharedCell(
        const char* name, const char* styleClass, const DBCReportedCard& card, const QString& value)
    {
        open(name);
        attribute("class", styleClass);
        attribute("rowspan", QString::number(card.problems.size()));
        attribute("dir", "auto");
        characters(value);
        close();
    }

    void writeProblem(const char* name, const DBCLogEntry& problem)
    {
        const bool isWarning = problem.type == DBCLogType::Warning;
        open(name);
        element("span", getLocalString(isWarning ? "IDS_REPORT_WARNING" : "IDS_REPORT_ERROR"),
            isWarning ? "warning" : "error");
        characters(u' ' + problem.text);
        close();
    }

    void writeOthers()
    {
        if (_report.others.empty())
            return;
        open("section");
        element("h2", getLocalString("IDS_REPORT_OTHERS"));
        open("ul");
        for (const DBCLogEntry& entry : _report.others)
            writeProblem("li", entry);
        close();
        close();
    }

    void path(const char* labelKey, const QString& path)
    {
        if (path.isEmpty())
            return;
        element("dt", getLocalString(labelKey));
        element("dd", path, "path");
    }

    void writePaths()
    {
        const QLocale locale = DBCLocalizable::locale();
        open("section");
        element("h2", getLocalString("IDS_REPORT_ASKED"));
        open("dl");
        attribute("class", "paths");
        element("dt", getLocalString("IDS_REPORT_STARTED"));
        element("dd",
            locale.toString(_report.started.date(), QLocale::LongFormat) + u' '
                + locale.toString(_report.started.time(), QLocale::ShortFormat));
        path(isImport() ? "IDS_REPORT_FROM" : "IDS_REPORT_TO", _report.folder);
        path(isImport() ? "IDS_REPORT_INTO" : "IDS_REPORT_OUT_OF", _report.package);
        path("IDS_REPORT_BACKUP", _report.backupPath);
        path("IDS_REPORT_LOG", _report.logPath);
        close();
        close();
    }

    void writeFoot()
    {
        open("footer");
        open("p");
        characters(getLocalString("IDS_REPORT_DATA") + u' ');
        open("a");
        attribute("href", QString::fromLatin1(QUrl::toPercentEncoding(_dataName)));
        characters(_dataName);
        close();
        close();
        element("p",
            getLocalString(
                "IDS_REPORT_KEPT", {QStringLiteral(VELMORA_VERSION), qint64 {DBCMostReports}}));
        close();
    }

    const DBCRunReport& _report;
    QString _dataName;
    QByteArray _bytes;
    QXmlStreamWriter _xml;
};

} // namespace

QByteArray reportPage(const DBCRunReport& report, const QString& dataName)
{
    return Page(report, dataName).write();
}
