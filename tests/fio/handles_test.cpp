// FIO handles and binary transfer, on both targets with the same expected values: the open
// family, the name limit, transfers and positions, bad handles, the 16-bit text test.
#include <brelt/fio.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "guarded_array.h"
#include "scratch_folder.h"
#include "text.h"

namespace {

using brelt::FileHandle, brelt::WChar, brelt::test::GuardedArray, brelt::test::HighOf;
using SV = std::string_view;
using namespace std::string_view_literals;
constexpr brelt::UInt64 kAllOnes64 = ~brelt::UInt64{0};
constexpr brelt::ULong kNotFound = 2, kPathNotFound = 3, kAccessDenied = 5, kBadHandle = 6,
                       kAlreadyExists = 183;
FileHandle const kFailed = brelt::kInvalidFileHandle;

class FioHandles : public brelt::test::ScratchFolder {};

// A/W twins of the open family, over names held in guarded arrays that they fill exactly.
template <class T> struct OpenTwin;
template <> struct OpenTwin<char> {
  static constexpr FileHandle (*kOps[])(unsigned int, const char*, brelt::ULong) = {
      FIO::OpenA, FIO::OpenReadA, FIO::CreateA, FIO::AppendA};
};
template <> struct OpenTwin<WChar> {
  static constexpr FileHandle (*kOps[])(unsigned int, const WChar*, brelt::ULong) = {
      FIO::OpenW, FIO::OpenReadW, FIO::CreateW, FIO::AppendW};
};
enum Kind { kOpen, kOpenRead, kCreate, kAppend };

template <class T>
class FioOpenFamily : public FioHandles {
 protected:
  FileHandle Call(Kind kind, SV name) {
    GuardedArray<T> array(name);
    return OpenTwin<T>::kOps[kind](array.high(), array.data(), 0);
  }
};
using Twins = testing::Types<char, WChar>;
TYPED_TEST_SUITE(FioOpenFamily, Twins);

// "old" holds 5 bytes before each row. `pos` and `size` are read from the handle, `after`
// is the content on disk once it is closed ("-" for no file).
TYPED_TEST(FioOpenFamily, KindsAndDispositions) {
  const struct { Kind kind; SV name; bool opens; brelt::ULong error; brelt::UInt64 pos, size;
                 SV after; } rows[] = {
      {kOpen, "old", 1, 0, 0, 5, "12345"},        {kOpenRead, "old", 1, 0, 0, 5, "12345"},
      {kCreate, "old", 1, kAlreadyExists, 0, 0, ""}, {kAppend, "old", 1, 0, 5, 5, "12345"},
      {kCreate, "new", 1, 0, 0, 0, ""},           {kOpen, "new", 0, kNotFound, 0, 0, "-"},
      {kOpenRead, "new", 0, kNotFound, 0, 0, "-"}, {kAppend, "new", 0, kNotFound, 0, 0, "-"},
      {kCreate, "none\\new", 0, kPathNotFound, 0, 0, "-"},
      {kOpenRead, "dir", 0, kAccessDenied, 0, 0, "-"},
      {kOpenRead, "OLD", 1, 0, 0, 5, "12345"},  // names ignore case
  };
  this->MakeFolder("dir");
  for (const auto& r : rows) {
    this->Put("old", "12345");
    std::filesystem::remove(this->Native("new"));
    const FileHandle h = this->Call(r.kind, r.name);
    const std::string what = std::to_string(r.kind) + " " + std::string(r.name);
    EXPECT_EQ(FIO::IOresult(), r.error) << what;
    ASSERT_EQ(h != kFailed, r.opens) << what;
    if (r.opens) {
      EXPECT_EQ(FIO::GetPos(h), r.pos) << what;
      EXPECT_EQ(FIO::Size(h), r.size) << what;
      FIO::Close(h);
      EXPECT_EQ(FIO::IOresult(), 0u) << what;
    }
    const SV onDisk = r.name == "OLD" ? "old" : r.name;
    const bool file = std::filesystem::is_regular_file(this->Native(onDisk));
    EXPECT_EQ(file ? this->Read(onDisk) : "-", r.after) << what;
  }
}

// 259 characters reach the system, 260 and more do not, and then the last error stays.
TYPED_TEST(FioOpenFamily, NameLimit) {
  const std::string dir = this->Full("");
  for (const unsigned length : {259u, 260u, 1000u}) {
    const std::string name = dir + std::string(length - dir.size(), 'n');
    this->SetErrorToFileNotFound();
    const FileHandle h = this->Call(kCreate, name);
    EXPECT_EQ(h != kFailed, length == 259) << length;
    EXPECT_EQ(FIO::IOresult(), length == 259 ? 0u : kNotFound) << length;
    std::error_code tooLongForTheSystem;
    EXPECT_EQ(std::filesystem::exists(this->Native(name.substr(dir.size())), tooLongForTheSystem),
              length == 259);
    if (h != kFailed) FIO::Close(h);
    this->SetErrorToFileNotFound();
    EXPECT_EQ(FIO::ExistsA(HighOf(name) - 1, name.c_str()), length == 259 ? 1 : 0) << length;
    EXPECT_EQ(FIO::IOresult(), length == 259 ? 0u : kNotFound) << length;
  }
}

TEST_F(FioHandles, TransferAndPosition) {
  const FileHandle h = FIO::CreateA(3, "data", 0);
  ASSERT_NE(h, kFailed);
  EXPECT_EQ(FIO::EndOfFile(h), 1);  // empty, straight after opening
  GuardedArray<char> text(SV("hello world"));
  FIO::WrBin(h, 0, text.data(), 11);  // high 0 does not bound the transfer
  EXPECT_EQ(FIO::IOresult(), 0u);
  EXPECT_EQ(FIO::GetPos(h), 11u);
  EXPECT_EQ(FIO::Size(h), 11u);
  EXPECT_EQ(FIO::EndOfFile(h), 1);
  FIO::Seek(h, 5);
  EXPECT_EQ(FIO::EndOfFile(h), 0);
  GuardedArray<char> buf(8);
  EXPECT_EQ(FIO::RdBin(h, 0, buf.data(), 0), 0u);
  EXPECT_EQ(FIO::RdBin(h, 0, buf.data(), 8), 6u);  // a short read is not repeated
  EXPECT_EQ(SV(buf.data(), 6), " world");
  EXPECT_EQ(FIO::RdBin(h, 0, buf.data(), 8), 0u);
  EXPECT_EQ(FIO::IOresult(), 0u);  // the end of the file is no error
  FIO::Seek(h, 5);
  FIO::Truncate(h);
  EXPECT_EQ(FIO::Size(h), 5u);
  FioHandles::SetErrorToFileNotFound();
  FIO::Flush(h);  // a successful flush keeps the earlier code
  EXPECT_EQ(FIO::IOresult(), kNotFound);
  FIO::Close(h);
  EXPECT_EQ(Read("data"), "hello");

  const FileHandle r = FIO::OpenReadA(3, "data", 0);
  FIO::WrBin(r, 0, "x", 1);
  EXPECT_EQ(FIO::IOresult(), kAccessDenied);
  FIO::Close(r);
  EXPECT_EQ(Read("data"), "hello");
}

// Every handle operation refuses a handle that is closed, made up, all ones or null; only
// closing all ones succeeds, since on Windows that value also names the process itself.
TEST_F(FioHandles, BadHandles) {
  const FileHandle closed = FIO::CreateA(6, "closed", 0);
  FIO::Close(closed);
  const FileHandle handles[] = {closed, reinterpret_cast<FileHandle>(std::uintptr_t{0x12340}),
                                kFailed, nullptr};
  char buf[4];
  for (const FileHandle h : handles) {
    const auto expectBad = [h](const char* what) {
      EXPECT_EQ(FIO::IOresult(), kBadHandle) << what << " on " << h;
    };
    FIO::Close(h);
    EXPECT_EQ(FIO::IOresult(), h == kFailed ? 0u : kBadHandle) << "Close on " << h;
    EXPECT_EQ(FIO::RdBin(h, 3, buf, 4), 0u);
    expectBad("RdBin");
    FIO::WrBin(h, 3, buf, 4);
    expectBad("WrBin");
    EXPECT_EQ(FIO::GetPos(h), kAllOnes64);
    expectBad("GetPos");
    EXPECT_EQ(FIO::Size(h), kAllOnes64);
    expectBad("Size");
    FIO::Seek(h, 1);
    expectBad("Seek");
    FIO::Truncate(h);
    expectBad("Truncate");
    EXPECT_EQ(FIO::EndOfFile(h), 0);
    expectBad("EndOfFile");
    FIO::Flush(h);
    expectBad("Flush");
    EXPECT_EQ(FIO::IsUnicodeFile(h), 0);
    FIO::GetFileTime(h);
    expectBad("GetFileTime");
  }
}

TEST_F(FioHandles, IsUnicodeFile) {
  const struct { SV bytes; unsigned char answer; brelt::UInt64 pos; } rows[] = {
      {"\xFF\xFE\x41\x00"sv, 1, 2}, {"\x41\x00\x42\x00"sv, 1, 0}, {"\x41\x42\x00\x00"sv, 0, 0},
      {"\xFE\xFF\x00\x41"sv, 0, 0}, {"\x41"sv, 0, 0},               {""sv, 0, 0},
  };
  for (const auto& r : rows) {
    Put("text", r.bytes);
    const FileHandle h = FIO::OpenReadA(3, "text", 0);
    FIO::Seek(h, r.bytes.size());  // the test starts from the front whatever the position
    EXPECT_EQ(FIO::IsUnicodeFile(h), r.answer) << r.bytes.size();
    EXPECT_EQ(FIO::GetPos(h), r.pos) << r.bytes.size();
    FIO::Close(h);
  }
}

TEST_F(FioHandles, Exists) {
  Put("file", "x");
  MakeFolder("dir");
  const struct { SV name; unsigned char file, dir; } rows[] = {
      {"file", 1, 0}, {"dir", 0, 1}, {"missing", 0, 0}, {"FILE", 1, 0}};
  for (const auto& r : rows) {
    GuardedArray<char> a(r.name);
    GuardedArray<WChar> w(r.name);
    EXPECT_EQ(FIO::ExistsA(a.high(), a.data()), r.file) << r.name;
    EXPECT_EQ(FIO::ExistsW(w.high(), w.data()), r.file) << r.name;
    EXPECT_EQ(FIO::ExistsDirA(a.high(), a.data()), r.dir) << r.name;
  }
}

}  // namespace
