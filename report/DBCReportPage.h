// SPDX-License-Identifier: GPL-3.0-or-later
// A report for people.
#pragma once

#include <QByteArray>
#include <QString>

struct DBCRunReport;

// One page of HTML that is well-formed XML, too, in UTF-8: no scripts and nothing that it would
// have to load. What stands in cards and paths shows as it is; control characters are written as
// "\u001B", line ends begin a line. dataName: name of the file beside the page that says the same
// for programs.
QByteArray reportPage(const DBCRunReport& report, const QString& dataName);
