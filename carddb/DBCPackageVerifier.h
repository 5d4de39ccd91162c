// SPDX-License-Identifier: GPL-3.0-or-later
// Checks a card database package for damage without changing anything in it: the store, the PDF and
// attachments of every live card, and files that no card names.
#pragma once

#include "carddb/store/DBCManagedObjectModel.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "operation/base/DBCProblem.h"

#include <QSet>

#include <functional>

class Card;

// The result of checking the store alone.
struct DBCStoreReport {
    DBCFindings findings;
    qint64 liveCardCount = 0; // cards that are not deleted; 0 when the store is damaged

    // Returns the first thing wrong with the store, or std::nullopt when the store is sound.
    std::optional<DBCProblem> firstProblem() const;
};

// The verifier checks a copy of the store in the temporary folder, because SQLite, when it opens a
// store, replays a log or journal that another program left beside it. Any thread may call the
// functions; each blocks its thread until it is done.
class DBCPackageVerifier {
public:
    // Receives how many cards have been checked, and how many cards the store holds.
    using Progress = std::function<void(qint64 finished, qint64 max)>;

    // Returns all problems of the package. Sets DBCFindings::couldNotLook instead when the path is
    // no folder, when another program has locked the package, or when the store cannot be read.
    // progress may be empty.
    static DBCFindings verify(const QString& package, const Progress& progress);

    // Checks whether the store is sound and fits the model, and counts its live cards.
    static DBCStoreReport verifyStore(const QString& package);

private:
    DBCPackageVerifier(const QString& package, const Progress& progress);

    std::optional<DBCProblem> reasonNotToLook() const;
    // Returns the problem that the store could not be read for this reason.
    DBCProblem storeNotRead(const QString& reason) const;

    // Returns true when all cards could be read, so that the names of their files are known.
    bool checkStore(const QString& storeCopy);
    // Opens the store and checks whether it is sound and fits the model. Calls next unless the
    // model does not fit. Returns true when next ran to its end.
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
    // Reports a text whose arguments are the card's full name, its ID, and then the further
    // arguments.
    void reportCard(const Card& card, const QString& path, const char* key,
        const DBCMessageArguments& furtherArguments);

    QString _package;
    QString _storePath;
    const Progress& _progress;
    DBCManagedObjectModel _model;
    std::vector<DBCProblem> _problems;
    // The names of entries in "Images" and "Files" that belong to some card, as bytes of the file
    // system.
    QSet<QByteArray> _namedImages;
    QSet<QByteArray> _namedFolders;
};
