// Str items in both twins: the worked example of the set and the string forms, cut items at
// the edge of dst, empty texts and separator sets, unterminated sources, dst equal to src,
// and characters from 128 up in the 16-bit forms. Every dst sits against a guard page.
#include <brelt/str.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "guarded_array.h"

namespace {

using brelt::WChar;
using brelt::test::GuardedArray;

// A set of the given width holding the characters of `chars`.
std::basic_string<unsigned char> SetFor(std::string_view chars, std::size_t bytes) {
  std::basic_string<unsigned char> set(bytes, 0);
  for (char c : chars) {
    const auto k = static_cast<unsigned char>(c);
    set[k / 8] = static_cast<unsigned char>(set[k / 8] | (1u << (k % 8)));
  }
  return set;
}

// The text filling its array without NUL; an empty text is one NUL.
template <class T>
GuardedArray<T> Text(std::string_view text) {
  return GuardedArray<T>(text.empty() ? std::string_view("\0", 1) : text);
}

template <class T>
struct Twin;
template <>
struct Twin<char> {
  static constexpr std::size_t kSetBytes = 32;
  static void Item(unsigned h, char* d, unsigned sh, const char* s, const unsigned char* set,
                   unsigned i) {
    Str::ItemA(h, d, sh, s, set, i);
  }
  static void ItemS(unsigned h, char* d, unsigned sh, const char* s, unsigned ph,
                    const char* p, unsigned i) {
    Str::ItemSA(h, d, sh, s, ph, p, i);
  }
};
template <>
struct Twin<WChar> {
  static constexpr std::size_t kSetBytes = 16;
  static void Item(unsigned h, WChar* d, unsigned sh, const WChar* s, const unsigned char* set,
                   unsigned i) {
    Str::ItemW(h, d, sh, s, set, i);
  }
  static void ItemS(unsigned h, WChar* d, unsigned sh, const WChar* s, unsigned ph,
                    const WChar* p, unsigned i) {
    Str::ItemSW(h, d, sh, s, ph, p, i);
  }
};

template <class T>
class Items : public testing::Test {
 protected:
  using Ops = Twin<T>;
  // Runs the set form and the string form on the same row and gives both results.
  static std::pair<std::string, std::string> Both(std::string_view src, std::string_view seps,
                                                  std::size_t dstSize, unsigned index) {
    const auto s = Text<T>(src);
    const auto set = SetFor(seps, Ops::kSetBytes);
    GuardedArray<T> bySet(dstSize);
    Ops::Item(bySet.high(), bySet.data(), s.high(), s.data(), set.data(), index);
    const auto p = Text<T>(seps);
    GuardedArray<T> byText(dstSize);
    Ops::ItemS(byText.high(), byText.data(), s.high(), s.data(), p.high(), p.data(), index);
    return {bySet.Raw(), byText.Raw()};
  }
};
using Twins = testing::Types<char, WChar>;
TYPED_TEST_SUITE(Items, Twins);

// dst as it stands afterwards: '0' for a NUL, '#' for an element left alone.
struct Row {
  std::string_view src;
  std::string_view seps;
  std::size_t dstSize;
  unsigned index;
  std::string_view after;
};

TYPED_TEST(Items, PicksTheNthRunBetweenSeparators) {
  const Row rows[] = {
      {" one,, two ;three", " ,;", 8, 0, "one0####"},
      {" one,, two ;three", " ,;", 8, 1, "two0####"},
      {" one,, two ;three", " ,;", 8, 2, "three0##"},
      {" one,, two ;three", " ,;", 8, 3, "0#######"},
      {" one,, two ;three", " ,;", 8, 4, "0#######"},
      {" one,, two ;three", " ,;", 8, 0xFFFFFFFF, "0#######"},
      {" one,, two ;three", " ,;", 3, 0, "one"},
      {" one,, two ;three", " ,;", 2, 0, "on"},
      {" one,, two ;three", " ,;", 4, 0, "one0"},
      {" one,, two ;three", " ,;", 1, 2, "t"},
      {"", " ,", 4, 0, "0###"},
      {"", " ,", 4, 1, "0###"},
      {" ,, ", " ,", 4, 0, "0###"},
      {" ,, ", " ,", 4, 1, "0###"},
      {"a b", "", 5, 0, "a b0#"},
      {"a b", "", 5, 1, "0####"},
      {"ab cd", " ", 3, 1, "cd0"},
      {"ab cd", " ", 2, 1, "cd"},
      {"ab cd ", " ", 3, 1, "cd0"},
      {std::string_view("ab\0cd", 5), " ", 4, 0, "ab0#"},
      {std::string_view("ab\0cd", 5), " ", 4, 1, "0###"},
      {"x", " ", 1, 0, "x"},
      {"xy", "y", 2, 1, "0#"},
  };
  for (const Row& r : rows) {
    const auto [bySet, byText] = TestFixture::Both(r.src, r.seps, r.dstSize, r.index);
    EXPECT_EQ(bySet, r.after) << "set form: '" << r.src << "' index " << r.index;
    EXPECT_EQ(byText, r.after) << "string form: '" << r.src << "' index " << r.index;
  }
}

// A NUL in the separator set changes nothing: NUL ends the text and is never looked at.
TYPED_TEST(Items, NulInTheSetIsNoSeparator) {
  const auto s = Text<TypeParam>(std::string_view("ab\0cd", 5));
  auto set = SetFor(" ", TestFixture::Ops::kSetBytes);
  set[0] |= 1;
  GuardedArray<TypeParam> dst(4);
  TestFixture::Ops::Item(dst.high(), dst.data(), s.high(), s.data(), set.data(), 1);
  EXPECT_EQ(dst.Raw(), "0###");
}

// The separator text ends at its own bound, and a NUL inside it ends it early.
TYPED_TEST(Items, SeparatorTextIsBoundedToo) {
  struct SepRow {
    std::string_view seps;
    unsigned index;
    std::string_view after;
  } rows[] = {
      {"-+", 1, "b0##"},
      {"-", 1, "b+c0"},
      {std::string_view("-\0+", 3), 1, "b+c0"},
      {std::string_view("\0-", 2), 0, "a-b+"},
  };
  const auto s = Text<TypeParam>("a-b+c");
  for (const SepRow& r : rows) {
    const auto p = Text<TypeParam>(r.seps);
    GuardedArray<TypeParam> dst(4);
    TestFixture::Ops::ItemS(dst.high(), dst.data(), s.high(), s.data(), p.high(), p.data(),
                            r.index);
    EXPECT_EQ(dst.Raw(), r.after) << "index " << r.index;
  }
}

// dst is the array of src: the text is cut down to the item in place.
TYPED_TEST(Items, DstMayBeTheSourceArray) {
  const struct InPlace {
    std::string_view text;
    unsigned index;
    std::string_view after;
  } rows[] = {
      {"  alpha beta", 1, "beta0ha beta"},
      {"  alpha beta", 0, "alpha0a beta"},
      {"one", 0, "one"},
      {"  alpha beta", 2, "0 alpha beta"},
  };
  const auto set = SetFor(" ", TestFixture::Ops::kSetBytes);
  for (const InPlace& r : rows) {
    GuardedArray<TypeParam> a(r.text.size());
    for (std::size_t i = 0; i < r.text.size(); ++i) a[i] = static_cast<TypeParam>(r.text[i]);
    TestFixture::Ops::Item(a.high(), a.data(), a.high(), a.data(), set.data(), r.index);
    EXPECT_EQ(a.Raw(), r.after) << r.text << " index " << r.index;
  }
}

// 0x00E9 and 0x2028 lie beyond the 128 codes of the 16-byte set: ItemW never splits at them,
// even with every other bit of the set on; ItemSW splits at any code in its text.
TEST(ItemsWide, CodesFrom128OnlySeparateInTheStringForm) {
  const WChar text[] = {u'a', 0x00E9, u'b', 0x2028, u'c'};
  GuardedArray<WChar> src(5);
  for (int i = 0; i < 5; ++i) src[i] = text[i];
  // Every code below 128 but the letters separates.
  std::basic_string<unsigned char> full(16, 0xFF);
  for (unsigned k : {'a', 'b', 'c'}) full[k / 8] = static_cast<unsigned char>(full[k / 8] & ~(1u << (k % 8)));
  struct Row {
    WChar sep;
    unsigned index;
    std::basic_string<WChar> itemW, itemSW;
  } rows[] = {
      {0x00E9, 0, {u'a', 0x00E9, u'b', 0x2028, u'c'}, {u'a'}},
      {0x00E9, 1, {}, {u'b', 0x2028, u'c'}},
      {0x2028, 1, {}, {u'c'}},
      {0x0080, 0, {u'a', 0x00E9, u'b', 0x2028, u'c'}, {u'a', 0x00E9, u'b', 0x2028, u'c'}},
  };
  for (const Row& r : rows) {
    GuardedArray<WChar> byW(6);
    Str::ItemW(byW.high(), byW.data(), src.high(), src.data(), full.data(), r.index);
    EXPECT_EQ(std::basic_string<WChar>(byW.data()), r.itemW) << int(r.sep) << " " << r.index;
    GuardedArray<WChar> seps(1);
    seps[0] = r.sep;
    GuardedArray<WChar> bySW(6);
    Str::ItemSW(bySW.high(), bySW.data(), src.high(), src.data(), seps.high(), seps.data(),
                r.index);
    EXPECT_EQ(std::basic_string<WChar>(bySW.data()), r.itemSW) << int(r.sep) << " " << r.index;
  }
}

// An 8-bit character from 128 up is as good a separator as any in the A forms.
TEST(ItemsNarrow, HighBytesSeparate) {
  const auto src = Text<char>("ab\xE9" "cd");
  const auto set = SetFor("\xE9", 32);
  const auto seps = Text<char>("\xE9");
  GuardedArray<char> bySet(3), byText(3);
  Str::ItemA(bySet.high(), bySet.data(), src.high(), src.data(), set.data(), 1);
  Str::ItemSA(byText.high(), byText.data(), src.high(), src.data(), seps.high(), seps.data(), 1);
  EXPECT_EQ(bySet.Raw(), "cd0");
  EXPECT_EQ(byText.Raw(), "cd0");
}

}  // namespace
