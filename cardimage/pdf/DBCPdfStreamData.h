// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes behind a PDF stream, encryption undone, never more of them than asked for. A stream
// that breaks off in the middle gives what came before.
#pragma once

#include <QByteArray>

#include <optional>

class QPDFObjectHandle;

// At most limit bytes; none when a filter is unknown or would lose something.
std::optional<QByteArray> decodedStreamData(QPDFObjectHandle stream, qint64 limit);

// The JPEG in an image stream, as it is behind the filters that stand before its own, at most limit
// bytes; none when one of them is unknown. A stream without a JPEG gives its bytes as they are.
std::optional<QByteArray> jpegStreamData(QPDFObjectHandle stream, qint64 limit);
