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
constexpr unsigned kAll = 0xFFFFFFFFu;

// `text` and its NUL in `size` elements (0: exactly those), '#' behind.
template <class T = char>
GuardedArray<T> In(SV text, std::size_t size = 0) {
  GuardedArray<T> a(size == 0 ? text.size() + 1 : size);
  for (std::size_t i = 0; i < text.size(); ++i) a[i] = static_cast<unsigned char>(text[i]);
  if (text.size() < a.size()) a[text.size()] = T{0};
  return a;
}
// The text of an array: up to its NUL, all of it when full.
template <class T>
std::string Out(const GuardedArray<T>& a) {
  std::string s;
  for (std::size_t i = 0; i < a.size() && a[i] != T{0}; ++i) s += static_cast<char>(a[i]);
  return s;
}
// Several texts in one, so that a row's outputs are checked and reported together.
std::string Join(std::initializer_list<SV> parts) {
  std::string s;
  for (SV p : parts) (s += p) += '|';
  return s;
}
// Every element as it stands.
std::string Stored(const GuardedArray<char>& a) { return {a.data(), a.data() + a.size()}; }

template <class T> class FiorSplitPath : public testing::Test {};
using Twins = testing::Types<char, WChar>;
TYPED_TEST_SUITE(FiorSplitPath, Twins);

// Each row also runs with an all-ones bound, which must stop at the NUL before the guard.
TYPED_TEST(FiorSplitPath, Table) {
  const struct { SV path, dir, name; } rows[] = {
      {"C:\\x\\y.txt", "C:\\x", "y.txt"}, {"C:\\y.txt", "C:\\", "y.txt"},
      {"C:y.txt", "C:", "y.txt"},         {"C:", "C:", ""},
      {"y.txt", "", "y.txt"},             {"a\\b\\c", "a\\b", "c"},
      {"a\\b", "a\\b", ""},               {"\\x", "\\x", ""},
      {"\\x\\y", "\\x\\", "y"},           {"\\\\srv\\sh\\d\\f", "\\\\srv\\sh\\d", "f"},
      {"\\\\srv\\sh\\f", "\\\\srv\\sh\\", "f"}, {"\\\\srv\\sh", "\\\\srv\\sh", ""},
      {"C:\\", "C:\\", ""},               {"", "", ""}};
  for (const auto& r : rows) {
    for (const bool ones : {false, true}) {
      auto path = In<TypeParam>(r.path);
      GuardedArray<TypeParam> dir(16), name(16);
      if constexpr (sizeof(TypeParam) == 1) {
        FIOR::SplitPathA(ones ? kAll : path.high(), path.data(), 15, dir.data(), 15, name.data());
      } else {
        FIOR::SplitPathW(ones ? kAll : path.high(), path.data(), 15, dir.data(), 15, name.data());
      }
      EXPECT_EQ(Join({Out(dir), Out(name)}), Join({r.dir, r.name})) << r.path;
    }
  }
}

// A 16-bit character whose low byte is a backslash does not separate.
TEST(FiorSplitPath, WideCharacterIsNoBackslash) {
  auto path = In<WChar>("a?b\\c");
  GuardedArray<WChar> dir(4), name(2);
  path[1] = 0x015C;
  FIOR::SplitPathW(path.high(), path.data(), 3, dir.data(), 1, name.data());
  EXPECT_TRUE(dir[1] == 0x015C && dir[3] == 0 && name[0] == u'c' && name[1] == 0);
}

// Outputs that fill their arrays keep no NUL; `high` ends a path that has none.
TEST(FiorSplitPath, Bounds) {
  const struct { SV stored; unsigned dirSize, nameSize; SV dir, name; } rows[] = {
      {"C:\\x\\y.txt\0"sv, 3, 3, "C:\\", "y.t"}, {"C:\\x\\y.txt\0"sv, 4, 6, "C:\\x", "y.txt\0"sv},
      {"C:\\x\\", 5, 2, "C:\\x\0"sv, "\0#"sv},   {"\\\\srv\\sh", 9, 2, "\\\\srv\\sh\0"sv, "\0#"sv}};
  for (const auto& r : rows) {
    GuardedArray<char> path(r.stored), dir(r.dirSize), name(r.nameSize);
    FIOR::SplitPathA(path.high(), path.data(), dir.high(), dir.data(), name.high(), name.data());
    EXPECT_EQ(Stored(dir), r.dir) << r.stored;
    EXPECT_EQ(Stored(name), r.name) << r.stored;
  }
}

