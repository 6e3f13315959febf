// Full forms with D: current at "D:\work\sub", a directory of drive C's own, no drive Q, and
// "E:\base" as the table's base; and the paths made and joined on them.
#include <brelt/fior.h>
#include <brelt/str/core.h>

#include <string>

#include "guarded_array.h"
#include "scratch_drives.h"

namespace {

using brelt::test::GuardedArray, brelt::test::HighOf;
using S = std::string;

class PathExpand : public brelt::test::ScratchDrives {
 protected:
  void SetUp() override {
    ScratchDrives::SetUp();
    MakeDirs("D:\\work\\sub", true);
    Str::CopyA(259, table_.BaseDir, 7, "E:\\base");
  }
  FIOR::CRed1A table_;
};

TEST_F(PathExpand, FullForms) {
  const struct { S src; unsigned char flag; S want; } rows[] = {
      {"a\\b", 1, "D:\\work\\sub\\a\\b"}, {"a\\b", 0, "E:\\base\\a\\b"},
      {"..\\x", 1, "D:\\work\\x"},        {"..\\..\\..\\x", 1, "D:\\x"},
      {".\\x\\.\\y", 1, "D:\\work\\sub\\x\\y"}, {"\\x", 1, "D:\\x"},
      {"c:\\x\\..\\y", 1, "C:\\y"},       {"C:x", 1, CDir() + "\\x"},
      {"C:x", 0, "E:\\base\\x"},          {"Q:x", 1, "\\x"},
      {"\\\\srv\\share\\d\\..\\f", 1, "\\\\srv\\share\\f"}, {"\\\\srv\\..\\..\\f", 1, "\\\\f"},
      {"a\\\\b", 1, "D:\\work\\sub\\a\\\\b"}, {"a\\", 1, "D:\\work\\sub\\a\\"},
      {"a\\b\\..", 1, "D:\\work\\sub\\a\\"}, {"", 1, "D:\\work\\sub\\"},
      {"", 0, "E:\\base\\"},              {"..\\x", 0, "E:\\x"},
      {"  \\x\\  ", 1, "D:\\x\\"}};
  for (const auto& r : rows) {
    GuardedArray<char> dst(260);
    table_.ExpandPath2(HighOf(r.src), r.src.c_str(), 259, dst.data(), r.flag);
    EXPECT_EQ(S(dst.data()), r.want) << r.src << " flag " << int(r.flag);
    EXPECT_TRUE(r.src != "Q:x" || FIO::IOresult() != 0u) << "a missing drive leaves its code";
  }
}

// The free form is flag 1 on the global table; the result is cut to the caller's array, the
// source may be the destination, and components beyond 260 characters are dropped.
TEST_F(PathExpand, FreeFormAndCuts) {
  GuardedArray<char> small(8);
  FIOR::ExpandPathA(3, "a\\b", 7, small.data());
  EXPECT_EQ(S(small.data(), 8), "D:\\work\\");
  char same[260] = "x\\..\\y";
  FIOR::ExpandPathA(259, same, 259, same);
  EXPECT_EQ(S(same), "D:\\work\\sub\\y");
  const S deep = "\\" + S(300, 'a');
  GuardedArray<char> full(260);
  FIOR::ExpandPathA(HighOf(deep), deep.c_str(), 259, full.data());
  EXPECT_EQ(S(full.data(), 260), "D:\\" + S(257, 'a'));
}

// Made paths ('0' and '1': the member with that flag, 'f': the free form) and joins ('j'),
// which keep the current directory out.
TEST_F(PathExpand, MakeAndJoin) {
  const struct { S dir, name; char how; S want; } rows[] = {
      {"dir", "f.txt", '1', "D:\\work\\sub\\dir\\f.txt"},
      {"dir\\", "f.txt", '1', "D:\\work\\sub\\dir\\f.txt"},
      {"\\x", "f", '1', "D:\\x\\f"},      {"dir", "\\abs", '1', "D:\\abs"},
      {"dir", "C:\\abs", '1', "C:\\abs"}, {"dir", "..\\f", '0', "E:\\base\\f"},
      {"dir", "f", 'f', "D:\\work\\sub\\dir\\f"},
      {"dir", "f.txt", 'j', "dir\\f.txt"}, {"a\\b", "..\\f", 'j', "a\\f"},
      {"a", "..\\..\\f", 'j', "f"},       {"a\\", "f", 'j', "a\\f"},
      {"", "f", 'j', "f"},                {"a\\b", "C:\\x", 'j', "\\x"}};
  for (const auto& r : rows) {
    GuardedArray<char> dst(260);
    const unsigned dh = HighOf(r.dir), nh = HighOf(r.name);
    const char *d = r.dir.c_str(), *n = r.name.c_str();
    if (r.how == 'j') {
      FIOR::JoinPathA(259, dst.data(), dh, d, nh, n);
    } else if (r.how == 'f') {
      FIOR::MakePathA(259, dst.data(), dh, d, nh, n);
    } else {
      table_.MakePath2(259, dst.data(), dh, d, nh, n, r.how == '1');
    }
    EXPECT_EQ(S(dst.data()), r.want) << r.dir << " + " << r.name << " " << r.how;
  }
}

}  // namespace
