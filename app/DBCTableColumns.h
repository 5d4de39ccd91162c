// SPDX-License-Identifier: GPL-3.0-or-later
// Columns of tables as wide as what stands in them.
#pragma once

class QTableView;

// Looks at the headings and at the rows on the screen; the last column stays as it is.
void fitColumns(QTableView& table);
