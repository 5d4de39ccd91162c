// SPDX-License-Identifier: GPL-3.0-or-later
// Writes a report as JSON, for programs.
#pragma once

#include <QByteArray>

struct DBCRunReport;

// Returns one JSON object in UTF-8. docs/report.md explains its names, which never change. Texts
// are in the program's language; the names on cards and the paths are written unchanged. A missing
// value is written as null, and durations are in seconds.
QByteArray reportData(const DBCRunReport& report);
