// SPDX-License-Identifier: GPL-3.0-or-later
// The open working set on a card store. New cards wait here and reach the store in one transaction
// when it is saved; a context that is dropped without a save leaves the store's file as it was,
// byte for byte. One thread at a time.
#pragma once

#include "carddb/store/DBCCard.h"
#include "carddb/store/DBCManagedObjectModel.h"

#include <QString>

#include <deque>
#include <functional>
#include <memory>

namespace SQLite {
class Database;
}

enum class DBCCardSelection : quint8 { Live, All };

class DBCManagedObjectContext {
public:
    // Null when there is no regular file at the path, when it is no store or cannot be read, and
    // when it does not fit the model, which must outlive the context. Never creates a store.
    static std::unique_ptr<DBCManagedObjectContext> open(
        const QString& storePath, const DBCManagedObjectModel& model);
    ~DBCManagedObjectContext();
    DBCManagedObjectContext(const DBCManagedObjectContext&) = delete;
    DBCManagedObjectContext& operator=(const DBCManagedObjectContext&) = delete;

    // A new card with an identity, owned by the context and valid until the next save.
    Card* insertNewCard();

    // What the identities of this context's new cards begin with, up to their numbers.
    QString identityPrefix() const { return _identityPrefix; }
    bool hasInsertedCards() const { return !_insertedCards.empty(); }

    // Stores the cards inserted since the last save; nothing is touched when there are none.
    // Throws SQLite::Exception with the store as it was and the cards still waiting. That also
    // happens when the store does not hold the cards as they were set, because a trigger in it
    // dropped or changed them, and when the thread's DBCStopQuestion stopped a trigger that runs
    // for long; the exception's code is SQLITE_INTERRUPT then.
    void save();

    // Hands the cards of the store, not those that wait, to visit in the order of their accept
    // dates, none first, until it answers false. Throws SQLite::Exception; its code is
    // SQLITE_INTERRUPT when the thread's DBCStopQuestion stopped it.
    void fetchCards(DBCCardSelection selection, const std::function<bool(const Card& card)>& visit);

private:
    DBCManagedObjectContext(
        std::unique_ptr<SQLite::Database> store, const DBCManagedObjectModel& model);

    void keepForeignLog(const QString& storePath);
    std::string insertStatement() const;
    // The key of the last card stored.
    qint64 storeInsertedCards(qint64 lastKey);
    // Throws when the rows with the keys after keyBefore, up to lastKey, are not the inserted
    // cards.
    void checkInsertedCards(qint64 keyBefore, qint64 lastKey);

    std::unique_ptr<SQLite::Database> _store;
    const DBCManagedObjectModel& _model;
    DBCStoreDescription _description;
    QString _identityPrefix; // of every card inserted through this context
    quint64 _insertedCount = 0; // since the store was opened
    std::deque<Card> _insertedCards; // a deque: the pointers handed out stay valid
};
