// SPDX-License-Identifier: GPL-3.0-or-later
// Copies the data of a PDF stream, decrypted, up to a limit in bytes. Data beyond the limit is cut
// off without an error; damaged data gives the bytes before the damage. Both functions throw
// std::bad_alloc when memory runs out.
#pragma once

#include <QByteArray>

#include <optional>

class QPDFObjectHandle;

// Returns the data with all filters undone. Returns std::nullopt when a filter is unknown, belongs
// to a lossy format (/DCTDecode), or has parameters that DBCPdfRows refuses.
std::optional<QByteArray> decodedStreamData(QPDFObjectHandle stream, qint64 limit);

// Returns the JPEG in an image stream: the data with the filters before /DCTDecode undone. Returns
// std::nullopt when one of these filters cannot be undone. For a stream without /DCTDecode the
// function returns the bytes as stored.
std::optional<QByteArray> jpegStreamData(QPDFObjectHandle stream, qint64 limit);
