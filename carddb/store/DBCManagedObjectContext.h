// SPDX-License-Identifier: GPL-3.0-or-later
// An open card store. It reads the store's cards and collects new ones, which save() writes in one
// transaction.
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

// If a context is destroyed without save(), the store's file is unchanged byte for byte, even if
// another program left a write-ahead log beside it. If the program is killed during save(), the
// store holds either all of the new cards or none of them. If another process has locked the store,
// an access waits for it up to one second and then fails. Only one thread at a time may use a
// context.
class DBCManagedObjectContext {
public:
    // Opens the store at storePath. Returns null when the path is no regular file, when the file is
    // no store or cannot be read, or when it lacks a table or column that the model needs; except
    // in the first case the reason is in the log. Never creates a store. The model must outlive the
    // context.
    static std::unique_ptr<DBCManagedObjectContext> open(
        const QString& storePath, const DBCManagedObjectModel& model);
    ~DBCManagedObjectContext();
    DBCManagedObjectContext(const DBCManagedObjectContext&) = delete;
    DBCManagedObjectContext& operator=(const DBCManagedObjectContext&) = delete;

    // Returns a new card with an identity. The context owns the card. The pointer is valid until
    // the next save() that succeeds.
    Card* insertNewCard();

    // The prefix of the identities of all new cards of this context; a number follows it. Every
    // context has a different prefix.
    QString identityPrefix() const { return _identityPrefix; }
    bool hasInsertedCards() const { return !_insertedCards.empty(); }

    // Stores the cards inserted since the last successful save(). If there are none, it touches
    // nothing. On a failure it throws SQLite::Exception, leaves the store as it was and keeps the
    // cards for another save(). It also fails in two cases that a trigger in the store causes. One
    // is a trigger that drops or changes new cards. The other is a trigger that runs for so long
    // that the user stops the operation (see DBCStopQuestion); the exception's code is then
    // SQLITE_INTERRUPT.
    void save();

    // Calls visit for each card of the store until visit returns false. Cards that save() has not
    // stored yet are left out. Cards without an accept date come first, the others follow in the
    // order of these dates. Throws SQLite::Exception; its code is SQLITE_INTERRUPT when the user
    // stopped the operation (see DBCStopQuestion).
    void fetchCards(DBCCardSelection selection, const std::function<bool(const Card& card)>& visit);

private:
    DBCManagedObjectContext(
        std::unique_ptr<SQLite::Database> store, const DBCManagedObjectModel& model);

    void keepForeignLog(const QString& storePath);
    std::string insertStatement() const;
    // Returns the key of the last card stored.
    qint64 storeInsertedCards(qint64 lastKey);
    // Throws unless the rows with keys above keyBefore and up to lastKey are exactly the inserted
    // cards.
    void checkInsertedCards(qint64 keyBefore, qint64 lastKey);

    std::unique_ptr<SQLite::Database> _store;
    const DBCManagedObjectModel& _model;
    DBCStoreDescription _description;
    QString _identityPrefix;
    quint64 _insertedCount = 0; // cards inserted since the store was opened, saved ones included
    // A deque, because its elements do not move: callers hold pointers to them.
    std::deque<Card> _insertedCards;
};
