// SPDX-License-Identifier: GPL-3.0-or-later
// Reads PDF files, opens them with the structure library (QPDF), and searches their objects. A
// document and its objects may be used by one thread at a time.
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>
#include <stdexcept>

class QPDF;
class QPDFObjectHandle;

// readPdf() throws this when there is nothing at the path, or a folder or something else that is
// not a regular file.
class DBCNoPdfFile final : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// readPdf() throws this when it could not read the file. The content of the file is then unknown:
// it may be a sound PDF.
class DBCUnreadablePdf final : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Returns the bytes of the whole file, even if they are not a PDF. Throws DBCNoPdfFile or
// DBCUnreadablePdf; the latter also for a file of more than DBCBitmap::maximumBytes bytes. The PDF
// libraries must not read files themselves, because they report a failing disk as a damaged
// document.
QByteArray readPdf(const QString& path);

// Calls boundFlateStreams() and then opens the document in these bytes, which must outlive it.
// Throws the exceptions of the library, also when the document is locked by a password. The
// document keeps its warnings, so that expectEnoughMemory() can examine them.
void openPdf(QPDF* document, const QByteArray& bytes);

// Returns the value of an integer or a real number, and std::nullopt for any other object. The
// library's own conversion is not used, because it depends on the locale.
std::optional<double> numberOf(QPDFObjectHandle value);

// Returns true when the condition is true for a dictionary or a stream that can be reached from
// root; root itself counts as well. Each indirect object is visited once, so loops in the document
// are harmless. Objects named only inside stream data are not found.
bool reachesObject(const QPDFObjectHandle& root,
    const std::function<bool(const QPDFObjectHandle& object)>& condition);
