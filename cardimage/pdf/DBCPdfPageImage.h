// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the scanned image out of a page of a card PDF, as it is stored. The functions share
// g_imagestr, so only one thread may call them at a time.
#pragma once

#include "cardimage/bitmap/DBCImageDescriptor.h"
#include "operation/base/DBCResultCode.h"

#include <QByteArray>

#include <array>

class QPDFObjectHandle;

// The name, without its slash and ended by a zero byte, of the last image or form that
// VMCGPDFDictionaryApplierFunctionForImage() found in an XObject dictionary. The name is empty when
// the function found none.
extern std::array<char, 16> g_imagestr;

// The search for an image calls this function for each entry of an XObject dictionary. The function
// copies the key, cut after 15 characters, to g_imagestr if the object is a stream and the key
// begins with "Im" or "Fm". context is ignored.
void VMCGPDFDictionaryApplierFunctionForImage(
    const char* key, QPDFObjectHandle object, void* context);

// Finds the page's image, through nested forms if necessary, and copies its data. The function
// reads only the page's own dictionary and ignores entries inherited from its parents (ISO 32000,
// 7.7.3.4).
//   outData      packed 1-bit rows when the image has the single filter /FlateDecode, and the
//                descriptor's depth is then DBCBitmapDepth; otherwise the bytes of what should be a
//                JPEG, as stored
//   descriptor   all fields that this program uses (DBCImageDescriptor.h)
//   outRotation  clockwise degrees found in the contents of the page and its forms, without the
//                page's own /Rotate
// No output may be null. The outputs are defined only after Success. Returns NoImageInPdf when the
// page has no such image or is too damaged; throws std::bad_alloc when memory runs out.
DBCResultCode AcquireImageFromPDFPage(
    QPDFObjectHandle page, QByteArray* outData, ImageDescriptor* descriptor, qint32* outRotation);
