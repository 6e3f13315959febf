// Bit sets: bit order, the bound rule of single positions and ranges, and the byte-wise algebra,
// also with one set for several arguments. Sets sit against a guard page, so that a byte past
// `size` faults when read or written.
#include <gtest/gtest.h>

#include <vector>

#include "guarded_array.h"
#include "lib/bit_set.h"

namespace {

using namespace brelt::bits;
using Bytes = std::vector<unsigned char>;

brelt::test::GuardedArray<unsigned char> SetOf(const Bytes& bytes) {
  brelt::test::GuardedArray<unsigned char> a(bytes.empty() ? 1 : bytes.size());
  for (std::size_t i = 0; i < bytes.size(); ++i) a[i] = bytes[i];
  return a;
}
Bytes Head(const unsigned char* p, std::size_t n) { return Bytes(p, p + n); }

TEST(SetIn, BitOrderAndBound) {
  // The default 8-bit separators (TAB, LF, CR, 26, space) in 32 bytes, and a full 16-byte set.
  Bytes seps(32, 0);
  seps[1] = 0x26, seps[3] = 0x04, seps[4] = 0x01;
  const auto a = SetOf(seps), b = SetOf(Bytes(16, 0xFF));
  const struct { std::uint32_t k; bool full; unsigned char want; } rows[] = {
      {9, false, 1},  {26, false, 1},  {32, false, 1}, {11, false, 0},        {65, false, 0},
      {127, true, 1}, {128, true, 0},  {200, true, 0}, {0xFFFFFFFF, true, 0}};
  for (const auto& r : rows) {
    EXPECT_EQ(SetIn(r.k, r.full ? b.data() : a.data(), r.full ? 16 : 32), r.want) << r.k;
  }
}

// op: '+' SetIncl, '-' SetExcl, 'r' SetInclRange lo..hi, 'c' SetCopyIncl and 'R'
// SetCopyInclRange from {0x01, 0x80} over a dst holding other bytes.
TEST(SetIncl, SinglePositionsAndRanges) {
  const struct { char op; Bytes before; std::uint32_t lo, hi; Bytes after; } rows[] = {
      {'+', {0x00}, 8, 0, {0x00}},              {'+', {0x00, 0x00}, 9, 0, {0x00, 0x02}},
      {'-', {0xFF, 0xFF}, 15, 0, {0xFF, 0x7F}}, {'-', {0xFF}, 8, 0, {0xFF}},
      {'-', {0xFF}, 0xFFFFFFFF, 0, {0xFF}},     {'r', {0x00, 0x00}, 3, 10, {0xF8, 0x07}},
      {'r', {0x00, 0x00}, 5, 4, {0x00, 0x00}},  {'r', {0x00, 0x00}, 7, 7, {0x80, 0x00}},
      {'r', {0x00, 0x00}, 16, 20, {0x00, 0x00}}, {'r', {0x00, 0x00}, 14, 0xFFFFFFFF, {0x00, 0xC0}},
      {'r', {}, 0, 0, {}},                      {'c', {0x5A, 0x5A}, 4, 0, {0x11, 0x80}},
      {'c', {0x5A, 0x5A}, 16, 0, {0x01, 0x80}}, {'R', {0x5A, 0x5A}, 9, 11, {0x01, 0x8E}},
      {'R', {0x5A, 0x5A}, 11, 9, {0x01, 0x80}}, {'R', {0x5A, 0x5A}, 99, 100, {0x01, 0x80}}};
  const auto src = SetOf({0x01, 0x80});
  for (const auto& r : rows) {
    auto set = SetOf(r.before);
    unsigned char* s = set.data();
    const auto n = static_cast<std::uint32_t>(r.before.size());
    unsigned char* got = r.op == '+'   ? SetIncl(s, r.lo, n)
                         : r.op == '-' ? SetExcl(s, r.lo, n)
                         : r.op == 'r' ? SetInclRange(s, r.lo, r.hi, n)
                         : r.op == 'c' ? SetCopyIncl(s, src.data(), r.lo, n)
                                       : SetCopyInclRange(s, src.data(), r.lo, r.hi, n);
    EXPECT_EQ(got, s);
    EXPECT_EQ(Head(s, n), r.after) << r.op << " " << r.lo << ".." << r.hi;
  }
}

// Each operation in its in-place, three-set and one-set-for-all forms, and with size 0.
TEST(SetAlgebra, EveryFormOfEveryOperation) {
  const Bytes a = {0x0F, 0xFF, 0x81}, b = {0x3C, 0x0F, 0x01}, zero = {0, 0, 0};
  const struct {
    unsigned char* (*in)(unsigned char*, const unsigned char*, std::uint32_t);
    void (*to)(unsigned char*, const unsigned char*, const unsigned char*, std::uint32_t);
    Bytes want, self;
  } rows[] = {{SetUnion, SetUnionTo, {0x3F, 0xFF, 0x81}, a},
              {SetIntersect, SetIntersectTo, {0x0C, 0x0F, 0x01}, a},
              {SetDiff, SetDiffTo, {0x03, 0xF0, 0x80}, zero},
              {SetSymDiff, SetSymDiffTo, {0x33, 0xF0, 0x80}, zero}};
  for (const auto& r : rows) {
    auto dst = SetOf(a), other = SetOf(b), to = SetOf({0x5A, 0x5A, 0x5A}), left = SetOf(a);
    auto self = SetOf(a), selfTo = SetOf(a), untouched = SetOf({0x5A});
    EXPECT_EQ(r.in(dst.data(), other.data(), 3), dst.data());
    r.to(to.data(), left.data(), other.data(), 3);
    r.in(self.data(), self.data(), 3);
    r.to(selfTo.data(), selfTo.data(), selfTo.data(), 3);
    r.in(untouched.data(), other.data(), 0);
    EXPECT_EQ(Head(dst.data(), 3), r.want);
    EXPECT_EQ(Head(to.data(), 3), r.want);
    EXPECT_EQ(Head(left.data(), 3), a) << "an operand of the three-set form changed";
    EXPECT_EQ(Head(self.data(), 3), r.self);
    EXPECT_EQ(Head(selfTo.data(), 3), r.self);
    EXPECT_EQ(untouched[0], 0x5A) << "size 0 touches nothing";
  }
}

TEST(SetSubset, EveryByteOfTheFirstInTheSecond) {
  const struct { Bytes a, b; std::uint32_t size; unsigned char want; } rows[] = {
      {{0x5A}, {0x00}, 0, 1},             {{0x05, 0x80}, {0x0F, 0xC0}, 2, 1},
      {{0x05, 0x80}, {0x0F, 0x40}, 2, 0}, {{0x10, 0x00}, {0x0F, 0xFF}, 2, 0},
      {{0xFF, 0xFF}, {0xFF, 0xFF}, 2, 1}};
  for (const auto& r : rows) {
    const auto a = SetOf(r.a), b = SetOf(r.b);
    // Only the first `size` bytes may be read: the sets end flush against the guard page.
    EXPECT_EQ(SetSubset(a.data() + a.size() - r.size, b.data() + b.size() - r.size, r.size),
              r.want) << "size " << r.size;
  }
}

}  // namespace
