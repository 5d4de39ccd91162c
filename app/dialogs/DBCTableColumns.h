// SPDX-License-Identifier: GPL-3.0-or-later
// What the columns of tables have in common: their headings and their widths.
#pragma once

#include <QVariant>

class QTableView;

// Looks at the headings and at the rows on the screen; the last column stays as it is.
void fitColumns(QTableView& table);

// What a model answers for a heading whose text has this key; it stands as its column does.
QVariant headingOf(const char* titleKey, Qt::Alignment alignment, int role);
