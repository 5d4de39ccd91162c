// SPDX-License-Identifier: GPL-3.0-or-later
// Finds out from a page's contents how its image is turned.
#pragma once

#include <QByteArrayView>

// Sets outDegrees to the clockwise rotation, 0, 90, 180 or 270, given by the first matrix of the
// unpacked content stream: only which of its six numbers are zero counts. 0 when there is no
// matrix. The search looks at bytes, not at PDF operators: it starts at "/Perceptual", or at the
// eleventh byte if that is missing, and takes the numbers after the next "q". Does nothing when
// outDegrees is null.
void GetRotateDegreeFromStreamData(QByteArrayView data, qint32* outDegrees);
