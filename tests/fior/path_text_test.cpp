// FIOR path text: splitting, the four parts, extensions and search masks. Sources sit flush
// against a guard page (exactly their characters and NUL), destinations start as '#' filler,
// so a read past a source or a write past `high` faults and a missing NUL shows.
#include <brelt/fior.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>

#include "guarded_array.h"

namespace {

using namespace std::string_view_literals;
using SV = std::string_view;
using brelt::WChar, brelt::test::GuardedArray;
// In 16-bit text '?' stands for U+015C, whose low byte is a backslash and which separates nothing.
constexpr WChar kNotBackslash = 0x015C;

// `text` and its NUL in `size` elements (0: exactly those), '#' behind.
template <class T = char>
GuardedArray<T> In(SV text, std::size_t size = 0) {
  GuardedArray<T> a(size == 0 ? text.size() + 1 : size);
  for (std::size_t i = 0; i < text.size(); ++i) {
    a[i] = sizeof(T) > 1 && text[i] == '?' ? kNotBackslash : static_cast<unsigned char>(text[i]);
  }
  if (text.size() < a.size()) a[text.size()] = T{0};
  return a;
}
// Up to the NUL, all of it when full.
template <class T>
std::string Out(const GuardedArray<T>& a) {
  std::string s;
  for (std::size_t i = 0; i < a.size() && a[i] != T{0}; ++i) {
    s += sizeof(T) > 1 && a[i] == kNotBackslash ? '?' : static_cast<char>(a[i]);
  }
  return s;
}
// A row's outputs in one text, checked and reported together.
std::string Join(std::initializer_list<SV> parts) {
  std::string s;
  for (SV p : parts) (s += p) += '|';
  return s;
}

void Split(unsigned h, const char* p, unsigned dh, char* d, unsigned nh, char* n) {
  FIOR::SplitPathA(h, p, dh, d, nh, n);
}
void Split(unsigned h, const WChar* p, unsigned dh, WChar* d, unsigned nh, WChar* n) {
  FIOR::SplitPathW(h, p, dh, d, nh, n);
}

template <class T> class FiorSplitPath : public testing::Test {};
using Twins = testing::Types<char, WChar>;
TYPED_TEST_SUITE(FiorSplitPath, Twins);

// Outputs in arrays of 16, or of the sizes given, which cut them without a NUL. A path with a
// NUL runs once more with an all-ones bound; one without (`open`) is ended by `high`.
TYPED_TEST(FiorSplitPath, Table) {
  const struct { SV path, dir, name; unsigned sizes[2] = {16, 16}; bool open = 0; } rows[] = {
      {"C:\\x\\y.txt", "C:\\x", "y.txt"}, {"C:\\y.txt", "C:\\", "y.txt"},
      {"C:y.txt", "C:", "y.txt"},         {"C:", "C:", ""},
      {"y.txt", "", "y.txt"},             {"a\\b\\c", "a\\b", "c"},
      {"a\\b", "a\\b", ""},               {"\\x", "\\x", ""},
      {"\\x\\y", "\\x\\", "y"},           {"\\\\srv\\sh\\d\\f", "\\\\srv\\sh\\d", "f"},
      {"\\\\srv\\sh\\f", "\\\\srv\\sh\\", "f"}, {"\\\\srv\\sh", "\\\\srv\\sh", ""},
      {"C:\\", "C:\\", ""},               {"ab?c", "", "ab?c"},
      {"C:\\x\\y.txt", "C:\\", "y.t", {3, 3}}, {"C:\\x\\", "C:\\x", "", {5, 2}, 1},
      {"\\\\srv\\sh", "\\\\srv\\sh", "", {9, 2}, 1}};
  for (const auto& r : rows) {
    for (const unsigned ones : {0u, r.open ? 0u : 0xFFFFFFFFu}) {
      auto path = In<TypeParam>(r.path, r.open ? r.path.size() : 0);
      GuardedArray<TypeParam> dir(r.sizes[0]), name(r.sizes[1]);
      Split(ones | path.high(), path.data(), dir.high(), dir.data(), name.high(), name.data());
      EXPECT_EQ(Join({Out(dir), Out(name)}), Join({r.dir, r.name})) << r.path;
    }
  }
}

// Parts in arrays of 8, or of the sizes given, which cut them.
TEST(FiorPathParts, SplitAll) {
  const struct { SV path, drive, dir, name, ext; unsigned sizes[4] = {8, 8, 8, 8}; } rows[] = {
      {"C:\\x\\y.txt", "C:", "\\x\\", "y", ".txt"}, {"C:\\x\\y", "C:", "\\x\\", "y", ""},
      {"a.b\\c", "", "a.b\\", "c", ""},             {"a.b\\c.d", "", "a.b\\", "c", ".d"},
      {"..\\f", "", "..\\", "f", ""},               {"a..b", "", "", "a.", ".b"},
      {"a.", "", "", "a", "."},                     {".hidden", "", "", "", ".hidden"},
      {"a/b.c", "", "a/", "b", ".c"},               {"AB:\\q", "AB:", "\\", "q", ""},
      {"C:\\x\\y.txt", "C", ":\\x\\", "y", ".t", {1, 8, 8, 2}},
      {"ab\\cd.txt", "", "ab", "c", ".txt", {1, 2, 1, 4}}};
  for (const auto& r : rows) {
    auto path = In(r.path);
    GuardedArray<char> drive(r.sizes[0]), dir(r.sizes[1]), name(r.sizes[2]), ext(r.sizes[3]);
    FIOR::SplitAllPathA(0, path.data(), drive.high(), drive.data(), dir.high(), dir.data(),
                        name.high(), name.data(), ext.high(), ext.data());
    EXPECT_EQ(Join({Out(drive), Out(dir), Out(name), Out(ext)}),
              Join({r.drive, r.dir, r.name, r.ext})) << r.path;
  }
}

// The last row's dot would fall behind dsthigh.
TEST(FiorPathParts, MakeAll) {
  const struct { SV drive, dir, name, ext, path; unsigned size = 16; } rows[] = {
      {"C:", "\\x", "y", "txt", "C:\\x\\y.txt"}, {"C:", "\\x\\", "y", ".txt", "C:\\x\\y.txt"},
      {"C:", "x/", "y", "txt", "C:x/y.txt"},      {"C:", "\\x", "y", "txt", "C:\\x\\y", 6}};
  for (const auto& r : rows) {
    auto drive = In(r.drive), dir = In(r.dir), name = In(r.name), ext = In(r.ext);
    GuardedArray<char> dst(r.size);
    FIOR::MakeAllPathA(dst.high(), dst.data(), drive.high(), drive.data(), dir.high(),
                       dir.data(), name.high(), name.data(), ext.high(), ext.data());
    EXPECT_EQ(Out(dst), r.path) << r.dir << " " << r.name;
  }
}

void Add(unsigned high, char* s) { FIOR::AddExtensionA(high, s, 3, "ext"); }
void Change(unsigned high, char* s) { FIOR::ChangeExtensionA(high, s, 3, "ext"); }
void Remove(unsigned high, char* s) { FIOR::RemoveExtensionA(high, s); }
void Mask(unsigned high, char* s) { FIOR::WildcardTailA(high, s); }

TEST(FiorExtension, Table) {
  const struct { SV name, add, change, get, remove; } rows[] = {
      {"a", "a.ext", "a.ext", "", "a"},          {"a.b", "a.b", "a.ext", "b", "a"},
      {"a.b.c", "a.b.c", "a.b.ext", "c", "a.b"},
      {"d.e\\f", "d.e\\f.ext", "d.e\\f.ext", "", "d.e\\f"},
      {"d.e\\", "d.e\\.ext", "d.e.ext", "", "d.e\\"}, {"d\\", "d\\.ext", "d.ext", "", "d\\"},
      {"a.", "a.", "a.ext", "", "a"},            {"..", "..", "..", "", "."},
      {"C:", "C:.ext", "C:", "", "C:"},          {"C:\\", "C:\\.ext", "C:\\", "", "C:\\"},
      {"", ".ext", "", "", ""},                  {"x\\.", "x\\.", "x\\.", "", "x\\"}};
  for (const auto& r : rows) {
    auto add = In(r.name, 16), change = In(r.name, 16), remove = In(r.name, 16), name = In(r.name);
    GuardedArray<char> ext(8);
    Add(add.high(), add.data());
    Change(change.high(), change.data());
    Remove(remove.high(), remove.data());
    FIOR::GetExtensionA(name.high(), name.data(), ext.high(), ext.data());
    EXPECT_EQ(Join({Out(add), Out(change), Out(ext), Out(remove)}),
              Join({r.add, r.change, r.get, r.remove})) << r.name;
  }
}

TEST(FiorExtension, IsExtension) {
  const struct { SV name, ext; unsigned char is; unsigned high = 0; } rows[] = {
      {"a.b.TXT", "txt", 1}, {"a.txt", "t?t", 1}, {"dir.txt\\file", "txt", 0},
      {"a.txt.x", "txt", 1, 4}};
  for (const auto& r : rows) {
    auto name = In(r.name), ext = In(r.ext);
    const unsigned high = r.high ? r.high : name.high();
    EXPECT_EQ(FIOR::IsExtensionA(high, name.data(), ext.high(), ext.data()), r.is) << r.name;
  }
}

// Search masks, and names in arrays that they fill (no NUL) or that `high` ends.
TEST(FiorExtension, InPlace) {
  const struct { void (*op)(unsigned, char*); SV name, want; unsigned size = 16, high = 0; }
      rows[] = {
      {Mask, "abc", "*"},             {Mask, "abc.txt", "*.txt"},     {Mask, "a.b.c", "*.c"},
      {Mask, "dir\\abc.txt", "dir\\*.txt"}, {Mask, "dir\\abc", "dir\\*"}, {Mask, "dir\\", "dir\\*"},
      {Mask, "C:abc.txt", "C:*.txt"}, {Mask, ".txt", "*"},            {Mask, "dir\\.txt", "dir\\*"},
      {Mask, "abc.", "*."},           {Mask, "a.b\\c", "a.b\\*"},     {Mask, "dir\\", "dir\\", 4},
      {Mask, "d\\x", "d\\*", 3},      {Add, "a", "a.ex", 4},          {Change, "a.b", "a.ex", 4},
      {Change, "ab.", "ab.", 3},      {Remove, "a.b\\c", "a", 5, 2}};
  for (const auto& r : rows) {
    auto name = In(r.name, r.size);
    r.op(r.high ? r.high : name.high(), name.data());
    EXPECT_EQ(Out(name), r.want) << r.name << " in " << r.size;
  }
}

}  // namespace
