// SPDX-License-Identifier: GPL-3.0-or-later
// Included in front of everything by clang++. Where std::vector's destructor is constexpr, clang
// looks into it as soon as a class with such a field is defined, and qpdf's JSON.hh has a vector of
// a class that is complete only later. g++ waits until the destructor is needed.
#pragma once

// All that <vector> shares with other headers keeps its constexpr.
#include <algorithm>
#include <memory>
#include <string>

#pragma push_macro("_GLIBCXX20_CONSTEXPR")
#undef _GLIBCXX20_CONSTEXPR
#define _GLIBCXX20_CONSTEXPR
#define __fill_a1 __fill_bits // <algorithm> has declared that one as constexpr
#include <vector>
#undef __fill_a1
#pragma pop_macro("_GLIBCXX20_CONSTEXPR")
