// The Win32 folds and ordering beyond ASCII. Their results follow the system's 8-bit code page,
// so the rows hold where that page is Windows-1252 and are skipped elsewhere.
#include <brelt/str.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <string_view>

#include "guarded_array.h"
#include "word_sort_1252.h"
#include "platform/collate.h"
#include "platform/text_fold.h"

namespace {

TEST(Win32Fold, FoldsAndOrderUnderWindows1252) {
  if (GetACP() != 1252) GTEST_SKIP() << "the rows are Windows-1252 bytes; this is " << GetACP();
  // e acute both ways, s caron, y diaeresis (capital in the 0x80 row), a sign without case.
  const unsigned char rows[][3] = {{0xE9, 0xC9, 0xE9}, {0xC9, 0xC9, 0xE9}, {0x9A, 0x8A, 0x9A},
                                   {0xFF, 0x9F, 0xFF}, {0xD7, 0xD7, 0xD7}};
  for (const auto& [in, upper, lower] : rows) {
    EXPECT_EQ(static_cast<unsigned char>(Str::CapA(static_cast<char>(in))), upper) << int(in);
    EXPECT_EQ(static_cast<unsigned char>(Str::LowA(static_cast<char>(in))), lower) << int(in);
  }
  // The counted fold passes over a NUL; the matcher folds beyond ASCII.
  brelt::test::GuardedArray<char> s(std::string_view("\xE9\0\xE9", 3));
  brelt::test::GuardedArray<char> p(std::string_view("\xC9\0?", 3));
  EXPECT_EQ(Str::MatchA(s.high(), s.data(), p.high(), p.data()), 1);
  EXPECT_EQ(Str::MatchCSA(s.high(), s.data(), p.high(), p.data()), 0);
  brelt::platform::UpperBuffA(s.data(), 3);
  EXPECT_EQ(std::string_view(s.data(), 3), std::string_view("\xC9\0\xC9", 3));
  // The rows that the POSIX ordering follows, here from the system itself.
  using brelt::platform::CollateA;
  for (const auto& r : brelt::test::kWordSort1252) {
    const auto la = static_cast<std::uint32_t>(r.a.size());
    const auto lb = static_cast<std::uint32_t>(r.b.size());
    EXPECT_EQ(CollateA(r.a.data(), la, r.b.data(), lb, false), r.withCase) << r.a << "|" << r.b;
    EXPECT_EQ(CollateA(r.a.data(), la, r.b.data(), lb, true), r.withoutCase) << r.a << "|" << r.b;
  }
}

}  // namespace
