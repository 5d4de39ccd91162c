// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/pdf/DBCPdfObjects.h"

#include "cardimage/bitmap/DBCBitmap.h"
#include "cardimage/pdf/DBCDecimalNumber.h"
#include "cardimage/pdf/DBCPdfFlateFilter.h"
#include "system/DBCWholeFile.h"

#include <QFileInfo>

#include <cerrno>
#include <set>
#include <vector>

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>

QByteArray readPdf(const QString& path)
{
    const QFileInfo info(path);
    if (info.exists() && !info.isFile())
        throw DBCNoPdfFile("not a file");
    if (info.size() > DBCBitmap::maximumBytes)
        throw DBCUnreadablePdf("too large");
    const DBCDescriptor file = openForReading(path);
    if (!file && (errno == ENOENT || errno == ENOTDIR))
        throw DBCNoPdfFile("no file");
    QByteArray bytes;
    if (!file || readWholeFile(file, &bytes) != 0)
        throw DBCUnreadablePdf("unreadable");
    return bytes;
}

void openPdf(QPDF* document, const QByteArray& bytes)
{
    boundFlateStreams();
    document->setSuppressWarnings(true);
    document->processMemoryFile(
        "card PDF", bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

std::optional<double> numberOf(QPDFObjectHandle value)
{
    if (value.isInteger())
        return static_cast<double>(value.getIntValue());
    if (value.isReal())
        return leadingDecimalNumber(value.getRealValue());
    return std::nullopt;
}

bool reachesObject(const QPDFObjectHandle& root,
    const std::function<bool(const QPDFObjectHandle& object)>& condition)
{
    std::set<QPDFObjGen> seen;
    std::vector<QPDFObjectHandle> open {root};
    while (!open.empty()) {
        QPDFObjectHandle object = open.back();
        open.pop_back();
        if (object.isIndirect() && !seen.insert(object.getObjGen()).second)
            continue;
        if (object.isArray()) {
            for (const QPDFObjectHandle& item : object.getArrayAsVector())
                open.push_back(item);
        } else if (object.isDictionary() || object.isStream()) {
            if (condition(object))
                return true;
            if (object.isStream())
                object = object.getDict();
            for (const auto& [key, value] : object.getDictAsMap())
                open.push_back(value);
        }
    }
    return false;
}
