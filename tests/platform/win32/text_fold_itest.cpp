// The Win32 folds and ordering beyond ASCII. Their results follow the system's 8-bit code page,
// so the 8-bit rows hold where that page is Windows-1252 and are skipped elsewhere.
#include <brelt/str.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <string_view>

#include "guarded_array.h"
#include "platform/collate.h"
#include "platform/text_fold.h"

namespace {

using brelt::test::GuardedArray;

TEST(Win32Fold, EightBitFoldsUnderWindows1252) {
  if (GetACP() != 1252) {
    GTEST_SKIP() << "the rows are Windows-1252 bytes; this code page is " << GetACP();
  }
  struct Row {
    unsigned char in, upper, lower;
  } rows[] = {{0xE9, 0xC9, 0xE9}, {0xC9, 0xC9, 0xE9}, {0x9A, 0x8A, 0x9A},
              {0xFF, 0x9F, 0xFF}, {0xD7, 0xD7, 0xD7}, {'a', 'A', 'a'}};
  for (const Row& r : rows) {
    const char in = static_cast<char>(r.in);
    EXPECT_EQ(static_cast<unsigned char>(Str::CapA(in)), r.upper) << int(r.in);
    EXPECT_EQ(static_cast<unsigned char>(Str::LowA(in)), r.lower) << int(r.in);
  }
  // The counted fold passes over a NUL.
  GuardedArray<char> s(std::string_view("\xE9\0\xE9", 3));
  brelt::platform::UpperBuffA(s.data(), 3);
  EXPECT_EQ(std::string_view(s.data(), 3), std::string_view("\xC9\0\xC9", 3));
  GuardedArray<char> t(std::string_view("\xE9t\xE9"));
  GuardedArray<char> p(std::string_view("\xC9T?"));
  EXPECT_EQ(Str::MatchA(t.high(), t.data(), p.high(), p.data()), 1);
  EXPECT_EQ(Str::MatchCSA(t.high(), t.data(), p.high(), p.data()), 0);
}

TEST(Win32Fold, OrderingSetsAccentsBehindLetters) {
  if (GetACP() != 1252) {
    GTEST_SKIP() << "the rows are Windows-1252 bytes; this code page is " << GetACP();
  }
  using brelt::platform::CollateA;
  EXPECT_EQ(CollateA("e", 1, "\xE9", 1, false), 1);
  EXPECT_EQ(CollateA("\xE9", 1, "f", 1, false), 1);
  EXPECT_EQ(CollateA("\xE9", 1, "\xC9", 1, true), 2);
  EXPECT_EQ(CollateA("\xE9", 1, "\xC9", 1, false), 1);
}

}  // namespace
