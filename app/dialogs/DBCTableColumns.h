// SPDX-License-Identifier: GPL-3.0-or-later
// Sets the column widths and makes the headings of all tables in the same way.
#pragma once

#include <QVariant>

class QTableView;

// Fits the widths to the headings and to the visible rows. The last column keeps its width.
void fitColumns(QTableView& table);

// Returns what a model has to return as the data of a heading for this role: the text of the key,
// or the alignment of its column.
QVariant headingOf(const char* titleKey, Qt::Alignment alignment, int role);
