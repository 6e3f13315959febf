// Redirection tables: any bytes as a redirection file, read by CRed1A::Init.
// Invariants: every Pattern and Dir is a trimmed text of at most 260 characters (full arrays
// hold no NUL); a pattern holds no "=", a directory no ";", and no directory is empty;
// reading the file again gives the same table; an ASCII file gives the same table as its
// 16-bit form with a byte-order mark; a new name is placed (FindNewPath answers 1 and stays
// within its array) whatever the table holds; and Done leaves no node behind (the leak
// checker sees every node that is not freed).
// The file lives in a scratch folder made once and removed at exit.
//
// Input: the file's bytes.
#include <brelt/fio.h>
#include <brelt/fior.h>
#include <stdlib.h>
#include <unistd.h>

#include <cstring>
#include <string>
#include <vector>

#include "fuzz_text.h"

namespace {

using namespace brelt::fuzz;

char g_scratch[] = "/tmp/brelt-fior-fuzz-XXXXXX";

// The file's name as FIOR takes it: drive C is the POSIX root.
const std::string& FileName() {
  static const std::string name = [] {
    if (mkdtemp(g_scratch) == nullptr) Broken("no scratch folder", __FILE__, __LINE__);
    std::atexit([] {
      unlink((std::string(g_scratch) + "/paths.txt").c_str());
      rmdir(g_scratch);
    });
    std::string n = "C:" + std::string(g_scratch) + "/paths.txt";
    for (char& c : n) c = c == '/' ? '\\' : c;
    return n;
  }();
  return name;
}

void Write(const std::string& bytes) {
  const FIO::FileHandle f = FIO::CreateA(static_cast<unsigned>(FileName().size()),
                                         FileName().c_str(), 0);
  FIO::WrBin(f, 0, bytes.data(), static_cast<brelt::ULong>(bytes.size()));
  FIO::Close(f);
  BRELT_FUZZ_CHECK(FIO::IOresult() == 0);
}

bool Blank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

// An element's text, checked: trimmed, and without the separator that cut it.
std::string Element(const char (&text)[260], char separator) {
  const std::string s(text, strnlen(text, 260));
  if (!s.empty()) BRELT_FUZZ_CHECK(!Blank(s.front()) && !Blank(s.back()));
  BRELT_FUZZ_CHECK(s.find(separator) == std::string::npos);
  return s;
}

// The table as text, each element checked on the way.
std::string Walk(const FIOR::CRed1A& red) {
  std::string out;
  for (const FIOR::PatternNode* p = red.List; p != nullptr; p = p->Next) {
    out += Element(p->Pattern, '=') + '\n';
    for (const FIOR::DirNode* d = p->Dirs; d != nullptr; d = d->Next) {
      const std::string dir = Element(d->Dir, ';');
      BRELT_FUZZ_CHECK(!dir.empty());
      out += '\t' + dir + '\n';
    }
  }
  return out;
}

std::string Read(FIOR::CRed1A& red, const std::string& bytes) {
  Write(bytes);
  red.Init(static_cast<unsigned>(FileName().size()), FileName().c_str());
  BRELT_FUZZ_CHECK(std::strcmp(red.BaseDir, FileName().substr(0, FileName().rfind('\\')).c_str()) == 0);
  return Walk(red);
}

// Bytes that the 8-bit reader takes as they are: ASCII without NUL, no mark in front.
bool PlainAscii(const std::string& bytes) {
  for (char c : bytes) {
    if (c <= 0) return false;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  FIOR::CRed1A red;
  const std::string table = Read(red, bytes);
  BRELT_FUZZ_CHECK(Read(red, bytes) == table);

  if (PlainAscii(bytes)) {
    std::string wide = "\xFF\xFE";
    for (char c : bytes) wide += std::string{c, '\0'};
    BRELT_FUZZ_CHECK(Read(red, wide) == table);
  }

  Guarded<char> where(260);
  BRELT_FUZZ_CHECK(red.FindNewPath(4, "a.dat", 259, where.data()) == 1);

  red.Done();
  BRELT_FUZZ_CHECK(red.List == nullptr && red.DefaultDir[0] == '\0');
  return 0;
}
