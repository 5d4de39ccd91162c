// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/store/DBCManagedObjectContext.h"

#include "carddb/store/DBCCardAttributes.h"
#include "carddb/store/DBCCardRow.h"
#include "carddb/store/DBCStoreConnection.h"
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

// The beginning of a new object's identity URI; a UUID and a number follow.
constexpr const char16_t* identityStart = u"x-coredata:///Card/t";

// The number of attributes that an import sets. Reserving room for so many keeps the list of values
// from growing to twice its size.
constexpr std::size_t usualAttributeCount = 36;

constexpr int keyParameter = 1;
constexpr int entityParameter = 2;
constexpr int firstAttributeParameter = 3;
// The column of the first attribute in the rows that are read back; the columns of key and entity
// come before it.
constexpr int firstAttributeColumn = 2;

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
    // Check this first, because opening a pipe would wait forever.
    if (!QFileInfo(storePath).isFile())
        return nullptr;
    try {
        std::unique_ptr<DBCManagedObjectContext> context(
            new DBCManagedObjectContext(openStoreOfOthers(storePath), model));
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

// If another program left a write-ahead log, SQLite would move its contents into the store's file
// when the last connection closes. This prevents that until save() has stored something.
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
    // With a weaker setting, the deletion of SQLite's journal may not be on the disk yet after the
    // commit. A power cut would then bring the journal back, and SQLite would roll the commit back.
    _store->exec("PRAGMA synchronous = EXTRA");
    const DBCStoppableStore stoppable(*_store);
    SQLite::Transaction transaction(*_store, SQLite::TransactionBehavior::IMMEDIATE);
    const qint64 keyBefore = highestKey(*_store);
    const qint64 lastKey = storeInsertedCards(keyBefore);
    setHighestKey(*_store, lastKey);
    checkInsertedCards(keyBefore, lastKey);
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

// Every card is checked, because triggers of the store may have changed or dropped any of them.
void DBCManagedObjectContext::checkInsertedCards(qint64 keyBefore, qint64 lastKey)
{
    SQLite::Statement rows(*_store,
        "SELECT Z_PK, Z_ENT, " + joined(_model.columns())
            + " FROM ZCARD WHERE Z_PK > ? AND Z_PK <= ? ORDER BY Z_PK");
    rows.bind(1, static_cast<int64_t>(keyBefore));
    rows.bind(2, static_cast<int64_t>(lastKey));
    DBCCardRowComparison comparison(firstAttributeColumn);
    qint64 key = keyBefore;
    for (const Card& card : _insertedCards) {
        const bool isThere = rows.executeStep() && rows.getColumn(0).getInt64() == ++key
            && rows.getColumn(1).getInt64() == _description.entityNumber;
        if (!isThere || !comparison.isEqual(rows, card))
            throw SQLite::Exception("the store did not keep the new cards as they are");
    }
    if (highestKey(*_store) != lastKey)
        throw SQLite::Exception("the store did not keep the key of the last card");
}

std::string DBCManagedObjectContext::insertStatement() const
{
    std::vector<std::string> values;
    int parameter = firstAttributeParameter;
    for (std::size_t i = 0; i < DBCCardAttributes.size(); ++i) {
        // A value that was set is never NULL, so a NULL parameter means "not set". So one statement
        // serves every card: where the parameter is NULL, it stores the table's default, or 0 for a
        // number without a default.
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
    const DBCStoppableStore stoppable(*_store);
    const std::string live = selection == DBCCardSelection::Live ? " WHERE ZDELETEDFLAG = 0" : "";
    SQLite::Statement rows(*_store,
        "SELECT " + joined(_model.columns()) + " FROM ZCARD" + live + " ORDER BY ZACCEPT_DATE");
    while (rows.executeStep()) {
        if (!visit(readCardRow(rows)))
            return;
    }
}
