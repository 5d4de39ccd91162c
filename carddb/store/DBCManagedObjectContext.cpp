// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/store/DBCManagedObjectContext.h"

#include "carddb/store/DBCCardAttributes.h"
#include "carddb/store/DBCCardRow.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "operation/log/DBCLog.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <sqlite3.h>

#include <QFile>
#include <QFileInfo>
#include <QUuid>

#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// How long an access waits for another process that holds the store before it fails.
constexpr int busyTimeoutMs = 1000;

// The beginning of a new object's identity URI; a UUID and a number follow.
constexpr const char16_t* identityStart = u"x-coredata:///Card/t";

// As many attributes as an import sets. Reserving this much keeps the list of values from growing
// to twice its size.
constexpr std::size_t usualAttributeCount = 36;

constexpr int keyParameter = 1;
constexpr int entityParameter = 2;
constexpr int firstAttributeParameter = 3;

std::string joined(const std::vector<std::string>& parts)
{
    std::string result;
    for (const std::string& part : parts)
        result += result.empty() ? part : ", " + part;
    return result;
}

qint64 highestKey(SQLite::Database& store)
{
    SQLite::Statement statement(store, "SELECT Z_MAX FROM Z_PRIMARYKEY WHERE Z_NAME = ?");
    statement.bind(1, DBCManagedObjectModel::entityName);
    if (!statement.executeStep())
        throw SQLite::Exception("The store has lost its entity");
    return statement.getColumn(0).getInt64();
}

qint64 keyAfter(qint64 key)
{
    if (key == std::numeric_limits<qint64>::max())
        throw SQLite::Exception("The store has no keys left");
    return key + 1;
}

void setHighestKey(SQLite::Database& store, qint64 key)
{
    SQLite::Statement statement(store, "UPDATE Z_PRIMARYKEY SET Z_MAX = ? WHERE Z_NAME = ?");
    statement.bind(1, static_cast<int64_t>(key));
    statement.bind(2, DBCManagedObjectModel::entityName);
    statement.exec();
}

} // namespace

std::unique_ptr<DBCManagedObjectContext> DBCManagedObjectContext::open(
    const QString& storePath, const DBCManagedObjectModel& model)
{
    // Opening a pipe would wait forever.
    if (!QFileInfo(storePath).isFile())
        return nullptr;
    try {
        auto store = std::make_unique<SQLite::Database>(
            QFile::encodeName(storePath).toStdString(), SQLite::OPEN_READWRITE, busyTimeoutMs);
        std::unique_ptr<DBCManagedObjectContext> context(
            new DBCManagedObjectContext(std::move(store), model));
        context->distrustSchema();
        context->keepForeignLog(storePath);
        context->_description = model.describe(*context->_store);
        if (context->_description.missing.isEmpty())
            return context;
        const QString missing = context->_description.missing.join(u", "_s);
        DBCLog::error(getLocalString(u"IDS_LOG_ERR_STORE_MODEL"_s, {storePath, missing}));
    } catch (const SQLite::Exception& exception) {
        DBCLog::error(getLocalString(
            u"IDS_LOG_ERR_STORE_OPEN"_s, {storePath, QString::fromLocal8Bit(exception.what())}));
    }
    return nullptr;
}

DBCManagedObjectContext::DBCManagedObjectContext(
    std::unique_ptr<SQLite::Database> store, const DBCManagedObjectModel& model)
    : _store(std::move(store))
    , _model(model)
    , _identityPrefix(QString::fromUtf16(identityStart)
          + QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper())
{
}

DBCManagedObjectContext::~DBCManagedObjectContext() = default;

// A store may come from an untrusted source, so its schema must not call functions with side
// effects, and views are switched off.
void DBCManagedObjectContext::distrustSchema()
{
    sqlite3_db_config(_store->getHandle(), SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(_store->getHandle(), SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
}

// If another program left a write-ahead log, closing the last connection would move its contents
// into the store's file. This prevents that until something is saved here.
void DBCManagedObjectContext::keepForeignLog(const QString& storePath)
{
    if (QFileInfo(storePath + u"-wal"_s).size() > 0)
        sqlite3_db_config(_store->getHandle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
}

Card* DBCManagedObjectContext::insertNewCard()
{
    ++_insertedCount;
    Card& card = _insertedCards.emplace_back(_identityPrefix + QString::number(_insertedCount));
    card.reserve(usualAttributeCount);
    return &card;
}

void DBCManagedObjectContext::save()
{
    if (_insertedCards.empty())
        return;
    // With a weaker setting, the deletion of the journal may not be on the disk yet after the
    // commit. A power cut would then bring the journal back, and SQLite would roll the commit back.
    _store->exec("PRAGMA synchronous = EXTRA");
    SQLite::Transaction transaction(*_store, SQLite::TransactionBehavior::IMMEDIATE);
    setHighestKey(*_store, storeInsertedCards(highestKey(*_store)));
    transaction.commit();

    _insertedCards.clear();
    sqlite3_db_config(_store->getHandle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
}

qint64 DBCManagedObjectContext::storeInsertedCards(qint64 lastKey)
{
    SQLite::Statement insert(*_store, insertStatement());
    DBCCardRowBinder attributes(insert, firstAttributeParameter);
    for (const Card& card : _insertedCards) {
        lastKey = keyAfter(lastKey);
        insert.bind(keyParameter, static_cast<int64_t>(lastKey));
        insert.bind(entityParameter, static_cast<int64_t>(_description.entityNumber));
        attributes.bind(card);
        insert.exec();
        insert.reset();
        insert.clearBindings();
    }
    return lastKey;
}

std::string DBCManagedObjectContext::insertStatement() const
{
    std::vector<std::string> values;
    int parameter = firstAttributeParameter;
    for (std::size_t i = 0; i < DBCCardAttributes.size(); ++i) {
        // A value that was set is never NULL, so NULL means "not set". That lets one statement
        // serve every card: for NULL it uses the table's default, and 0 for a number without a
        // default.
        std::string value("?");
        value += std::to_string(parameter++);
        const auto ownDefault = _description.columnDefaults.find(_model.columns()[i]);
        if (ownDefault != _description.columnDefaults.end())
            value.insert(0, "coalesce(").append(", (").append(ownDefault->second).append("))");
        if (DBCCardAttributes[i].kind == DBCAttributeKind::Number)
            value.insert(0, "coalesce(").append(", 0)");
        values.push_back(value);
    }
    return "INSERT INTO ZCARD (Z_PK, Z_ENT, Z_OPT, " + joined(_model.columns())
        + ") VALUES (?1, ?2, 1, " + joined(values) + ")";
}

void DBCManagedObjectContext::fetchCards(
    DBCCardSelection selection, const std::function<bool(const Card& card)>& visit)
{
    const std::string live = selection == DBCCardSelection::Live ? " WHERE ZDELETEDFLAG = 0" : "";
    SQLite::Statement rows(*_store,
        "SELECT " + joined(_model.columns()) + " FROM ZCARD" + live + " ORDER BY ZACCEPT_DATE");
    while (rows.executeStep()) {
        if (!visit(readCardRow(rows)))
            return;
    }
}
