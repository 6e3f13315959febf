// Bit sets: sets of small numbers laid out as arrays of bytes, as the separator sets of Str and
// FIO use them. Position k lives in byte k / 8 at bit k % 8, lowest bit first; this order is
// visible to callers, who write the exported separator sets byte by byte.
//
// A set carries no length: every operation gets its size in bytes. A position whose byte lies
// beyond the set is simply not a member; single-position operations ignore it. Whole-set
// operations may be given one set for several arguments, since each byte is read before it is
// written. Internal support only: nothing here is exported.
#pragma once

#include <cstdint>

namespace brelt::bits {

using Set = unsigned char*;
using ConstSet = const unsigned char*;

// True when position k falls inside a set of `size` bytes.
inline bool InBounds(std::uint32_t k, std::uint32_t size) { return k / 8 < size; }

Set SetCopy(Set dst, ConstSet src, std::uint32_t size);
Set SetCopyIncl(Set dst, ConstSet src, std::uint32_t k, std::uint32_t size);
Set SetCopyInclRange(Set dst, ConstSet src, std::uint32_t lo, std::uint32_t hi,
                     std::uint32_t size);

// The position comes first here, unlike everywhere else.
inline unsigned char SetIn(std::uint32_t k, ConstSet set, std::uint32_t size) {
  return InBounds(k, size) ? (set[k / 8] >> (k % 8)) & 1u : 0;
}

Set SetIncl(Set set, std::uint32_t k, std::uint32_t size);
Set SetExcl(Set set, std::uint32_t k, std::uint32_t size);
Set SetInclRange(Set set, std::uint32_t lo, std::uint32_t hi, std::uint32_t size);

Set SetUnion(Set dst, ConstSet src, std::uint32_t size);
void SetUnionTo(Set dst, ConstSet a, ConstSet b, std::uint32_t size);
Set SetIntersect(Set dst, ConstSet src, std::uint32_t size);
void SetIntersectTo(Set dst, ConstSet a, ConstSet b, std::uint32_t size);
Set SetDiff(Set dst, ConstSet src, std::uint32_t size);
void SetDiffTo(Set dst, ConstSet a, ConstSet b, std::uint32_t size);
Set SetSymDiff(Set dst, ConstSet src, std::uint32_t size);
void SetSymDiffTo(Set dst, ConstSet a, ConstSet b, std::uint32_t size);

// 1 when every member of a is in b; stops at the first byte of a with a bit clear in b.
unsigned char SetSubset(ConstSet a, ConstSet b, std::uint32_t size);

// Sizes in use: every 8-bit code, and the codes 0..127 for 16-bit characters.
inline constexpr std::uint32_t kSetSize8 = 32;
inline constexpr std::uint32_t kSetSize16 = 16;

}  // namespace brelt::bits
