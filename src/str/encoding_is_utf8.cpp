// Str::IsUTF8: whether a byte buffer has the form of UTF-8.
#include "brelt/str/encoding.h"

namespace {

bool Ascii(unsigned char b) { return b < 0x80; }
bool Cont(unsigned char b) { return (b & 0xC0) == 0x80; }
bool Lead2(unsigned char b) { return (b & 0xE0) == 0xC0; }
bool Lead3(unsigned char b) { return (b & 0xF0) == 0xE0; }
bool Lead4(unsigned char b) { return (b & 0xF8) == 0xF0; }

// Bytes taken by the first pattern that fits four bytes, or 0 when none does. Ascii bytes go
// two at a time, and an ascii byte may lead only a two- or three-byte sequence.
unsigned Step(const unsigned char* b) {
  if (Ascii(b[0])) {
    if (Ascii(b[1])) return 2;
    if (Lead2(b[1]) && Cont(b[2])) return 3;
    if (Lead3(b[1]) && Cont(b[2]) && Cont(b[3])) return 4;
    return 0;
  }
  if (Lead2(b[0]) && Cont(b[1])) return 2;
  if (Lead3(b[0]) && Cont(b[1]) && Cont(b[2])) return 3;
  if (Lead4(b[0]) && Cont(b[1]) && Cont(b[2]) && Cont(b[3])) return 4;
  return 0;
}

// The last one to three bytes.
bool Tail(const unsigned char* b, unsigned left) {
  switch (left) {
    case 0: return true;
    case 1: return Ascii(b[0]);
    case 2: return (Ascii(b[0]) && Ascii(b[1])) || (Lead2(b[0]) && Cont(b[1]));
    default:
      return (Ascii(b[0]) && Ascii(b[1]) && Ascii(b[2])) ||
             (Lead3(b[0]) && Cont(b[1]) && Cont(b[2])) ||
             (Ascii(b[0]) && Lead2(b[1]) && Cont(b[2])) ||
             (Lead2(b[0]) && Cont(b[1]) && Ascii(b[2]));
  }
}

}  // namespace

namespace Str {

// A test of form only: overlong forms, surrogates and values past U+10FFFF pass.
unsigned char IsUTF8(const void* buf, unsigned int size) {
  if (size == 0 || buf == nullptr) return 0;
  const auto* p = static_cast<const unsigned char*>(buf);
  unsigned int left = size;
  while (left > 3) {
    const unsigned taken = Step(p);
    if (taken == 0) return 0;
    p += taken;
    left -= taken;
  }
  return Tail(p, left) ? 1 : 0;
}

}  // namespace Str
