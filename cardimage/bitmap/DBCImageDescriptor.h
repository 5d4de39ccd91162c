// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <array>

// What an image taken out of a PDF page is: an 86-byte record in a layout that other programs know,
// hence the fields that carry nothing here. Zero-filled until AcquireImageFromPDFPage() fills it.
#pragma pack(push, 2)
struct ImageDescriptor {
    qint32 recordSize = 0; // 86
    std::array<char, 4> codecType {}; // "jpeg", or "raw " for a 1-bit bitmap
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
    // Dots per inch. The names are crosswise: the horizontal field holds what the height gives, the
    // vertical field what the width gives, and CardImageInfo takes them crosswise again.
    qint32 horizontalResolution = 0;
    qint32 verticalResolution = 0;
    quint32 dataSize = 0; // bytes of image data
    qint16 frameCount = 0; // 1
    std::array<char, 32> name {}; // "Trevant_JPEG" or "Trevant_Tiff", zero-terminated
    qint16 depth = 0; // 24 for a JPEG, 1 for a bitmap
    qint16 colorTableId = 0; // -1: none
};
#pragma pack(pop)
static_assert(sizeof(ImageDescriptor) == 86);

// Values of ImageDescriptor::depth.
enum DBCImageDepth : qint16 { DBCBitmapDepth = 1, DBCJpegDepth = 24 };
