// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>

// True when the binary property list can be parsed within bounds: a list of some hundred bytes can
// name the same parts over and over and unfold into more than any memory holds, or nest deeper than
// the parser's stack. False for what is damaged, too.
bool unfoldsWithinBounds(QByteArrayView binaryList);
