// FIO: existence of files and folders, by their attribute word.
#include "brelt/fio.h"
#include "brelt/str/copies.h"
#include "brelt/str/encoding.h"
#include "fio/file_name.h"
#include "platform/file_names.h"
#include "platform/last_error.h"

namespace {

namespace pf = brelt::platform;
using brelt::fio::SystemName;

// 1 when `name` is there and its folder bit is `folder`.
unsigned char HasKind(const SystemName& name, bool folder) {
  const std::uint32_t attrs = pf::FileAttributes(name.text);
  if (attrs == pf::kInvalidAttributes) return 0;
  return ((attrs & pf::kDirectoryAttribute) != 0) == folder ? 1 : 0;
}

}  // namespace

namespace FIO {

unsigned char ExistsA(unsigned int high, const char* name) {
  SystemName path;
  return brelt::fio::PrepareName(high, name, &path) ? HasKind(path, false) : 0;
}

unsigned char ExistsDirA(unsigned int high, const char* name) {
  SystemName path;
  return brelt::fio::PrepareName(high, name, &path) ? HasKind(path, true) : 0;
}

// Converted first, then held to the limit: the 8-bit form is what must fit.
unsigned char ExistsW(unsigned int high, const WChar* name) {
  SystemName converted;
  Str::U2A(high, name, brelt::fio::kNameHigh, converted.text);
  SystemName path;
  return brelt::fio::PrepareName(brelt::fio::kNameHigh, converted.text, &path)
             ? HasKind(path, false)
             : 0;
}

}  // namespace FIO
