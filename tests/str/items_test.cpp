// Str items in both twins, set and string forms on the same rows: the worked example, cut
// items, empty texts and separators, unterminated sources, dst equal to src, and 16-bit codes
// from 128 up. Every dst and every set sits against a guard page.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "guarded_array.h"

namespace {

using brelt::WChar;
using brelt::test::GuardedArray;

GuardedArray<unsigned char> SetFor(std::u16string_view chars, std::size_t bytes) {
  GuardedArray<unsigned char> set(bytes);
  for (std::size_t i = 0; i < bytes; ++i) set[i] = 0;
  for (char16_t c : chars) set[c / 8] = static_cast<unsigned char>(set[c / 8] | 1u << (c % 8));
  return set;
}
std::u16string Widen(std::string_view s) { return std::u16string(s.begin(), s.end()); }

// The text filling its array without NUL; an empty text is one NUL.
template <class T>
GuardedArray<T> Text(std::string_view text) {
  return GuardedArray<T>(text.empty() ? std::string_view("\0", 1) : text);
}

template <class T>
struct Twin {
  static constexpr auto Item = Str::ItemA;
  static constexpr auto ItemS = Str::ItemSA;
  static constexpr std::size_t kSetBytes = 32;
};
template <>
struct Twin<WChar> {
  static constexpr auto Item = Str::ItemW;
  static constexpr auto ItemS = Str::ItemSW;
  static constexpr std::size_t kSetBytes = 16;
};

template <class T>
class Items : public testing::Test {};
using Twins = testing::Types<char, WChar>;
TYPED_TEST_SUITE(Items, Twins);

// dst afterwards: '0' for a NUL, '#' for an element left alone.
TYPED_TEST(Items, BothFormsPickTheNthRun) {
  using Ops = Twin<TypeParam>;
  struct Row {
    std::string_view src, seps;
    std::size_t dstSize;
    unsigned index;
    std::string_view after;
  };
  const std::string_view ex = " one,, two ;three";
  const Row rows[] = {
      {ex, " ,;", 8, 0, "one0####"}, {ex, " ,;", 8, 1, "two0####"}, {ex, " ,;", 8, 2, "three0##"},
      {ex, " ,;", 8, 3, "0#######"}, {ex, " ,;", 8, 4, "0#######"}, {ex, " ,;", 3, 0, "one"},
      {ex, " ,;", 2, 0, "on"},       {ex, " ,;", 4, 0, "one0"},     {ex, " ,;", 1, 2, "t"},
      {ex, " ,;", 8, 0xFFFFFFFF, "0#######"},
      {"", " ,", 4, 0, "0###"},      {"", " ,", 4, 1, "0###"},      {" ,, ", " ,", 4, 0, "0###"},
      {" ,, ", " ,", 4, 1, "0###"},  {"a b", "", 5, 0, "a b0#"},    {"a b", "", 5, 1, "0####"},
      {"ab cd", " ", 3, 1, "cd0"},   {"ab cd", " ", 2, 1, "cd"},    {"ab cd ", " ", 3, 1, "cd0"},
      {std::string_view("ab\0cd", 5), " ", 4, 1, "0###"},  // the text ends at its NUL
      {std::string_view("ab\0cd", 5), std::string_view("\0 ", 2), 4, 0, "ab0#"},
      {"a-b+c", "-+", 4, 1, "b0##"}, {"a-b+c", std::string_view("-\0+", 3), 4, 1, "b+c0"},
  };
  for (const Row& r : rows) {
    const auto s = Text<TypeParam>(r.src);
    // The set holds the separator text and its NUL, which must make no difference.
    const auto nul = r.seps.find('\0');
    const auto set = SetFor(Widen(nul == r.seps.npos ? r.seps : r.seps.substr(0, nul + 1)),
                            Ops::kSetBytes);
    GuardedArray<TypeParam> bySet(r.dstSize), byText(r.dstSize);
    Ops::Item(bySet.high(), bySet.data(), s.high(), s.data(), set.data(), r.index);
    const auto p = Text<TypeParam>(r.seps);
    Ops::ItemS(byText.high(), byText.data(), s.high(), s.data(), p.high(), p.data(), r.index);
    EXPECT_EQ(bySet.Raw(), r.after) << "set form: '" << r.src << "' " << r.index;
    EXPECT_EQ(byText.Raw(), r.after) << "string form: '" << r.src << "' " << r.index;
  }
}

// dst is the array of src: the text is cut down to the item in place.
TYPED_TEST(Items, DstMayBeTheSourceArray) {
  struct Row { std::string_view text; unsigned index; std::string_view after; };
  const Row rows[] = {{"  alpha beta", 1, "beta0ha beta"},
                      {"  alpha beta", 0, "alpha0a beta"},
                      {"  alpha beta", 2, "0 alpha beta"},
                      {"one", 0, "one"}};
  const auto set = SetFor(u" ", Twin<TypeParam>::kSetBytes);
  for (const Row& r : rows) {
    auto a = Text<TypeParam>(r.text);
    Twin<TypeParam>::Item(a.high(), a.data(), a.high(), a.data(), set.data(), r.index);
    EXPECT_EQ(a.Raw(), r.after) << r.text << " index " << r.index;
  }
}

// ItemW's set covers codes 0..127 only: 0x00E9 and 0x2028 never separate there, even with
// every other bit on; ItemSW splits at any code of its text.
TEST(ItemsWide, CodesFrom128SeparateOnlyInTheStringForm) {
  const std::u16string text = u"a\u00E9b\u2028c";
  const GuardedArray<WChar> src{std::basic_string_view<WChar>(
      reinterpret_cast<const WChar*>(text.data()), text.size())};
  auto full = SetFor(u"", 16);
  for (int i = 0; i < 16; ++i) full[i] = 0xFF;
  full['a' / 8] = static_cast<unsigned char>(full['a' / 8] & ~0x0E);  // a, b, c are text
  struct Row { WChar sep; unsigned index; std::u16string byW, bySW; };
  const Row rows[] = {{0x00E9, 0, text, u"a"},
                      {0x00E9, 1, u"", u"b\u2028c"},
                      {0x2028, 1, u"", u"c"},
                      {0x0080, 0, text, text}};
  for (const Row& r : rows) {
    GuardedArray<WChar> w(6), sw(6), seps(1);
    Str::ItemW(w.high(), w.data(), src.high(), src.data(), full.data(), r.index);
    seps[0] = r.sep;
    Str::ItemSW(sw.high(), sw.data(), src.high(), src.data(), seps.high(), seps.data(), r.index);
    EXPECT_EQ(std::u16string(reinterpret_cast<const char16_t*>(w.data())), r.byW) << r.index;
    EXPECT_EQ(std::u16string(reinterpret_cast<const char16_t*>(sw.data())), r.bySW) << r.index;
  }
}

}  // namespace
