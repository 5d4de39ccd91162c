// SPDX-License-Identifier: GPL-3.0-or-later
// Makes qpdf's JSON.hh compile with clang++, which includes this file before all others. JSON.hh
// has a field that is a vector of an incomplete class. If the destructor of std::vector is
// constexpr, clang++ instantiates the destructor where the field is declared, and fails. g++
// instantiates it only where it is used. So this file includes <vector> without constexpr.
#pragma once

// These headers share code with <vector>. They come first, so that the shared code stays constexpr.
#include <algorithm>
#include <memory>
#include <string>

#pragma push_macro("_GLIBCXX20_CONSTEXPR")
#undef _GLIBCXX20_CONSTEXPR
#define _GLIBCXX20_CONSTEXPR
#define __fill_a1 __fill_bits // __fill_a1 is already declared as constexpr
#include <vector>
#undef __fill_a1
#pragma pop_macro("_GLIBCXX20_CONSTEXPR")
