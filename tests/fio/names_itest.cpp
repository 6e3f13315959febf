// Names in the 8-bit code page reach the disk in the system's own form and come back from a
// walk as they went in: a name with a Windows-1252 letter made by FIO is the UTF-8 name on
// disk, on both targets.
#include <brelt/fio.h>
#include <gtest/gtest.h>

#include <string>

#include "platform/code_page_convert.h"
#include "scratch_folder.h"

namespace {

namespace pf = brelt::platform;

class FioNames : public brelt::test::ScratchFolder {};

TEST_F(FioNames, Windows1252NamesOnDisk) {
  const unsigned int before = pf::ActiveCodePageId();
  if (!pf::PinCodePage(1252)) GTEST_SKIP() << "the system code page is " << before;
  const struct { const char* name; const char8_t* onDisk; } rows[] = {
      {"caf\xE9.txt", u8"café.txt"},
      {"\x80uro", u8"€uro"},
      {"\xC4\xD6\xDC", u8"ÄÖÜ"},
  };
  for (const auto& r : rows) {
    const std::string name(r.name);
    FIO::Close(FIO::CreateA(brelt::test::HighOf(name), name.c_str(), 0));
    EXPECT_EQ(FIO::IOresult(), 0u) << name;
    EXPECT_TRUE(brelt::test::fs::exists(Native("") / brelt::test::fs::path(r.onDisk))) << name;
    FIO::DirEntryA e;
    ASSERT_EQ(FIO::ReadFirstEntryA(brelt::test::HighOf(name), name.c_str(), 0x20, &e), 1);
    EXPECT_EQ(std::string(e.cFileName), name);
    FIO::CloseEntryA(&e);
  }
  pf::PinCodePage(before);
}

// Under UTF-8 a 16-bit name within the limit can grow past it: 258 characters and one that
// takes two bytes fill all 260, and the name is refused like a longer one. The length is made
// of ".\" steps, which lead nowhere.
TEST_F(FioNames, WideNameLongerInEightBits) {
  const unsigned int before = pf::ActiveCodePageId();
  if (!pf::PinCodePage(65001)) GTEST_SKIP() << "the system code page is " << before;
  for (const unsigned letters : {257u, 258u}) {
    std::u16string units;
    while (units.size() + 2 <= letters - 9) units += u".\\";
    units += std::u16string(letters - units.size(), u'w') + u'\u00E9';
    std::basic_string<brelt::WChar> name(units.begin(), units.end());
    SetErrorToFileNotFound();
    const FIO::FileHandle h = FIO::CreateW(static_cast<unsigned>(name.size()) - 1, name.data(), 0);
    EXPECT_EQ(h != brelt::kInvalidFileHandle, letters == 257) << letters;
    EXPECT_EQ(FIO::IOresult(), letters == 257 ? 0u : 2u) << letters;
    FIO::Close(h);
  }
  pf::PinCodePage(before);
}

}  // namespace
