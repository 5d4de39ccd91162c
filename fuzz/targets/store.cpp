// SPDX-License-Identifier: GPL-3.0-or-later
// Opens a card store of any bytes, reads its cards and adds one.
#include "carddb/store/DBCCardAttributes.h"
#include "carddb/store/DBCManagedObjectContext.h"
#include "fuzz/FuzzTarget.h"

#include <SQLiteCpp/Exception.h>

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

const DBCManagedObjectModel& model()
{
    static const DBCManagedObjectModel theModel;
    return theModel;
}

bool fitsKind(const DBCValue& value, DBCAttributeKind kind)
{
    switch (kind) {
    case DBCAttributeKind::Text:
        return std::holds_alternative<QString>(value);
    case DBCAttributeKind::Number:
        return std::holds_alternative<qint64>(value);
    case DBCAttributeKind::Date:
        return std::holds_alternative<QDateTime>(value);
    }
    return false;
}

// Returns the number of cards, or std::nullopt if the store cannot be read completely.
std::optional<qint64> fetch(DBCManagedObjectContext* context, DBCCardSelection selection)
{
    qint64 count = 0;
    try {
        context->fetchCards(selection, [&count](const Card& card) {
            ++count;
            for (const DBCCardAttribute& attribute : DBCCardAttributes) {
                const DBCValue* value = card.value(attribute.key);
                mustHold(!value || fitsKind(*value, attribute.kind),
                    "a value is of its attribute's kind");
            }
            return true;
        });
    } catch (const SQLite::Exception&) {
        return std::nullopt;
    }
    return count;
}

// Adds a card and saves it. Returns false if the card cannot be saved.
bool insert(DBCManagedObjectContext* context)
{
    Card* const card = context->insertNewCard();
    card->setValue(DBCRecordKey::full_Name, u"\u5C71\u7530\u3000\u592A\u90CE"_s);
    card->setValue(DBCRecordKey::deletedFlag, qint64(0));
    card->setValue(DBCRecordKey::accept_Date, QDateTime::fromMSecsSinceEpoch(1'700'000'000'000));
    try {
        context->save();
        return true;
    } catch (const SQLite::Exception&) {
        return false;
    }
}

void removeCompanions(const FuzzFile& file)
{
    for (const char* ending : {"-journal", "-wal", "-shm"})
        QFile::remove(file.path() + QLatin1StringView(ending));
}

void judgeInsert(const FuzzFile& file, const QByteArray& before, std::optional<qint64> count)
{
    auto context = DBCManagedObjectContext::open(file.path(), model());
    if (!context)
        return;
    const bool isSaved = insert(context.get());
    const auto after = fetch(context.get(), DBCCardSelection::All);
    context.reset();
    if (!isSaved)
        mustHold(file.read() == before, "a save that fails leaves the store as it was");
    // The input may be a store with triggers, which add or remove any number of cards.
    else if (count && after && !before.toUpper().contains("TRIGGER"))
        mustHold(*after == *count + 1, "a save adds one card");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const FuzzFile file("Velmora.sqldb");
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    file.write(bytes);
    auto context = DBCManagedObjectContext::open(file.path(), model());
    if (context) {
        const auto all = fetch(context.get(), DBCCardSelection::All);
        const auto live = fetch(context.get(), DBCCardSelection::Live);
        mustHold(!all || !live || *live <= *all, "live cards are among all");
        context->insertNewCard();
        context.reset();
        mustHold(file.read() == bytes, "a store that is not saved stays as it was");
        judgeInsert(file, bytes, all);
    }
    removeCompanions(file);
    return 0;
}
