// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the report of a conversion to the disk, beside the log, and removes the oldest reports.
//
// A report is two files: a page for people, "VelmoraConverter report 2026-11-21 08.15.30.html", and
// a data file for programs, which has the same name with the ending ".json". The name holds the
// local time at which the conversion began. A second report of the same second gets " (02)" before
// the ending, and so on. Each conversion has its own report, so that users who correct their data
// step by step can compare the conversions. The newest DBCMostReports reports are kept.
#pragma once

#include <QString>

#include <variant>

struct DBCRunReport;

namespace DBCReportFiles {

struct Failure {
    QString path; // the file that could not be written
    QString reason; // the system's words for the cause
};

// Writes both files into an existing folder, or neither of them, and then removes the oldest
// reports there. Returns the path of the page, or the failure. Several programs may do this in one
// folder at the same time. The only exception that can leave this function is std::bad_alloc.
std::variant<QString, Failure> write(const DBCRunReport& report, const QString& folder);

} // namespace DBCReportFiles
