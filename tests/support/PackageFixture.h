// SPDX-License-Identifier: GPL-3.0-or-later
// A card database package as the main application leaves it, made with plain SQL and not with the
// program's own writer. Columns go by their names in the store ("ZFULL_NAME").
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

// What is unusual about a package; the default is an ordinary one. Besides what the program knows,
// every store has tables and columns of the main application's own.
struct PackageLayout {
    int entityNumber = 1; // of the entity Card
    QStringList withoutColumns = {}; // "ZMEMO"
    QMap<QString, QString> columnDefaults = {}; // "ZSTATUS" to the SQL text behind DEFAULT
    QString entityName = u"Card"_s;
    bool writeAheadLog = false;
    bool imagesAndFilesFolders = true;
};

class PackageFixture {
public:
    using Values = std::initializer_list<std::pair<const char*, QVariant>>;

    // One card of the package; each call adds to it.
    class Card {
    public:
        QString cardID() const { return _cardID; }
        Card& deleted();
        // Seconds since 2001-01-01 00:00:00 UTC.
        Card& acceptedAt(double seconds);
        // A null QVariant stores NULL.
        Card& set(const char* column, const QVariant& value);
        // The card's file in "Images", which the card then names.
        Card& withPdf(const QByteArray& bytes);
        // A file in the card's folder in "Files".
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

    // Adds a live card. Unless given, it has a cardID of its own ("CARD-1", "CARD-2", ...), an
    // accept date later than that of the card before, and a name.
    Card card(Values values = {});

    // Replaces or adds a file; removes a file or folder.
    void writeFile(const QString& relative, const QByteArray& bytes) const;
    void remove(const QString& relative) const;
    QByteArray readFile(const QString& relative) const;

    // Statements without a result, and the rows of a query. Failures end the test program.
    void execute(const QString& sql, const QList<QVariant>& bindings = {}) const;
    // The same in a store with a write-ahead log, left behind in the log as by a program that died.
    void executeIntoLog(const QString& sql) const;
    QList<QVariantList> rows(const QString& sql) const;
    // The first column of the only row.
    QVariant value(const QString& sql) const;

    // Every file's bytes and every folder (null bytes) by relative path, the lock file aside.
    QMap<QString, QByteArray> contents() const;

private:
    QString _path;
    int _entityNumber;
    int _cards = 0;
};
