// Lib moves and fills. Moves are overlap-safe in both directions.
#include <cstring>

#include "brelt/lib.h"

namespace {

// Stores n copies of a multi-byte value at any alignment. A value whose bytes are all equal
// is one memset; any other goes out through a small pattern block.
template <class V>
void FillUnits(void* dst, brelt::UInt64 n, V value) {
  unsigned char bytes[sizeof(V)];
  std::memcpy(bytes, &value, sizeof(V));
  bool uniform = true;
  for (unsigned char b : bytes) uniform = uniform && b == bytes[0];

  brelt::UInt64 left = n * sizeof(V);
  if (uniform) {
    std::memset(dst, bytes[0], left);
    return;
  }
  constexpr std::size_t kBlock = 64;
  unsigned char block[kBlock];
  for (std::size_t i = 0; i < kBlock; i += sizeof(V)) std::memcpy(block + i, bytes, sizeof(V));
  auto* out = static_cast<unsigned char*>(dst);
  for (; left >= kBlock; left -= kBlock, out += kBlock) std::memcpy(out, block, kBlock);
  std::memcpy(out, block, left);
}

}  // namespace

namespace Lib {

void Move(const void* src, void* dst, brelt::UInt64 n) { std::memmove(dst, src, n); }
void WordMove(const void* src, void* dst, brelt::UInt64 n) { std::memmove(dst, src, 2 * n); }
void LongWordMove(const void* src, void* dst, brelt::UInt64 n) { std::memmove(dst, src, 4 * n); }

void Fill(void* dst, brelt::UInt64 n, unsigned char value) { std::memset(dst, value, n); }
void WordFill(void* dst, brelt::UInt64 n, unsigned short value) { FillUnits(dst, n, value); }
void LongWordFill(void* dst, brelt::UInt64 n, brelt::ULong value) { FillUnits(dst, n, value); }

}  // namespace Lib
