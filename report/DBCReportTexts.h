// SPDX-License-Identifier: GPL-3.0-or-later
// What the two forms of a report say in the same words.
#pragma once

#include "report/DBCRunReport.h"

namespace DBCReportTexts {

QString operation(const DBCRunReport& report); // "Import"
QString title(const DBCRunReport& report); // "Import finished, with warnings"
QString explanation(const DBCRunReport& report); // what state everything is in now
QString timeTaken(const DBCRunReport& report); // "2 min 5 s"
// What became of the card that a problem is about, the end of the conversion taken into account.
QString fate(const DBCRunReport& report, const DBCLogEntry& problem);

// Names for programs, the same in every language.
QString endName(DBCRunEnd end); // "doneWithWarnings"
QString consequenceName(DBCConsequence consequence); // "withoutImage"

} // namespace DBCReportTexts
