// SPDX-License-Identifier: GPL-3.0-or-later
// Puts the texts of the strings table into widgets from layout files, which contain only keys.
#pragma once

class QWidget;

// Replaces the keys ("IDS_...") in root and in all widgets and actions below root by their texts:
// in labels, tool tips and the texts for a screen reader.
void localizeWidgets(QWidget& root);
