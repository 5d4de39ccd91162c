// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>

// The clockwise rotation, 0, 90, 180 or 270, that the first matrix of a content stream tells by
// which of its six numbers are zero. It looks at bytes, not at operators. Does nothing when
// outDegrees is null.
void GetRotateDegreeFromStreamData(QByteArrayView data, qint32* outDegrees);
