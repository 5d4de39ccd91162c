// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/DBCPdfText.h"

#include "cardimage/DBCPdfDrawing.h"

#include <poppler-qt6.h>

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFPageObjectHelper.hh>

#include <set>
#include <vector>

namespace {

// True when a font can be reached from the object. Stream data is not looked at.
bool mentionsFont(const QPDFObjectHandle& root)
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
            for (const auto& [key, value] : object.getDictAsMap()) {
                if (key == "/Font")
                    return true;
                open.push_back(value);
            }
        }
    }
    return false;
}

} // namespace

bool hasPageText(QPDF* document, const QString& path)
{
    constexpr int mostInvisibleCharacters = 1;
    std::unique_ptr<Poppler::Document> drawable;
    int index = -1;
    for (const QPDFObjectHandle& pageObject : document->getAllPages()) {
        ++index;
        // Opening a document for its text takes longer than everything else that is done to a card
        // PDF, and a scanned page has no fonts.
        if (!mentionsFont(QPDFPageObjectHelper(pageObject).getAttribute("/Resources", false)))
            continue;
        if (!drawable && AcquireCardImageFromAllPDF(path, &drawable) != DBCResultCode::Success)
            return false;
        const std::unique_ptr<Poppler::Page> page(drawable->page(index));
        if (page && page->text({}).size() > mostInvisibleCharacters)
            return true;
    }
    return false;
}
