// SPDX-License-Identifier: GPL-3.0-or-later
// The one scanned image that a page of a card PDF shows. Not reentrant: one thread at a time.
#pragma once

#include "cardimage/bitmap/DBCImageDescriptor.h"
#include "operation/base/DBCResultCode.h"

#include <QByteArray>

#include <array>

class QPDFObjectHandle;

// Name of the last image or form that the walk over a page's XObjects met, without its slash.
extern std::array<char, 16> g_imagestr;

// Keeps the key, at most 15 characters of it, in g_imagestr when the object is a stream and the key
// begins with "Im" or "Fm". context is ignored.
void VMCGPDFDictionaryApplierFunctionForImage(
    const char* key, QPDFObjectHandle object, void* context);

// Everything is read from the page's own dictionary, nothing from its parents. outData receives
// packed rows when the descriptor's depth is DBCBitmapDepth, else what should be a JPEG, byte for
// byte; outRotation the rotation that the contents tell, without the page's own. Success or
// NoImageInPdf; the outputs, none of which may be null, mean something only after Success.
DBCResultCode AcquireImageFromPDFPage(
    QPDFObjectHandle page, QByteArray* outData, ImageDescriptor* descriptor, qint32* outRotation);
