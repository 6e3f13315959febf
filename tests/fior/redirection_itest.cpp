// Files found through a redirection table, on real drives: the table "F:\cfg\paths.txt"
// (drive F stands where a system drive would), "D:\work" as the current directory. The search
// order, where new files go, DefaultDir, a derived class that replaces the search, and the
// file operations that rest on both.
#include <brelt/fio.h>
#include <brelt/fior.h>
#include <brelt/str/core.h>

#include <functional>
#include <string>
#include <vector>

#include "fior/global_table.h"
#include "guarded_array.h"
#include "scratch_drives.h"

namespace {

using brelt::test::GuardedArray;

unsigned High(const std::string& s) { return static_cast<unsigned>(s.size()); }

// "b.* =" has no directories and is passed over; "a.*" matches names that "*.dat" matches too.
constexpr char kTable[] =
    "b.* =\r\n"
    "*.dat = data; ..\\shared\\data\r\n"
    "*.ini=D:\\etc\r\n"
    "a.* = more\r\n";
constexpr char kTableName[] = "F:\\cfg\\paths.txt";

class FiorRedirection : public brelt::test::ScratchDrives {
 protected:
  void SetUp() override {
    ScratchDrives::SetUp();
    PutFile(kTableName, kTable);
    MakeDirs("D:\\work", true);
    FIOR::InitA(sizeof kTableName - 1, kTableName);
    table_.Init(sizeof kTableName - 1, kTableName);
  }
  void TearDown() override {
    table_.Done();
    FIOR::Done();
    brelt::fior::GlobalTable().BaseDir[0] = '\0';
    ScratchDrives::TearDown();
  }

  // A file whose bytes are its own full name, so that a read tells which one was opened.
  static void PutNamed(const std::string& path) { PutFile(path, path); }
  static void Remove(const std::string& path) { FIO::DeleteA(High(path), path.c_str()); }
  static bool Exists(const std::string& path) { return FIO::ExistsA(High(path), path.c_str()); }

  // What a handle reads: the full name of the file it opened, or "failed <code>".
  static std::string Opened(FIO::FileHandle h) {
    if (h == brelt::kInvalidFileHandle) return "failed " + std::to_string(FIO::IOresult());
    char text[300] = {};
    FIO::RdBin(h, 0, text, sizeof text - 1);
    FIO::Close(h);
    return text;
  }

  // dst after a search, '#' for untouched, and its answer.
  template <class Search>
  static std::string Found(Search search) {
    GuardedArray<char> dst(260);
    const unsigned char answer = search(dst.data());
    const std::string text(dst.data(), strnlen(dst.data(), 260));
    return answer == 1 ? text : answer == 0 && dst[0] == '#' ? "0" : "bad answer " + text;
  }

