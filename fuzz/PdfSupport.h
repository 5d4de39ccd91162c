// SPDX-License-Identifier: GPL-3.0-or-later
// Helpers of the fuzz targets that read parts of PDF documents.
#pragma once

#include "cardimage/bitmap/DBCBitmap.h"
#include "cardimage/pdf/DBCPdfFlateFilter.h"
#include "cardimage/pdf/DBCPdfPageImage.h"
#include "fuzz/FuzzTarget.h"

#include <memory>
#include <string>
#include <vector>

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>

// A document with a few streams. A target fills the streams anew for every input and keeps the
// document, because creating a document takes ten times as long as reading its streams.
class PdfStreams {
public:
    // Returns a document with this many streams. Their object numbers begin at 3.
    static PdfStreams& fresh(int count)
    {
        constexpr int mostInputs = 1000; // a document keeps the objects of all its inputs
        // This is thread_local because such a variable is destroyed before the library's static
        // objects, which the destructor of a document uses.
        static thread_local std::unique_ptr<PdfStreams> streams;
        static int inputs = 0;
        if (!streams || ++inputs % mostInputs == 0)
            streams = std::make_unique<PdfStreams>(count);
        return *streams;
    }

    explicit PdfStreams(int count)
    {
        boundFlateStreams();
        _document.setSuppressWarnings(true);
        _document.emptyPDF();
        while (static_cast<int>(_streams.size()) < count)
            _streams.push_back(_document.newStream());
    }

    // Throws the library's exception when the text is not an object.
    QPDFObjectHandle parse(const std::string& text)
    {
        return QPDFObjectHandle::parse(&_document, text);
    }

    QPDFObjectHandle fill(int index, const std::string& dictionary, const std::string& data)
    {
        QPDFObjectHandle stream = _streams[static_cast<size_t>(index)];
        QPDFObjectHandle entries = parse(dictionary);
        stream.replaceDict(entries.isDictionary() ? entries : QPDFObjectHandle::newDictionary());
        stream.replaceStreamData(data, QPDFObjectHandle(), QPDFObjectHandle());
        return stream;
    }

private:
    QPDF _document;
    std::vector<QPDFObjectHandle> _streams;
};

inline void judgePage(const QPDFObjectHandle& page)
{
    QByteArray image;
    ImageDescriptor descriptor;
    qint32 rotation = 0;
    if (AcquireImageFromPDFPage(page, &image, &descriptor, &rotation) != DBCResultCode::Success)
        return;
    mustHold(rotation == 0 || rotation == 90 || rotation == 180 || rotation == 270,
        "a rotation is one of four");
    const bool isBitmap = descriptor.depth == DBCBitmapDepth;
    mustHold(isBitmap || descriptor.depth == DBCJpegDepth, "an image is a bitmap or a JPEG");
    mustHold(!image.isEmpty() && qint64(descriptor.dataSize) == image.size(),
        "the descriptor tells how long the data is");
    mustHold(image.size() <= DBCBitmap::maximumBytes, "no image takes all memory");
    const qsizetype rowBytes = (descriptor.width + 7) / 8;
    mustHold(!isBitmap || image.size() <= rowBytes * descriptor.height + 1,
        "a bitmap is not unpacked beyond its rows");
}
