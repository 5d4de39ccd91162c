// SPDX-License-Identifier: GPL-3.0-or-later
// The problems of an interchange folder as the rows of a table.
#pragma once

#include "operation/base/DBCProblem.h"

#include <QAbstractTableModel>

class DBCProblemModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column : quint8 { Line, File, Problem };
    static constexpr int columns = 3;
    static constexpr int sortRole = Qt::UserRole; // lines as numbers; those without one come first
    // Texts with all of their paths, where those on the screen are short of the folder's; numbers
    // as digits alone.
    static constexpr int wholeRole = Qt::UserRole + 1;

    using QAbstractTableModel::QAbstractTableModel;

    // folder: in which the problems are.
    void setProblems(const QString& folder, const std::vector<DBCProblem>& problems);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    // Rows of this model, or of one that sorts it, as a spreadsheet takes them: tabs between the
    // columns, a line feed behind each row.
    static QString tabSeparated(const QAbstractItemModel& model, const QList<int>& rows);
    // All rows, with the headings above them.
    static QString tabSeparated(const QAbstractItemModel& model);

private:
    // Sorting asks for each cell many times over.
    struct Row {
        std::optional<qint64> lineNo;
        QString file;
        QString shownText;
        QString wholeText;
    };

    static Row rowOf(const DBCProblem& problem, const QString& folder);
    static QString text(const Row& row, int column, int role);

    std::vector<Row> _rows;
};
