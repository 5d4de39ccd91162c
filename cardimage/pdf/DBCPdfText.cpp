// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/pdf/DBCPdfText.h"

#include "cardimage/pdf/DBCPdfDrawing.h"
#include "cardimage/pdf/DBCPdfObjects.h"

#include <poppler-qt6.h>

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFPageObjectHelper.hh>

namespace {

bool mentionsFont(const QPDFObjectHandle& root)
{
    return reachesObject(root, [](QPDFObjectHandle object) {
        return (object.isStream() ? object.getDict() : object).hasKey("/Font");
    });
}

// Looks at the words first, because the library asks for the deadline only while it collects these,
// not while it collects the whole text.
bool hasText(const Poppler::Page& page, const QVariant& deadline)
{
    constexpr int mostInvisibleCharacters = 1;
    qsizetype characters = 0;
    for (const auto& word : page.textList(Poppler::Page::Rotate0, endWhenTooLong, deadline))
        characters += word->text().size();
    return characters > mostInvisibleCharacters || page.text({}).size() > mostInvisibleCharacters;
}

bool findsText(QPDF* document, const QString& path)
{
    const QVariant deadline = newDeadline();
    std::unique_ptr<Poppler::Document> drawable;
    int index = -1;
    for (const QPDFObjectHandle& pageObject : document->getAllPages()) {
        ++index;
        // A scanned page has no fonts. The document is opened for its text only if it may have
        // some, because that takes longer than everything else that is done to a card PDF.
        if (!mentionsFont(QPDFPageObjectHelper(pageObject).getAttribute("/Resources", false)))
            continue;
        if (!drawable && AcquireCardImageFromAllPDF(path, &drawable) != DBCResultCode::Success)
            return false;
        const std::unique_ptr<Poppler::Page> page(drawable->page(index));
        if (page && hasText(*page, deadline))
            return true;
    }
    return false;
}

} // namespace

bool hasPageText(QPDF* document, const QString& path)
{
    try {
        return findsText(document, path);
    } catch (const DBCTakesTooLong&) {
        return false;
    }
}
