// Files found through a redirection table on real drives: the table "F:\cfg\paths.txt" (drive
// F stands where a system drive would) and "D:\work" as the current directory. The search
// order, where new files go, DefaultDir, a derived class that replaces the search, and the
// file operations on both.
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

unsigned High(const std::string& s) { return static_cast<unsigned>(s.size()); }

// "b.* =" has no directories and is passed over; "a.*" matches names that "*.dat" matches too.
constexpr char kTable[] = "b.* =\r\n*.dat = data; ..\\shared\\data\r\n*.ini=D:\\etc\r\na.* = more";
const std::string kTableName = "F:\\cfg\\paths.txt";

class FiorRedirection : public brelt::test::ScratchDrives {
 protected:
  void SetUp() override {
    ScratchDrives::SetUp();
    PutFile(kTableName, kTable);
    MakeDirs("D:\\work", true);
    FIOR::InitA(High(kTableName), kTableName.c_str());
    table_.Init(High(kTableName), kTableName.c_str());
  }
  void TearDown() override {
    table_.Done();
    FIOR::Done();
    brelt::fior::GlobalTable().BaseDir[0] = '\0';
    ScratchDrives::TearDown();
  }

  // Files whose bytes are their own full names, so that a read tells which one was opened.
  static void Put(const std::vector<std::string>& paths) {
    for (const auto& p : paths) PutFile(p, p);
  }
  static bool Exists(const std::string& path) { return FIO::ExistsA(High(path), path.c_str()); }
  // The full name that a handle's file holds, or "failed <code>".
  static std::string Opened(FIO::FileHandle h) {
    if (h == brelt::kInvalidFileHandle) return "failed " + std::to_string(FIO::IOresult());
    char text[300] = {};
    FIO::RdBin(h, 0, text, sizeof text - 1);
    FIO::Close(h);
    return text;
  }
  // The path a search gave, or "0" for an answer 0 with dst untouched.
  template <class Search>
  static std::string Found(Search search) {
    brelt::test::GuardedArray<char> dst(260);
    const unsigned char answer = search(dst.data());
    const std::string text(dst.data(), strnlen(dst.data(), 260));
    return answer == 1 ? text : answer == 0 && dst[0] == '#' ? "0" : "answer " + text;
  }

  FIOR::CRed2A table_;
};

// The name as written first (from the current directory), then the lines in file order with
// their directories in order; BaseDir itself is not searched, and an absolute name never asks
// the table. The free opens go where the search went, or take the name as written and fail.
TEST_F(FiorRedirection, SearchOrder) {
  const struct { std::vector<std::string> files; std::string name, want, open = {}; } rows[] = {
      {{"D:\\work\\a.dat", "F:\\cfg\\data\\a.dat"}, "a.dat", "D:\\work\\a.dat"},
      {{"F:\\cfg\\data\\a.dat", "F:\\shared\\data\\a.dat"}, "a.dat", "F:\\cfg\\data\\a.dat"},
      {{"F:\\shared\\data\\a.dat", "F:\\cfg\\more\\a.dat"}, "a.dat", "F:\\shared\\data\\a.dat"},
      {{"F:\\cfg\\more\\a.dat"}, "a.dat", "F:\\cfg\\more\\a.dat"},
      {{"F:\\cfg\\a.dat", "D:\\a.dat"}, "a.dat", "0", "failed 2"},
      {{"D:\\etc\\x.ini"}, "x.ini", "D:\\etc\\x.ini"},
      {{"F:\\cfg\\data\\sub\\a.dat"}, "sub\\a.dat", "F:\\cfg\\data\\sub\\a.dat"},
      {{"F:\\cfg\\data\\a.dat"}, "F:\\other\\a.dat", "0", "failed 3"},
      {{"F:\\cfg\\data\\a.dat"}, "F:\\cfg\\data\\..\\data\\a.dat", "F:\\cfg\\data\\a.dat"},
      {{"F:\\cfg\\b.txt"}, "b.txt", "0", "failed 2"},
  };
  for (const auto& r : rows) {
    Put(r.files);
    const char* name = r.name.c_str();
    EXPECT_EQ(Found([&](char* d) { return FIOR::FindPathA(High(r.name), name, 259, d); }), r.want)
        << name;
    const std::string open = r.open.empty() ? r.want : r.open;
    EXPECT_EQ(Opened(FIOR::OpenReadA(High(r.name), name, 1)), open) << name;
    EXPECT_EQ(Opened(FIOR::OpenA(High(r.name), name, 1)), open) << name;
    for (const auto& f : r.files) FIO::DeleteA(High(f), f.c_str());
  }
}

