// SPDX-License-Identifier: GPL-3.0-or-later
// Protects the parser of binary property lists against files made to exhaust memory or stack.
#pragma once

#include <QByteArrayView>

// Returns true if the binary property list has at most 100,000 parts once all references are
// followed, and nests at most 200 deep. A list of a hundred bytes can refer to the same parts again
// and again, so that parsing it takes more memory than there is, or nest deeper than the parser's
// stack allows. The function also returns false for a damaged list.
bool unfoldsWithinBounds(QByteArrayView binaryList);
