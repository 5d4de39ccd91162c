// SPDX-License-Identifier: GPL-3.0-or-later
// An open card store: reads its cards, and collects new ones that save() writes in one transaction.
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

enum class DBCCardSelection : quint8 {
    Live, // cards whose deletedFlag is 0
    All, // deleted cards, too
};

// A context that is destroyed without save() leaves the store's file unchanged byte for byte, even
// where another program left a write-ahead log beside it. If the program is killed during save(),
// the store holds either all of the new cards or none. An access waits up to one second for another
// process that has locked the store, and then fails. A context belongs to one thread at a time.
class DBCManagedObjectContext {
public:
    // Opens the store at storePath and logs why when it cannot. Null when the path is no regular
    // file, when the file is no store or cannot be read, or when a table or column that the model
    // needs is missing. Never creates a store. The model must outlive the context.
    static std::unique_ptr<DBCManagedObjectContext> open(
        const QString& storePath, const DBCManagedObjectModel& model);
    ~DBCManagedObjectContext();
    DBCManagedObjectContext(const DBCManagedObjectContext&) = delete;
    DBCManagedObjectContext& operator=(const DBCManagedObjectContext&) = delete;

    // A new card with an identity. The context owns it, and the pointer is valid until the next
    // save that succeeds.
    Card* insertNewCard();

    // The prefix that the identities of all new cards of this context share; a number follows. It
    // is different for every context.
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
    // Returns the key of the last card stored.
    qint64 storeInsertedCards(qint64 lastKey);
    // Throws when the rows with the keys after keyBefore, up to lastKey, are not the inserted
    // cards.
    void checkInsertedCards(qint64 keyBefore, qint64 lastKey);

    std::unique_ptr<SQLite::Database> _store;
    const DBCManagedObjectModel& _model;
    DBCStoreDescription _description;
    QString _identityPrefix;
    quint64 _insertedCount = 0; // since the store was opened, saved cards included
    std::deque<Card> _insertedCards; // a deque: the pointers handed out stay valid
};
