// SPDX-License-Identifier: GPL-3.0-or-later
// Describes image data taken out of a PDF page, in the layout of the QuickTime ImageDescription
// record: 86 bytes without padding, in the byte order of the machine. Because the layout is fixed,
// the record also has fields that this program does not use.
#pragma once

#include <QtGlobal>

#include <array>

// A new record is all zero. AcquireImageFromPDFPage() fills it; createBitmapImageRep() reads its
// width, height and depth to make a bitmap of the image data. The record owns nothing.
#pragma pack(push, 2)
struct ImageDescriptor {
    qint32 recordSize = 0; // bytes: 86
    std::array<char, 4> codecType {}; // "jpeg" for a JPEG, "raw " for a 1-bit bitmap
    qint32 reserved1 = 0;
    qint16 reserved2 = 0;
    qint16 dataReferenceIndex = 0;
    qint16 version = 0;
    qint16 revisionLevel = 0;
    qint32 vendor = 0;
    qint32 temporalQuality = 0; // 512
    qint32 spatialQuality = 0; // 512
    quint16 width = 0; // pixels
    quint16 height = 0; // pixels
    // Dots per inch, exchanged on purpose: the horizontal field holds the resolution computed from
    // the image height, and the vertical field holds the resolution computed from the width. The
    // code that fills a CardImageInfo exchanges the two values again.
    qint32 horizontalResolution = 0;
    qint32 verticalResolution = 0;
    quint32 dataSize = 0; // bytes of image data
    qint16 frameCount = 0; // 1
    std::array<char, 32> name {}; // "Trevant_JPEG" or "Trevant_Tiff", followed by zero bytes
    qint16 depth = 0; // a DBCImageDepth
    qint16 colorTableId = 0; // -1: the image has no colour table
};
#pragma pack(pop)
static_assert(sizeof(ImageDescriptor) == 86);

// Values of ImageDescriptor::depth, in bits per pixel.
enum DBCImageDepth : qint16 { DBCBitmapDepth = 1, DBCJpegDepth = 24 };
