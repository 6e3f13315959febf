// FIO directory walks, the current directory and drive, folders and files by name,
// attributes and file times, on both targets with the same expected values.
#include <brelt/fio.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "guarded_array.h"
#include "scratch_folder.h"

namespace {

using brelt::FileHandle, brelt::ULong, brelt::test::GuardedArray, brelt::test::HighOf;
using SV = std::string_view;
using Names = std::vector<std::string>;
constexpr ULong kNotFound = 2, kPathNotFound = 3, kAccessDenied = 5, kBadHandle = 6,
                kNoMoreFiles = 18, kDirNotEmpty = 145, kAlreadyExists = 183, kDirectory = 267;
constexpr ULong kAllOnes = 0xFFFFFFFF;
void* const kEnded = brelt::kInvalidFileHandle;

class FioDirectories : public brelt::test::ScratchFolder {
 protected:
  // a.txt (5 bytes), b.dat, noext, .hid, and the folder sub holding one file.
  void Lay() {
    Put("a.txt", "12345");
    Put("b.dat", "");
    Put("noext", "");
    Put(".hid", "");
    MakeFolder("sub");
    Put("sub/in", "");
  }
  // The names of a walk, sorted, once it has run to its end.
  static Names Walk(SV pattern, ULong mask, FIO::DirEntryA* e) {
    Names names;
    GuardedArray<char> p(pattern);
    for (bool more = FIO::ReadFirstEntryA(p.high(), p.data(), mask, e); more;
         more = FIO::ReadNextEntryA(e)) {
      names.emplace_back(e->cFileName);
    }
    std::sort(names.begin(), names.end());
    return names;
  }
  std::string CurrentDir(ULong drive = 0) const {
    char text[260] = {};
    FIO::GetDirA(drive, 259, text);
    return text;
  }
};

TEST_F(FioDirectories, Walks) {
  Lay();
  const struct { SV pattern; ULong mask; Names names; ULong error; } rows[] = {
      {"*", 0x10, {".", "..", "sub"}, kNoMoreFiles},
      {"*", 0x20, {".hid", "a.txt", "b.dat", "noext"}, kNoMoreFiles},
      {"*.*", 0x20, {".hid", "a.txt", "b.dat", "noext"}, kNoMoreFiles},
      {"*", 0x02, {".hid"}, kNoMoreFiles},
      {"?.dat", 0x30, {"b.dat"}, kNoMoreFiles},
      {"A.TXT", 0x20, {"a.txt"}, kNoMoreFiles},
      {"SUB\\*", 0x20, {"in"}, kNoMoreFiles},
      {"*.txt", 0x10, {}, kNoMoreFiles},  // found, but nothing passes the mask
      {"nothing*", 0x30, {}, kNotFound},
      {"missing\\*", 0x30, {}, kPathNotFound},
  };
  for (const auto& r : rows) {
    FIO::DirEntryA e;
    e.findHandle = nullptr;
    EXPECT_EQ(Walk(r.pattern, r.mask, &e), r.names) << r.pattern << " " << r.mask;
    EXPECT_EQ(FIO::IOresult(), r.error) << r.pattern << " " << r.mask;
    // A walk that ran to its end has closed itself; a failed first step set nothing.
    EXPECT_EQ(e.findHandle, r.error == kNoMoreFiles ? kEnded : nullptr) << r.pattern;
    if (r.error == kNoMoreFiles) {
      EXPECT_EQ(e.attrMask, r.mask);
      FIO::CloseEntryA(&e);  // closing an ended walk only sets the last error
      EXPECT_EQ(FIO::IOresult(), kBadHandle);
    }
  }
}

TEST_F(FioDirectories, EntryRecordAndEarlyClose) {
  Lay();
  const FileHandle h = FIO::OpenA(5, "a.txt", 0);
  const FIO::FileTime written = FIO::GetFileTime(h);
  FIO::Close(h);
  FIO::DirEntryA e;
  ASSERT_EQ(FIO::ReadFirstEntryA(4, "a.txt", 0x20, &e), 1);
  EXPECT_EQ(SV(e.cFileName), "a.txt");
  EXPECT_EQ(e.dwFileAttributes, 0x20u);
  EXPECT_EQ(e.nFileSizeLow, 5u);
  EXPECT_EQ(e.nFileSizeHigh, 0u);
  EXPECT_EQ(e.ftLastWriteTime.dwLowDateTime, written.dwLowDateTime);
  EXPECT_EQ(e.ftLastWriteTime.dwHighDateTime, written.dwHighDateTime);
  FIO::CloseEntryA(&e);  // left early
  EXPECT_EQ(FIO::IOresult(), 0u);
}

TEST_F(FioDirectories, CurrentDirectoryAndDrive) {
  const std::string here = CurrentDir();
  ASSERT_GE(here.size(), 3u);
  EXPECT_EQ(here.substr(1, 2), ":\\");
  EXPECT_EQ(CurrentDir(3), here);  // drive C, the current one
  EXPECT_EQ(FIO::IOresult(), 0u);
  GuardedArray<char> small(5);  // cut without notice, no NUL
  FIO::GetDirA(0, small.high(), small.data());
  EXPECT_EQ(SV(small.data(), 5), SV(here).substr(0, 5));
  // Drive Q does not exist: the visit fails and delivers where the process is.
  EXPECT_EQ(CurrentDir(17), here);
  EXPECT_EQ(FIO::IOresult(), kPathNotFound);
  EXPECT_EQ(CurrentDir(), here);
  EXPECT_EQ(FIO::GetDrive(), 3u);
  EXPECT_EQ(FIO::SetDrive(16), 0);
  EXPECT_EQ(FIO::IOresult(), kPathNotFound);
  EXPECT_EQ(FIO::SetDrive(2), 1);  // C, counted from 0
  EXPECT_EQ(CurrentDir(), here);
  MakeFolder("Sub");
  FIO::ChDirA(3, "sub");  // names ignore case, and the directory shows the name as given
  EXPECT_EQ(FIO::IOresult(), 0u);
  EXPECT_EQ(CurrentDir(), Full("sub"));
  FIO::ChDirA(2, "..");
  EXPECT_EQ(CurrentDir(), here);
}

// Each row runs one operation on a fresh layout and names what must exist afterwards.
TEST_F(FioDirectories, ByName) {
  enum Op { kMkDir, kRmDir, kDelete, kRename, kChDir };
  const struct { Op op; SV name, other; ULong error; SV there, gone; } rows[] = {
      {kMkDir, "new", "", 0, "new", ""},
      {kMkDir, "sub", "", kAlreadyExists, "sub/in", ""},
      {kMkDir, "none\\new", "", kPathNotFound, "", "none"},
      {kRmDir, "sub", "", kDirNotEmpty, "sub/in", ""},
      {kRmDir, "empty", "", 0, "", "empty"},
      {kRmDir, "a.txt", "", kDirectory, "a.txt", ""},
      {kRmDir, "missing", "", kNotFound, "", ""},
      {kDelete, "a.txt", "", 0, "", "a.txt"},
      {kDelete, "sub", "", kAccessDenied, "sub/in", ""},
      {kDelete, "ro", "", kAccessDenied, "ro", ""},
      {kDelete, "missing", "", kNotFound, "", ""},
      {kRename, "a.txt", "c.txt", 0, "c.txt", "a.txt"},
      {kRename, "a.txt", "b.dat", kAlreadyExists, "a.txt", ""},
      {kRename, "a.txt", "none\\c", kPathNotFound, "a.txt", ""},
      {kRename, "missing", "c.txt", kNotFound, "", "c.txt"},
      {kRename, "sub", "sub2", 0, "sub2/in", "sub"},
      {kChDir, "missing", "", kNotFound, "", ""},
      {kChDir, "a.txt", "", kDirectory, "", ""},
  };
  for (const auto& r : rows) {
    Lay();
    MakeFolder("empty");
    Put("ro", "");
    FIO::SetFileAttrA(1, "ro", 0x01);
    const std::string name(r.name), other(r.other);
    switch (r.op) {
      case kMkDir: FIO::MkDirA(HighOf(name), name.c_str()); break;
      case kRmDir: FIO::RmDirA(HighOf(name), name.c_str()); break;
      case kDelete: FIO::DeleteA(HighOf(name), name.c_str()); break;
      case kRename: FIO::RenameA(HighOf(name), name.c_str(), HighOf(other), other.c_str()); break;
      case kChDir: FIO::ChDirA(HighOf(name), name.c_str()); break;
    }
    EXPECT_EQ(FIO::IOresult(), r.error) << r.op << " " << r.name;
    if (!r.there.empty()) {
      EXPECT_TRUE(brelt::test::fs::exists(Native(r.there))) << r.op << r.name;
    }
    if (!r.gone.empty()) {
      EXPECT_FALSE(brelt::test::fs::exists(Native(r.gone))) << r.op << r.name;
    }
    FIO::SetFileAttrA(1, "ro", 0x80);
    for (const char* n : {"sub", "sub2", "empty", "new"}) brelt::test::fs::remove_all(Native(n));
    for (const char* n : {"a.txt", "b.dat", "c.txt", "ro"}) brelt::test::fs::remove(Native(n));
  }
  EXPECT_EQ(CurrentDir(), Dir());
}

// Names of 260 characters or more change nothing and leave the last error as it was.
TEST_F(FioDirectories, LongNamesChangeNothing) {
  Put("a.txt", "");
  const std::string tooLong = Full(std::string(259 - Dir().size(), 'x'));
  ASSERT_EQ(tooLong.size(), 260u);
  const unsigned high = HighOf(tooLong) - 1;
  SetErrorToFileNotFound();
  FIO::RenameA(4, "a.txt", high, tooLong.c_str());
  FIO::MkDirA(high, tooLong.c_str());
  FIO::ChDirA(high, tooLong.c_str());
  EXPECT_EQ(FIO::GetFileAttrA(high, tooLong.c_str()), kAllOnes);
  FIO::DirEntryA e;
  EXPECT_EQ(FIO::ReadFirstEntryA(high, tooLong.c_str(), 0x30, &e), 0);
  EXPECT_EQ(FIO::IOresult(), kNotFound);
  EXPECT_TRUE(brelt::test::fs::exists(Native("a.txt")));
  EXPECT_EQ(CurrentDir(), Dir());
}

TEST_F(FioDirectories, Attributes) {
  Lay();
  const struct { SV name; ULong set, mask, want, error; } rows[] = {
      {"a.txt", 0, 0xFFFFFFFF, 0x20, 0},    {"sub", 0, 0xFFFFFFFF, 0x10, 0},
      {"a.txt", 0x01, 0x11, 0x01, 0},        {"a.txt", 0x80, 0x11, 0x00, 0},
      {"missing", 0, 0xFFFFFFFF, kAllOnes, kNotFound},
      {"none\\x", 0, 0xFFFFFFFF, kAllOnes, kPathNotFound},
  };
  for (const auto& r : rows) {
    const std::string name(r.name);
    if (r.set != 0) FIO::SetFileAttrA(HighOf(name), name.c_str(), r.set);
    EXPECT_EQ(FIO::GetFileAttrA(HighOf(name), name.c_str()) & r.mask, r.want) << r.name;
    EXPECT_EQ(FIO::IOresult(), r.error) << r.name;
  }
}

// 100-ns units since 1601 for a UTC calendar time, by the standard library's calendar.
brelt::UInt64 FileTimeOf(int y, unsigned mo, unsigned d, int h, int mi, int s, int ms) {
  using namespace std::chrono;
  const auto t = sys_days(year(y) / mo / d) + hours(h) + minutes(mi) + seconds(s) +
                 milliseconds(ms);
  const auto since1601 = t - sys_days(year(1601) / 1 / 1);
  return static_cast<brelt::UInt64>(duration_cast<microseconds>(since1601).count()) * 10;
}

TEST_F(FioDirectories, FileTimes) {
  const FileHandle h = FIO::CreateA(1, "t", 0);
  const struct { ULong fields[7]; } rows[] = {
      {{2021, 3, 4, 5, 6, 7, 890}}, {{1999, 12, 31, 23, 59, 59, 999}}, {{2024, 2, 29, 0, 0, 0, 1}},
  };
  for (const auto& r : rows) {
    const ULong* f = r.fields;
    FIO::SetFileTime2(h, f[0], f[1], f[2], f[3], f[4], f[5], f[6]);
    ULong got[7] = {};
    FIO::GetFileTime2(h, &got[0], &got[1], &got[2], &got[3], &got[4], &got[5], &got[6]);
    EXPECT_EQ(std::vector<ULong>(got, got + 7), std::vector<ULong>(f, f + 7));
    const FIO::FileTime t = FIO::GetFileTime(h);
    const brelt::UInt64 whole = (brelt::UInt64{t.dwHighDateTime} << 32) | t.dwLowDateTime;
    EXPECT_EQ(whole, FileTimeOf(static_cast<int>(f[0]), f[1], f[2], static_cast<int>(f[3]),
                                static_cast<int>(f[4]), static_cast<int>(f[5]),
                                static_cast<int>(f[6])));
    FIO::SetFileTime(h, FIO::FileTime{t.dwLowDateTime + 1230, t.dwHighDateTime});
    EXPECT_EQ(FIO::IOresult(), 0u);
    EXPECT_EQ(FIO::GetFileTime(h).dwLowDateTime, t.dwLowDateTime + 1230);
  }
  FIO::Close(h);

  using namespace std::chrono;
  const auto now = duration_cast<microseconds>(system_clock::now().time_since_epoch()).count();
  const FIO::FileTime current = FIO::GetCurrentFileTime();
  const auto since1970 = static_cast<std::int64_t>(
      (brelt::UInt64{current.dwHighDateTime} << 32 | current.dwLowDateTime) / 10 -
      FileTimeOf(1970, 1, 1, 0, 0, 0, 0) / 10);
  EXPECT_LT(std::abs(since1970 - now), 5000000);
}

}  // namespace
