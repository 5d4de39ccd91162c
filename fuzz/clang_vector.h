// SPDX-License-Identifier: GPL-3.0-or-later
// Makes qpdf's JSON.hh compile with clang++, which includes this file before all others. JSON.hh
// has a field that is a vector of an incomplete class. If the destructor of std::vector is
// constexpr, clang instantiates it where the field is declared and fails; g++ waits until it is
// needed.
#pragma once

// These are included first, so that everything <vector> shares with other headers stays constexpr.
#include <algorithm>
#include <memory>
#include <string>

#pragma push_macro("_GLIBCXX20_CONSTEXPR")
#undef _GLIBCXX20_CONSTEXPR
#define _GLIBCXX20_CONSTEXPR
#define __fill_a1 __fill_bits // <algorithm> has declared this function as constexpr
#include <vector>
#undef __fill_a1
#pragma pop_macro("_GLIBCXX20_CONSTEXPR")
