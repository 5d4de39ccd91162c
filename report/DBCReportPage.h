// SPDX-License-Identifier: GPL-3.0-or-later
// Writes a report as an HTML page, for people.
#pragma once

#include <QByteArray>
#include <QString>

struct DBCRunReport;

// Returns a page of HTML in UTF-8 that is also well-formed XML. It holds no scripts and loads
// nothing. Texts from cards and paths appear as they are and are never read as markup, but a
// control character appears in the form "\u001B", and a line end begins a new line. dataName is the
// name of the JSON file beside the page, to which the page links. An empty result means that the
// page could not be written.
QByteArray reportPage(const DBCRunReport& report, const QString& dataName);
