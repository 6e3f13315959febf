// File operations in a folder of their own: positions, sizes, transfer counts and the last
// error after each step, directory walks (their entries sorted, since the order of a walk is
// the file system's), attributes, file times and the refusals. The program runs in an empty
// folder that scripts/side-by-side makes for each target; everything here is named relative
// to it and removed again at the end.
#include <brelt/fio.h>

#include <algorithm>
#include <string_view>
#include <vector>

#include "sections.h"

namespace sidebyside {
namespace {

using namespace std::string_view_literals;

unsigned int HighOf(std::string_view s) { return static_cast<unsigned int>(s.size()); }
std::string Err() { return "err " + Dec(FIO::IOresult()); }
bool Failed(FIO::FileHandle h) { return h == brelt::kInvalidFileHandle; }
std::string Handle(FIO::FileHandle h) { return Failed(h) ? "fail" : "ok"; }
// The last error, then position, size and end-of-file flag, whose calls each clear it.
std::string State(FIO::FileHandle h, const std::string& more = "") {
  const std::string err = Err();
  const auto pos = FIO::GetPos(h);
  const auto size = FIO::Size(h);
  return err + more + " pos " + Dec(static_cast<long long>(pos)) + " size " +
         Dec(static_cast<long long>(size)) + " eof " + Dec(FIO::EndOfFile(h));
}

// Every step under a name of its own.
class Steps {
 public:
  explicit Steps(Report& r) : r_(r) {}
  void Line(std::string_view what, const std::string& value) {
    r_.Line("file." + std::string(what), value);
  }

