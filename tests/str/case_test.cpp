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

// A 16-bit text from its code units; 0 stands for a NUL.
std::basic_string<WChar> Units(std::initializer_list<unsigned> units) {
  std::basic_string<WChar> out;
  for (unsigned u : units) out.push_back(static_cast<WChar>(u));
  return out;
}

GuardedArray<char> ArrayA(std::string_view text) { return GuardedArray<char>(text); }
GuardedArray<WChar> ArrayW(const std::basic_string<WChar>& text) {
  return GuardedArray<WChar>(std::basic_string_view<WChar>(text));
}

TEST(CapLowA, AsciiLettersFoldOthersStay) {
  struct Row {
    char in, upper, lower;
  } rows[] = {{'a', 'A', 'a'}, {'Z', 'Z', 'z'}, {'m', 'M', 'm'}, {'0', '0', '0'}, {'@', '@', '@'},
              {'[', '[', '['}, {'`', '`', '`'}, {'{', '{', '{'}, {'\0', '\0', '\0'}};
  for (const Row& r : rows) {
    EXPECT_EQ(Str::CapA(r.in), r.upper) << int(r.in);
    EXPECT_EQ(Str::LowA(r.in), r.lower) << int(r.in);
  }
}

TEST(CapLowW, FoldsBeyondAscii) {
  // Latin-1, Latin Extended, Greek and Cyrillic pairs; sharp s and digits have no partner.
  struct Row {
    unsigned in, upper, lower;
  } rows[] = {{'a', 'A', 'a'},          {'Q', 'Q', 'q'},          {0x00E9, 0x00C9, 0x00E9},
              {0x00C9, 0x00C9, 0x00E9}, {0x00FF, 0x0178, 0x00FF}, {0x0178, 0x0178, 0x00FF},
              {0x0161, 0x0160, 0x0161}, {0x03B1, 0x0391, 0x03B1}, {0x03A3, 0x03A3, 0x03C3},
              {0x044F, 0x042F, 0x044F}, {0x0416, 0x0416, 0x0436}, {0x00DF, 0x00DF, 0x00DF},
              {'7', '7', '7'},          {0, 0, 0},                {0x20AC, 0x20AC, 0x20AC}};
  for (const Row& r : rows) {
    EXPECT_EQ(unsigned{Str::CapW(static_cast<WChar>(r.in))}, r.upper) << std::hex << r.in;
    EXPECT_EQ(unsigned{Str::LowW(static_cast<WChar>(r.in))}, r.lower) << std::hex << r.in;
  }
}

TEST(CapsLowsA, CountedFoldStopsAtTheTextEnd) {
  struct Row {
    std::string_view before;
    bool upper;
    std::string_view after;
  } rows[] = {
      {"abc", true, "ABC"},                                             // full array, no NUL
      {"ABC", false, "abc"},
      {std::string_view("ab\0cd", 5), true, std::string_view("AB\0cd", 5)},  // behind the NUL
      {std::string_view("\0x", 2), true, std::string_view("\0x", 2)},
      {"a1-Z", true, "A1-Z"},
      {"a1-Z", false, "a1-z"},
  };
  for (const Row& r : rows) {
    auto s = ArrayA(r.before);
    (r.upper ? Str::CapsA : Str::LowsA)(s.high(), s.data());
    EXPECT_EQ(std::string_view(s.data(), s.size()), r.after) << r.before;
  }
  // A bound of 0xFFFFFFFF: the NUL alone ends the text.
  auto s = ArrayA(std::string_view("ab\0c", 4));
  Str::CapsA(0xFFFFFFFFu, s.data());
  EXPECT_EQ(std::string_view(s.data(), 4), std::string_view("AB\0c", 4));
}

TEST(CapsLowsW, FullArrayFoldsItsLastCharacterAndStaysFull) {
  struct Row {
    std::basic_string<WChar> before;
    bool upper;
    std::basic_string<WChar> after;
  } rows[] = {
      {Units({'a', 0xE9, 'z'}), true, Units({'A', 0xC9, 'Z'})},   // full: the last one too
      {Units({'a', 0xE9, 0}), true, Units({'A', 0xC9, 0})},
      {Units({0x3B1}), true, Units({0x391})},                      // one element, full
      {Units({'A', 0x42F, 'Q'}), false, Units({'a', 0x44F, 'q'})},
      {Units({'a', 0, 'b'}), true, Units({'A', 0, 'b'})},          // behind the NUL stays
      {Units({0, 'b'}), false, Units({0, 'b'})},
  };
  for (const Row& r : rows) {
    auto s = ArrayW(r.before);
    (r.upper ? Str::CapsW : Str::LowsW)(s.high(), s.data());
    EXPECT_EQ(std::basic_string<WChar>(s.data(), s.size()), r.after) << s.Raw();
  }
  auto s = ArrayW(Units({'x', 0xFF, 0, 'y'}));
  Str::CapsW(0xFFFFFFFFu, s.data());
  EXPECT_EQ(std::basic_string<WChar>(s.data(), 4), Units({'X', 0x178, 0, 'y'}));
}

