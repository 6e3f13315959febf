// Files found through the table "F:\cfg\paths.txt" (drive F stands where a system drive would)
// with "D:\work" as the current directory: the search order, where new files go, DefaultDir, a
// derived class that replaces the search, and the file operations on both.
#include <brelt/fio.h>
#include <brelt/fior.h>
#include <brelt/str/core.h>

#include <cstring>
#include <string>
#include <vector>

#include "fior/global_table.h"
#include "guarded_array.h"
#include "scratch_drives.h"

namespace {

using brelt::test::HighOf;
using S = std::string;

// "b.* =" has no directories and is passed over; "a.*" matches names that "*.dat" matches too.
constexpr char kTable[] = "b.* =\r\n*.dat = data; ..\\shared\\data\r\n*.ini=D:\\etc\r\na.* = more";
const S kTableName = "F:\\cfg\\paths.txt";

class FiorRedirection : public brelt::test::ScratchDrives {
 protected:
  void SetUp() override {
    ScratchDrives::SetUp();
    PutFile(kTableName, kTable);
    MakeDirs("D:\\work", true);
    FIOR::InitA(HighOf(kTableName), kTableName.c_str());
    table_.Init(HighOf(kTableName), kTableName.c_str());
  }
  void TearDown() override {
    table_.Done();
    FIOR::Done();
    brelt::fior::GlobalTable().BaseDir[0] = '\0';
    ScratchDrives::TearDown();
  }

