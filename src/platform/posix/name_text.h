// File names between the 8-bit code page of the A operations and the native bytes of the POSIX
// tree, which are UTF-8 whatever page is in use.
#pragma once

#include <cstdint>

namespace brelt::platform::posix {

// Both give the bytes written, without a terminator, or 0 when the result does not fit in
// `cap` (or `n` is 0). Under the UTF-8 page the bytes pass unchanged, so even names that are
// not UTF-8 survive the round trip. Under Windows-1252 a character the page lacks becomes '?'.
std::uint32_t CodePageToNative(const char* src, std::uint32_t n, char* dst, std::uint32_t cap);
std::uint32_t NativeToCodePage(const char* src, std::uint32_t n, char* dst, std::uint32_t cap);

// Whether two native names are the same when case is ignored, as Windows compares names:
// character by character after Unicode simple upper-casing.
bool SameNameIgnoringCase(const char* a, std::uint32_t na, const char* b, std::uint32_t nb);

}  // namespace brelt::platform::posix
