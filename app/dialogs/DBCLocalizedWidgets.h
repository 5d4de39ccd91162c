// SPDX-License-Identifier: GPL-3.0-or-later
// Layout files name their texts by the keys of the strings table.
#pragma once

class QWidget;

// Replaces each text of root and of the widgets and actions below it that is a key ("IDS_...") by
// the key's text: labels, tool tips, and what a screen reader says.
void localizeWidgets(QWidget& root);