  // Files whose bytes are their own full names, so that a read tells which one was opened.
  static void PutNamed(const std::vector<S>& paths) {
    for (const auto& p : paths) PutFile(p, p);
  }
  static bool Exists(const S& path) { return FIO::ExistsA(HighOf(path), path.c_str()) != 0; }
  // The full name that a handle's file holds, or "failed <code>".
  static S Opened(FIO::FileHandle h) {
    if (h == brelt::kInvalidFileHandle) return "failed " + std::to_string(FIO::IOresult());
    char text[300] = {};
    FIO::RdBin(h, 0, text, sizeof text - 1);
    FIO::Close(h);
    return text;
  }
  FIOR::CRed2A table_;
};

// How a row searches: the free functions, the members reached through the base class (of the
// table, or of an empty object), `first` 0, and the virtual search.
enum Call { kFree, kFreeNew, kFind, kNew, kEmptyFind, kEmptyNew, kFirst0, kVirtual };

// The path a search gave, or "0" for an answer 0 with dst untouched.
S Search(Call call, FIOR::CRed2A& red, const S& name) {
  brelt::test::GuardedArray<char> dst(260);
  const unsigned h = HighOf(name);
  const char *n = name.c_str(), *d = dst.data();
  const FIOR::CRed2A empty;
  const FIOR::CRed1A& base = call == kEmptyFind || call == kEmptyNew ? empty : red;
  const unsigned char answer =
      call == kFree      ? FIOR::FindPathA(h, n, 259, dst.data())
      : call == kFreeNew ? FIOR::FindNewPathA(h, n, 259, dst.data())
      : call == kFind || call == kEmptyFind ? base.FindPath(h, n, 259, dst.data())
      : call == kNew || call == kEmptyNew   ? base.FindNewPath(h, n, 259, dst.data())
      : call == kFirst0  ? base.FindPathInternal(0, h, n, 259, dst.data())
                         : red.FindPath(h, n, 259, dst.data());
  const S text(d, strnlen(d, 260));
  return answer == 1 ? text : answer == 0 && dst[0] == '#' ? "0" : "answer " + text;
}

// The name as written first (from the current directory), then the lines in file order with
// their directories in order; BaseDir itself is not searched, and an absolute name never asks
// the table. The opens go where the search went, or take the name as written and fail.
TEST_F(FiorRedirection, SearchOrder) {
  const struct { std::vector<S> files; S name, want, open = {}; } rows[] = {
      {{"D:\\work\\a.dat", "F:\\cfg\\data\\a.dat"}, "a.dat", "D:\\work\\a.dat"},
      {{"F:\\cfg\\data\\a.dat", "F:\\shared\\data\\a.dat"}, "a.dat", "F:\\cfg\\data\\a.dat"},
      {{"F:\\shared\\data\\a.dat", "F:\\cfg\\more\\a.dat"}, "a.dat", "F:\\shared\\data\\a.dat"},
      {{"F:\\cfg\\more\\a.dat"}, "a.dat", "F:\\cfg\\more\\a.dat"},
      {{"F:\\cfg\\a.dat", "D:\\a.dat"}, "a.dat", "0", "failed 2"},
      {{"D:\\etc\\x.ini"}, "x.ini", "D:\\etc\\x.ini"},
      {{"F:\\cfg\\data\\sub\\a.dat"}, "sub\\a.dat", "F:\\cfg\\data\\sub\\a.dat"},
      {{"F:\\cfg\\data\\a.dat"}, "F:\\other\\a.dat", "0", "failed 3"}};
  for (const auto& r : rows) {
    PutNamed(r.files);
    const unsigned h = HighOf(r.name);
    const char* n = r.name.c_str();
    const S open = r.open.empty() ? r.want : r.open;
    EXPECT_EQ(Search(kFree, table_, r.name), r.want) << n;
    EXPECT_EQ(Opened(FIOR::OpenReadA(h, n, 1)) + "|" + Opened(FIOR::OpenA(h, n, 1)),
              open + "|" + open) << n;
    for (const auto& f : r.files) FIO::DeleteA(HighOf(f), f.c_str());
  }
}

// New files by text alone: the first matching line with directories decides by its first
// directory, then DefaultDir, then BaseDir; an absolute name is only expanded, from BaseDir,
// so a drive in front of a relative path is dropped. DefaultDir, with or without its
// backslash, is also searched after every line. An empty object finds names as written and
// leaves new names so; `first` 0 skips the name as written and gives an absolute name back
// unexpanded.
TEST_F(FiorRedirection, PlacesOfNewAndExistingFiles) {
  PutNamed({"E:\\def\\x.txt", "E:\\def\\a.dat", "D:\\work\\a.dat", "F:\\cfg\\data\\a.dat"});
  const struct { Call call; const char* def; S name, want; } rows[] = {
      {kFreeNew, "", "b.dat", "F:\\cfg\\data\\b.dat"},   {kFreeNew, "", "b.txt", "F:\\cfg\\b.txt"},
      {kFreeNew, "", "\\b.txt", "D:\\b.txt"},            {kNew, "", "a.x", "F:\\cfg\\more\\a.x"},
      {kFreeNew, "", "sub\\..\\b.dat", "F:\\cfg\\data\\b.dat"},
      {kNew, "", "E:x\\..\\y.dat", "F:\\cfg\\y.dat"},
      {kNew, "E:\\def", "b.txt", "E:\\def\\b.txt"}, {kNew, "E:\\def\\", "b.txt", "E:\\def\\b.txt"},
      {kNew, "E:\\def", "b.dat", "F:\\cfg\\data\\b.dat"},
      {kFind, "E:\\def", "x.txt", "E:\\def\\x.txt"},
      {kFind, "E:\\def\\", "x.txt", "E:\\def\\x.txt"},
      {kFirst0, "E:\\def", "a.dat", "F:\\cfg\\data\\a.dat"},
      {kFirst0, "", "E:\\def\\..\\def\\a.dat", "E:\\def\\..\\def\\a.dat"},
      {kEmptyFind, "", "a.dat", "D:\\work\\a.dat"},      {kEmptyNew, "", "y", "y"}};
  for (const auto& r : rows) {
    Str::CopyA(259, table_.DefaultDir, 259, r.def);
    EXPECT_EQ(Search(r.call, table_, r.name), r.want) << r.call << " " << r.def << " " << r.name;
  }
}

// Sends every search to one file: the CRed2A members follow it, the CRed1A members reached
// through the base keep the table's search.
class Elsewhere : public FIOR::CRed2A {
 public:
  unsigned char FindPath2(unsigned int, const char*, unsigned int dsthigh, char* dst) override {
    Str::CopyA(dsthigh, dst, 13, "E:\\other\\a.dat");
    return 1;
  }
};

TEST_F(FiorRedirection, DerivedSearch) {
  Elsewhere red;
  red.Init(HighOf(kTableName), kTableName.c_str());
  FIOR::CRed1A& base = red;
  const S other = "E:\\other\\a.dat", table = "F:\\cfg\\data\\a.dat";
  PutNamed({other, table});
  EXPECT_EQ(Search(kVirtual, red, "a.dat") + Search(kFind, red, "a.dat"), other + table);
  EXPECT_EQ(Opened(red.OpenRead(5, "a.dat", 1)) + Opened(red.Open(5, "a.dat", 1)), other + other);
  EXPECT_EQ(Opened(base.OpenRead(5, "a.dat", 1)) + Opened(base.Open(5, "a.dat", 1)),
            table + table);
  red.Delete(5, "a.dat");
  EXPECT_TRUE(!Exists(other) && Exists(table));
  base.Delete(5, "a.dat");
  EXPECT_FALSE(Exists(table));
  red.Done();
}

// Create goes where FindNewPath says and makes no folder; open and delete look only where
// existing files are searched, so a new file in BaseDir is not found from elsewhere. After
// Done, BaseDir still takes new relative names.
TEST_F(FiorRedirection, CreateThenOpenElsewhere) {
  FIO::Close(FIOR::CreateA(5, "b.txt", 0));
  EXPECT_TRUE(Exists("F:\\cfg\\b.txt"));
  EXPECT_EQ(Opened(FIOR::OpenA(5, "b.txt", 0)), "failed 2");
  FIOR::DeleteA(5, "b.txt");
  EXPECT_EQ(FIO::IOresult(), 2u);
  EXPECT_EQ(Opened(FIOR::CreateA(5, "b.dat", 0)), "failed 3");
  FIOR::Done();
  FIO::Close(FIOR::CreateA(5, "c.dat", 0));
  EXPECT_TRUE(Exists("F:\\cfg\\c.dat"));
}

}  // namespace
