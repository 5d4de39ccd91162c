// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/dialogs/DBCBackupModel.h"

#include "app/dialogs/DBCTableColumns.h"
#include "datafile/helpers/DBCLocalizable.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<const char*, DBCBackupModel::columns> titleKeys {"IDS_LABEL_COLUMN_MADE",
    "IDS_LABEL_COLUMN_CARDS", "IDS_LABEL_COLUMN_SIZE", "IDS_LABEL_COLUMN_NAME"};

Qt::Alignment alignmentOf(int column)
{
    const bool isNumber = column == DBCBackupModel::Cards || column == DBCBackupModel::Size;
    return (isNumber ? Qt::AlignTrailing : Qt::AlignLeading) | Qt::AlignVCenter;
}

} // namespace

void DBCBackupModel::setBackups(std::vector<DBCBackup> backups)
{
    beginResetModel();
    _backups = std::move(backups);
    endResetModel();
}

int DBCBackupModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(_backups.size());
}

int DBCBackupModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : columns;
}

QVariant DBCBackupModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return text(backup(index.row()), index.column());
    case sortRole:
        return sortValue(backup(index.row()), index.column());
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(alignmentOf(index.column()));
    default:
        return {};
    }
}

QVariant DBCBackupModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return QAbstractTableModel::headerData(section, orientation, role);
    return headingOf(titleKeys.at(static_cast<std::size_t>(section)), alignmentOf(section), role);
}

QString DBCBackupModel::text(const DBCBackup& backup, int column)
{
    const QLocale locale = DBCLocalizable::locale();
    switch (column) {
    case Made:
        return backup.dateText();
    case Cards:
        return backup.cardCount ? locale.toString(*backup.cardCount)
                                : getLocalString(u"IDS_BACKUP_NOT_USABLE"_s);
    case Size:
        return backup.bytes ? locale.formattedDataSize(static_cast<qint64>(*backup.bytes)) : u"–"_s;
    default:
        return backup.name();
    }
}

QVariant DBCBackupModel::sortValue(const DBCBackup& backup, int column)
{
    switch (column) {
    case Made:
        return backup.madeAt;
    case Cards:
        return backup.cardCount.value_or(-1);
    case Size:
        return backup.bytes.value_or(0);
    default:
        return backup.name();
    }
}
