// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/dialogs/DBCProblemModel.h"

#include "app/dialogs/DBCTableColumns.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "text/DBCControlCharacters.h"

#include <QDir>

#include <array>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<const char*, DBCProblemModel::columns> titleKeys {
    "IDS_LABEL_COLUMN_LINE", "IDS_LABEL_COLUMN_FILE", "IDS_LABEL_COLUMN_PROBLEM"};

Qt::Alignment alignmentOf(int column)
{
    return (column == DBCProblemModel::Line ? Qt::AlignTrailing : Qt::AlignLeading)
        | Qt::AlignVCenter;
}

QString lineOfCells(const QStringList& cells)
{
    return cells.join(u'\t') + u'\n';
}

} // namespace

void DBCProblemModel::setProblems(const QString& folder, const std::vector<DBCProblem>& problems)
{
    beginResetModel();
    _rows.clear();
    _rows.reserve(problems.size());
    for (const DBCProblem& problem : problems)
        _rows.push_back(rowOf(problem, folder));
    endResetModel();
}

int DBCProblemModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(_rows.size());
}

int DBCProblemModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : columns;
}

QVariant DBCProblemModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Row& row = _rows.at(static_cast<std::size_t>(index.row()));
    switch (role) {
    case Qt::DisplayRole:
    case wholeRole:
        return text(row, index.column(), role);
    case sortRole:
        return index.column() == Line ? QVariant(row.lineNo.value_or(0))
                                      : QVariant(text(row, index.column(), wholeRole));
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(alignmentOf(index.column()));
    default:
        return {};
    }
}

QVariant DBCProblemModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return QAbstractTableModel::headerData(section, orientation, role);
    return headingOf(titleKeys.at(static_cast<std::size_t>(section)), alignmentOf(section), role);
}

QString DBCProblemModel::tabSeparated(const QAbstractItemModel& model, const QList<int>& rows)
{
    QString lines;
    for (const int row : rows) {
        QStringList cells;
        for (int column = 0; column < columns; ++column)
            cells << model.index(row, column).data(wholeRole).toString().replace(u'\t', u' ');
        lines += lineOfCells(cells);
    }
    return lines;
}

QString DBCProblemModel::tabSeparated(const QAbstractItemModel& model)
{
    QStringList titles;
    for (int column = 0; column < columns; ++column)
        titles << model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    QList<int> rows(model.rowCount());
    std::iota(rows.begin(), rows.end(), 0);
    return lineOfCells(titles) + tabSeparated(model, rows);
}

DBCProblemModel::Row DBCProblemModel::rowOf(const DBCProblem& problem, const QString& folder)
{
    const QDir place(folder);
    const QString name = place.relativeFilePath(problem.path);
    const QString whole = asOneLine(problem.text);
    return {problem.lineNo, escapedControls(name == u'.' ? place.dirName() : name),
        QString(whole).remove(folder + u'/'), whole};
}

QString DBCProblemModel::text(const Row& row, int column, int role)
{
    const bool isShown = role == Qt::DisplayRole;
    switch (column) {
    case Line:
        if (!row.lineNo)
            return isShown ? u"–"_s : QString();
        return isShown ? DBCLocalizable::locale().toString(*row.lineNo)
                       : QString::number(*row.lineNo);
    case File:
        return row.file;
    default:
        return isShown ? row.shownText : row.wholeText;
    }
}
