// File names: any bytes as an 8-bit or 16-bit name, under either 8-bit code page.
// Invariants: turning a name into a native path never fails in any other way than with a last
// error, and gives an absolute, terminated path whose last component lies inside it; a name in
// the code page goes to the native form and back unchanged; FIO's name checks hold the limit of
// 259 characters; and a name that leads into the scratch folder can be created, found, removed
// again, so that the folder is empty after every input.
// Nothing outside the scratch folder is touched, and the process stays where it is: the name
// given to FIO is the folder's full name, a backslash and the input; names are resolved without
// looking at the disk first, and only those that stay inside the folder reach FIO.
//
// Input: byte 0 picks the code page (bit 0) and the 16-bit form (bit 1); the rest is the name.
#include <brelt/fio.h>
#include <brelt/str/copies.h>
#include <brelt/str/encoding.h>
#include <dirent.h>
#include <stdlib.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "guarded_array.h"
#include "platform/code_page_convert.h"
#include "platform/last_error.h"
#include "platform/posix/dos_names.h"
#include "platform/posix/name_text.h"

namespace {

namespace pf = brelt::platform;
namespace px = brelt::platform::posix;
using brelt::WChar;
using brelt::test::GuardedArray;

#define CHECK(cond) \
  ((cond) ? (void)0 : (std::fprintf(stderr, "invariant broken: %s\n", #cond), std::abort()))

// The scratch folder, made once and removed at exit (it is empty between inputs); its native
// name.
char g_scratch[] = "/tmp/brelt-fio-fuzz-XXXXXX";

const std::string& Scratch() {
  static const std::string dir = [] {
    CHECK(mkdtemp(g_scratch) != nullptr);
    std::atexit([] { rmdir(g_scratch); });
    return std::string(g_scratch);
  }();
  return dir;
}

// Its name as FIO takes it, on drive C, the POSIX root, with the backslash behind it.
std::string ScratchPrefix() {
  std::string name = "C:" + Scratch() + "/";
  for (char& c : name) c = c == '/' ? '\\' : c;
  return name;
}

bool Inside(const px::NativeName& n) {
  const std::string& dir = Scratch();
  return n.length > dir.size() + 1 && std::memcmp(n.path, dir.data(), dir.size()) == 0 &&
         n.path[dir.size()] == '/';
}

std::size_t EntriesIn(const std::string& dir) {
  DIR* d = opendir(dir.c_str());
  std::size_t n = 0;
  while (const dirent* e = readdir(d)) {
    n += std::strcmp(e->d_name, ".") != 0 && std::strcmp(e->d_name, "..") != 0;
  }
  closedir(d);
  return n;
}

// The input alone, relative to the process's directory, resolved as written (no disk access).
void CheckResolution(const char* name) {
  pf::SetLastError(0);
  px::NativeName n;
  if (!px::ResolveName(name, px::NameUse::kAsWritten, &n)) {
    CHECK(pf::LastError() != 0);
    return;
  }
  CHECK(n.path[0] == '/' && n.length < px::kNativeMax && n.path[n.length] == '\0');
  CHECK(std::strlen(n.path) == n.length && n.lastStart <= n.length);
}

void CheckRoundTrip(const char* name, std::uint32_t size) {
  char native[px::kNativeMax], back[px::kNativeMax];
  const std::uint32_t n = px::CodePageToNative(name, size, native, sizeof native);
  if (n == 0) return;
  CHECK(px::NativeToCodePage(native, n, back, sizeof back) == size);
  CHECK(std::memcmp(back, name, size) == 0);
}

// Create, find, delete: the file must come and go, and nothing may stay behind.
template <class T>
void CheckLifeInScratch(const GuardedArray<T>& name, const char* systemName) {
  const unsigned high = static_cast<unsigned>(std::strlen(systemName));
  px::NativeName n;
  if (high > 259 || !px::ResolveName(systemName, px::NameUse::kAsWritten, &n) || !Inside(n)) {
    return;
  }
  FIO::FileHandle h;
  if constexpr (sizeof(T) == 1) {
    h = FIO::CreateA(name.high(), name.data(), 0);
  } else {
    h = FIO::CreateW(name.high(), name.data(), 0);
  }
  if (h != brelt::kInvalidFileHandle) {
    FIO::Close(h);
    CHECK(FIO::ExistsA(high, systemName) == 1);
    FIO::DirEntryA e;
    if (FIO::ReadFirstEntryA(high, systemName, 0x37, &e)) FIO::CloseEntryA(&e);
    FIO::DeleteA(high, systemName);
    CHECK(FIO::IOresult() == 0);
  }
  FIO::MkDirA(high, systemName);
  if (FIO::IOresult() == 0) {
    CHECK(FIO::ExistsDirA(high, systemName) == 1);
    FIO::RmDirA(high, systemName);
    CHECK(FIO::IOresult() == 0);
  }
  CHECK(EntriesIn(Scratch()) == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string prefix = ScratchPrefix();
  if (size < 1 || size > 1200) return 0;
  pf::PinCodePage((data[0] & 1) != 0 ? 65001 : 1252);
  const std::string input(reinterpret_cast<const char*>(data + 1), size - 1);
  char systemName[261] = {};  // one more than the conversions may fill, so always terminated
  if ((data[0] & 2) != 0) {
    GuardedArray<WChar> name(prefix.size() + input.size() / 2);
    for (std::size_t i = 0; i < prefix.size(); ++i) name[i] = static_cast<WChar>(prefix[i]);
    for (std::size_t i = 0; i + 1 < input.size(); i += 2) {
      const unsigned lo = static_cast<unsigned char>(input[i]);
      const unsigned hi = static_cast<unsigned char>(input[i + 1]);
      name[prefix.size() + i / 2] = static_cast<WChar>(lo | hi << 8);
    }
    Str::U2A(name.high(), name.data(), 259, systemName);
    CheckLifeInScratch(name, systemName);
    return 0;
  }
  char alone[261] = {};
  Str::StrToCA(static_cast<unsigned>(input.size()), input.c_str(), 259, alone);
  CheckRoundTrip(alone, static_cast<std::uint32_t>(std::strlen(alone)));
  CheckResolution(alone);
  GuardedArray<char> name{std::string_view(prefix + input)};
  // The limit: a name that does not fit changes nothing, the last error included.
  pf::SetLastError(12345);
  if (!Str::StrToCA(name.high(), name.data(), 259, systemName)) {
    CHECK(FIO::CreateA(name.high(), name.data(), 0) == brelt::kInvalidFileHandle);
    CHECK(FIO::GetFileAttrA(name.high(), name.data()) == 0xFFFFFFFF);
    CHECK(FIO::IOresult() == 12345);
    return 0;
  }
  CheckLifeInScratch(name, systemName);
  return 0;
}
