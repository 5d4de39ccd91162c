// SPDX-License-Identifier: GPL-3.0-or-later
// Headings and column widths that all tables have in common.
#pragma once

#include <QVariant>

class QTableView;

// Fits the widths to the headings and to the visible rows. The last column keeps its width.
void fitColumns(QTableView& table);

// The data that a model returns for a heading: the text of the key, aligned like its column.
QVariant headingOf(const char* titleKey, Qt::Alignment alignment, int role);