// New files by text alone: the first matching line with directories decides by its first
// directory, then DefaultDir, then BaseDir; an absolute name is only expanded, from BaseDir,
// so a drive in front of a relative path is dropped. DefaultDir, with or without its
// backslash, is also searched after every line. An object without table, BaseDir and
// DefaultDir finds names as written and leaves new names so; `first` 0 skips the name as
// written and gives an absolute name back unexpanded.
TEST_F(FiorRedirection, PlacesOfNewAndExistingFiles) {
  Put({"E:\\def\\x.txt", "E:\\def\\a.dat", "D:\\work\\a.dat"});
  enum Call { kNew, kFind, kFirst0, kEmptyNew, kEmptyFind };
  const struct { Call call; const char* def; std::string name, want; } rows[] = {
      {kNew, "", "b.dat", "F:\\cfg\\data\\b.dat"},
      {kNew, "", "b.txt", "F:\\cfg\\b.txt"},
      {kNew, "", "\\b.txt", "D:\\b.txt"},
      {kNew, "", "sub\\..\\b.dat", "F:\\cfg\\data\\b.dat"},
      {kNew, "", "a.ini", "D:\\etc\\a.ini"},
      {kNew, "", "a.x", "F:\\cfg\\more\\a.x"},
      {kNew, "", "E:x\\..\\y.dat", "F:\\cfg\\y.dat"},
      {kNew, "E:\\def", "b.txt", "E:\\def\\b.txt"},
      {kNew, "E:\\def\\", "b.txt", "E:\\def\\b.txt"},
      {kNew, "E:\\def", "b.dat", "F:\\cfg\\data\\b.dat"},
      {kNew, "E:\\def\\", "..\\b.txt", "E:\\b.txt"},
      {kFind, "E:\\def", "x.txt", "E:\\def\\x.txt"},
      {kFind, "E:\\def\\", "x.txt", "E:\\def\\x.txt"},
      {kFind, "E:\\def", "y.txt", "0"},
      {kFirst0, "E:\\def", "a.dat", "E:\\def\\a.dat"},
      {kFirst0, "", "E:\\def\\..\\def\\a.dat", "E:\\def\\..\\def\\a.dat"},
      {kEmptyFind, "", "a.dat", "D:\\work\\a.dat"},
      {kEmptyFind, "", "x.txt", "0"},
      {kEmptyNew, "", "y", "y"},
  };
  const FIOR::CRed1A empty;
  for (const auto& r : rows) {
    Str::CopyA(259, table_.DefaultDir, 259, r.def);
    const unsigned h = High(r.name);
    const char* n = r.name.c_str();
    EXPECT_EQ(Found([&](char* d) {
                switch (r.call) {
                  case kNew: return table_.FindNewPath(h, n, 259, d);
                  case kFind: return table_.FindPath(h, n, 259, d);
                  case kFirst0: return table_.FindPathInternal(0, h, n, 259, d);
                  case kEmptyNew: return empty.FindNewPath(h, n, 259, d);
                  default: return empty.FindPath(h, n, 259, d);
                }
              }),
              r.want)
        << r.call << " " << r.def << " " << n;
  }
}

// A class that sends every search to one file: its CRed2A members follow it, the CRed1A
// members reached through the base keep the table's search.
class Elsewhere : public FIOR::CRed2A {
 public:
  unsigned char FindPath2(unsigned int, const char*, unsigned int dsthigh, char* dst) override {
    Str::CopyA(dsthigh, dst, 13, "E:\\other\\a.dat");
    return 1;
  }
};

TEST_F(FiorRedirection, DerivedSearch) {
  Elsewhere red;
  red.Init(High(kTableName), kTableName.c_str());
  FIOR::CRed1A& base = red;
  const std::string other = "E:\\other\\a.dat", table = "F:\\cfg\\data\\a.dat";
  Put({other, table});
  EXPECT_EQ(Found([&](char* d) { return red.FindPath(5, "a.dat", 259, d); }), other);
  EXPECT_EQ(Found([&](char* d) { return base.FindPath(5, "a.dat", 259, d); }), table);
  EXPECT_EQ(Opened(red.OpenRead(5, "a.dat", 1)), other);
  EXPECT_EQ(Opened(red.Open(5, "a.dat", 1)), other);
  EXPECT_EQ(Opened(base.OpenRead(5, "a.dat", 1)), table);
  EXPECT_EQ(Opened(base.Open(5, "a.dat", 1)), table);
  red.Delete(5, "a.dat");
  EXPECT_FALSE(Exists(other));
  EXPECT_TRUE(Exists(table));
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
  EXPECT_EQ(FIOR::CreateA(5, "b.dat", 0), brelt::kInvalidFileHandle);
  EXPECT_EQ(FIO::IOresult(), 3u);
  MakeDirs("F:\\cfg\\data");
  FIO::Close(table_.Create(5, "b.dat", 0));
  table_.Delete(5, "b.dat");
  EXPECT_FALSE(Exists("F:\\cfg\\data\\b.dat"));
  FIOR::Done();
  FIO::Close(FIOR::CreateA(5, "c.dat", 0));
  EXPECT_TRUE(Exists("F:\\cfg\\c.dat"));
}

// The whole road: a table, a bare name, numbers read from the file it leads to.
TEST_F(FiorRedirection, NumbersByABareName) {
  PutFile("F:\\shared\\data\\n.dat", "440 8080\r\n65535 70000\r\n");
  const FIO::FileHandle h = FIOR::OpenReadA(5, "n.dat", 1);
  std::string got;
  for (unsigned char ok = 1; ok != 0;) {
    got += std::to_string(FIO::RdCard16A(h, &ok));
    got += ok != 0 ? " " : "! ";
  }
  EXPECT_EQ(got, "440 8080 65535 4464! ");
  EXPECT_EQ(FIO::IOresult(), 0u);
  FIO::Close(h);
}

}  // namespace
