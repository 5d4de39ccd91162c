// SPDX-License-Identifier: GPL-3.0-or-later
// A conversion whose database and data file are substitutes that follow a script, so that a test
// can make any step fail. The driver, the folders, the checks, the log and the messages are real.
#pragma once

#include "carddb/DBCDataBaseController.h"
#include "datafile/DBCFileReader.h"
#include "operation/DBCConverterController.h"
#include "tests/support/RecordingPresenter.h"
#include "tests/support/RecordingReceiver.h"
#include "tests/support/ScopedHost.h"
#include "tests/support/StandardInputKeeper.h"
#include "tests/support/TestHome.h"

#include <QFile>
#include <QRegularExpression>

#include <functional>

using namespace Qt::StringLiterals;

// Says how the substitutes behave. Every function may be empty, and index counts from 0.
struct ConversionScript {
    bool opens = true;
    std::vector<DBCRecord> records; // import: the data file's records; export: the cards
    std::optional<DBCError> loadError; // the reader returns it together with the records
    bool fetchesNothing = false; // the fetch returns neither cards nor an error
    std::optional<DBCError> fetchError;
    QString backupPath; // if empty, the database has no backup path after a backup
    DBCResultCode backupResult = DBCResultCode::Success;
    bool isBackupCancelled = false;
    DBCResultCode restoreResult = DBCResultCode::Success;
    DBCResultCode saveResult = DBCResultCode::Success;

    std::function<void()> onOpen;
    std::function<void()> onBackup;
    std::function<void()> onLoad;
    std::function<DBCError(int index)> onAdd;
    std::function<std::optional<DBCRecord>(int index, const DBCRecord& card, DBCError* error)>
        onExport;

    QStringList calls; // the calls that the driver made, in order
    int handled = 0; // records added or cards exported
};

// A database controller that has not locked its package closes descriptor 0 when it is destroyed.
// The base class StandardInputKeeper restores that descriptor afterwards.
class ScriptedDataBase : private StandardInputKeeper, public DBCDataBaseController {
public:
    explicit ScriptedDataBase(ConversionScript& script)
        : _script(script)
    {
    }
    ~ScriptedDataBase() override { _script.calls << u"close"_s; }

    DBCResultCode backup() override
    {
        _script.calls << u"backup"_s;
        if (_script.onBackup)
            _script.onBackup();
        setBackupDBPath(_script.backupPath);
        return _script.backupResult;
    }
    bool isBackupCancelled() const override { return _script.isBackupCancelled; }
    DBCResultCode restore() override
    {
        _script.calls << u"restore"_s;
        return _script.restoreResult;
    }
    DBCResultCode save() override
    {
        _script.calls << u"save"_s;
        return _script.saveResult;
    }
    bool addDataToDataBase(const DBCRecord& record, const QString&, DBCError* errors) override
    {
        _script.calls << u"add "_s + record.textOrEmpty(DBCRecordKey::full_Name);
        const int index = _script.handled++;
        *errors = _script.onAdd ? _script.onAdd(index) : DBCError();
        return !*errors;
    }
    std::optional<std::vector<DBCRecord>> fetchCardDatas(DBCError* errors) override
    {
        _script.calls << u"fetch"_s;
        if (_script.fetchError)
            *errors = *_script.fetchError;
        if (_script.fetchesNothing)
            return {};
        return _script.records;
    }
    std::optional<DBCRecord> exportData(
        const DBCRecord& record, const QString&, DBCError* errors) override
    {
        _script.calls << u"export "_s + record.textOrEmpty(DBCRecordKey::full_Name);
        const int index = _script.handled++;
        return _script.onExport ? _script.onExport(index, record, errors) : record;
    }

private:
    ConversionScript& _script;
};

class ScriptedReader : public DBCFileReader {
public:
    explicit ScriptedReader(ConversionScript& script)
        : _script(script)
    {
    }
    ~ScriptedReader() override { _script.calls << u"release reader"_s; }
    std::optional<std::vector<DBCRecord>> loadData(DBCError* error) override
    {
        _script.calls << u"load"_s;
        if (_script.onLoad)
            _script.onLoad();
        if (_script.loadError)
            *error = *_script.loadError;
        return _script.records;
    }

private:
    ConversionScript& _script;
};

struct ScriptedConversion {
    explicit ScriptedConversion(OperationType type)
    {
        const bool isImport = type == OperationType::Import;
        const QString chosen = home.makeFolder(u"interchange"_s);
        package = home.makeFolder(u"Velmora DB.vmdb"_s);
        controller = DBCConverterController::initWith(chosen, package, type);
        folder = isImport ? chosen : chosen + u'/' + u"cards"_s;
        controller->setFullPathFolder(folder);
        controller->setWindowController(&receiver);
        controller->setFactories(factories());
        if (isImport)
            writeVersion(u"ACME\tV1.0L10\r\n"_s);
        else
            home.makeFolder(u"interchange/cards"_s);
    }

