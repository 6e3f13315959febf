// Str encodings through the shared library, with text that every code page spells the same
// way (ASCII): where the NUL goes, the empty string for a conversion that does not fit, the
// sizing call of the pointer forms, and the whole form table of IsUTF8. Every dst, and every
// buffer IsUTF8 reads, sits against a guard page.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "guarded_array.h"
#include "text.h"

namespace {

using brelt::WChar;
using brelt::test::GuardedArray;
using brelt::test::Wide;

TEST(IsUTF8, FormTable) {
  struct Row {
    std::vector<unsigned char> bytes;
    unsigned char want;
  } rows[] = {
      {{0x61}, 1},
      {{0x61, 0x62, 0x63, 0x64}, 1},
      {{0xC3, 0xA9}, 1},
      {{0x61, 0xC3, 0xA9}, 1},
      {{0xC3, 0xA9, 0x61}, 1},
      {{0xE2, 0x82, 0xAC}, 1},
      {{0x61, 0xE2, 0x82, 0xAC}, 1},
      {{0xF0, 0x9F, 0x98, 0x80}, 1},
      {{0x61, 0xF0, 0x9F, 0x98, 0x80}, 0},
      {{0x61, 0x62, 0xF0, 0x9F, 0x98, 0x80}, 1},
      {{0xF0, 0x9F, 0x98}, 0},
      {{0x80}, 0},
      {{0xC3}, 0},
      {{0x61, 0xC3}, 0},
      {{0x61, 0x62, 0xC3}, 0},
      {{0xE2, 0x82}, 0},
      {{0xC0, 0x80}, 1},
      {{0xED, 0xA0, 0x80}, 1},
      {{0xF7, 0xBF, 0xBF, 0xBF}, 1},
      {{0xFF, 0xFF}, 0},
      // Beyond the worked rows: NUL is ascii, 0xF8 leads nothing, a broken sequence in the
      // middle, and the last bytes of a longer buffer.
      {{0x00}, 1},
      {{0x00, 0x00, 0x00, 0x00, 0x00}, 1},
      {{0xF8, 0x80, 0x80, 0x80}, 0},
      {{0x61, 0x62, 0xC3, 0x28, 0x61, 0x62}, 0},
      {{0x61, 0x62, 0x63, 0x64, 0xE2, 0x82, 0xAC}, 1},
      {{0x61, 0x62, 0x63, 0x64, 0xC3, 0xA9, 0x61}, 1},
      {{0x61, 0x62, 0x63, 0x64, 0x61, 0xC3, 0xA9}, 1},
      {{0x61, 0x62, 0x63, 0x64, 0x61, 0x62, 0xE2}, 0},
      {{0xC3, 0xA9, 0xC3, 0xA9, 0xE2, 0x82}, 0},
  };
  for (const Row& r : rows) {
    GuardedArray<unsigned char> buf(r.bytes.size());
    std::string shown;
    for (std::size_t i = 0; i < r.bytes.size(); ++i) {
      buf[i] = r.bytes[i];
      shown += std::to_string(r.bytes[i]) + " ";
    }
    EXPECT_EQ(Str::IsUTF8(buf.data(), static_cast<unsigned>(buf.size())), r.want) << shown;
  }
  GuardedArray<unsigned char> one(1);
  one[0] = 0x61;
  EXPECT_EQ(Str::IsUTF8(one.data(), 0), 0) << "empty";
  EXPECT_EQ(Str::IsUTF8(nullptr, 4), 0) << "null";
}

// Both argument orders of both directions, one row each: source text as stored, dst size,
// dst afterwards ('0' for NUL, '#' untouched). Where a conversion fails, what the service
// stored behind the NUL is not text, so only the NUL is looked at.
struct BoundedRow {
  std::string_view src;
  std::size_t dstSize;
  std::string_view after;
};

const BoundedRow kBounded[] = {
    {std::string_view("abc\0", 4), 4, "abc0"},
    {"abc", 3, "abc"},        // just fills: no NUL
    {"abc", 2, "0"},          // does not fit: empty, not cut
    {"abc", 1, "0"},
    {std::string_view("\0bc", 3), 2, "0#"},  // empty source: nothing but the NUL
    {"a", 5, "a0###"},
    {std::string_view("ab\0cd", 5), 3, "ab0"},
};

TEST(A2U, BoundedResultOrEmpty) {
  for (const BoundedRow& r : kBounded) {
    const GuardedArray<char> src(r.src);
    GuardedArray<WChar> dst(r.dstSize);
    Str::A2U(src.high(), src.data(), dst.high(), dst.data());
    EXPECT_EQ(dst.Raw().substr(0, r.after.size()), r.after) << r.src << " into " << r.dstSize;
    GuardedArray<WChar> dstC(r.dstSize);
    Str::C_A2U(dstC.high(), dstC.data(), src.high(), src.data());
    EXPECT_EQ(dstC.Raw().substr(0, r.after.size()), r.after) << "C_ form: " << r.src << " into " << r.dstSize;
  }
}

TEST(U2A, BoundedResultOrEmpty) {
  for (const BoundedRow& r : kBounded) {
    const GuardedArray<WChar> src(r.src);
    GuardedArray<char> dst(r.dstSize);
    Str::U2A(src.high(), src.data(), dst.high(), dst.data());
    EXPECT_EQ(dst.Raw().substr(0, r.after.size()), r.after) << r.src << " into " << r.dstSize;
    GuardedArray<char> dstC(r.dstSize);
    Str::C_U2A(dstC.high(), dstC.data(), src.high(), src.data());
    EXPECT_EQ(dstC.Raw().substr(0, r.after.size()), r.after) << "C_ form: " << r.src << " into " << r.dstSize;
  }
}

// A source bound of all ones is no bound: the text ends at its NUL.
TEST(A2U, AllOnesSourceBound) {
  const GuardedArray<char> src(std::string_view("hi\0", 3));
  GuardedArray<WChar> dst(4);
  Str::A2U(0xFFFFFFFF, src.data(), dst.high(), dst.data());
  EXPECT_EQ(dst.Raw(), "hi0#");
  GuardedArray<char> back(4);
  const GuardedArray<WChar> wsrc(std::string_view("hi\0", 3));
  Str::U2A(0xFFFFFFFF, wsrc.data(), back.high(), back.data());
  EXPECT_EQ(back.Raw(), "hi0#");
}

// Pointer forms: source length, capacity in *dstLen, then *dstLen and dst afterwards.
struct PointerRow {
  std::string_view src;
  unsigned cap;
  bool nullDst;
  unsigned wantLen;
  std::string_view after;  // dst of 6 elements
};

const PointerRow kPointer[] = {
    {"abc", 0, true, 3, ""},            // sizing call, no dst
    {"abc", 0, false, 3, "######"},     // sizing call writes nothing
    {"abc", 4, false, 3, "abc0##"},
    {"abc", 3, false, 3, "abc###"},     // just fits: no terminator
    {"abc", 2, false, 0, ""},           // too small: failure (dst not looked at)
    {"", 6, false, 0, "0#####"},        // nothing to convert: 0 and a NUL
    {"", 0, false, 0, "######"},
    {std::string_view("a\0b", 3), 6, false, 3, "a0b0##"},  // NUL is a character here
    {"abc", 4, true, 0, ""},            // null dst with room: failure
};

template <class S, class D>
void RunPointerRows(void (*op)(const void*, unsigned, void*, unsigned*)) {
  for (const PointerRow& r : kPointer) {
    const std::basic_string<S> src = brelt::test::As<S>(r.src);
    GuardedArray<D> dst(6);
    unsigned len = r.cap;
    op(src.data(), static_cast<unsigned>(src.size()), r.nullDst ? nullptr : dst.data(), &len);
    EXPECT_EQ(len, r.wantLen) << r.src << " cap " << r.cap;
    if (!r.after.empty()) {
      EXPECT_EQ(dst.Raw(), r.after) << r.src << " cap " << r.cap;
    }
  }
}

TEST(A2UP, SizingCallAndTerminator) { RunPointerRows<char, WChar>(Str::A2UP); }
TEST(U2AP, SizingCallAndTerminator) { RunPointerRows<WChar, char>(Str::U2AP); }

// The size that the sizing call gives, plus one, takes the text and its terminator.
TEST(A2UP, SizeThenConvert) {
  const std::string text = "pointer forms";
  unsigned need = 0;
  Str::A2UP(text.data(), static_cast<unsigned>(text.size()), nullptr, &need);
  ASSERT_EQ(need, text.size());
  GuardedArray<WChar> dst(need + 1);
  unsigned len = need + 1;
  Str::A2UP(text.data(), static_cast<unsigned>(text.size()), dst.data(), &len);
  EXPECT_EQ(len, need);
  EXPECT_EQ(std::basic_string<WChar>(dst.data()), Wide(text));
}

}  // namespace