// Arrays of 8 for every part but where `sizes` says less, to cut the parts.
TEST(FiorPathParts, SplitAll) {
  const struct { SV path, drive, dir, name, ext; unsigned sizes[4] = {8, 8, 8, 8}; } rows[] = {
      {"C:\\x\\y.txt", "C:", "\\x\\", "y", ".txt"}, {"C:\\x\\y", "C:", "\\x\\", "y", ""},
      {"a.b\\c", "", "a.b\\", "c", ""},             {"a.b\\c.d", "", "a.b\\", "c", ".d"},
      {"..\\f", "", "..\\", "f", ""},               {"a..b", "", "", "a.", ".b"},
      {"a.", "", "", "a", "."},                     {".hidden", "", "", "", ".hidden"},
      {"a/b.c", "", "a/", "b", ".c"},               {"AB:\\q", "AB:", "\\", "q", ""},
      {"", "", "", "", ""},
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

// A result longer than dst is cut at dsthigh, the separator and the dot too.
TEST(FiorPathParts, MakeAll) {
  const struct { SV drive, dir, name, ext, path; unsigned size = 16; } rows[] = {
      {"C:", "\\x", "y", "txt", "C:\\x\\y.txt"}, {"C:", "\\x\\", "y", ".txt", "C:\\x\\y.txt"},
      {"C:", "x/", "y", "txt", "C:x/y.txt"},      {"", "x", "", "", "x\\"},
      {"C:", "\\x", "y", "txt", "C:\\x\\y", 6},    {"C:", "\\x", "", "txt", "C:\\x\\", 5}};
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

TEST(FiorExtension, Table) {
  const struct { SV name, add, change, get, remove; } rows[] = {
      {"a", "a.ext", "a.ext", "", "a"},          {"a.b", "a.b", "a.ext", "b", "a"},
      {"a.b.c", "a.b.c", "a.b.ext", "c", "a.b"},
      {"d.e\\f", "d.e\\f.ext", "d.e\\f.ext", "", "d.e\\f"},
      {"d.e\\", "d.e\\.ext", "d.e.ext", "", "d.e\\"}, {"d\\", "d\\.ext", "d.ext", "", "d\\"},
      {"a.", "a.", "a.ext", "", "a"},            {"..", "..", "..", "", "."},
      {"C:", "C:.ext", "C:", "", "C:"},          {"C:\\", "C:\\.ext", "C:\\", "", "C:\\"},
      {"", ".ext", "", "", ""},                  {"x\\.", "x\\.", "x\\.", "", "x\\"},
      {".\\", ".\\.ext", ".\\", "", ".\\"},         {":", ":.ext", ":", "", ":"}};
  for (const auto& r : rows) {
    auto add = In(r.name, 16), change = In(r.name, 16), remove = In(r.name, 16), name = In(r.name);
    GuardedArray<char> ext(8);
    Add(add.high(), add.data());
    Change(change.high(), change.data());
    FIOR::RemoveExtensionA(remove.high(), remove.data());
    FIOR::GetExtensionA(name.high(), name.data(), ext.high(), ext.data());
    EXPECT_EQ(Join({Out(add), Out(change), Out(ext), Out(remove)}),
              Join({r.add, r.change, r.get, r.remove})) << r.name;
  }
}

void Remove(unsigned high, char* s) { FIOR::RemoveExtensionA(high, s); }
// Arrays as stored, before and after: results that fill the array, and names ended by `high`.
TEST(FiorExtension, Bounds) {
  const struct { void (*op)(unsigned, char*); SV before, after; unsigned high = 0; } rows[] = {
      {Add, "a\0##"sv, "a.ex"},           {Change, "a.b\0"sv, "a.ex"},
      {Change, "ab.", "ab."},             {Change, "a\\\0#"sv, "a.ex"},
      {Add, "a.b\\c", "a.b\\c"},         {Remove, "a.b\\c", "a\0b\\c"sv, 2},
      {Remove, "a.b\\c.d", "a.b\\c\0d"sv},
      {FIOR::WildcardTailA, "ab", "*\0"sv}, {FIOR::WildcardTailA, "dir\\", "dir\\"},
      {FIOR::WildcardTailA, "d\\x", "d\\*"}, {FIOR::WildcardTailA, "abc.txt", "*.txt\0t"sv}};
  for (const auto& r : rows) {
    GuardedArray<char> s(r.before);
    r.op(r.high ? r.high : s.high(), s.data());
    EXPECT_EQ(Stored(s), r.after) << r.before;
  }
}

TEST(FiorExtension, IsExtension) {
  const struct { SV name; unsigned high; SV ext; unsigned char is; } rows[] = {
      {"a.b.TXT", 0, "txt", 1}, {"a.txt", 0, "t?t", 1}, {"dir.txt\\file", 0, "txt", 0},
      {"a.txt.x", 4, "txt", 1}, {"a.txt", 0, "tx", 0}};
  for (const auto& r : rows) {
    auto name = In(r.name), ext = In(r.ext);
    EXPECT_EQ(FIOR::IsExtensionA(r.high ? r.high : name.high(), name.data(), ext.high(),
                                 ext.data()), r.is) << r.name << " " << r.ext;
  }
}

TEST(FiorExtension, WildcardTail) {
  const struct { SV name, mask; } rows[] = {
      {"abc", "*"},           {"abc.txt", "*.txt"},    {"a.b.c", "*.c"},
      {"dir\\abc.txt", "dir\\*.txt"}, {"dir\\abc", "dir\\*"}, {"dir\\", "dir\\*"},
      {"C:abc.txt", "C:*.txt"}, {".txt", "*"},         {"dir\\.txt", "dir\\*"},
      {"abc.", "*."},         {"a.b\\c", "a.b\\*"},    {"", ""}};
  for (const auto& r : rows) {
    auto name = In(r.name, 16);
    FIOR::WildcardTailA(name.high(), name.data());
    EXPECT_EQ(Out(name), r.mask) << r.name;
  }
}

}  // namespace
