// SPDX-License-Identifier: GPL-3.0-or-later
// Reads PDF files, opens them with the structure library, and walks over their objects. A document
// and its objects may be used by one thread at a time.
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>
#include <stdexcept>

class QPDF;
class QPDFObjectHandle;

// There is no file at the path, or it is a folder or something else that is not a regular file.
class DBCNoPdfFile final : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The file could not be read, which says nothing about its content.
class DBCUnreadablePdf final : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The bytes of the whole file, whatever they are. Throws DBCNoPdfFile, or DBCUnreadablePdf, also
// for a file of more than DBCBitmap::maximumBytes bytes. Files are read here and not by the PDF
// libraries, because those report a failing disk as a damaged document.
QByteArray readPdf(const QString& path);

// Opens the document in these bytes, which must outlive it, after a call of boundFlateStreams().
// The library's exceptions pass through; a document locked by a password is one of them. Warnings
// are kept for expectEnoughMemory().
void openPdf(QPDF* document, const QByteArray& bytes);

// The value of an integer or a real number; none for any other object. The library's own conversion
// depends on the locale.
std::optional<double> numberOf(QPDFObjectHandle value);

// True when the condition is true for a dictionary or a stream that can be reached from root,
// including root itself. Each indirect object is visited once, so loops in the document are
// harmless. Objects named only inside stream data are not found.
bool reachesObject(const QPDFObjectHandle& root,
    const std::function<bool(const QPDFObjectHandle& object)>& condition);
