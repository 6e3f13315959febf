// The POSIX folds and ordering under both 8-bit code pages, and what the Str operations make
// of them. Each test pins its page and gives back the one start-up chose.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "guarded_array.h"
#include "word_sort_1252.h"
#include "platform/collate.h"
#include "platform/posix/code_page.h"
#include "platform/text_fold.h"

namespace {

using namespace brelt::platform;
using brelt::test::GuardedArray;
using posix::CodePage;

class PosixFold : public testing::Test {
 protected:
  void TearDown() override { posix::SelectCodePage(saved_); }
  CodePage saved_ = posix::ActiveCodePage();
};

TEST_F(PosixFold, CountedFoldsKeepEveryLengthOnBothPages) {
  const CodePage k1252 = CodePage::kWindows1252, kUtf8 = CodePage::kUtf8;
  struct Row {
    CodePage page;
    std::string_view in, upper, lower;
  } rows[] = {
      {k1252, "\xE9", "\xC9", "\xE9"},              // e acute
      {k1252, "\xFF", "\x9F", "\xFF"},              // y diaeresis, capital in the 0x80 row
      {k1252, "\x9A\x8A", "\x8A\x8A", "\x9A\x9A"},  // s caron
      {k1252, "\xB5\xDF", "\xB5\xDF", "\xB5\xDF"},  // micro, sharp s: no capital on the page
      {k1252, "\xD7\xF7", "\xD7\xF7", "\xD7\xF7"},  // the two signs have no case
      {k1252, std::string_view("a\0\xE9", 3), std::string_view("A\0\xC9", 3),
       std::string_view("a\0\xE9", 3)},
      {kUtf8, "\xC3\xA9", "\xC3\x89", "\xC3\xA9"},              // e acute, two bytes
      {kUtf8, "\xE1\xBA\xA1", "\xE1\xBA\xA0", "\xE1\xBA\xA1"},  // a dot below, three bytes
      {kUtf8, "\xC8\xBA", "\xC8\xBA", "\xC8\xBA"},  // A with stroke: its small is longer
      {kUtf8, "\xE2\xB1\xA5", "\xE2\xB1\xA5", "\xE2\xB1\xA5"},  // and the other way
      {kUtf8, "\xC3", "\xC3", "\xC3"},                          // a cut sequence stays
      {kUtf8, "\xA9x", "\xA9X", "\xA9x"},                       // a stray continuation byte
      {kUtf8, "\xF0\x9F\x98\x80z", "\xF0\x9F\x98\x80Z", "\xF0\x9F\x98\x80z"},  // four bytes
      {kUtf8, std::string_view("\xC3\xA9\0\xC3\xA9", 5),
       std::string_view("\xC3\x89\0\xC3\x89", 5), std::string_view("\xC3\xA9\0\xC3\xA9", 5)},
  };
  for (const Row& r : rows) {
    posix::SelectCodePage(r.page);
    GuardedArray<char> up(r.in), low(r.in);
    UpperBuffA(up.data(), up.size());
    LowerBuffA(low.data(), low.size());
    EXPECT_EQ(std::string_view(up.data(), up.size()), r.upper) << r.in;
    EXPECT_EQ(std::string_view(low.data(), low.size()), r.lower) << r.in;
  }
  // One character at a time gives what the counted fold gives.
  for (CodePage page : {k1252, kUtf8}) {
    posix::SelectCodePage(page);
    for (int b = 0; b < 256; ++b) {
      char up = static_cast<char>(b), low = static_cast<char>(b);
      UpperBuffA(&up, 1);
      LowerBuffA(&low, 1);
      ASSERT_EQ(UpperCharA(static_cast<char>(b)), up) << b;
      ASSERT_EQ(LowerCharA(static_cast<char>(b)), low) << b;
    }
  }
}

TEST_F(PosixFold, StrOperationsFollowThePage) {
  posix::SelectCodePage(CodePage::kWindows1252);
  EXPECT_EQ(static_cast<unsigned char>(Str::LowA('\x8A')), 0x9A);
  GuardedArray<char> s(std::string_view("\xE9t\xE9")), p(std::string_view("\xC9T?"));
  EXPECT_EQ(Str::MatchA(s.high(), s.data(), p.high(), p.data()), 1);
  EXPECT_EQ(Str::MatchCSA(s.high(), s.data(), p.high(), p.data()), 0);
  // In UTF-8 the same byte is half a character and stays; the matcher folds byte by byte.
  posix::SelectCodePage(CodePage::kUtf8);
  EXPECT_EQ(static_cast<unsigned char>(Str::CapA('\xE9')), 0xE9);
  GuardedArray<char> u(std::string_view("\xC3\xA9t")), q(std::string_view("\xC3\x89T"));
  EXPECT_EQ(Str::MatchA(u.high(), u.data(), q.high(), q.data()), 0);
}

TEST_F(PosixFold, SixteenBitFoldsBothWays) {
  struct Row {
    char16_t in, upper, lower;
  } rows[] = {{0x00E0, 0x00C0, 0x00E0}, {0x0100, 0x0100, 0x0101}, {0xFF41, 0xFF21, 0xFF41},
              {0xD800, 0xD800, 0xD800}};
  for (const Row& r : rows) {
    EXPECT_EQ(UpperW(r.in), r.upper) << std::hex << int(r.in);
    EXPECT_EQ(LowerW(r.in), r.lower) << std::hex << int(r.in);
  }
  GuardedArray<char16_t> text(std::u16string_view(u"\u00e9a\u0416", 4));
  UpperStringW(text.data());
  EXPECT_EQ(std::u16string_view(text.data(), 4), std::u16string_view(u"\u00c9A\u0416", 4));
  LowerStringW(text.data());
  EXPECT_EQ(std::u16string_view(text.data(), 4), std::u16string_view(u"\u00e9a\u0436", 4));
}

TEST_F(PosixFold, OrderingSetsAccentsAndCaseBehindLettersInBothPages) {
  struct Row {
    std::string_view a, b;
    int withCase, withoutCase;
  } rows[] = {
      {"e", "\xC3\xA9", 1, 1},         // e before e acute before f
      {"\xC3\xA9", "f", 1, 1},
      {"\xC3\xA9", "\xC3\x89", 1, 2},  // lower before upper, equal without case
      {"r\xC3\xA9sum\xC3\xA9", "resumf", 1, 1},  // letters decide before accents
      {"I", "\xC4\xB0", 1, 1},  // the dot of capital I counts as an accent
  };
  posix::SelectCodePage(CodePage::kUtf8);
  for (const Row& r : rows) {
    const auto la = static_cast<std::uint32_t>(r.a.size());
    const auto lb = static_cast<std::uint32_t>(r.b.size());
    EXPECT_EQ(CollateA(r.a.data(), la, r.b.data(), lb, false), r.withCase) << r.a << "|" << r.b;
    EXPECT_EQ(CollateA(r.a.data(), la, r.b.data(), lb, true), r.withoutCase) << r.a << "|" << r.b;
    EXPECT_EQ(CollateA(r.b.data(), lb, r.a.data(), la, false), 4 - r.withCase);
  }
  // Windows-1252 as the Windows word sort orders it.
  posix::SelectCodePage(CodePage::kWindows1252);
  for (const auto& r : brelt::test::kWordSort1252) {
    const auto la = static_cast<std::uint32_t>(r.a.size());
    const auto lb = static_cast<std::uint32_t>(r.b.size());
    EXPECT_EQ(CollateA(r.a.data(), la, r.b.data(), lb, false), r.withCase) << r.a << "|" << r.b;
    EXPECT_EQ(CollateA(r.a.data(), la, r.b.data(), lb, true), r.withoutCase) << r.a << "|" << r.b;
  }
}

}  // namespace
