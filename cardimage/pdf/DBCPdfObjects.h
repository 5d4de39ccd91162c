// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>
#include <stdexcept>

class QPDF;
class QPDFObjectHandle;

// There is no file, or what is there is none.
class DBCNoPdfFile final : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A file that could not be read, which says nothing about what it holds.
class DBCUnreadablePdf final : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The whole file. Throws one of these; a file larger than any card PDF counts as unreadable. The
// libraries read files by themselves, but take a disk that fails for a damaged document.
QByteArray readPdf(const QString& path);

// Opens the document in the bytes, which must outlive it, its streams bounded as
// boundFlateStreams() says. The library's exceptions pass; a document behind a password is one of
// them.
void openPdf(QPDF* document, const QByteArray& bytes);

// None for what is no number. The library's own answer would follow the locale.
std::optional<double> numberOf(QPDFObjectHandle value);

// True when a dictionary or a stream that can be reached from root, itself included, fulfils the
// condition. Stream data is not looked at.
bool reachesObject(const QPDFObjectHandle& root,
    const std::function<bool(const QPDFObjectHandle& object)>& condition);
