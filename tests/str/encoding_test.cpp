// Str encodings on ASCII text that every code page spells alike: where the NUL goes, the empty
// string for a conversion that does not fit, the sizing call of the pointer forms, and the form
// table of IsUTF8. Every dst, and every buffer IsUTF8 reads, sits against a guard page.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "guarded_array.h"
#include "text.h"

namespace {

using brelt::WChar;
using brelt::test::GuardedArray;
using SV = std::string_view;

TEST(IsUTF8, FormTable) {
  // NUL is ascii; 0xF8 leads nothing; the last rows break after the first four bytes.
  const struct { SV bytes; unsigned char want; } rows[] = {
      {"a", 1}, {"abcd", 1}, {"\xC3\xA9", 1}, {"a\xC3\xA9", 1}, {"\xC3\xA9" "a", 1},
      {"\xE2\x82\xAC", 1}, {"a\xE2\x82\xAC", 1}, {"\xF0\x9F\x98\x80", 1},
      {"a\xF0\x9F\x98\x80", 0}, {"ab\xF0\x9F\x98\x80", 1}, {"\xF0\x9F\x98", 0}, {"\x80", 0},
      {"\xC3", 0}, {"a\xC3", 0}, {"ab\xC3", 0}, {"\xE2\x82", 0}, {"\xC0\x80", 1},
      {"\xED\xA0\x80", 1}, {"\xF7\xBF\xBF\xBF", 1}, {"\xFF\xFF", 0}, {SV("\0\0\0\0\0", 5), 1},
      {"\xF8\x80\x80\x80", 0}, {"ab\xC3(ab", 0}, {"abcd\xE2\x82\xAC", 1},
      {"abcd\xC3\xA9" "a", 1}, {"aba\xC3\xA9", 1}, {"abcdab\xE2", 0},
      {"\xC3\xA9\xC3\xA9\xE2\x82", 0}};
  for (const auto& r : rows) {
    const GuardedArray<unsigned char> buf(r.bytes);
    EXPECT_EQ(Str::IsUTF8(buf.data(), static_cast<unsigned>(buf.size())), r.want)
        << testing::PrintToString(std::string(r.bytes));
  }
  const GuardedArray<unsigned char> one(1);
  EXPECT_EQ(Str::IsUTF8(one.data(), 0), 0) << "empty";
  EXPECT_EQ(Str::IsUTF8(nullptr, 4), 0) << "null";
}

// Both directions in both argument orders; an all-ones source bound is no bound. Source as
// stored, dst size, dst afterwards ('0' NUL, '#' untouched). Where a conversion fails only the
// NUL is looked at: what the service stored behind it is not text.
template <class S, class D>
void RunBounded(void (*op)(unsigned, const S*, unsigned, D*),
                void (*cOp)(unsigned, D*, unsigned, const S*)) {
  const struct { SV src; std::size_t dstSize; SV after; } rows[] = {
      {SV("abc\0", 4), 4, "abc0"}, {"abc", 3, "abc"},           {"abc", 2, "0"},
      {SV("\0bc", 3), 2, "0#"},    {"a", 5, "a0###"},           {SV("ab\0cd", 5), 3, "ab0"}};
  for (const auto& r : rows) {
    const GuardedArray<S> src(r.src);
    GuardedArray<D> dst(r.dstSize), dstC(r.dstSize), dstOnes(r.dstSize);
    op(src.high(), src.data(), dst.high(), dst.data());
    cOp(dstC.high(), dstC.data(), src.high(), src.data());
    EXPECT_EQ(dst.Raw().substr(0, r.after.size()), r.after) << r.src << " " << r.dstSize;
    EXPECT_EQ(dstC.Raw().substr(0, r.after.size()), r.after) << r.src << " " << r.dstSize;
    if (r.src.find('\0') == SV::npos) continue;
    op(0xFFFFFFFF, src.data(), dstOnes.high(), dstOnes.data());
    EXPECT_EQ(dstOnes.Raw().substr(0, r.after.size()), r.after) << r.src;
  }
}
TEST(A2U, BoundedResultOrEmpty) { RunBounded(Str::A2U, Str::C_A2U); }
TEST(U2A, BoundedResultOrEmpty) { RunBounded(Str::U2A, Str::C_U2A); }

// Source, capacity in *dstLen, null dst?, then *dstLen and a dst of 6 ("" not checked).
template <class S, class D>
void RunPointer(void (*op)(const void*, unsigned, void*, unsigned*)) {
  const struct { SV src; unsigned cap; bool nullDst; unsigned len; SV after; } rows[] = {
      {"abc", 0, true, 3, ""},        {"abc", 0, false, 3, "######"},  // sizing calls
      {"abc", 4, false, 3, "abc0##"}, {"abc", 3, false, 3, "abc###"},  // just fits: no NUL
      {"abc", 2, false, 0, ""},       {"", 6, false, 0, "0#####"},
      {SV("a\0b", 3), 6, false, 3, "a0b0##"},  // NUL is a character
      {"abc", 4, true, 0, ""}};                // null dst with room
  for (const auto& r : rows) {
    const std::basic_string<S> src = brelt::test::As<S>(r.src);
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
