// The POSIX layer under FIO: mapped drives with a current directory each, names that differ
// only in case, descriptors 0 to 2 never handed out, Windows's refusals that POSIX lacks
// (even for root), and the one errno table.
#include <brelt/fio.h>
#include <errno.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <string>
#include <string_view>

#include "../../fio/scratch_folder.h"
#include "platform/file_names.h"
#include "platform/handle.h"
#include "platform/posix/errors.h"

namespace {

namespace pf = brelt::platform;
using brelt::test::HighOf;
using SV = std::string_view;

class PosixNames : public brelt::test::ScratchFolder {
 protected:
  std::string CurrentDir(brelt::ULong drive = 0) const {
    char text[260] = {};
    FIO::GetDirA(drive, 259, text);
    return text;
  }
  // The content of the file FIO opens under `name`, or "-".
  static std::string Content(const std::string& name) {
    const FIO::FileHandle h = FIO::OpenReadA(HighOf(name), name.c_str(), 0);
    if (h == brelt::kInvalidFileHandle) return "-";
    char buf[16];
    const brelt::ULong n = FIO::RdBin(h, 15, buf, sizeof buf);
    FIO::Close(h);
    return std::string(buf, n);
  }
};

TEST_F(PosixNames, MappedDrivesKeepTheirDirectories) {
  MakeFolder("d");
  MakeFolder("d/sub");
  Put("d/sub/x", "dx");
  Put("top", "c");
  ASSERT_TRUE(pf::MapDrive('D', Native("d").c_str()));
  EXPECT_EQ(Content("D:\\sub\\x"), "dx");
  EXPECT_EQ(Content("d:/SUB/../sub/./x"), "dx");
  EXPECT_EQ(Content("D:\\..\\..\\sub\\x"), "dx");  // never above the drive's root
  EXPECT_EQ(CurrentDir(4), "D:\\");
  const std::string onC = CurrentDir();
  ASSERT_EQ(FIO::SetDrive(3), 1);
  EXPECT_EQ(FIO::GetDrive(), 4u);
  FIO::ChDirA(3, "sub");
  EXPECT_EQ(CurrentDir(), "D:\\sub");
  EXPECT_EQ(Content("x"), "dx");
  EXPECT_EQ(Content("C:top"), "c");  // drive C's own current directory
  ASSERT_EQ(FIO::SetDrive(2), 1);
  EXPECT_EQ(CurrentDir(), onC);
  EXPECT_EQ(CurrentDir(4), "D:\\sub");
  EXPECT_EQ(CurrentDir(), onC);
  EXPECT_TRUE(pf::MapDrive('D', nullptr));
  EXPECT_EQ(Content("D:\\sub\\x"), "-");
  EXPECT_EQ(FIO::IOresult(), 3u);
  EXPECT_FALSE(pf::MapDrive('C', Native("d").c_str()));
}

// The exact name wins; otherwise the entry that differs only in case.
TEST_F(PosixNames, ExactNameBeforeCase) {
  Put("ab.txt", "lower");
  Put("AB.TXT", "upper");
  MakeFolder("Dir");
  Put("Dir/Name", "inner");
  const struct { SV name, content; } rows[] = {
      {"ab.txt", "lower"}, {"AB.TXT", "upper"}, {"dir\\name", "inner"}, {"DIR/NAME", "inner"},
      {"dir\\other", "-"},
  };
  for (const auto& r : rows) EXPECT_EQ(Content(std::string(r.name)), r.content) << r.name;
  const std::string ab = Content("Ab.Txt");
  EXPECT_TRUE(ab == "lower" || ab == "upper") << ab;
  FIO::RenameA(7, "dir\\NAME", 8, "dir\\nAmE");  // only the spelling changes
  EXPECT_EQ(FIO::IOresult(), 0u);
  EXPECT_EQ(Read("Dir/nAmE"), "inner");
}

TEST_F(PosixNames, NamesWindowsRefuses) {
  Put("a.txt", "a");
  const struct { SV name; brelt::ULong error; } rows[] = {
      {"a*.txt", 123}, {"a?", 123}, {"a|b", 123}, {"a<b", 123}, {"a\"b", 123}, {"a\tb", 123},
      {"x:y:z", 123},  {"\\\\server\\share\\a", 53},  {"", 3},  {"Q:\\a.txt", 3},
  };
  for (const auto& r : rows) {
    EXPECT_EQ(Content(std::string(r.name)), "-") << r.name;
    EXPECT_EQ(FIO::IOresult(), r.error) << r.name;
  }
  EXPECT_EQ(Content("a.txt. . "), "a");  // trailing dots and blanks are dropped
}

TEST_F(PosixNames, ReadOnlyAndReadHandlesRefuseEvenRoot) {
  Put("ro", "keep");
  FIO::SetFileAttrA(1, "ro", 0x01);
  const struct { FIO::FileHandle (*open)(unsigned int, const char*, brelt::ULong); } rows[] = {
      {FIO::OpenA}, {FIO::CreateA}, {FIO::AppendA}};
  for (const auto& r : rows) {
    EXPECT_EQ(r.open(1, "ro", 0), brelt::kInvalidFileHandle);
    EXPECT_EQ(FIO::IOresult(), 5u);
  }
  EXPECT_EQ(Read("ro"), "keep");
  const FIO::FileHandle h = FIO::OpenReadA(1, "ro", 0);
  FIO::Truncate(h);
  EXPECT_EQ(FIO::IOresult(), 5u);
  FIO::SetFileTime(h, FIO::FileTime{0, 0x01D00000});
  EXPECT_EQ(FIO::IOresult(), 5u);
  FIO::Flush(h);
  EXPECT_EQ(FIO::IOresult(), 5u);
  FIO::Close(h);
}

// With the standard streams closed, a new file still gets a handle that is neither null nor
// one of them.
TEST_F(PosixNames, StandardDescriptorsAreNeverHandedOut) {
  Put("f", "");
  int saved[3];
  for (int fd = 0; fd < 3; ++fd) saved[fd] = fcntl(fd, F_DUPFD_CLOEXEC, 10);
  for (int fd = 0; fd < 3; ++fd) close(fd);
  const FIO::FileHandle h = FIO::OpenReadA(0, "f", 0);
  const int got = pf::DescriptorOf(h);
  const bool closedBelow = fcntl(0, F_GETFD) == -1 && fcntl(1, F_GETFD) == -1;
  for (int fd = 0; fd < 3; ++fd) dup2(saved[fd], fd), close(saved[fd]);
  EXPECT_GE(got, 3);
  EXPECT_TRUE(closedBelow);
  FIO::Close(h);
  EXPECT_EQ(FIO::IOresult(), 0u);
  EXPECT_EQ(pf::DescriptorOf(nullptr), -1);
  EXPECT_EQ(pf::DescriptorOf(brelt::kInvalidFileHandle), -1);
}

TEST(PosixErrors, OneTableFromErrno) {
  const struct { int error; std::uint32_t code; } rows[] = {
      {ENOENT, 2}, {EACCES, 5}, {EPERM, 5},     {EBADF, 6},   {EEXIST, 183}, {ENOTEMPTY, 145},
      {ENOSPC, 112}, {ENOTDIR, 3}, {EISDIR, 5}, {ENAMETOOLONG, 206}, {EMFILE, 4}, {0, 0},
      {EDOM, 31},  // none of the file calls' own: a general failure
  };
  for (const auto& r : rows) {
    EXPECT_EQ(pf::posix::Win32CodeOf(r.error), r.code) << r.error;
    errno = r.error;
    pf::posix::FailFromErrno();
    EXPECT_EQ(FIO::IOresult(), r.code) << r.error;
  }
}

}  // namespace
