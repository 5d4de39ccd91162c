// SPDX-License-Identifier: GPL-3.0-or-later
// The reports on the disk, beside the log: "VelmoraConverter report 2026-11-21 08.15.30.html", a
// page for people, and a file of the same name with ".json" for programs. The name tells when the
// conversion began. Each conversion has a report of its own, because what one found wrong is put
// right step by step, with several conversions to compare; so that they do not pile up, the oldest
// are removed.
#pragma once

#include <QString>

#include <variant>

struct DBCRunReport;

namespace DBCReportFiles {

// Why a report could not be written, in words of the system, and the file it is about.
struct Failure {
    QString path;
    QString reason;
};

// Writes both files, complete or not at all, into an existing folder, and removes the oldest
// reports there. The path of the page, or why there is none. Never throws anything but
// std::bad_alloc.
std::variant<QString, Failure> write(const DBCRunReport& report, const QString& folder);

} // namespace DBCReportFiles
