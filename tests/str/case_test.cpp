// Str case folding and ordering in both twins: folds of characters and of arrays up to their
// last element, unsigned code order, and the locale orderings that hold on every target.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>

#include "guarded_array.h"
#include "text.h"

namespace {

using brelt::WChar;
using brelt::test::GuardedArray;
using WText = std::basic_string<WChar>;
using brelt::test::As;

WText Units(std::initializer_list<unsigned> units) {  // 0 stands for a NUL
  WText out;
  for (unsigned u : units) out.push_back(static_cast<WChar>(u));
  return out;
}
GuardedArray<WChar> ArrayW(const WText& text) {
  return GuardedArray<WChar>(std::basic_string_view<WChar>(text));
}

TEST(CapLow, FoldsLettersOnlyInBothWidths) {
  // ASCII rows, the neighbours of both letter ranges among them, run through both widths.
  // Latin-1 with partners in Latin Extended, Greek, Cyrillic; sharp s and the euro stay.
  // Alpha with ypogegrammeni: its full capital is two characters, its simple one is one.
  struct Row {
    unsigned in, upper, lower;
  } rows[] = {{'a', 'A', 'a'},          {'Z', 'Z', 'z'},          {'@', '@', '@'},
              {'[', '[', '['},          {'`', '`', '`'},          {'{', '{', '{'},
              {0x00E9, 0x00C9, 0x00E9}, {0x00FF, 0x0178, 0x00FF}, {0x0178, 0x0178, 0x00FF},
              {0x03A3, 0x03A3, 0x03C3}, {0x044F, 0x042F, 0x044F}, {0x00DF, 0x00DF, 0x00DF},
              {0x20AC, 0x20AC, 0x20AC}, {0x1FB3, 0x1FBC, 0x1FB3}};
  for (const Row& r : rows) {
    EXPECT_EQ(unsigned{Str::CapW(static_cast<WChar>(r.in))}, r.upper) << std::hex << r.in;
    EXPECT_EQ(unsigned{Str::LowW(static_cast<WChar>(r.in))}, r.lower) << std::hex << r.in;
    if (r.in >= 0x80) continue;
    EXPECT_EQ(unsigned(Str::CapA(static_cast<char>(r.in))), r.upper) << char(r.in);
    EXPECT_EQ(unsigned(Str::LowA(static_cast<char>(r.in))), r.lower) << char(r.in);
  }
}

TEST(CapsLows, FoldUpToTheTextEndInBothWidths) {
  // An array without a NUL is full; rows of ASCII units run through both widths.
  struct Row {
    WText before;
    bool upper;
    WText after;
  } rows[] = {
      {Units({'a', 'b', 'c'}), true, Units({'A', 'B', 'C'})},
      {Units({'A', '1', '-', 'Z'}), false, Units({'a', '1', '-', 'z'})},
      {Units({'a', 'b', 0, 'c'}), true, Units({'A', 'B', 0, 'c'})},
      {Units({'a', 0xE9, 'z'}), true, Units({'A', 0xC9, 'Z'})},
      {Units({0x3B1}), true, Units({0x391})},
      {Units({'A', 0x42F, 'Q'}), false, Units({'a', 0x44F, 'q'})},
  };
  for (const Row& r : rows) {
    auto w = ArrayW(r.before);
    (r.upper ? Str::CapsW : Str::LowsW)(w.high(), w.data());
    EXPECT_EQ(WText(w.data(), w.size()), r.after) << w.Raw();
    if (r.before.find_first_of(Units({0xE9, 0x3B1, 0x42F})) != WText::npos) continue;
    GuardedArray<char> a(r.before.size());
    for (std::size_t k = 0; k < a.size(); ++k) a[k] = static_cast<char>(r.before[k]);
    (r.upper ? Str::CapsA : Str::LowsA)(a.high(), a.data());
    EXPECT_EQ(As<WChar>(std::string_view(a.data(), a.size())), r.after) << w.Raw();
  }
  // A bound of all ones: only the NUL ends the text.
  auto w = ArrayW(Units({'x', 0xFF, 0, 'y'}));
  Str::CapsW(0xFFFFFFFFu, w.data());
  EXPECT_EQ(WText(w.data(), 4), Units({'X', 0x178, 0, 'y'}));
  GuardedArray<char> a(std::string_view("ab\0c", 4));
  Str::CapsA(0xFFFFFFFFu, a.data());
  EXPECT_EQ(std::string_view(a.data(), 4), std::string_view("AB\0c", 4));
}

TEST(Compare, OrdersByUnsignedCodeInBothWidths) {
  // "\0" marks a NUL; an array without one is full.
  const struct Row {
    std::string_view a, b;
    int want;
  } rows[] = {
      {std::string_view("\0", 1), std::string_view("\0", 1), 0},
      {std::string_view("\0", 1), "a", -1},
      {"ab", "abc", -1},
      {"abd", "abc", 1},
      {"abc", std::string_view("abc\0", 4), 0},
      {std::string_view("abc\0x", 5), std::string_view("abc\0y", 5), 0},
      {"z", "\xE9", -1},  // codes are unsigned, in the first character and behind it
      {"abz", "ab\xE9", -1},
      {"B", "a", -1},
  };
  for (const Row& r : rows) {
    GuardedArray<char> a(r.a), b(r.b);
    auto wa = ArrayW(As<WChar>(r.a)), wb = ArrayW(As<WChar>(r.b));
    EXPECT_EQ(Str::CompareA(a.high(), a.data(), b.high(), b.data()), r.want) << r.a << "|" << r.b;
    EXPECT_EQ(Str::SameA(a.high(), a.data(), b.high(), b.data()), r.want == 0 ? 1 : 0);
    EXPECT_EQ(Str::CompareW(wa.high(), wa.data(), wb.high(), wb.data()), r.want) << r.a;
    EXPECT_EQ(Str::SameW(wa.high(), wa.data(), wb.high(), wb.data()), r.want == 0 ? 1 : 0);
  }
  GuardedArray<char> a(std::string_view("ab\0", 3)), b(std::string_view("ab\0", 3));
  EXPECT_EQ(Str::CompareA(0xFFFFFFFFu, a.data(), 0xFFFFFFFFu, b.data()), 0);
  auto hi = ArrayW(Units({'a', 0xFFFF})), lo = ArrayW(Units({'a', 'b'}));  // unsigned 16 bits
  EXPECT_EQ(Str::CompareW(hi.high(), hi.data(), lo.high(), lo.data()), 1);
}

TEST(LocaleCompareA, EmptyTextsAndPlainLatinOrder) {
  struct Row {
    std::string_view a, b;
    int withCase, withoutCase;
  } rows[] = {
      {std::string_view("\0", 1), std::string_view("\0", 1), 0, 0},
      {std::string_view("\0", 1), "a", -1, -1},
      {"a", std::string_view("\0", 1), 1, 1},
      {"a", "B", -1, -1},     // letters first, case only breaks ties
      {"abc", "ABC", -1, 0},  // lower case before upper case
      {"abc", std::string_view("abc\0zz", 6), 0, 0},  // lengths, not terminators
      {"1", "a", -1, -1},     // digits before letters
      {"-", "1", -1, -1},     // punctuation before digits
  };
  for (const Row& r : rows) {
    GuardedArray<char> a(r.a), b(r.b);
    EXPECT_EQ(Str::LocaleCompareA(a.high(), a.data(), b.high(), b.data()), r.withCase)
        << r.a << "|" << r.b;
    EXPECT_EQ(Str::LocaleCompareCaseInsensitiveA(a.high(), a.data(), b.high(), b.data()),
              r.withoutCase)
        << r.a << "|" << r.b;
  }
}

}  // namespace
