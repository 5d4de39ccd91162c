// SPDX-License-Identifier: GPL-3.0-or-later
// A JPEG file of any bytes, looked at without decoding its picture.
#include "fuzz/JpegClaims.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    judgeProperties(
        readJpegProperties(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size))));
    return 0;
}
