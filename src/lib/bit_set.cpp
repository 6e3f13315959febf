// Bit sets: membership, inclusion and the byte-wise set algebra.
#include "lib/bit_set.h"

namespace brelt::bits {
namespace {

// One byte-wise pass; reading a[i] and b[i] before storing dst[i] lets the three pointers
// name the same set.
template <class Op>
void ByteWise(Set dst, ConstSet a, ConstSet b, std::uint32_t size, Op op) {
  for (std::uint32_t i = 0; i < size; ++i) {
    const unsigned char x = a[i];
    const unsigned char y = b[i];
    dst[i] = op(x, y);
  }
}

constexpr auto kOr = [](unsigned char x, unsigned char y) -> unsigned char { return x | y; };
constexpr auto kAnd = [](unsigned char x, unsigned char y) -> unsigned char { return x & y; };
constexpr auto kAndNot = [](unsigned char x, unsigned char y) -> unsigned char {
  return x & static_cast<unsigned char>(~y);
};
constexpr auto kXor = [](unsigned char x, unsigned char y) -> unsigned char { return x ^ y; };

}  // namespace

Set SetCopy(Set dst, ConstSet src, std::uint32_t size) {
  for (std::uint32_t i = 0; i < size; ++i) dst[i] = src[i];
  return dst;
}

Set SetCopyIncl(Set dst, ConstSet src, std::uint32_t k, std::uint32_t size) {
  SetCopy(dst, src, size);
  return SetIncl(dst, k, size);
}

Set SetCopyInclRange(Set dst, ConstSet src, std::uint32_t lo, std::uint32_t hi,
                     std::uint32_t size) {
  SetCopy(dst, src, size);
  return SetInclRange(dst, lo, hi, size);
}

Set SetIncl(Set set, std::uint32_t k, std::uint32_t size) {
  if (InBounds(k, size)) set[k / 8] |= static_cast<unsigned char>(1u << (k % 8));
  return set;
}

Set SetExcl(Set set, std::uint32_t k, std::uint32_t size) {
  if (InBounds(k, size)) set[k / 8] &= static_cast<unsigned char>(~(1u << (k % 8)));
  return set;
}

// The caller keeps hi inside the set; positions past it are ignored all the same, so that a
// stray limit cannot write beyond the array.
Set SetInclRange(Set set, std::uint32_t lo, std::uint32_t hi, std::uint32_t size) {
  if (hi < lo || !InBounds(lo, size)) return set;
  const std::uint64_t last = std::uint64_t{size} * 8 - 1;
  const std::uint64_t end = hi < last ? hi : last;
  for (std::uint64_t k = lo; k <= end; ++k) {
    set[k / 8] |= static_cast<unsigned char>(1u << (k % 8));
  }
  return set;
}

Set SetUnion(Set dst, ConstSet src, std::uint32_t size) {
  ByteWise(dst, dst, src, size, kOr);
  return dst;
}
void SetUnionTo(Set dst, ConstSet a, ConstSet b, std::uint32_t size) {
  ByteWise(dst, a, b, size, kOr);
}

Set SetIntersect(Set dst, ConstSet src, std::uint32_t size) {
  ByteWise(dst, dst, src, size, kAnd);
  return dst;
}
void SetIntersectTo(Set dst, ConstSet a, ConstSet b, std::uint32_t size) {
  ByteWise(dst, a, b, size, kAnd);
}

Set SetDiff(Set dst, ConstSet src, std::uint32_t size) {
  ByteWise(dst, dst, src, size, kAndNot);
  return dst;
}
void SetDiffTo(Set dst, ConstSet a, ConstSet b, std::uint32_t size) {
  ByteWise(dst, a, b, size, kAndNot);
}

Set SetSymDiff(Set dst, ConstSet src, std::uint32_t size) {
  ByteWise(dst, dst, src, size, kXor);
  return dst;
}
void SetSymDiffTo(Set dst, ConstSet a, ConstSet b, std::uint32_t size) {
  ByteWise(dst, a, b, size, kXor);
}

unsigned char SetSubset(ConstSet a, ConstSet b, std::uint32_t size) {
  for (std::uint32_t i = 0; i < size; ++i) {
    if ((a[i] & static_cast<unsigned char>(~b[i])) != 0) return 0;
  }
  return 1;
}

}  // namespace brelt::bits
