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

// Collects the words first, because only then does the library call endWhenTooLong(); while it
// collects the whole text, it checks no deadline.
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
        // A scanned page has no fonts. The drawing library opens the document only if a page may
        // have text, because opening takes longer than all other work on a card PDF.
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
