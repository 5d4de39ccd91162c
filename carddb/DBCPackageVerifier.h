// SPDX-License-Identifier: GPL-3.0-or-later
// Looks a card database package over without changing anything in it: the store's soundness and
// model, every live card's PDF and attachments, and files that no card names. The store is looked
// at in a copy, because SQLite replays another program's log or journal where it stands.
#pragma once

#include "carddb/store/DBCManagedObjectModel.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "operation/base/DBCProblem.h"

#include <QSet>

#include <functional>

class Card;
class QTemporaryDir;

// What a look at the store alone found.
struct DBCStoreReport {
    DBCFindings findings;
    qint64 liveCardCount = 0;

    // Why the store cannot be relied upon; none: it can.
    std::optional<DBCProblem> firstProblem() const;
};

class DBCPackageVerifier {
public:
    // Cards looked at so far, and cards in the store.
    using Progress = std::function<void(qint64 finished, qint64 max)>;

    // Nobody can look at what is no folder, at a package that another program has locked, and at a
    // store that may not be read. progress may be empty.
    static DBCFindings verify(const QString& package, const Progress& progress);

    // The store's soundness and model, and how many live cards it holds.
    static DBCStoreReport verifyStore(const QString& package);

private:
    DBCPackageVerifier(const QString& package, const Progress& progress);

    std::optional<DBCProblem> reasonNotToLook() const;
    // None: the store, with the log or journal beside it, stands in folder, too.
    std::optional<DBCProblem> copyStore(const QTemporaryDir& folder) const;

    // True when the cards could all be read, so that it is known what they name.
    bool checkStore(const QString& storeCopy);
    // The steps that every look begins with; then true when next could be carried out.
    bool openStore(
        const QString& storeCopy, const std::function<void(SQLite::Database& store)>& next);
    void checkSoundness(SQLite::Database& store);
    bool checkModel(SQLite::Database& store);
    void checkKeys(SQLite::Database& store);
    void checkCards(const QString& storeCopy, qint64 count);
    void checkPdf(const Card& card);
    void checkAttachments(const Card& card);
    void checkAttachmentFolder(const Card& card, const QString& folder);
    void noteNames(const Card& card);
    void checkForUnnamedEntries(const QString& folder, const QSet<QByteArray>& named);

    void report(
        const QString& path, const char* key, const DBCMessageArguments& furtherArguments = {});
    // The texts of cards take the card's name, its ID, and then the further arguments.
    void reportCard(const Card& card, const QString& path, const char* key,
        const DBCMessageArguments& furtherArguments);

    QString _package;
    QString _storePath;
    const Progress& _progress;
    DBCManagedObjectModel _model;
    std::vector<DBCProblem> _problems;
    // What stands directly in "Images" and "Files" by name, as the file system spells it.
    QSet<QByteArray> _namedImages;
    QSet<QByteArray> _namedFolders;
};
