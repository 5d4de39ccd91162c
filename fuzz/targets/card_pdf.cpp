// SPDX-License-Identifier: GPL-3.0-or-later
// Puts a JPEG of any bytes on a page of a card PDF and takes the image out again.
#include "cardimage/pdf/DBCCardPdf.h"
#include "cardimage/pdf/DBCCardPdfWriter.h"
#include "cardimage/pdf/DBCPdfPageImage.h"
#include "fuzz/JpegClaims.h"

#include <QFile>

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>

namespace {

void judgePage(const QString& path, const QByteArray& jpeg, const DBCJpegProperties& properties)
{
    QPDF document;
    document.processFile(QFile::encodeName(path).constData());
    QByteArray image;
    ImageDescriptor descriptor;
    qint32 rotation = -1;
    mustHold(AcquireImageFromPDFPage(document.getAllPages().at(0), &image, &descriptor, &rotation)
            == DBCResultCode::Success,
        "a page that was written shows its image");
    mustHold(image == jpeg, "the JPEG comes out byte for byte");
    mustHold(rotation == 0, "a page that was written is upright");
    mustHold(descriptor.width == properties.pixelWidth
            && descriptor.height == properties.pixelHeight && descriptor.depth == DBCJpegDepth,
        "the image is described as it is");
    mustHold(descriptor.horizontalResolution >= 0 && descriptor.verticalResolution >= 0,
        "no resolution is negative");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const FuzzFile file("written.pdf");
    const QByteArray jpeg(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto properties = readJpegProperties(jpeg);
    judgeProperties(properties);
    if (!properties)
        return 0;
    DBCCardPdfWriter writer(file.path());
    mustHold(writer.opened() == DBCWriteOutcome::Written, "the file can be made");
    writer.addPage(jpeg, *properties, pagePointSize(*properties));
    mustHold(writer.close() == DBCWriteOutcome::Written, "the file can be written");

    qint32 pageCount = 0;
    mustHold(
        CheckPdfFile(file.path(), &pageCount) == DBCResultCode::PdfCardImageOnly && pageCount == 1,
        "what was written is a card PDF of one page");
    judgePage(file.path(), jpeg, *properties);
    return 0;
}
