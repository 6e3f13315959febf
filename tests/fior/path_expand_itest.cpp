// The full form of paths with D: current at "D:\work\sub", a directory of drive C's own, no
// drive Q, and "E:\base" as the table's base; and the joins built on it.
#include <brelt/fior.h>
#include <brelt/str/core.h>

#include <string>

#include "guarded_array.h"
#include "scratch_drives.h"

namespace {

using brelt::test::GuardedArray;

class PathExpand : public brelt::test::ScratchDrives {
 protected:
  void SetUp() override {
    ScratchDrives::SetUp();
    MakeDirs("D:\\work\\sub", true);
    Str::CopyA(259, table_.BaseDir, 7, "E:\\base");
  }

  // "<C>" in an expected text stands for drive C's directory.
  std::string Expected(std::string text) const {
    if (text.rfind("<C>", 0) == 0) text.replace(0, 3, CDir());
    return text;
  }

  FIOR::CRed1A table_;
};

TEST_F(PathExpand, FullForms) {
  const struct {
    const char* src;
    unsigned char flag;
    const char* want;
  } rows[] = {
      {"a\\b", 1, "D:\\work\\sub\\a\\b"},
      {"a\\b", 0, "E:\\base\\a\\b"},
      {"..\\..\\..\\x", 1, "D:\\x"},
      {".\\x\\.\\y", 1, "D:\\work\\sub\\x\\y"},
      {"\\x", 1, "D:\\x"},
      {"c:\\x\\..\\y", 1, "C:\\y"},
      {"C:x", 1, "<C>\\x"},
      {"C:x", 0, "E:\\base\\x"},
      {"Q:x", 1, "\\x"},
      {"\\\\srv\\share\\d\\..\\f", 1, "\\\\srv\\share\\f"},
      {"\\\\srv\\..\\..\\f", 1, "\\\\f"},
      {"a\\\\b", 1, "D:\\work\\sub\\a\\\\b"},
      {"a\\", 1, "D:\\work\\sub\\a\\"},
      {"a\\b\\..", 1, "D:\\work\\sub\\a\\"},
      {"", 1, "D:\\work\\sub\\"},
      {"", 0, "E:\\base\\"},
      {"..\\x", 0, "E:\\x"},
      {"  \\x\\  ", 1, "D:\\x\\"},
  };
  for (const auto& row : rows) {
    const std::string src = row.src;
    GuardedArray<char> dst(260);
    table_.ExpandPath2(static_cast<unsigned int>(src.size()), src.c_str(), 259, dst.data(),
                       row.flag);
    EXPECT_EQ(std::string(dst.data()), Expected(row.want)) << src << " flag " << int(row.flag);
  }
  // A missing drive leaves its code behind.
  table_.ExpandPath2(2, "Q:x", 259, GuardedArray<char>(260).data(), 1);
  EXPECT_NE(FIO::IOresult(), 0u);
}

// The free form is flag 1 on the global table; the result is cut to the caller's array, and
// the source may be the destination.
TEST_F(PathExpand, FreeFormAndCuts) {
  GuardedArray<char> small(8);
  FIOR::ExpandPathA(3, "a\\b", 7, small.data());
  EXPECT_EQ(std::string(small.data(), 8), "D:\\work\\");

  char same[260] = "x\\..\\y";
  FIOR::ExpandPathA(259, same, 259, same);
  EXPECT_EQ(std::string(same), "D:\\work\\sub\\y");

  // Components beyond 260 characters are dropped.
  const std::string deep = "\\" + std::string(300, 'a');
  GuardedArray<char> full(260);
  FIOR::ExpandPathA(static_cast<unsigned int>(deep.size()), deep.c_str(), 259, full.data());
  EXPECT_EQ(std::string(full.data(), 260), "D:\\" + std::string(257, 'a'));
}

TEST_F(PathExpand, MakePath) {
  const struct {
    const char* dir;
    const char* name;
    unsigned char flag;
    const char* want;
  } rows[] = {
      {"dir", "f.txt", 1, "D:\\work\\sub\\dir\\f.txt"},
      {"dir\\", "f.txt", 1, "D:\\work\\sub\\dir\\f.txt"},
      {"\\x", "f", 1, "D:\\x\\f"},
      {"dir", "\\abs", 1, "D:\\abs"},
      {"dir", "C:\\abs", 1, "C:\\abs"},
      {"dir", "..\\f", 0, "E:\\base\\f"},
  };
  for (const auto& row : rows) {
    const std::string dir = row.dir, name = row.name;
    GuardedArray<char> dst(260);
    table_.MakePath2(259, dst.data(), static_cast<unsigned int>(dir.size()), dir.c_str(),
                     static_cast<unsigned int>(name.size()), name.c_str(), row.flag);
    EXPECT_EQ(std::string(dst.data()), row.want) << dir << " + " << name;
  }
  GuardedArray<char> dst(260);
  FIOR::MakePathA(259, dst.data(), 3, "dir", 1, "f");
  EXPECT_EQ(std::string(dst.data()), "D:\\work\\sub\\dir\\f");
}

TEST_F(PathExpand, JoinKeepsTheCurrentDirectoryOut) {
  const struct {
    const char* dir;
    const char* name;
    const char* want;
  } rows[] = {
      {"dir", "f.txt", "dir\\f.txt"}, {"a\\b", "..\\f", "a\\f"}, {"a", "..\\..\\f", "f"},
      {"a\\", "f", "a\\f"},           {"", "f", "f"},            {"a\\b", "C:\\x", "\\x"},
      {"a", "\\x", "\\x"},
  };
  for (const auto& row : rows) {
    const std::string dir = row.dir, name = row.name;
    GuardedArray<char> dst(260);
    FIOR::JoinPathA(259, dst.data(), static_cast<unsigned int>(dir.size()), dir.c_str(),
                    static_cast<unsigned int>(name.size()), name.c_str());
    EXPECT_EQ(std::string(dst.data()), row.want) << dir << " + " << name;
  }
}

}  // namespace
