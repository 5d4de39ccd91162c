// SPDX-License-Identifier: GPL-3.0-or-later
// A table model with the backups of a card database, one per row.
#pragma once

#include "carddb/DBCPackageBackups.h"

#include <QAbstractTableModel>

class DBCBackupModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column : quint8 { Made, Cards, Size, Name };
    static constexpr int columns = 4;
    static constexpr int sortRole
        = Qt::UserRole; // dates, counts and sizes as values instead of texts

    using QAbstractTableModel::QAbstractTableModel;

    void setBackups(std::vector<DBCBackup> backups);
    const DBCBackup& backup(int row) const { return _backups.at(static_cast<std::size_t>(row)); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    static QString text(const DBCBackup& backup, int column);
    static QVariant sortValue(const DBCBackup& backup, int column);

    std::vector<DBCBackup> _backups;
};
