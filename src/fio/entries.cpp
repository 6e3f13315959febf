// FIO: folders and files by name: create, remove, delete, rename, attributes.
#include "brelt/fio.h"
#include "brelt/str/copies.h"
#include "fio/file_name.h"
#include "platform/file_names.h"

namespace {

namespace pf = brelt::platform;
using brelt::ULong;
using brelt::fio::PrepareName;
using brelt::fio::SystemName;

}  // namespace

namespace FIO {

void MkDirA(unsigned int high, const char* name) {
  SystemName path;
  if (PrepareName(high, name, &path)) pf::MakeDirectory(path.text);
}

void RmDirA(unsigned int high, const char* name) {
  SystemName path;
  if (PrepareName(high, name, &path)) pf::RemoveEmptyDirectory(path.text);
}

void DeleteA(unsigned int high, const char* name) {
  SystemName path;
  if (PrepareName(high, name, &path)) pf::RemoveFile(path.text);
}

// Both names must fit before anything happens, the last error included: the old name is only
// copied, and the new one's preparation clears the error.
void RenameA(unsigned int high, const char* name, unsigned int newhigh, const char* newname) {
  SystemName from, to;
  if (Str::StrToCA(high, name, brelt::fio::kNameHigh, from.text) &&
      PrepareName(newhigh, newname, &to)) {
    pf::RenameEntry(from.text, to.text);
  }
}

ULong GetFileAttrA(unsigned int high, const char* name) {
  SystemName path;
  return PrepareName(high, name, &path) ? pf::FileAttributes(path.text) : pf::kInvalidAttributes;
}

void SetFileAttrA(unsigned int high, const char* name, ULong attrs) {
  SystemName path;
  if (PrepareName(high, name, &path)) pf::SetAttributes(path.text, attrs);
}

}  // namespace FIO
