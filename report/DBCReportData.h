// SPDX-License-Identifier: GPL-3.0-or-later
// A report for programs.
#pragma once

#include <QByteArray>

struct DBCRunReport;

// One JSON object in UTF-8. Its names are explained in docs/report.md and do not change; texts are
// in the language of the program, names and paths as they are.
QByteArray reportData(const DBCRunReport& report);
