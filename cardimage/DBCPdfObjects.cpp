// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/DBCPdfObjects.h"

#include "cardimage/DBCDecimalNumber.h"
#include "cardimage/DBCImageFiles.h"
#include "cardimage/DBCPdfFlateFilter.h"

#include <QFileInfo>
#include <QUrl>

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
    QByteArray bytes;
    const qint32 error = info.size() > DBCBitmap::maximumBytes
        ? toNumber(DBCResultCode::GeneralFailure)
        : readJpgFile(QUrl::fromLocalFile(path), &bytes);
    if (error == -ENOENT || error == -ENOTDIR)
        throw DBCNoPdfFile("no file");
    if (error != 0)
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
