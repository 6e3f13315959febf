// Str encodings under a known code page: every byte through Windows-1252 and back, and UTF-8
// text outside the BMP. The POSIX layer lets a test pin its code page; on Windows the system
// fixes it, and a test whose page is not in use says so and skips. Every dst sits against a
// guard page.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "guarded_array.h"
#include "platform/code_page_convert.h"

namespace {

namespace pf = brelt::platform;
using brelt::WChar;
using brelt::test::GuardedArray;
using Units = std::basic_string<WChar>;
using Bytes = std::string;

class PinnedCodePage : public testing::Test {
 protected:
  void SetUp() override { saved_ = pf::ActiveCodePageId(); }
  void TearDown() override { pf::PinCodePage(saved_); }
  // Skips the test when `id` cannot be put in use here.
  bool Pin(unsigned id) {
    if (pf::PinCodePage(id)) return true;
    skip_ = "the system's 8-bit code page is " + std::to_string(pf::ActiveCodePageId()) +
            ", not " + std::to_string(id);
    return false;
  }
  std::string skip_;

 private:
  unsigned saved_ = 0;
};

Units ToUnits(const Bytes& text, std::size_t dstSize) {
  const GuardedArray<char> src{std::string_view(text)};
  GuardedArray<WChar> dst(dstSize);
  Str::A2U(src.high(), src.data(), dst.high(), dst.data());
  std::size_t n = 0;
  while (n < dst.size() && dst[n] != 0) ++n;
  return Units(dst.data(), n);
}

Bytes ToBytes(const Units& text, std::size_t dstSize) {
  const GuardedArray<WChar> src{std::basic_string_view<WChar>(text)};
  GuardedArray<char> dst(dstSize);
  Str::U2A(src.high(), src.data(), dst.high(), dst.data());
  std::size_t n = 0;
  while (n < dst.size() && dst[n] != 0) ++n;
  return Bytes(dst.data(), n);
}

TEST_F(PinnedCodePage, StatesTheCodePageInUse) {
  const unsigned id = pf::ActiveCodePageId();
  RecordProperty("code_page", static_cast<int>(id));
  std::printf("8-bit code page in use: %u\n", id);
  EXPECT_TRUE(id == 1252 || id == 65001) << id;
}

TEST_F(PinnedCodePage, Windows1252EveryByteRoundTrips) {
  if (!Pin(1252)) GTEST_SKIP() << skip_;
  // Bytes 1..255 fill a bounded source; 255 units fill dst exactly, so no NUL follows.
  Bytes all;
  for (int b = 1; b < 256; ++b) all.push_back(static_cast<char>(b));
  const GuardedArray<char> src{std::string_view(all)};
  GuardedArray<WChar> units(255);
  Str::A2U(src.high(), src.data(), units.high(), units.data());
  struct Named {
    unsigned char byte;
    WChar unit;
  } named[] = {{0x41, u'A'},    {0x7F, 0x007F}, {0x80, 0x20AC}, {0x81, 0x0081}, {0x8A, 0x0160},
               {0x8D, 0x008D}, {0x8F, 0x008F}, {0x90, 0x0090}, {0x99, 0x2122}, {0x9D, 0x009D},
               {0x9F, 0x0178}, {0xA0, 0x00A0}, {0xE9, 0x00E9}, {0xFF, 0x00FF}};
  for (const Named& n : named) {
    EXPECT_EQ(static_cast<unsigned>(units[n.byte - 1]), static_cast<unsigned>(n.unit))
        << "byte " << int(n.byte);
  }
  GuardedArray<char> back(255);
  Str::U2A(units.high(), units.data(), back.high(), back.data());
  for (int b = 1; b < 256; ++b) {
    ASSERT_EQ(static_cast<unsigned char>(back[b - 1]), b) << "byte " << b;
  }
  // One element more takes the NUL as well.
  GuardedArray<WChar> roomy(256);
  Str::C_A2U(roomy.high(), roomy.data(), src.high(), src.data());
  EXPECT_EQ(roomy[255], WChar{0});
  EXPECT_EQ(roomy[254], WChar{0x00FF});
}

// The pointer forms take NUL as a character, so all 256 bytes go through in one call.
TEST_F(PinnedCodePage, Windows1252PointerFormsTakeAll256Bytes) {
  if (!Pin(1252)) GTEST_SKIP() << skip_;
  Bytes all;
  for (int b = 0; b < 256; ++b) all.push_back(static_cast<char>(b));
  unsigned need = 0;
  Str::A2UP(all.data(), 256, nullptr, &need);
  ASSERT_EQ(need, 256u);
  GuardedArray<WChar> units(257);
  unsigned len = 257;
  Str::A2UP(all.data(), 256, units.data(), &len);
  ASSERT_EQ(len, 256u);
  EXPECT_EQ(units[0], WChar{0});
  EXPECT_EQ(static_cast<unsigned>(units[0x80]), 0x20ACu);
  EXPECT_EQ(units[256], WChar{0});
  GuardedArray<char> back(256);
  len = 256;
  Str::U2AP(units.data(), 256, back.data(), &len);
  ASSERT_EQ(len, 256u);
  for (int b = 0; b < 256; ++b) {
    ASSERT_EQ(static_cast<unsigned char>(back[b]), b) << "byte " << b;
  }
}

// Characters the page lacks are replaced, which is no failure; only U2AP composes a base
// letter with a following combining mark. The Windows service may give a lone acute or
// cedilla as its spacing form (0xB4, 0xB8): those rows leave the U2A result unchecked.
TEST_F(PinnedCodePage, Windows1252ReplacesAndComposes) {
  if (!Pin(1252)) GTEST_SKIP() << skip_;
  struct Row {
    Units text;
    Bytes plain;     // U2A; empty: not checked
    Bytes composed;  // U2AP
  } rows[] = {
      {{u'a', 0x4E00, u'b'}, "a?b", "a?b"},
      {{0x20AC, 0x2122}, "\x80\x99", "\x80\x99"},
      {{u'q', 0x030C}, "q?", "q?"},
      {{u'Z', 0x030C}, "Z?", "\x8E"},
      {{u'e', 0x0301}, "", "\xE9"},
      {{u'S', 0x030C, u'c', 0x0327}, "", "\x8A\xE7"},
  };
  for (const Row& r : rows) {
    if (!r.plain.empty()) {
      EXPECT_EQ(ToBytes(r.text, 8), r.plain);
    }
    GuardedArray<char> dst(8);
    unsigned len = 8;
    Str::U2AP(r.text.data(), static_cast<unsigned>(r.text.size()), dst.data(), &len);
    EXPECT_EQ(Bytes(dst.data(), len), r.composed);
    EXPECT_EQ(dst[len], '\0');
  }
}

// Bytes of UTF-8 text for the rows below.
const Bytes kGrin = "\xF0\x9F\x98\x80";   // U+1F600
const Bytes kEuro = "\xE2\x82\xAC";       // U+20AC
const Units kGrinUnits = {0xD83D, 0xDE00};

TEST_F(PinnedCodePage, Utf8OutsideTheBmpAsSurrogatePairs) {
  if (!Pin(65001)) GTEST_SKIP() << skip_;
  struct Row {
    Bytes bytes;
    Units units;
  } rows[] = {
      {"a" + kGrin + "\xC3\xA9" + kEuro, {u'a', 0xD83D, 0xDE00, 0x00E9, 0x20AC}},
      {"\xF4\x8F\xBF\xBF", {0xDBFF, 0xDFFF}},
      {"\xF0\x90\x80\x80", {0xD800, 0xDC00}},
      {"\xEF\xBF\xBF", {0xFFFF}},
  };
  for (const Row& r : rows) {
    EXPECT_EQ(ToUnits(r.bytes, 8), r.units);
    EXPECT_EQ(ToBytes(r.units, 16), r.bytes);
  }
}

// Broken UTF-8 and lone surrogates become U+FFFD; that is no failure.
TEST_F(PinnedCodePage, Utf8ReplacesWhatIsNotText) {
  if (!Pin(65001)) GTEST_SKIP() << skip_;
  struct Row {
    Bytes bytes;
    Units units;
  } rows[] = {
      {"\xC3(", {0xFFFD, u'('}},
      {"\xF0\x9F\x98" "a", {0xFFFD, u'a'}},
      {"\xC0\x80", {0xFFFD, 0xFFFD}},
      {"\xED\xA0\x80", {0xFFFD, 0xFFFD, 0xFFFD}},
      {"\xF5\x80", {0xFFFD, 0xFFFD}},
      {"\xE2\x82", {0xFFFD}},
  };
  for (const Row& r : rows) EXPECT_EQ(ToUnits(r.bytes, 8), r.units) << r.bytes;
  EXPECT_EQ(ToBytes({u'x', 0xD800, u'y'}, 8), "x\xEF\xBF\xBDy");
  EXPECT_EQ(ToBytes({0xDC00, 0xD83D}, 8), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

// The count is in units: a pair needs two, and a conversion one unit short gives nothing.
TEST_F(PinnedCodePage, Utf8FitsOrGivesTheEmptyString) {
  if (!Pin(65001)) GTEST_SKIP() << skip_;
  struct Row {
    std::size_t units, bytes;  // dst sizes
    bool fits;
  } rows[] = {{2, 4, true}, {1, 3, false}, {3, 5, true}};
  for (const Row& r : rows) {
    const GuardedArray<char> src{std::string_view(kGrin)};
    GuardedArray<WChar> u(r.units);
    Str::A2U(src.high(), src.data(), u.high(), u.data());
    EXPECT_EQ(u[0] == 0xD83D, r.fits) << r.units;
    if (!r.fits) {
      EXPECT_EQ(u[0], WChar{0});
    }
    if (r.units == 3) {
      EXPECT_EQ(u[2], WChar{0});
    }
    const GuardedArray<WChar> wsrc{std::basic_string_view<WChar>(kGrinUnits)};
    GuardedArray<char> b(r.bytes);
    Str::U2A(wsrc.high(), wsrc.data(), b.high(), b.data());
    EXPECT_EQ(Bytes(b.data(), r.fits ? 4 : 1), r.fits ? kGrin : Bytes(1, '\0')) << r.bytes;
  }
}

TEST_F(PinnedCodePage, Utf8SizingCallCountsUnitsAndBytes) {
  if (!Pin(65001)) GTEST_SKIP() << skip_;
  const Bytes text = "a" + kGrin + kEuro;
  unsigned need = 0;
  Str::A2UP(text.data(), static_cast<unsigned>(text.size()), nullptr, &need);
  EXPECT_EQ(need, 4u);
  const Units units = {u'a', 0xD83D, 0xDE00, 0x20AC};
  need = 0;
  Str::U2AP(units.data(), 4, nullptr, &need);
  EXPECT_EQ(need, 8u);
  GuardedArray<char> dst(8);
  unsigned len = 7;
  Str::U2AP(units.data(), 4, dst.data(), &len);
  EXPECT_EQ(len, 0u) << "one byte short is a failure";
  len = 8;
  Str::U2AP(units.data(), 4, dst.data(), &len);
  EXPECT_EQ(len, 8u);
  EXPECT_EQ(Bytes(dst.data(), 8), text);
}

}  // namespace
