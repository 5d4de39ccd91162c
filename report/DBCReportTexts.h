// SPDX-License-Identifier: GPL-3.0-or-later
// The words that both forms of a report, the page and the data, have in common.
#pragma once

#include "report/DBCRunReport.h"

namespace DBCReportTexts {

// Texts in the program's language.
QString operation(const DBCRunReport& report); // "Import"
QString title(const DBCRunReport& report); // "Import finished, with warnings"
QString explanation(const DBCRunReport& report); // the state of folder and package at the end
QString timeTaken(const DBCRunReport& report); // "2 min 5 s"
// Returns what happened to the card with that problem, which also depends on how the conversion
// ended. The text is empty if there is nothing to say.
QString fate(const DBCRunReport& report, const DBCLogEntry& problem);

// Names for programs, which are the same in every language and never change.
QString endName(DBCRunEnd end); // "doneWithWarnings"
QString consequenceName(DBCConsequence consequence); // "withoutImage"

} // namespace DBCReportTexts
