// Str items in both twins, set and string forms on the same rows; dst equal to src; and 16-bit
// codes from 128 up. Every dst and every set sits against a guard page; a dst afterwards reads
// '0' for a NUL and '#' for an element left alone.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "guarded_array.h"

namespace {

using brelt::WChar;
using brelt::test::GuardedArray;
using SV = std::string_view;

GuardedArray<unsigned char> SetFor(std::u16string_view chars, std::size_t bytes) {
  GuardedArray<unsigned char> set(bytes);
  std::memset(set.data(), 0, bytes);
  for (char16_t c : chars) set[c / 8] = static_cast<unsigned char>(set[c / 8] | 1u << (c % 8));
  return set;
}

// The text filling its array without NUL; an empty text is one NUL.
template <class T>
GuardedArray<T> Text(SV text) { return GuardedArray<T>(text.empty() ? SV("\0", 1) : text); }

template <class T>
struct Twin {
  static constexpr auto Item = Str::ItemA; static constexpr auto ItemS = Str::ItemSA;
  static constexpr std::size_t kSetBytes = 32;
};
template <>
struct Twin<WChar> {
  static constexpr auto Item = Str::ItemW; static constexpr auto ItemS = Str::ItemSW;
  static constexpr std::size_t kSetBytes = 16;
};

template <class T>
class Items : public testing::Test, public Twin<T> {};
using Twins = testing::Types<char, WChar>;
TYPED_TEST_SUITE(Items, Twins);

TYPED_TEST(Items, BothFormsPickTheNthRun) {
  const SV ex = " one,, two ;three", abNul("ab\0cd", 5);
  const struct { SV src, seps; std::size_t dstSize; unsigned index; SV after; } rows[] = {
      {ex, " ,;", 8, 0, "one0####"}, {ex, " ,;", 8, 1, "two0####"}, {ex, " ,;", 8, 2, "three0##"},
      {ex, " ,;", 8, 3, "0#######"}, {ex, " ,;", 8, 0xFFFFFFFF, "0#######"},
      {ex, " ,;", 3, 0, "one"},      {ex, " ,;", 2, 0, "on"},       {ex, " ,;", 4, 0, "one0"},
      {"", " ,", 4, 0, "0###"},      {" ,, ", " ,", 4, 0, "0###"},  {"a b", "", 5, 0, "a b0#"},
      {"a b", "", 5, 1, "0####"},    {"ab cd", " ", 3, 1, "cd0"},   {"ab cd ", " ", 3, 1, "cd0"},
      {abNul, " ", 4, 1, "0###"},    {abNul, SV("\0 ", 2), 4, 0, "ab0#"},  // text ends at NUL
      {"a-b+c", "-+", 4, 1, "b0##"}, {"a-b+c", SV("-\0+", 3), 4, 1, "b+c0"}};
  for (const auto& r : rows) {
    // The set holds the separator text up to and with its NUL, which must make no difference.
    const auto nul = r.seps.find('\0');
    const SV inSet = r.seps.substr(0, nul == SV::npos ? nul : nul + 1);
    const auto s = Text<TypeParam>(r.src), p = Text<TypeParam>(r.seps);
    const auto set = SetFor(std::u16string(inSet.begin(), inSet.end()), this->kSetBytes);
    GuardedArray<TypeParam> bySet(r.dstSize), byText(r.dstSize);
    this->Item(bySet.high(), bySet.data(), s.high(), s.data(), set.data(), r.index);
    this->ItemS(byText.high(), byText.data(), s.high(), s.data(), p.high(), p.data(), r.index);
    EXPECT_EQ(bySet.Raw(), r.after) << "set form: '" << r.src << "' " << r.index;
    EXPECT_EQ(byText.Raw(), r.after) << "string form: '" << r.src << "' " << r.index;
  }
  // dst is the array of src: the text is cut down to the item in place.
  const auto space = SetFor(u" ", this->kSetBytes);
  const struct { SV text; unsigned index; SV after; } same[] = {
      {"  alpha beta", 1, "beta0ha beta"}, {"  alpha beta", 2, "0 alpha beta"}, {"one", 0, "one"}};
  for (const auto& r : same) {
    auto a = Text<TypeParam>(r.text);
    this->Item(a.high(), a.data(), a.high(), a.data(), space.data(), r.index);
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
  std::memset(full.data(), 0xFF, 16);
  full['a' / 8] = static_cast<unsigned char>(full['a' / 8] & ~0x0E);  // a, b, c are text
  const struct { WChar sep; unsigned index; std::u16string byW, bySW; } rows[] = {
      {0x00E9, 0, text, u"a"}, {0x00E9, 1, u"", u"b\u2028c"}, {0x2028, 1, u"", u"c"},
      {0x0080, 0, text, text}};
  auto str = [](const WChar* p) { return std::u16string(reinterpret_cast<const char16_t*>(p)); };
  for (const auto& r : rows) {
    GuardedArray<WChar> w(6), sw(6), seps(1);
    seps[0] = r.sep;
    Str::ItemW(w.high(), w.data(), src.high(), src.data(), full.data(), r.index);
    Str::ItemSW(sw.high(), sw.data(), src.high(), src.data(), seps.high(), seps.data(), r.index);
    EXPECT_EQ(str(w.data()), r.byW) << r.index;
    EXPECT_EQ(str(sw.data()), r.bySW) << r.index;
  }
}

}  // namespace
