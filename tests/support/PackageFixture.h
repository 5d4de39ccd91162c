// SPDX-License-Identifier: GPL-3.0-or-later
// Builds a card database package as the main application leaves it, with plain SQL and without the
// program's own writer, so that a fault of that writer shows. Tests name the columns as the store
// does ("ZFULL_NAME").
#pragma once

#include "tests/support/TestHome.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <initializer_list>
#include <utility>

using namespace Qt::StringLiterals;

// Describes how a package differs from an ordinary one; the default is an ordinary package. Every
// store also has tables and columns that only the main application uses.
struct PackageLayout {
    int entityNumber = 1; // the number of the entity for cards
    QStringList withoutColumns = {}; // columns that the store lacks, such as "ZMEMO"
    QMap<QString, QString> columnDefaults = {}; // by column: the SQL text after DEFAULT
    QString entityName = u"Card"_s;
    bool writeAheadLog = false;
    bool imagesAndFilesFolders = true;
};

class PackageFixture {
public:
    using Values = std::initializer_list<std::pair<const char*, QVariant>>;

    // One card of the package. Each call that returns the card changes it or adds to it.
    class Card {
    public:
        QString cardID() const { return _cardID; }
        Card& deleted();
        // Sets the accept date, in seconds since 2001-01-01 00:00:00 UTC.
        Card& acceptedAt(double seconds);
        // A null QVariant stores NULL.
        Card& set(const char* column, const QVariant& value);
        // Writes the card's file in "Images" and stores its name in the card.
        Card& withPdf(const QByteArray& bytes);
        // Writes a file into the card's folder in "Files".
        Card& withAttachment(const QString& name, const QByteArray& bytes);

    private:
        friend class PackageFixture;
        Card(PackageFixture& package, const QString& cardID)
            : _package(package)
            , _cardID(cardID)
        {
        }

        PackageFixture& _package;
        QString _cardID;
    };

    explicit PackageFixture(const TestHome& home, const PackageLayout& layout = {},
        const QString& name = u"Velmora DB.vmdb"_s);

    QString path(const QString& relative = {}) const;
    QString storePath() const { return path(u"Velmora.sqldb"_s); }

    // Adds a card that is not deleted. Unless values contains them, the card gets its own cardID
    // ("CARD-1", "CARD-2", ...), an accept date later than that of the previous card, and a name.
    Card card(Values values = {});

    // Adds or replaces a file.
    void writeFile(const QString& relative, const QByteArray& bytes) const;
    void remove(const QString& relative) const;
    QByteArray readFile(const QString& relative) const;

    // Runs a statement that has no result. This function and the three after it end the test
    // program when a statement fails.
    void execute(const QString& sql, const QList<QVariant>& bindings = {}) const;
    // Runs a statement in a store with a write-ahead log and leaves the change in that log, as a
    // program does that dies before it closes the store.
    void executeIntoLog(const QString& sql) const;
    QList<QVariantList> rows(const QString& sql) const;
    // Returns the first column of the only row.
    QVariant value(const QString& sql) const;

    // Returns the bytes of every file by its relative path. A folder has null bytes. The lock file
    // is left out, because it holds nothing of the user's.
    QMap<QString, QByteArray> contents() const;

private:
    QString _path;
    int _entityNumber;
    int _cards = 0;
};
