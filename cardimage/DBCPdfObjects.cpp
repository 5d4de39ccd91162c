// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/DBCPdfObjects.h"

#include "cardimage/DBCPdfFlateFilter.h"

#include <QFile>
#include <QFileInfo>

#include <set>
#include <stdexcept>
#include <vector>

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>

void openPdf(QPDF* document, const QString& path)
{
    // Opening a pipe would wait for its other end.
    if (!QFileInfo(path).isFile())
        throw std::runtime_error("not a file");
    boundFlateStreams();
    document->setSuppressWarnings(true);
    document->processFile(QFile::encodeName(path).constData());
}

bool reachesDictionary(const QPDFObjectHandle& root,
    const std::function<bool(QPDFObjectHandle& dictionary)>& condition)
{
    std::set<QPDFObjGen> seen;
    std::vector<QPDFObjectHandle> open {root};
    while (!open.empty()) {
        QPDFObjectHandle object = open.back();
        open.pop_back();
        if (object.isIndirect() && !seen.insert(object.getObjGen()).second)
            continue;
        if (object.isStream())
            object = object.getDict();
        if (object.isArray()) {
            for (const QPDFObjectHandle& item : object.getArrayAsVector())
                open.push_back(item);
        } else if (object.isDictionary()) {
            if (condition(object))
                return true;
            for (const auto& [key, value] : object.getDictAsMap())
                open.push_back(value);
        }
    }
    return false;
}
