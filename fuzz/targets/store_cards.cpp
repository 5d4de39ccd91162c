// SPDX-License-Identifier: GPL-3.0-or-later
// Saves cards with any texts, numbers and dates into an empty store and fetches them again.
#include "carddb/DBCPackageCreator.h"
#include "carddb/DBCPackageLayout.h"
#include "carddb/store/DBCCardAttributes.h"
#include "carddb/store/DBCManagedObjectContext.h"
#include "fuzz/FuzzTarget.h"

#include <QFile>

#include <vector>

namespace {

const DBCManagedObjectModel& model()
{
    static const DBCManagedObjectModel theModel;
    return theModel;
}

QByteArray emptyStore()
{
    const QString package = FuzzFile("Empty.vmdb").path();
    mustHold(DBCPackageCreator::create(package).outcome == DBCPackageCreator::Outcome::Created,
        "an empty package can be made");
    QFile file(DBCPackageLayout::storeFile(package));
    mustHold(file.open(QIODevice::ReadOnly), "a package has a store");
    return file.readAll();
}

DBCValue valueFrom(FuzzInput* input, DBCAttributeKind kind)
{
    switch (kind) {
    case DBCAttributeKind::Number:
        return qint64(input->word()) << input->below(48);
    case DBCAttributeKind::Date:
        return QDateTime::fromMSecsSinceEpoch(qint64(input->word()) << input->below(28));
    case DBCAttributeKind::Text:
        break;
    }
    return input->text();
}

// Sets the attribute that the input chooses, and puts the value into expected, with which the saved
// card is compared later.
void setOne(FuzzInput* input, Card* card, DBCRecord* expected)
{
    const auto& attribute
        = DBCCardAttributes[static_cast<size_t>(input->below(int(DBCCardAttributes.size())))];
    const DBCValue value = valueFrom(input, attribute.kind);
    card->setValue(attribute.key, value);
    // Two kinds of values come back changed and are not compared: texts with lone surrogates, which
    // the store's UTF-8 does not have, and accept dates, which the store makes unique.
    const auto* text = std::get_if<QString>(&value);
    if ((!text || text->isValidUtf16()) && attribute.key != DBCRecordKey::accept_Date)
        expected->setValue(attribute.key, value);
    else
        expected->removeValue(attribute.key);
}

std::vector<DBCRecord> insertCards(FuzzInput* input, DBCManagedObjectContext* context)
{
    constexpr int mostCards = 4;
    std::vector<DBCRecord> expected;
    for (int cards = input->below(mostCards); cards >= 0; --cards) {
        Card* const card = context->insertNewCard();
        expected.emplace_back();
        for (int count = input->below(8); count > 0; --count)
            setOne(input, card, &expected.back());
        // All cards get the same accept date, and saving makes these dates unique. Cards are
        // fetched in the order of their dates, which must be the order of their insertion.
        card->setValue(DBCRecordKey::accept_Date, QDateTime::fromMSecsSinceEpoch(0));
    }
    return expected;
}

void judge(const Card& card, const DBCRecord& expected)
{
    for (const DBCCardAttribute& attribute : DBCCardAttributes) {
        const DBCValue* const value = expected.value(attribute.key);
        if (!value)
            continue;
        const DBCValue* const stored = card.value(attribute.key);
        mustHold(stored && *stored == *value, "a value is fetched as it was saved");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const QByteArray empty = emptyStore();
    static const FuzzFile file("Velmora.sqldb");
    file.write(empty);
    FuzzInput input(data, size);
    auto context = DBCManagedObjectContext::open(file.path(), model());
    mustHold(context != nullptr, "an empty store can be opened");
    const std::vector<DBCRecord> expected = insertCards(&input, context.get());
    context->save();

    context = DBCManagedObjectContext::open(file.path(), model());
    mustHold(context != nullptr, "a saved store can be opened");
    size_t count = 0;
    context->fetchCards(DBCCardSelection::All, [&](const Card& card) {
        mustHold(count < expected.size(), "no card is fetched that was not saved");
        judge(card, expected[count++]);
        return true;
    });
    mustHold(count == expected.size(), "every saved card is fetched");
    return 0;
}
