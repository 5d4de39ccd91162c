// SPDX-License-Identifier: GPL-3.0-or-later
// Finds out from a page's contents how its image is turned.
#pragma once

#include <QByteArrayView>

// Sets outDegrees to the clockwise rotation, 0, 90, 180 or 270, given by the first matrix of the
// unpacked content stream, and to 0 when there is no matrix. The rotation depends only on which of
// the six numbers of the matrix are zero. The function searches for bytes and does not parse PDF
// operators: it starts at "/Perceptual", or at the eleventh byte if this word is missing, and takes
// the numbers after the next "q". It does nothing when outDegrees is null.
void GetRotateDegreeFromStreamData(QByteArrayView data, qint32* outDegrees);
