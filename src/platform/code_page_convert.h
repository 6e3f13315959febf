// Conversion between the system's 8-bit code page and 16-bit units.
//
// Both directions keep one contract: the source is given by length (NUL is a character like any
// other), the result is the number of units written without a terminator, 0 means failure, and
// a destination too small for the whole conversion is a failure. With `cap` 0 nothing is
// written and the result is the size needed. A character the other side lacks is replaced,
// which is no failure. A null `dst` with a non-zero `cap` fails.
#pragma once

#include <cstdint>

#include "brelt/config.h"

namespace brelt::platform {

std::uint32_t CodePageToUnits(const char* src, std::uint32_t n, WChar* dst, std::uint32_t cap);

// `composite` asks that a base character followed by combining marks be taken as the
// precomposed character where the code page has one.
std::uint32_t UnitsToCodePage(const WChar* src, std::uint32_t n, char* dst, std::uint32_t cap,
                              bool composite);

// The code page in use, by its Windows number: 1252, 65001 (UTF-8), ...
unsigned int ActiveCodePageId();

// For tests: makes `id` the code page in use where the layer can choose it, and answers
// whether `id` is now in use. Where the system fixes the page it only answers.
bool PinCodePage(unsigned int id);

}  // namespace brelt::platform
