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
    qint64 liveCardCount = 0; // 0 when the store is damaged

    // The first thing wrong with the store; none when it is sound.
    std::optional<DBCProblem> firstProblem() const;
};

// The store is checked in a copy in the temporary folder, because opening a store makes SQLite
// replay a log or journal that another program left beside it. Any thread may verify; a run blocks
// it.
class DBCPackageVerifier {
public:
    // Receives how many cards have been checked and how many the store holds.
    using Progress = std::function<void(qint64 finished, qint64 max)>;

    // All problems of the package. couldNotLook is set instead when the path is no folder, when
    // another program has locked the package, or when the store cannot be read. progress may be
    // empty.
    static DBCFindings verify(const QString& package, const Progress& progress);

    // Checks whether the store is sound and fits the model, and counts its live cards.
    static DBCStoreReport verifyStore(const QString& package);

private:
    DBCPackageVerifier(const QString& package, const Progress& progress);

    std::optional<DBCProblem> reasonNotToLook() const;
    // Copies the store, and a log or journal beside it, into folder. None on success.
    DBCProblem storeNotRead(const QString& reason) const;

    // True when all cards could be read, so that the names of their files are known.
    bool checkStore(const QString& storeCopy);
    // Opens the store, checks soundness and model, and calls next if both allow it. True when next
    // ran to its end.
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
    // The text's arguments are the card's full name, its ID, and then the further arguments.
    void reportCard(const Card& card, const QString& path, const char* key,
        const DBCMessageArguments& furtherArguments);

    QString _package;
    QString _storePath;
    const Progress& _progress;
    DBCManagedObjectModel _model;
    std::vector<DBCProblem> _problems;
    // The names of entries in "Images" and "Files" that some card names, as bytes of the file
    // system.
    QSet<QByteArray> _namedImages;
    QSet<QByteArray> _namedFolders;
};