  FIOR::CRed2A table_;
};

// Existing files: the name as written first (from the current directory), then the lines in
// file order and their directories in order; an absolute name never asks the table. The
// free open goes where the search went, or takes the name as written and fails.
TEST_F(FiorRedirection, SearchOrder) {
  const struct {
    std::vector<std::string> files;
    std::string name, want, open = {};
  } rows[] = {
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
    for (const auto& f : r.files) PutNamed(f);
    EXPECT_EQ(Found([&](char* dst) { return FIOR::FindPathA(High(r.name), r.name.c_str(), 259,
                                                            dst); }),
              r.want)
        << r.name;
    const std::string open = r.open.empty() ? r.want : r.open;
    EXPECT_EQ(Opened(FIOR::OpenReadA(High(r.name), r.name.c_str(), 1)), open) << r.name;
    EXPECT_EQ(Opened(FIOR::OpenA(High(r.name), r.name.c_str(), 1)), open) << r.name;
    for (const auto& f : r.files) Remove(f);
  }
}

// New files: no look at the disk; the first matching line with directories decides by its
// first directory, else BaseDir; an absolute name is only expanded, from BaseDir, so that a
// drive letter in front of a relative path is dropped.
TEST_F(FiorRedirection, NewFilePlaces) {
  const struct { const char* name; const char* want; } rows[] = {
      {"b.dat", "F:\\cfg\\data\\b.dat"},     {"b.txt", "F:\\cfg\\b.txt"},
      {"\\b.txt", "D:\\b.txt"},              {"sub\\..\\b.dat", "F:\\cfg\\data\\b.dat"},
      {"a.ini", "D:\\etc\\a.ini"},           {"a.x", "F:\\cfg\\more\\a.x"},
      {"E:x\\..\\y.dat", "F:\\cfg\\y.dat"},
  };
  for (const auto& r : rows) {
    const std::string name = r.name;
    EXPECT_EQ(Found([&](char* dst) { return FIOR::FindNewPathA(High(name), r.name, 259, dst); }),
              r.want)
        << name;
  }
}

// DefaultDir, with or without its backslash, is tried after every line, and takes new names
// that no line places.
TEST_F(FiorRedirection, DefaultDir) {
  PutNamed("E:\\def\\x.txt");
  PutNamed("E:\\def\\a.dat");
  for (const char* def : {"E:\\def", "E:\\def\\"}) {
    Str::CopyA(259, table_.DefaultDir, 259, def);
    const struct { const char* name; bool fresh; const char* want; } rows[] = {
        {"x.txt", 0, "E:\\def\\x.txt"},
        {"a.dat", 0, "E:\\def\\a.dat"},
        {"y.txt", 0, "0"},
        {"b.txt", 1, "E:\\def\\b.txt"},
        {"b.dat", 1, "F:\\cfg\\data\\b.dat"},
        {"..\\b.txt", 1, "E:\\b.txt"},
    };
    for (const auto& r : rows) {
      const unsigned high = High(r.name);
      EXPECT_EQ(Found([&](char* dst) {
                  return r.fresh ? table_.FindNewPath(high, r.name, 259, dst)
                                 : table_.FindPath(high, r.name, 259, dst);
                }),
                r.want)
          << def << " " << r.name;
    }
  }
}

// Without a table, BaseDir or DefaultDir: only what exists as written is found, and a new
// name stays as written. FindPathInternal with `first` 0 skips the name as written, and
// gives an absolute name back unexpanded.
TEST_F(FiorRedirection, EmptyTableAndFirstZero) {
  PutNamed("D:\\work\\a.dat");
  PutNamed("F:\\cfg\\data\\a.dat");
  const FIOR::CRed1A empty;
  const std::string dotted = "F:\\cfg\\data\\..\\data\\a.dat";
  const struct {
    const char* what;
    std::function<unsigned char(char*)> search;
    const char* want;
  } rows[] = {
      {"empty FindPath a.dat", [&](char* d) { return empty.FindPath(5, "a.dat", 259, d); },
       "D:\\work\\a.dat"},
      {"empty FindPath b.dat", [&](char* d) { return empty.FindPath(5, "b.dat", 259, d); }, "0"},
      {"empty FindNewPath y", [&](char* d) { return empty.FindNewPath(1, "y", 259, d); }, "y"},
      {"first 0, a.dat",
       [&](char* d) { return table_.FindPathInternal(0, 5, "a.dat", 259, d); },
       "F:\\cfg\\data\\a.dat"},
      {"first 0, dotted",
       [&](char* d) { return table_.FindPathInternal(0, High(dotted), dotted.c_str(), 259, d); },
       "F:\\cfg\\data\\..\\data\\a.dat"},
  };
  for (const auto& r : rows) EXPECT_EQ(Found(r.search), r.want) << r.what;
}

// A class that sends every search to one file. The CRed2A members see it; the CRed1A members,
// reached through the base, keep the table's search.
class Elsewhere : public FIOR::CRed2A {
 public:
  unsigned char FindPath2(unsigned int, const char*, unsigned int dsthigh, char* dst) override {
    Str::CopyA(dsthigh, dst, 13, "E:\\other\\a.dat");
    return 1;
  }
};

TEST_F(FiorRedirection, DerivedSearch) {
  Elsewhere red;
  red.Init(sizeof kTableName - 1, kTableName);
  FIOR::CRed1A& base = red;
  const struct {
    const char* what;
    std::function<std::string()> act;
    const char* want;
  } rows[] = {
      {"CRed2A::FindPath", [&] { return Found([&](char* d) { return red.FindPath(5, "a.dat", 259, d); }); },
       "E:\\other\\a.dat"},
      {"CRed1A::FindPath", [&] { return Found([&](char* d) { return base.FindPath(5, "a.dat", 259, d); }); },
       "F:\\cfg\\data\\a.dat"},
      {"CRed2A::OpenRead", [&] { return Opened(red.OpenRead(5, "a.dat", 1)); }, "E:\\other\\a.dat"},
      {"CRed2A::Open", [&] { return Opened(red.Open(5, "a.dat", 1)); }, "E:\\other\\a.dat"},
      {"CRed1A::OpenRead", [&] { return Opened(base.OpenRead(5, "a.dat", 1)); },
       "F:\\cfg\\data\\a.dat"},
      {"CRed1A::Open", [&] { return Opened(base.Open(5, "a.dat", 1)); }, "F:\\cfg\\data\\a.dat"},
  };
  for (const auto& r : rows) {
    PutNamed("E:\\other\\a.dat");
    PutNamed("F:\\cfg\\data\\a.dat");
    EXPECT_EQ(r.act(), r.want) << r.what;
  }
  red.Delete(5, "a.dat");
  EXPECT_FALSE(Exists("E:\\other\\a.dat"));
  EXPECT_TRUE(Exists("F:\\cfg\\data\\a.dat"));
  base.Delete(5, "a.dat");
  EXPECT_FALSE(Exists("F:\\cfg\\data\\a.dat"));
  red.Done();
}

// Create goes where FindNewPath says, without making folders; open and delete search only
// where existing files are looked for, so a new file in BaseDir is not found from elsewhere.
TEST_F(FiorRedirection, CreateOpenDelete) {
  const FIO::FileHandle created = FIOR::CreateA(5, "b.txt", 0);
  EXPECT_NE(created, brelt::kInvalidFileHandle);
  FIO::Close(created);
  EXPECT_TRUE(Exists("F:\\cfg\\b.txt"));
  EXPECT_EQ(Opened(FIOR::OpenA(5, "b.txt", 0)), "failed 2");
  FIOR::DeleteA(5, "b.txt");
  EXPECT_EQ(FIO::IOresult(), 2u);
  EXPECT_TRUE(Exists("F:\\cfg\\b.txt"));

  EXPECT_EQ(FIOR::CreateA(5, "b.dat", 0), brelt::kInvalidFileHandle);
  EXPECT_EQ(FIO::IOresult(), 3u);
  MakeDirs("F:\\cfg\\data");
  FIO::Close(table_.Create(5, "b.dat", 0));
  EXPECT_TRUE(Exists("F:\\cfg\\data\\b.dat"));
  table_.Delete(5, "b.dat");
  EXPECT_FALSE(Exists("F:\\cfg\\data\\b.dat"));
}

// The whole road: a table, a bare name, numbers read from the file it leads to.
TEST_F(FiorRedirection, ReadNumbersByABareName) {
  PutFile("F:\\shared\\data\\n.dat", "440 8080\r\n65535 70000\r\n");
  const FIO::FileHandle h = FIOR::OpenReadA(5, "n.dat", 1);
  ASSERT_NE(h, brelt::kInvalidFileHandle);
  const struct { unsigned short value; unsigned char ok; } want[] = {
      {440, 1}, {8080, 1}, {65535, 1}, {70000 & 0xFFFF, 0}, {0, 0}};
  for (const auto& w : want) {
    unsigned char ok = 7;
    EXPECT_EQ(FIO::RdCard16A(h, &ok), w.value);
    EXPECT_EQ(ok, w.ok) << w.value;
    EXPECT_EQ(FIO::IOresult(), 0u) << w.value;
  }
  FIO::Close(h);
}

}  // namespace
