// Str encodings through the shared library, on ASCII text that every code page spells alike:
// where the NUL goes, the empty string for a conversion that does not fit, the sizing call of
// the pointer forms, and the form table of IsUTF8. Every dst, and every buffer IsUTF8 reads,
// sits against a guard page.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "guarded_array.h"
#include "text.h"

namespace {

using brelt::WChar;
using brelt::test::As;
using brelt::test::GuardedArray;

TEST(IsUTF8, FormTable) {
  struct Row { std::vector<unsigned char> bytes; unsigned char want; };
  const Row rows[] = {
      {{0x61}, 1}, {{0x61, 0x62, 0x63, 0x64}, 1}, {{0xC3, 0xA9}, 1}, {{0x61, 0xC3, 0xA9}, 1},
      {{0xC3, 0xA9, 0x61}, 1}, {{0xE2, 0x82, 0xAC}, 1}, {{0x61, 0xE2, 0x82, 0xAC}, 1},
      {{0xF0, 0x9F, 0x98, 0x80}, 1}, {{0x61, 0xF0, 0x9F, 0x98, 0x80}, 0},
      {{0x61, 0x62, 0xF0, 0x9F, 0x98, 0x80}, 1}, {{0xF0, 0x9F, 0x98}, 0}, {{0x80}, 0},
      {{0xC3}, 0}, {{0x61, 0xC3}, 0}, {{0x61, 0x62, 0xC3}, 0}, {{0xE2, 0x82}, 0},
      {{0xC0, 0x80}, 1}, {{0xED, 0xA0, 0x80}, 1}, {{0xF7, 0xBF, 0xBF, 0xBF}, 1}, {{0xFF, 0xFF}, 0},
      // NUL is ascii; 0xF8 leads nothing; breaks after the first four bytes; every tail form.
      {{0x00, 0x00, 0x00, 0x00, 0x00}, 1}, {{0xF8, 0x80, 0x80, 0x80}, 0},
      {{0x61, 0x62, 0xC3, 0x28, 0x61, 0x62}, 0}, {{0x61, 0x62, 0x63, 0x64, 0xE2, 0x82, 0xAC}, 1},
      {{0x61, 0x62, 0x63, 0x64, 0xC3, 0xA9, 0x61}, 1}, {{0x61, 0x62, 0x61, 0xC3, 0xA9}, 1},
      {{0x61, 0x62, 0x63, 0x64, 0x61, 0x62, 0xE2}, 0}, {{0xC3, 0xA9, 0xC3, 0xA9, 0xE2, 0x82}, 0},
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
  const GuardedArray<unsigned char> one(1);
  EXPECT_EQ(Str::IsUTF8(one.data(), 0), 0) << "empty";
  EXPECT_EQ(Str::IsUTF8(nullptr, 4), 0) << "null";
}

// Source as stored, dst size, dst afterwards ('0' NUL, '#' untouched). Where a conversion
// fails, what the service stored behind the NUL is not text: only the NUL is looked at.
struct BoundedRow { std::string_view src; std::size_t dstSize; std::string_view after; };
const BoundedRow kBounded[] = {
    {std::string_view("abc\0", 4), 4, "abc0"}, {"abc", 3, "abc"}, {"abc", 2, "0"},
    {"abc", 1, "0"}, {std::string_view("\0bc", 3), 2, "0#"}, {"a", 5, "a0###"},
    {std::string_view("ab\0cd", 5), 3, "ab0"},
};

// Both directions in both argument orders; an all-ones source bound is no bound.
template <class S, class D>
void RunBounded(void (*op)(unsigned, const S*, unsigned, D*),
                void (*cOp)(unsigned, D*, unsigned, const S*)) {
  for (const BoundedRow& r : kBounded) {
    const GuardedArray<S> src(r.src);
    GuardedArray<D> dst(r.dstSize), dstC(r.dstSize), dstOnes(r.dstSize);
    op(src.high(), src.data(), dst.high(), dst.data());
    cOp(dstC.high(), dstC.data(), src.high(), src.data());
    EXPECT_EQ(dst.Raw().substr(0, r.after.size()), r.after) << r.src << " " << r.dstSize;
    EXPECT_EQ(dstC.Raw().substr(0, r.after.size()), r.after) << r.src << " " << r.dstSize;
    if (r.src.find('\0') != r.src.npos) {
      op(0xFFFFFFFF, src.data(), dstOnes.high(), dstOnes.data());
      EXPECT_EQ(dstOnes.Raw().substr(0, r.after.size()), r.after) << r.src;
    }
  }
}
TEST(A2U, BoundedResultOrEmpty) { RunBounded(Str::A2U, Str::C_A2U); }
TEST(U2A, BoundedResultOrEmpty) { RunBounded(Str::U2A, Str::C_U2A); }

// Source, capacity in *dstLen, null dst?, then *dstLen and a dst of 6 ("" not checked).
struct PointerRow {
  std::string_view src;
  unsigned cap;
  bool nullDst;
  unsigned len;
  std::string_view after;
};
const PointerRow kPointer[] = {
    {"abc", 0, true, 3, ""},        {"abc", 0, false, 3, "######"},  // sizing calls
    {"abc", 4, false, 3, "abc0##"}, {"abc", 3, false, 3, "abc###"},  // just fits: no NUL
    {"abc", 2, false, 0, ""},       {"", 6, false, 0, "0#####"},     {"", 0, false, 0, "######"},
    {std::string_view("a\0b", 3), 6, false, 3, "a0b0##"},          // NUL is a character
    {"abc", 4, true, 0, ""},                                         // null dst with room
};
template <class S, class D>
void RunPointer(void (*op)(const void*, unsigned, void*, unsigned*)) {
  for (const PointerRow& r : kPointer) {
    const std::basic_string<S> src = As<S>(r.src);
    GuardedArray<D> dst(6);
    unsigned len = r.cap;
    op(src.data(), static_cast<unsigned>(src.size()), r.nullDst ? nullptr : dst.data(), &len);
    EXPECT_EQ(len, r.len) << r.src << " cap " << r.cap;
    if (!r.after.empty()) {
      EXPECT_EQ(dst.Raw(), r.after) << r.src << " cap " << r.cap;
    }
  }
}
TEST(A2UP, SizingCallAndTerminator) { RunPointer<char, WChar>(Str::A2UP); }
TEST(U2AP, SizingCallAndTerminator) { RunPointer<WChar, char>(Str::U2AP); }

}  // namespace
