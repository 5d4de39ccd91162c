// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/DBCJsonReporter.h"

#include "cli/DBCTerminal.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace {

QString key(const char* name)
{
    return QString::fromLatin1(name);
}

template <typename Value>
void insertIfSet(QJsonObject& object, const char* name, const std::optional<Value>& value)
{
    if (value)
        object.insert(key(name), *value);
}

// QJsonDocument escapes only the control characters below U+0020. DBCTerminal escapes the others,
// which is correct here: they occur only inside texts, where JSON knows the same escapes.
void writeObject(const QString& name, const QJsonObject& members)
{
    const QJsonDocument document(QJsonObject {{name, members}});
    DBCTerminal::writeLine(stdout, QString::fromUtf8(document.toJson(QJsonDocument::Compact)));
}

QJsonValue orNull(const QString& text)
{
    return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}

} // namespace

void DBCJsonReporter::event(const DBCEvent& event)
{
    QJsonObject values;
    insertIfSet(values, DBCEventOperationIsOk, event.operationIsOk);
    insertIfSet(values, DBCEventMaxCount, event.maxCount);
    insertIfSet(values, DBCEventFinishedCount, event.finishedCount);
    insertIfSet(values, DBCEventConfirmCancelResult, event.confirmCancelResult);
    writeObject(event.publicName(), values);
}

void DBCJsonReporter::message(std::optional<quint32> number, const QString& text)
{
    QJsonObject values {{key("text"), text}};
    values.insert(key("number"), number ? QJsonValue(qint64 {*number}) : QJsonValue());
    writeObject(key("message"), values);
}

void DBCJsonReporter::answered(const DBCQuestion& question, DBCAnswer answer)
{
    writeObject(key("question"),
        {{key("key"), question.key}, {key("text"), question.text},
            {key("answer"), key(answer == DBCAnswer::Default ? "yes" : "no")}});
}

void DBCJsonReporter::logged(DBCLogType type, const QString& text)
{
    writeObject(key(type == DBCLogType::Warning ? "warning" : "error"), {{key("text"), text}});
}

void DBCJsonReporter::problem(const DBCProblem& problem)
{
    QJsonObject values {{key("text"), problem.text}, {key("path"), orNull(problem.path)}};
    values.insert(key("line"), problem.lineNo ? QJsonValue(*problem.lineNo) : QJsonValue());
    writeObject(key("problem"), values);
}

void DBCJsonReporter::backups(const std::vector<DBCBackup>& backups)
{
    for (const DBCBackup& backup : backups) {
        const auto orNone = [](const auto& number) {
            return number ? QJsonValue(static_cast<qint64>(*number)) : QJsonValue();
        };
        writeObject(key("backup"),
            {{key("name"), backup.name()}, {key("path"), backup.path},
                {key("date"), backup.madeAt.toUTC().toString(Qt::ISODate)},
                {key("bytes"), orNone(backup.bytes)}, {key("cards"), orNone(backup.cardCount)},
                {key("damage"), orNull(backup.damage)}});
    }
}

void DBCJsonReporter::verifying(qint64 finishedCount, qint64 maxCount)
{
    writeObject(key("progress"),
        {{key(DBCEventMaxCount), maxCount}, {key(DBCEventFinishedCount), finishedCount}});
}

void DBCJsonReporter::result(const DBCCommandResult& result)
{
    QJsonObject values {
        {key("ok"), result.isOk()},
        {key("code"), toNumber(result.code)},
        {key("cancelled"), result.exitCode == DBCExitCode::Cancelled},
        {key("max"), result.maxCount},
        {key("finished"), result.finishedCount},
        {key("warnings"), qint64 {result.warningCount}},
        {key("errors"), qint64 {result.errorCount}},
        {key("backup"), orNull(result.backupPath)},
        {key("report"), orNull(result.reportPath)},
    };
    insertIfSet(values, "problems", result.problemCount);
    if (result.bytesNeeded)
        values.insert(key("bytesNeeded"), static_cast<qint64>(*result.bytesNeeded));
    writeObject(key("result"), values);
}