// Texts as stored: "\0" marks a NUL; an array without one is full.
struct OrderRow {
  std::string_view a, b;
  int want;
};

const OrderRow kCodeOrder[] = {
    {std::string_view("\0", 1), std::string_view("\0", 1), 0},
    {std::string_view("\0", 1), "a", -1},
    {"a", std::string_view("\0", 1), 1},
    {"ab", "abc", -1},
    {"abd", "abc", 1},
    {"abc", std::string_view("abc\0", 4), 0},          // full array against terminated
    {std::string_view("abc\0x", 5), std::string_view("abc\0y", 5), 0},
    {"\x80", "a", 1},                                   // codes are unsigned
    {"z", "\xE9", -1},
    {"abz", "ab\xE9", -1},                              // also behind the first character
    {"B", "a", -1},
    {"abc", "abc", 0},
};

TEST(CompareA, OrdersByUnsignedCode) {
  for (const OrderRow& r : kCodeOrder) {
    auto a = ArrayA(r.a);
    auto b = ArrayA(r.b);
    EXPECT_EQ(Str::CompareA(a.high(), a.data(), b.high(), b.data()), r.want) << r.a << "|" << r.b;
    EXPECT_EQ(Str::SameA(a.high(), a.data(), b.high(), b.data()), r.want == 0 ? 1 : 0);
  }
  // No bound: the NULs end both texts.
  auto a = ArrayA(std::string_view("ab\0", 3));
  auto b = ArrayA(std::string_view("ab\0", 3));
  EXPECT_EQ(Str::CompareA(0xFFFFFFFFu, a.data(), 0xFFFFFFFFu, b.data()), 0);
}

TEST(CompareW, OrdersByUnsignedCode) {
  for (const OrderRow& r : kCodeOrder) {
    auto a = ArrayW(brelt::test::As<WChar>(r.a));
    auto b = ArrayW(brelt::test::As<WChar>(r.b));
    EXPECT_EQ(Str::CompareW(a.high(), a.data(), b.high(), b.data()), r.want) << r.a << "|" << r.b;
    EXPECT_EQ(Str::SameW(a.high(), a.data(), b.high(), b.data()), r.want == 0 ? 1 : 0);
  }
  // 16-bit codes above 0x7FFF are unsigned as well.
  auto hi = ArrayW(Units({'a', 0xFFFF}));
  auto lo = ArrayW(Units({'a', 'b'}));
  EXPECT_EQ(Str::CompareW(hi.high(), hi.data(), lo.high(), lo.data()), 1);
  EXPECT_EQ(Str::CompareW(lo.high(), lo.data(), hi.high(), hi.data()), -1);
}

TEST(LocaleCompareA, EmptyTextsAndPlainLatinOrder) {
  struct Row {
    std::string_view a, b;
    int withCase, withoutCase;
  } rows[] = {
      {std::string_view("\0", 1), std::string_view("\0", 1), 0, 0},
      {std::string_view("\0", 1), "a", -1, -1},
      {"a", std::string_view("\0", 1), 1, 1},
      {"abc", "abd", -1, -1},
      {"ab", "abc", -1, -1},
      {"a", "B", -1, -1},     // letters first, case only breaks ties
      {"B", "a", 1, 1},
      {"abc", "ABC", -1, 0},  // lower case before upper case
      {"ABC", "abc", 1, 0},
      {"abc", std::string_view("abc\0zz", 6), 0, 0},  // lengths, not terminators
      {"1", "a", -1, -1},     // digits before letters
      {"-", "1", -1, -1},     // punctuation before digits
  };
  for (const Row& r : rows) {
    auto a = ArrayA(r.a);
    auto b = ArrayA(r.b);
    EXPECT_EQ(Str::LocaleCompareA(a.high(), a.data(), b.high(), b.data()), r.withCase)
        << r.a << "|" << r.b;
    EXPECT_EQ(Str::LocaleCompareCaseInsensitiveA(a.high(), a.data(), b.high(), b.data()),
              r.withoutCase)
        << r.a << "|" << r.b;
  }
}

}  // namespace
