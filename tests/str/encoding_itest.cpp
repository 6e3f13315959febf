// Str encodings under a known code page: every byte through Windows-1252 and back, and UTF-8
// outside the BMP. The POSIX layer lets a test pin its code page; on Windows the system fixes
// it, and a test whose page is not in use skips. Every dst sits against a guard page.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "guarded_array.h"
#include "platform/code_page_convert.h"

namespace {

namespace pf = brelt::platform;
using brelt::WChar;
using brelt::test::GuardedArray;
using Units = std::basic_string<WChar>;
using Bytes = std::string;

class CodePage : public testing::Test {
 protected:
  void SetUp() override { saved_ = pf::ActiveCodePageId(); }
  void TearDown() override { pf::PinCodePage(saved_); }
  std::string Unavailable(unsigned id) {
    return "the system's 8-bit code page is " + std::to_string(saved_) + ", not " +
           std::to_string(id);
  }
  unsigned saved_ = 0;
};

// Through the bounded forms; the result ends at the first NUL or fills dst.
template <class S, class D>
std::basic_string<D> Convert(void (*op)(unsigned, const S*, unsigned, D*),
                             const std::basic_string<S>& text, std::size_t dstSize) {
  const GuardedArray<S> src{std::basic_string_view<S>(text)};
  GuardedArray<D> dst(dstSize);
  op(src.high(), src.data(), dst.high(), dst.data());
  std::size_t n = 0;
  while (n < dst.size() && dst[n] != 0) ++n;
  return std::basic_string<D>(dst.data(), n);
}

TEST_F(CodePage, StatesTheOneInUse) {
  std::printf("8-bit code page in use: %u\n", saved_);
  EXPECT_TRUE(saved_ == 1252 || saved_ == 65001) << saved_;
}

// Bytes 1..255 fill a bounded source and 255 units fill dst exactly, without NUL; the pointer
// forms take NUL as a character, so there all 256 bytes go through in one call.
TEST_F(CodePage, Windows1252EveryByteRoundTrips) {
  if (!pf::PinCodePage(1252)) GTEST_SKIP() << Unavailable(1252);
  Bytes all;
  for (int b = 1; b < 256; ++b) all.push_back(static_cast<char>(b));
  const Units units = Convert(Str::A2U, all, 255);
  ASSERT_EQ(units.size(), 255u);
  const struct { unsigned char byte; unsigned unit; } named[] = {
      {0x41, 0x41}, {0x80, 0x20AC}, {0x81, 0x81}, {0x8A, 0x0160}, {0x8D, 0x8D}, {0x8F, 0x8F},
      {0x90, 0x90}, {0x99, 0x2122}, {0x9D, 0x9D}, {0x9F, 0x0178}, {0xA0, 0xA0}, {0xFF, 0xFF}};
  for (const auto& n : named) EXPECT_EQ(unsigned(units[n.byte - 1]), n.unit) << int(n.byte);
  EXPECT_EQ(Convert(Str::U2A, units, 255), all);
  EXPECT_EQ(Convert(Str::A2U, all, 256), units) << "with room for the NUL";

  all.insert(all.begin(), '\0');
  unsigned len = 0;
  Str::A2UP(all.data(), 256, nullptr, &len);
  ASSERT_EQ(len, 256u);
  GuardedArray<WChar> wide(257);
  Str::A2UP(all.data(), 256, wide.data(), &(len = 257));
  ASSERT_EQ(len, 256u);
  EXPECT_EQ(wide[256], WChar{0});
  GuardedArray<char> back(256);
  Str::U2AP(wide.data(), 256, back.data(), &len);
  ASSERT_EQ(len, 256u);
  EXPECT_EQ(Bytes(back.data(), 256), all);
}

// Characters the page lacks are replaced, which is no failure; only U2AP composes a base
// letter with a following combining mark. The Windows service may give a lone acute or
// cedilla as its spacing form (0xB4, 0xB8), so those rows leave U2A unchecked ("").
TEST_F(CodePage, Windows1252ReplacesAndComposes) {
  if (!pf::PinCodePage(1252)) GTEST_SKIP() << Unavailable(1252);
  const struct { Units text; Bytes plain, composed; } rows[] = {
      {{u'a', 0x4E00, u'b'}, "a?b", "a?b"}, {{0x20AC, 0x2122}, "\x80\x99", "\x80\x99"},
      {{u'q', 0x030C}, "q?", "q?"},         {{u'Z', 0x030C}, "Z?", "\x8E"},
      {{u'e', 0x0301}, "", "\xE9"},         {{u'S', 0x030C, u'c', 0x0327}, "", "\x8A\xE7"}};
  for (const auto& r : rows) {
    if (!r.plain.empty()) {
      EXPECT_EQ(Convert(Str::U2A, r.text, 8), r.plain);
    }
    GuardedArray<char> dst(8);
    unsigned len = 8;
    Str::U2AP(r.text.data(), static_cast<unsigned>(r.text.size()), dst.data(), &len);
    EXPECT_EQ(Bytes(dst.data(), len), r.composed);
    EXPECT_EQ(dst[len], '\0');
  }
}

// Pairs both ways; broken UTF-8 and lone surrogates become U+FFFD, which is no failure. A pair
// needs two units and four bytes: one short gives the empty string, and a failing U2AP 0.
TEST_F(CodePage, Utf8OutsideTheBmpAndWhatIsNotText) {
  if (!pf::PinCodePage(65001)) GTEST_SKIP() << Unavailable(65001);
  // dir: 'b' both ways, 'a' from bytes only, 'u' from units only; dst sizes in units / bytes.
  const struct { Bytes bytes; Units units; char dir; std::size_t nU = 8, nB = 16; } rows[] = {
      {"a\xF0\x9F\x98\x80\xC3\xA9\xE2\x82\xAC", {u'a', 0xD83D, 0xDE00, 0xE9, 0x20AC}, 'b'},
      {"\xF4\x8F\xBF\xBF", {0xDBFF, 0xDFFF}, 'b'}, {"\xF0\x90\x80\x80", {0xD800, 0xDC00}, 'b'},
      {"\xEF\xBF\xBF", {0xFFFF}, 'b'},             {"\xC3(", {0xFFFD, u'('}, 'a'},
      {"\xF0\x9F\x98" "a", {0xFFFD, u'a'}, 'a'},  {"\xC0\x80", {0xFFFD, 0xFFFD}, 'a'},
      {"\xED\xA0\x80", {0xFFFD, 0xFFFD, 0xFFFD}, 'a'}, {"\xE2\x82", {0xFFFD}, 'a'},
      {"x\xEF\xBF\xBDy", {u'x', 0xD800, u'y'}, 'u'},
      {"\xEF\xBF\xBD\xEF\xBF\xBD", {0xDC00, 0xD83D}, 'u'},
      {"\xF0\x9F\x98\x80", {0xD83D, 0xDE00}, 'b', 2, 4},  // pairs that just fit
      {"", {0xD83D, 0xDE00}, 'u', 8, 3}, {"\xF0\x9F\x98\x80", {}, 'a', 1, 16}};
  for (const auto& r : rows) {
    if (r.dir != 'u') {
      EXPECT_EQ(Convert(Str::A2U, r.bytes, r.nU), r.units) << r.bytes;
    }
    if (r.dir != 'a') {
      EXPECT_EQ(Convert(Str::U2A, r.units, r.nB), r.bytes) << r.bytes;
    }
  }
  const Bytes text = "a\xF0\x9F\x98\x80\xE2\x82\xAC";
  const Units units = {u'a', 0xD83D, 0xDE00, 0x20AC};
  unsigned len = 0;
  Str::A2UP(text.data(), 8, nullptr, &len);
  EXPECT_EQ(len, 4u);
  Str::U2AP(units.data(), 4, nullptr, &(len = 0));
  EXPECT_EQ(len, 8u);
  GuardedArray<char> dst(8);
  Str::U2AP(units.data(), 4, dst.data(), &(len = 7));
  EXPECT_EQ(len, 0u) << "one byte short is a failure";
  Str::U2AP(units.data(), 4, dst.data(), &(len = 8));
  EXPECT_EQ(Bytes(dst.data(), len), text);
}

}  // namespace
