// SPDX-License-Identifier: GPL-3.0-or-later
// A table model with the problems of an interchange folder, one per row.
#pragma once

#include "operation/base/DBCProblem.h"

#include <QAbstractTableModel>

class DBCProblemModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column : quint8 { Line, File, Problem };
    static constexpr int columns = 3;
    static constexpr int sortRole
        = Qt::UserRole; // line numbers as numbers; problems without a line come first
    // The role for texts that leave the program. They contain complete paths, while the displayed
    // texts leave out the path of the folder, and numbers as plain digits.
    static constexpr int wholeRole = Qt::UserRole + 1;

    using QAbstractTableModel::QAbstractTableModel;

    // folder is the interchange folder that was checked.
    void setProblems(const QString& folder, const std::vector<DBCProblem>& problems);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    // Returns the given rows of this model, or of a model that sorts it, in the form in which a
    // spreadsheet program pastes them: tabs between the columns and a line feed after each row.
    static QString tabSeparated(const QAbstractItemModel& model, const QList<int>& rows);
    // Returns the headings and all rows in the same form.
    static QString tabSeparated(const QAbstractItemModel& model);

private:
    // Each row keeps its texts, because sorting reads each cell many times.
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
