// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>

class QPDF;
class QPDFObjectHandle;

// Reads the document at the path, its streams bounded as boundFlateStreams() says. The library's
// exceptions pass; a document behind a password, and what is no regular file, are among them.
void openPdf(QPDF* document, const QString& path);

// True when a dictionary that can be reached from root, itself and those of streams included,
// fulfils the condition. Stream data is not looked at.
bool reachesDictionary(const QPDFObjectHandle& root,
    const std::function<bool(QPDFObjectHandle& dictionary)>& condition);
