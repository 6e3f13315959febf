// Str editing that opens or closes a gap: insert, delete, slice, prepend and replace.
#include <cstring>

#include "brelt/lib.h"
#include "brelt/str/core.h"
#include "brelt/str/edit.h"
#include "bounded.h"

namespace {

using brelt::kNotFound;
using brelt::WChar;
using brelt::str::Capacity;
using brelt::str::MeasuredLength;

// Moves n elements, overlap-safe in both directions.
template <class T>
void MoveUnits(const T* from, T* to, std::uint64_t n) {
  Lib::Move(from, to, n * sizeof(T));
}

unsigned int FirstPos(unsigned int high, const char* s, unsigned int patHigh, const char* pat) {
  return Str::PosA(high, s, patHigh, pat);
}
unsigned int FirstPos(unsigned int high, const WChar* s, unsigned int patHigh, const WChar* pat) {
  return Str::PosW(high, s, patHigh, pat);
}
void CopyText(unsigned int dstHigh, char* dst, unsigned int srcHigh, const char* src) {
  Str::CopyA(dstHigh, dst, srcHigh, src);
}
void CopyText(unsigned int dstHigh, WChar* dst, unsigned int srcHigh, const WChar* src) {
  Str::CopyW(dstHigh, dst, srcHigh, src);
}

// The tail from p on, with its terminator when there is one, moves m elements to the right;
// whatever would land above dstHigh is dropped, and the inserted text is cut the same way.
// Neither the tail nor the new text ever writes a NUL of its own.
template <class T>
void Insert(unsigned int dstHigh, T* dst, unsigned int srcHigh, const T* src, unsigned int pos) {
  const std::uint64_t len = MeasuredLength(dstHigh, dst);
  const std::uint64_t m = MeasuredLength(srcHigh, src);
  if (m == 0) return;
  const std::uint64_t p = pos < len ? pos : len;
  const std::uint64_t high = dstHigh;
  if (p + m <= high) {
    const std::uint64_t last = len + m < high ? len + m : high;  // highest index written
    MoveUnits(dst + p, dst + p + m, last - (p + m) + 1);
  }
  const std::uint64_t room = Capacity(dstHigh) - p;
  std::memcpy(dst + p, src, (m < room ? m : room) * sizeof(T));
}

template <class T>
void Delete(unsigned int high, T* s, unsigned int pos, unsigned int count) {
  if (count == 0) return;
  const std::uint64_t len = MeasuredLength(high, s);
  if (pos >= len) return;
  std::uint64_t end = pos;
  if (count < len - pos) {
    MoveUnits(s + pos + count, s + pos, len - pos - count);
    end = len - count;
  }
  s[end] = T{0};
}

// Capacity wraps in 32 bits here, as in Copy: a dstHigh of 0xFFFFFFFF copies nothing.
template <class T>
void Slice(unsigned int dstHigh, T* dst, unsigned int srcHigh, const T* src, unsigned int pos,
           unsigned int count) {
  const std::uint64_t len = MeasuredLength(srcHigh, src);
  if (pos >= len) {
    dst[0] = T{0};
    return;
  }
  std::uint64_t n = count;
  if (len - pos < n) n = len - pos;
  const std::uint32_t cap = dstHigh + 1u;
  if (cap < n) n = cap;
  MoveUnits(src + pos, dst, n);
  if (n <= dstHigh) dst[n] = T{0};
}

template <class T>
void Prepend(unsigned int dstHigh, T* dst, unsigned int srcHigh, const T* src) {
  const std::uint64_t len = MeasuredLength(dstHigh, dst);
  const std::uint64_t m = MeasuredLength(srcHigh, src);
  if (m > dstHigh) {
    CopyText(dstHigh, dst, srcHigh, src);
    return;
  }
  // The old text moves up by m, its terminator with it when the array has room for both.
  const std::uint64_t room = std::uint64_t{dstHigh} - m + 1;
  MoveUnits(dst, dst + m, room < len + 1 ? room : len + 1);
  MoveUnits(src, dst, m);
}

template <class T>
void Subst(unsigned int high, T* s, unsigned int patHigh, const T* pat, unsigned int replHigh,
           const T* repl) {
  const unsigned int at = FirstPos(high, s, patHigh, pat);
  if (at == kNotFound) return;
  const std::uint64_t m = MeasuredLength(patHigh, pat);
  const std::uint64_t len = MeasuredLength(high, s);
  if (m > 0) {
    const std::uint64_t tail = len - at - m;
    if (len <= high) {
      MoveUnits(s + at + m, s + at, tail + 1);  // the terminator comes along
    } else {
      MoveUnits(s + at + m, s + at, tail);
      s[len - m] = T{0};
    }
  }
  Insert(high, s, replHigh, repl, at);
}

}  // namespace

namespace Str {

void InsertA(unsigned int dstHigh, char* dst, unsigned int srcHigh, const char* src,
             unsigned int pos) {
  Insert(dstHigh, dst, srcHigh, src, pos);
}
void InsertW(unsigned int dstHigh, WChar* dst, unsigned int srcHigh, const WChar* src,
             unsigned int pos) {
  Insert(dstHigh, dst, srcHigh, src, pos);
}

void DeleteA(unsigned int high, char* s, unsigned int pos, unsigned int count) {
  Delete(high, s, pos, count);
}
void DeleteW(unsigned int high, WChar* s, unsigned int pos, unsigned int count) {
  Delete(high, s, pos, count);
}

void SliceA(unsigned int dstHigh, char* dst, unsigned int srcHigh, const char* src,
            unsigned int pos, unsigned int count) {
  Slice(dstHigh, dst, srcHigh, src, pos, count);
}
void SliceW(unsigned int dstHigh, WChar* dst, unsigned int srcHigh, const WChar* src,
            unsigned int pos, unsigned int count) {
  Slice(dstHigh, dst, srcHigh, src, pos, count);
}

void PrependA(unsigned int dstHigh, char* dst, unsigned int srcHigh, const char* src) {
  Prepend(dstHigh, dst, srcHigh, src);
}
void PrependW(unsigned int dstHigh, WChar* dst, unsigned int srcHigh, const WChar* src) {
  Prepend(dstHigh, dst, srcHigh, src);
}

void SubstA(unsigned int high, char* s, unsigned int patHigh, const char* pat,
            unsigned int replHigh, const char* repl) {
  Subst(high, s, patHigh, pat, replHigh, repl);
}
void SubstW(unsigned int high, WChar* s, unsigned int patHigh, const WChar* pat,
            unsigned int replHigh, const WChar* repl) {
  Subst(high, s, patHigh, pat, replHigh, repl);
}

}  // namespace Str
