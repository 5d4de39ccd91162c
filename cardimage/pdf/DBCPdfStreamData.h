// SPDX-License-Identifier: GPL-3.0-or-later
// Copies the data of a PDF stream, decrypted, up to a limit in bytes. Data beyond the limit is cut
// off without an error; damaged data gives the bytes before the damage. Both functions throw
// std::bad_alloc when memory runs out.
#pragma once

#include <QByteArray>

#include <optional>

class QPDFObjectHandle;

// The data with all filters undone. None when a filter is unknown, is one that would lose something
// (/DCTDecode), or has parameters that DBCPdfRows refuses.
std::optional<QByteArray> decodedStreamData(QPDFObjectHandle stream, qint64 limit);

// The JPEG in an image stream: the data with the filters before /DCTDecode undone. None when one of
// these cannot be undone. A stream without /DCTDecode gives its bytes as stored.
std::optional<QByteArray> jpegStreamData(QPDFObjectHandle stream, qint64 limit);
