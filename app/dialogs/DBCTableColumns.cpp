// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/dialogs/DBCTableColumns.h"

#include "datafile/helpers/DBCLocalizable.h"

#include <QHeaderView>
#include <QTableView>

namespace {

constexpr int airBetweenColumns = 16; // device-independent pixels

} // namespace

void fitColumns(QTableView& table)
{
    QHeaderView& header = *table.horizontalHeader();
    header.setResizeContentsPrecision(
        0); // only visible rows count, because measuring all could take long
    table.resizeColumnsToContents();
    for (int column = 0; column + 1 < header.count(); ++column)
        table.setColumnWidth(column, table.columnWidth(column) + airBetweenColumns);
}

QVariant headingOf(const char* titleKey, Qt::Alignment alignment, int role)
{
    switch (role) {
    case Qt::DisplayRole:
        return getLocalString(titleKey);
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(alignment);
    default:
        return {};
    }
}
