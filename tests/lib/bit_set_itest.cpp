// Bit sets: the bit order, the bound rule of single positions and ranges, and the byte-wise
// algebra, including one set given for several arguments. Every written set sits against a
// guard page, so a write past its size faults.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "guarded_array.h"
#include "lib/bit_set.h"

namespace {

using namespace brelt::bits;
using brelt::test::GuardedArray;
using Bytes = std::vector<unsigned char>;

GuardedArray<unsigned char> SetOf(const Bytes& bytes) {
  GuardedArray<unsigned char> a(bytes.empty() ? 1 : bytes.size());
  for (std::size_t i = 0; i < bytes.size(); ++i) a[i] = bytes[i];
  return a;
}

Bytes BytesOf(const GuardedArray<unsigned char>& a, std::size_t n) {
  return Bytes(a.data(), a.data() + n);
}

// The default 8-bit separators: TAB, LF, CR, 26 and space.
const Bytes kSeparators = [] {
  Bytes b(32, 0);
  b[1] = 0x26;
  b[3] = 0x04;
  b[4] = 0x01;
  return b;
}();

TEST(SetIn, PositionsAndTheBoundRule) {
  const Bytes sixteen = Bytes(16, 0xFF);
  struct Row {
    std::uint32_t k;
    const Bytes* set;
    std::uint32_t size;
    unsigned char want;
  } rows[] = {
      {9, &kSeparators, 32, 1},  {10, &kSeparators, 32, 1}, {13, &kSeparators, 32, 1},
      {26, &kSeparators, 32, 1}, {32, &kSeparators, 32, 1}, {65, &kSeparators, 32, 0},
      {0, &kSeparators, 32, 0},  {11, &kSeparators, 32, 0}, {33, &kSeparators, 32, 0},
      {127, &sixteen, 16, 1},    {128, &sixteen, 16, 0},    {200, &sixteen, 16, 0},
      {0xFFFFFFFF, &sixteen, 16, 0}, {0, &sixteen, 0, 0},
  };
  for (const Row& r : rows) {
    const auto set = SetOf(*r.set);
    // Only the bytes that the size admits may be read.
    const unsigned char* base = set.data() + set.size() - r.size;
    EXPECT_EQ(SetIn(r.k, base, r.size), r.want) << "k " << r.k << " size " << r.size;
  }
}

TEST(SetIncl, SingleBitsInsideAndNothingOutside) {
  struct Row {
    Bytes before;
    std::uint32_t k;
    bool include;
    Bytes after;
  } rows[] = {
      {{0x00}, 8, true, {0x00}},          {{0x00}, 7, true, {0x80}},
      {{0x00}, 0, true, {0x01}},          {{0x00, 0x00}, 9, true, {0x00, 0x02}},
      {{0xFF, 0xFF}, 15, false, {0xFF, 0x7F}}, {{0xFF}, 8, false, {0xFF}},
      {{0xFF}, 0xFFFFFFFF, false, {0xFF}}, {{0x10}, 4, true, {0x10}},
      {{0x10}, 3, false, {0x10}},
  };
  for (const Row& r : rows) {
    auto set = SetOf(r.before);
    const auto size = static_cast<std::uint32_t>(r.before.size());
    unsigned char* got = r.include ? SetIncl(set.data(), r.k, size) : SetExcl(set.data(), r.k, size);
    EXPECT_EQ(got, set.data());
    EXPECT_EQ(BytesOf(set, size), r.after) << "k " << r.k << " include " << r.include;
  }
}

TEST(SetInclRange, BothEndsIncludedAndEmptyOrOutsideRangesIgnored) {
  struct Row {
    std::uint32_t lo, hi, size;
    Bytes after;
  } rows[] = {
      {3, 10, 2, {0xF8, 0x07}}, {5, 4, 2, {0x00, 0x00}}, {7, 7, 2, {0x80, 0x00}},
      {16, 20, 2, {0x00, 0x00}}, {0, 15, 2, {0xFF, 0xFF}}, {8, 8, 2, {0x00, 0x01}},
      {14, 0xFFFFFFFF, 2, {0x00, 0xC0}}, {0, 0, 0, {}},
  };
  for (const Row& r : rows) {
    auto set = SetOf(Bytes(r.size, 0));
    EXPECT_EQ(SetInclRange(set.data(), r.lo, r.hi, r.size), set.data());
    EXPECT_EQ(BytesOf(set, r.size), r.after) << r.lo << ".." << r.hi;
  }
}

TEST(SetCopy, CopiesWhetherOrNotTheInclusionHappens) {
  const Bytes src = {0x01, 0x80};
  struct Row {
    std::uint32_t lo, hi;  // hi == lo for the single form
    bool range;
    Bytes after;
  } rows[] = {
      {4, 4, false, {0x11, 0x80}},  {16, 16, false, {0x01, 0x80}},
      {9, 11, true, {0x01, 0x8E}},  {11, 9, true, {0x01, 0x80}},
      {99, 100, true, {0x01, 0x80}},
  };
  for (const Row& r : rows) {
    auto dst = SetOf({0x5A, 0x5A});
    unsigned char* got = r.range ? SetCopyInclRange(dst.data(), src.data(), r.lo, r.hi, 2)
                                 : SetCopyIncl(dst.data(), src.data(), r.lo, 2);
    EXPECT_EQ(got, dst.data());
    EXPECT_EQ(BytesOf(dst, 2), r.after) << r.lo << ".." << r.hi << " range " << r.range;
  }
  auto dst = SetOf({0x5A});
  EXPECT_EQ(SetCopy(dst.data(), src.data(), 0), dst.data());
  EXPECT_EQ(dst[0], 0x5A) << "size 0 touches nothing";
}

enum class Op { kUnion, kIntersect, kDiff, kSymDiff };

struct AlgebraRow {
  Op op;
  Bytes a, b, want;
};

const AlgebraRow kAlgebra[] = {
    {Op::kUnion, {0x0F, 0x00, 0x81}, {0xF0, 0x00, 0x01}, {0xFF, 0x00, 0x81}},
    {Op::kIntersect, {0x0F, 0xFF, 0x81}, {0x3C, 0x00, 0x01}, {0x0C, 0x00, 0x01}},
    {Op::kDiff, {0x0F, 0xFF, 0x81}, {0x3C, 0x0F, 0x01}, {0x03, 0xF0, 0x80}},
    {Op::kSymDiff, {0x0F, 0xFF, 0x81}, {0x3C, 0x0F, 0x01}, {0x33, 0xF0, 0x80}},
};

TEST(SetAlgebra, InPlaceFormsWorkOnEveryByte) {
  for (const AlgebraRow& r : kAlgebra) {
    auto dst = SetOf(r.a);
    const auto src = SetOf(r.b);
    unsigned char* d = dst.data();
    unsigned char* got = nullptr;
    switch (r.op) {
      case Op::kUnion: got = SetUnion(d, src.data(), 3); break;
      case Op::kIntersect: got = SetIntersect(d, src.data(), 3); break;
      case Op::kDiff: got = SetDiff(d, src.data(), 3); break;
      case Op::kSymDiff: got = SetSymDiff(d, src.data(), 3); break;
    }
    EXPECT_EQ(got, d);
    EXPECT_EQ(BytesOf(dst, 3), r.want) << static_cast<int>(r.op);
  }
}

TEST(SetAlgebra, ThreeSetFormsLeaveTheirOperandsAlone) {
  for (const AlgebraRow& r : kAlgebra) {
    auto dst = SetOf({0x5A, 0x5A, 0x5A});
    const auto a = SetOf(r.a);
    const auto b = SetOf(r.b);
    switch (r.op) {
      case Op::kUnion: SetUnionTo(dst.data(), a.data(), b.data(), 3); break;
      case Op::kIntersect: SetIntersectTo(dst.data(), a.data(), b.data(), 3); break;
      case Op::kDiff: SetDiffTo(dst.data(), a.data(), b.data(), 3); break;
      case Op::kSymDiff: SetSymDiffTo(dst.data(), a.data(), b.data(), 3); break;
    }
    EXPECT_EQ(BytesOf(dst, 3), r.want) << static_cast<int>(r.op);
    EXPECT_EQ(BytesOf(a, 3), r.a);
    EXPECT_EQ(BytesOf(b, 3), r.b);
  }
}

TEST(SetAlgebra, OneSetForEveryArgument) {
  struct Row {
    Op op;
    Bytes want;  // from a set holding 0x0F, 0xA5
  } rows[] = {{Op::kUnion, {0x0F, 0xA5}}, {Op::kIntersect, {0x0F, 0xA5}},
              {Op::kDiff, {0x00, 0x00}}, {Op::kSymDiff, {0x00, 0x00}}};
  for (const Row& r : rows) {
    auto s = SetOf({0x0F, 0xA5});
    auto t = SetOf({0x0F, 0xA5});
    unsigned char* p = s.data();
    unsigned char* q = t.data();
    switch (r.op) {
      case Op::kUnion: SetUnion(p, p, 2), SetUnionTo(q, q, q, 2); break;
      case Op::kIntersect: SetIntersect(p, p, 2), SetIntersectTo(q, q, q, 2); break;
      case Op::kDiff: SetDiff(p, p, 2), SetDiffTo(q, q, q, 2); break;
      case Op::kSymDiff: SetSymDiff(p, p, 2), SetSymDiffTo(q, q, q, 2); break;
    }
    EXPECT_EQ(BytesOf(s, 2), r.want) << static_cast<int>(r.op);
    EXPECT_EQ(BytesOf(t, 2), r.want) << static_cast<int>(r.op);
  }
}

TEST(SetSubset, EveryByteOfTheFirstWithinTheSecond) {
  struct Row {
    Bytes a, b;
    std::uint32_t size;
    unsigned char want;
  } rows[] = {
      {{0x5A}, {0x00}, 0, 1},            {{0x00, 0x00}, {0x00, 0x00}, 2, 1},
      {{0x05, 0x80}, {0x0F, 0xC0}, 2, 1}, {{0x05, 0x80}, {0x0F, 0x40}, 2, 0},
      {{0x10, 0x00}, {0x0F, 0xFF}, 2, 0}, {{0xFF, 0xFF}, {0xFF, 0xFF}, 2, 1},
      {{0x01, 0x02}, {0x01, 0x00}, 1, 1},
  };
  for (const Row& r : rows) {
    const auto a = SetOf(r.a);
    const auto b = SetOf(r.b);
    EXPECT_EQ(SetSubset(a.data(), b.data(), r.size), r.want) << "row with size " << r.size;
  }
}

}  // namespace
