// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the properties of a JPEG file of any bytes, without decoding its picture.
#include "fuzz/JpegClaims.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    judgeProperties(
        readJpegProperties(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size))));
    return 0;
}
