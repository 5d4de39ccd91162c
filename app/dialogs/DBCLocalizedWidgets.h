// SPDX-License-Identifier: GPL-3.0-or-later
// Puts the texts of the strings table into widgets from layout files, which contain only keys.
#pragma once

class QWidget;

// Replaces every text of root and of the widgets and actions below it that is a key ("IDS_...") by
// the text of that key: labels, tool tips and the texts for a screen reader.
void localizeWidgets(QWidget& root);