 private:
  Report& r_;
};

void Put(std::string_view name, std::string_view bytes) {
  const FIO::FileHandle h = FIO::CreateA(HighOf(name) - 1, name.data(), 0);
  FIO::WrBin(h, 0, bytes.data(), static_cast<brelt::ULong>(bytes.size()));
  FIO::Close(h);
}

void Transfer(Steps& s) {
  FIO::FileHandle h = FIO::CreateA(4, "a.bin", 0);
  s.Line("CreateA", Err() + " " + Handle(h));
  FIO::WrBin(h, 0, "0123456789", 10);
  s.Line("WrBin", State(h));
  FIO::Seek(h, 4);
  s.Line("Seek", State(h));
  char buf[16] = {};
  const auto got = FIO::RdBin(h, 0, buf, 3);
  s.Line("RdBin", State(h, " " + Dec(got) + " " + Shown(std::string_view(buf, got))));
  FIO::Seek(h, 100);
  s.Line("Seek-beyond", State(h));
  FIO::WrBin(h, 0, "x", 1);
  s.Line("WrBin-beyond", State(h));
  FIO::Seek(h, 5);
  FIO::Truncate(h);
  s.Line("Truncate", State(h));
  FIO::Flush(h);
  FIO::Close(h);
  s.Line("Close", Err());

  h = FIO::OpenReadA(4, "a.bin", 0);
  const auto all = FIO::RdBin(h, 0, buf, 16);
  s.Line("OpenReadA-RdBin", State(h, " " + Handle(h) + " " + Dec(all)));
  const auto none = FIO::RdBin(h, 0, buf, 16);
  s.Line("RdBin-at-end", Err() + " " + Dec(none));
  FIO::WrBin(h, 0, "y", 1);
  s.Line("WrBin-read-only", State(h));
  FIO::Close(h);

  h = FIO::AppendA(4, "a.bin", 0);
  s.Line("AppendA", State(h, " " + Handle(h)));
  FIO::Close(h);
  h = FIO::OpenA(4, "a.bin", 0);
  s.Line("OpenA", State(h, " " + Handle(h)));
  FIO::Close(h);

  const std::string_view missing[] = {"none.bin"sv, "nodir\\x.bin"sv, "nodir/x.bin"sv, ""sv};
  for (std::string_view name : missing) {
    const char nul = 0;
    h = FIO::OpenA(name.empty() ? 0 : HighOf(name) - 1, name.empty() ? &nul : name.data(), 0);
    s.Line("OpenA-" + Shown(name), Err() + " " + Handle(h));
    if (!Failed(h)) FIO::Close(h);
  }
  FIO::Close(brelt::kInvalidFileHandle);
  s.Line("Close-invalid", Err());
  const auto pos = FIO::GetPos(brelt::kInvalidFileHandle);
  s.Line("GetPos-invalid", Err() + " " + Hex(pos, 16));
}

void TextKinds(Steps& s) {
  const std::pair<std::string_view, std::string_view> files[] = {
      {"bom.txt", "\xFF\xFEh\0i\0"sv}, {"wide.txt", "h\0i\0"sv}, {"plain.txt", "hi"sv},
      {"empty.txt", ""sv}, {"one.txt", "\xFF"sv}};
  for (const auto& [name, bytes] : files) {
    Put(name, bytes);
    const FIO::FileHandle h = FIO::OpenReadA(HighOf(name) - 1, name.data(), 0);
    const unsigned char unicode = FIO::IsUnicodeFile(h);
    s.Line("IsUnicodeFile-" + std::string(name), State(h, " " + Dec(unicode)));
    FIO::Close(h);
    FIO::DeleteA(HighOf(name) - 1, name.data());
  }
}

// The names a walk gives, sorted, each with its attribute word and size.
std::string Walk(std::string_view pattern, brelt::ULong mask) {
  FIO::DirEntryA e{};
  std::vector<std::string> names;
  bool more = FIO::ReadFirstEntryA(HighOf(pattern) - 1, pattern.data(), mask, &e) != 0;
  const std::string first = Err();
  while (more) {
    names.push_back(std::string(e.cFileName) + ":" + Hex(e.dwFileAttributes, 2) + ":" +
                    Dec(e.nFileSizeLow));
    more = FIO::ReadNextEntryA(&e) != 0;
  }
  std::sort(names.begin(), names.end());
  std::string out = Dec(static_cast<long long>(names.size())) + " " + first + " end " + Err();
  for (const std::string& n : names) out += " " + n;
  return out;
}

void Folders(Steps& s) {
  FIO::MkDirA(0, "d");
  s.Line("MkDirA", Err());
  FIO::MkDirA(0, "d");
  s.Line("MkDirA-again", Err());
  Put("d\\b.txt", "bb");
  Put("d/a.txt", "a");
  Put("d\\c.dat", "ccc");
  FIO::MkDirA(2, "d\\e");
  s.Line("Exists", Dec(FIO::ExistsA(6, "d\\a.txt")) + Dec(FIO::ExistsA(0, "d")) +
                       Dec(FIO::ExistsDirA(0, "d")) + Dec(FIO::ExistsDirA(6, "d\\a.txt")) +
                       Dec(FIO::ExistsA(6, "d\\z.txt")));
  s.Line("Walk-all", Walk("d\\*", 0xFFFFFFFF));
  s.Line("Walk-txt", Walk("d\\*.txt", 0xFFFFFFFF));
  s.Line("Walk-dirs", Walk("d\\*", 0x10));
  s.Line("Walk-none", Walk("d\\*.none", 0xFFFFFFFF));
  s.Line("Walk-no-folder", Walk("nodir\\*", 0xFFFFFFFF));

  for (std::string_view name : {"d\\a.txt"sv, "d"sv, "d\\z.txt"sv, "z\\z.txt"sv}) {
    const auto attributes = FIO::GetFileAttrA(HighOf(name) - 1, name.data());
    s.Line("GetFileAttrA-" + Shown(name), Err() + " " + Hex(attributes, 8));
  }
  FIO::SetFileAttrA(6, "d\\a.txt", 0x01);
  const std::string err = Err();
  s.Line("SetFileAttrA-read-only", err + " " + Hex(FIO::GetFileAttrA(6, "d\\a.txt"), 8));
  FIO::FileHandle h = FIO::OpenA(6, "d\\a.txt", 0);
  s.Line("OpenA-read-only", Err() + " " + Handle(h));
  if (!Failed(h)) FIO::Close(h);
  FIO::SetFileAttrA(6, "d\\a.txt", 0x20);
  const std::string err2 = Err();
  s.Line("SetFileAttrA-normal", err2 + " " + Hex(FIO::GetFileAttrA(6, "d\\a.txt"), 8));

  FIO::RmDirA(0, "d");
  s.Line("RmDirA-not-empty", Err());
  FIO::RenameA(6, "d\\a.txt", 6, "d\\b.txt");
  s.Line("RenameA-onto-file", Err());
  FIO::RenameA(6, "d\\a.txt", 6, "d\\f.txt");
  const std::string renamed = Err();
  s.Line("RenameA", renamed + " " + Dec(FIO::ExistsA(6, "d\\f.txt")) +
                        Dec(FIO::ExistsA(6, "d\\a.txt")));
  FIO::DeleteA(6, "d\\z.txt");
  s.Line("DeleteA-missing", Err());
  FIO::DeleteA(2, "d\\e");
  s.Line("DeleteA-folder", Err());
  FIO::RmDirA(6, "d\\b.txt");
  s.Line("RmDirA-file", Err());

  h = FIO::OpenA(6, "d\\b.txt", 0);
  FIO::SetFileTime2(h, 2001, 2, 3, 4, 5, 6, 789);
  s.Line("SetFileTime2", Err());
  brelt::ULong f[7] = {};
  FIO::GetFileTime2(h, &f[0], &f[1], &f[2], &f[3], &f[4], &f[5], &f[6]);
  std::string fields;
  for (brelt::ULong v : f) fields += " " + Dec(v);
  const FIO::FileTime t = FIO::GetFileTime(h);
  s.Line("GetFileTime2", fields + " raw " + Hex(t.dwHighDateTime, 8) + Hex(t.dwLowDateTime, 8));
  FIO::Close(h);

  for (std::string_view name : {"d\\b.txt"sv, "d\\c.dat"sv, "d\\f.txt"sv}) {
    FIO::DeleteA(HighOf(name) - 1, name.data());
  }
  FIO::RmDirA(2, "d\\e");
  FIO::RmDirA(0, "d");
  const std::string removed = Err();
  s.Line("RmDirA", removed + " " + Dec(FIO::ExistsDirA(0, "d")));
}

}  // namespace

void FileOperations(Report& r) {
  Steps s(r);
  Transfer(s);
  TextKinds(s);
  Folders(s);
  FIO::DeleteA(4, "a.bin");
}

}  // namespace sidebyside
