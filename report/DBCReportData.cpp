// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/DBCReportData.h"

#include "report/DBCReportTexts.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr double millisecondsPerSecond = 1000.0;

QString key(const char* name)
{
    return QString::fromLatin1(name);
}

QJsonValue orNull(const QString& text)
{
    return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}

QJsonObject entryObject(const DBCLogEntry& entry)
{
    return {
        {key("level"), key(entry.type == DBCLogType::Warning ? "warning" : "error")},
        {key("key"), orNull(entry.origin.key)},
        {key("text"), entry.text},
    };
}

QJsonArray messageArray(const DBCRunReport& report)
{
    QJsonArray array;
    for (const DBCLogEntry& message : report.messages) {
        array.append(
            QJsonObject {{key("number"), qint64 {message.origin.messageNumber.value_or(0)}},
                {key("text"), message.text}});
    }
    return array;
}

QJsonArray otherArray(const DBCRunReport& report)
{
    QJsonArray array;
    for (const DBCLogEntry& entry : report.others)
        array.append(entryObject(entry));
    return array;
}

QJsonArray cardArray(const DBCRunReport& report)
{
    QJsonArray cards;
    for (const DBCReportedCard& card : report.cards) {
        QJsonArray problems;
        for (const DBCLogEntry& entry : card.problems) {
            QJsonObject problem = entryObject(entry);
            problem.insert(
                key("consequence"), DBCReportTexts::consequenceName(entry.origin.consequence));
            problem.insert(key("became"), DBCReportTexts::fate(report, entry));
            problems.append(problem);
        }
        cards.append(QJsonObject {
            {key("number"), card.number}, {key("name"), card.name}, {key("problems"), problems}});
    }
    return cards;
}

} // namespace

QByteArray reportData(const DBCRunReport& report)
{
    const bool isImport = report.operation == OperationType::Import;
    const double seconds = static_cast<double>(report.milliseconds) / millisecondsPerSecond;
    const QJsonObject object {
        {key("program"), key("VelmoraConverter")},
        {key("version"), key(VELMORA_VERSION)},
        {key("operation"), key(isImport ? "import" : "export")},
        {key("folder"), report.folder},
        {key("database"), report.package},
        {key("backup"), orNull(report.backupPath)},
        {key("log"), orNull(report.logPath)},
        {key("end"), DBCReportTexts::endName(report.end)},
        {key("title"), DBCReportTexts::title(report)},
        {key("code"), toNumber(report.code)},
        {key("messages"), messageArray(report)},
        {key("started"),
            report.started.toOffsetFromUtc(report.started.offsetFromUtc()).toString(Qt::ISODate)},
        {key("seconds"), seconds},
        {key("max"), report.maxCount},
        {key("finished"), report.finishedCount},
        {key("warnings"), report.warningCount},
        {key("errors"), report.errorCount},
        {key("concernedCards"), report.concernedCardCount},
        {key("cards"), cardArray(report)},
        {key("others"), otherArray(report)},
        {key("leftOut"), report.leftOutCount},
    };
    return QJsonDocument(object).toJson(QJsonDocument::Indented);
}