    // Replaces the program "du", which measures files and folders, by a shell script. The script
    // gets the path as its third argument.
    void measuresBy(const QByteArray& shellCommands)
    {
        const QString program = home.writeFile(u"du"_s, "#!/bin/sh\n" + shellCommands + '\n');
        if (!QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner))
            qFatal("cannot make the measuring script executable");
        host->diskUsageProgram = program;
    }

    DBCConversionFactories factories()
    {
        return {
            .openDatabase = [this](const QString& path) -> std::unique_ptr<DBCDataBaseController> {
                script.calls << u"open "_s + QFileInfo(path).fileName();
                if (script.onOpen)
                    script.onOpen();
                if (!script.opens)
                    return nullptr;
                return std::make_unique<ScriptedDataBase>(script);
            },
            .createReader = [this](const QString&) -> std::unique_ptr<DBCFileReader> {
                if (!readerCanBeMade)
                    return nullptr;
                return std::make_unique<ScriptedReader>(script);
            },
        };
    }

    // Adds a record for each name. Every other column is an empty text.
    void hasCards(const QStringList& names)
    {
        for (const QString& name : names) {
            DBCRecord record;
            for (std::size_t key = 0; key < columnCount; ++key)
                record.setValue(static_cast<DBCRecordKey>(key), QString());
            record.setValue(DBCRecordKey::full_Name, name);
            script.records.push_back(record);
        }
    }

    void writeVersion(const QString& text)
    {
        QByteArray bytes("\xff\xfe", 2);
        for (const QChar unit : text) {
            bytes += static_cast<char>(unit.unicode() & 0xff);
            bytes += static_cast<char>(unit.unicode() >> 8);
        }
        home.writeFile(u"interchange/Version.txt"_s, bytes);
    }

    // Creates the backup that the substitute database only claims to have made.
    void makesBackup()
    {
        script.backupPath = home.makeFolder(u"Velmora DB_bak.vmdb"_s);
        home.writeFile(u"Velmora DB_bak.vmdb/Velmora.sqldb"_s, "copy");
    }
    bool hasBackup() const { return QFile::exists(home.path(u"Velmora DB_bak.vmdb"_s)); }

    void cancelWhen(const QString& event)
    {
        receiver.onEvent = [this, event](const DBCEvent& received) {
            if (RecordingReceiver::describe(received) == event)
                controller->setConfirmCancelOperation(true);
        };
    }

    // Returns the lines of the log without date, time and program: "[Info] text".
    QStringList log() const
    {
        static const QRegularExpression head(u"^\\S+ \\S+ VelmoraConverter "_s);
        QStringList lines = home.logText().split(u'\n', Qt::SkipEmptyParts);
        return lines.replaceInStrings(head, QString());
    }

    static constexpr std::size_t columnCount = 21;

    TestHome home;
    ScopedHost host;
    RecordingPresenter presenter;
    RecordingReceiver receiver;
    ConversionScript script;
    bool readerCanBeMade = true;
    QString folder; // the interchange folder, also for an export
    QString package;
    std::unique_ptr<DBCConverterController> controller;
};

// Returns short texts that replace those of the strings table, so that tests can contain whole log
// lines.
inline QHash<QString, std::optional<QString>> shortTexts()
{
    const auto key = [](const char* text) { return QString::fromLatin1(text); };
    return {
        {key("IDS_LBL_IMPORT"), key("IMPORT")},
        {key("IDS_LBL_EXPORT"), key("EXPORT")},
        {key("IDS_LBL_BACKUP"), key("BACKUP")},
        {key("IDS_LBL_RESTORE"), key("RESTORE")},
        {key("IDS_LOG_INF_START"), key("begin %1%2")},
        {key("IDS_LOG_INF_END"), key("end %1")},
        {key("IDS_LOG_INF_VMDB_BACKUP_FILE_NAME"), key("backup at %1")},
        {key("IDS_LOG_INF_END_WITH_INFO_IMPORT"), key("end %1|%2|%L3|%L4")},
        {key("IDS_LOG_INF_END_WITH_INFO_EXPORT"), key("end %1|%2|%L3|%L4")},
        {key("IDS_LOG_INF_EXISTS_WRN_OR_ERR"), key("SEE LOG")},
        {key("IDS_LOG_INF_CANCEL_OPERATION"), key("cancelled")},
        {key("IDS_LOG_ERR_DATA_FILE_WRITE_FAILURE"), key("row not written")},
        {key("IDS_MSG_ERR_0102"), key("message 102")},
        {key("IDS_MSG_ERR_0103"), key("message 103")},
        {key("IDS_MSG_ERR_0206"), key("message 206")},
        {key("IDS_MSG_ERR_0207"), key("message 207")},
        {key("IDS_MSG_ERR_0208"), key("message 208")},
        {key("IDS_MSG_ERR_0209"), key("message 209")},
        {DBCMessage::keyOf(DBCQuestionId::CancelExport), key("stop exporting?")},
        {key("IDS_MSG_ERR_0301"), key("message 301")},
        {key("IDS_MSG_ERR_0306"), key("message 306")},
        {key("IDS_MSG_ERR_0307"), key("message 307 line %1")},
        {key("IDS_MSG_ERR_0310"), key("message 310")},
        {key("IDS_MSG_ERR_0311"), key("message 311 %1%2")},
        {key("IDS_MSG_ERR_0313"), key("message 313")},
        {key("IDS_MSG_ERR_0314"), key("message 314")},
        {DBCMessage::keyOf(DBCQuestionId::CancelImport), key("stop importing?")},
        {key("IDS_MSG_ERR_0316"), key("message 316")},
    };
}
