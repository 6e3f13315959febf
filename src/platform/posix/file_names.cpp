// Files and folders by name over the POSIX tree. Windows rules the layer keeps: a read-only
// file cannot be deleted, a rename never replaces an existing entry (one that differs only in
// case is the same entry, renamed to the new spelling), and a file is not a folder (267).
// Of the attributes only read-only can be set, on files, as the owner's write permission.
#include "platform/file_names.h"

#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

#include "platform/last_error.h"
#include "platform/posix/dos_names.h"
#include "platform/posix/drives.h"
#include "platform/posix/errors.h"
#include "platform/posix/file_status.h"
#include "platform/posix/name_text.h"

namespace brelt::platform {
namespace {

using posix::Fail;
using posix::FailFromErrno;
using posix::NativeName;
using posix::NameUse;

// Resolves `name` and reads its status; false (last error set) when it is not there.
bool Existing(const char* name, NativeName* n, struct stat* st) {
  if (!posix::ResolveName(name, NameUse::kPlain, n)) return false;
  if (n->missingErrno != 0) {
    errno = n->missingErrno;
    return posix::FailForName(*n);
  }
  if (stat(n->path, st) != 0) return posix::FailForName(*n);
  if (n->trailingSeparator && !S_ISDIR(st->st_mode)) return Fail(kErrorInvalidName);
  return true;
}

}  // namespace

std::uint32_t FileAttributes(const char* name) {
  NativeName n;
  struct stat st;
  if (!Existing(name, &n, &st)) return kInvalidAttributes;
  return posix::AttributesOf(st, n.path + n.lastStart);
}

bool SetAttributes(const char* name, std::uint32_t attrs) {
  NativeName n;
  struct stat st;
  if (!Existing(name, &n, &st)) return false;
  if (S_ISDIR(st.st_mode)) return true;
  constexpr mode_t kWrite = S_IWUSR | S_IWGRP | S_IWOTH;
  mode_t mode = st.st_mode & 07777;
  if ((attrs & posix::kAttrReadOnly) != 0) {
    mode &= ~kWrite;
  } else if (posix::ReadOnly(st)) {
    mode |= S_IWUSR;
  }
  return chmod(n.path, mode) == 0 || FailFromErrno();
}

bool MakeDirectory(const char* name) {
  NativeName n;
  // Looked up like any name, so that a folder differing only in case counts as there.
  if (!posix::ResolveName(name, NameUse::kPlain, &n)) return false;
  if (mkdir(n.path, 0777) == 0) return true;
  return errno == ENOENT ? Fail(kErrorPathNotFound) : FailFromErrno();
}

bool RemoveEmptyDirectory(const char* name) {
  NativeName n;
  struct stat st;
  if (!Existing(name, &n, &st)) return false;
  if (!S_ISDIR(st.st_mode)) return Fail(kErrorDirectory);
  return rmdir(n.path) == 0 || FailFromErrno();
}

bool RemoveFile(const char* name) {
  NativeName n;
  struct stat st;
  if (!Existing(name, &n, &st)) return false;
  if (S_ISDIR(st.st_mode) || posix::ReadOnly(st)) return Fail(kErrorAccessDenied);
  return unlink(n.path) == 0 || FailFromErrno();
}

bool RenameEntry(const char* from, const char* to) {
  NativeName old, spelled, found;
  struct stat st, there;
  if (!Existing(from, &old, &st)) return false;
  if (!posix::ResolveName(to, NameUse::kNewName, &spelled) ||
      !posix::ResolveName(to, NameUse::kPlain, &found)) {
    return false;
  }
  if (stat(found.path, &there) == 0 && (there.st_dev != st.st_dev || there.st_ino != st.st_ino)) {
    return Fail(kErrorAlreadyExists);
  }
  if (renameat2(AT_FDCWD, old.path, AT_FDCWD, spelled.path, RENAME_NOREPLACE) == 0) return true;
  // Only the spelling changes: the entry is there under its old name, so no replacing check.
  if (errno == EEXIST && rename(old.path, spelled.path) == 0) return true;
  if (errno == EEXIST) return Fail(kErrorAlreadyExists);
  return errno == ENOENT ? Fail(kErrorPathNotFound) : FailFromErrno();
}

std::uint32_t CurrentDirectory(std::uint32_t cap, char* buf) {
  const char drive = posix::CurrentDrive();
  std::string root, below;
  if (!posix::DriveFolders(drive, &root, &below)) return Fail(kErrorPathNotFound), 0;
  char text[posix::kNativeMax + 3] = {drive, ':', '\\'};
  std::uint32_t length = 3;
  if (!below.empty()) {
    // Without its leading '/', which the drive's backslash stands for.
    length = 2 + posix::NativeToCodePage(below.data(), static_cast<std::uint32_t>(below.size()),
                                         text + 2, posix::kNativeMax);
    for (std::uint32_t i = 2; i < length; ++i) {
      if (text[i] == '/') text[i] = '\\';
    }
  }
  if (length + 1 > cap) return length + 1;
  for (std::uint32_t i = 0; i < length; ++i) buf[i] = text[i];
  buf[length] = '\0';
  return length;
}

bool ChangeDirectory(const char* name) {
  NativeName n, spelled;
  struct stat st;
  if (!Existing(name, &n, &st)) return false;
  if (!S_ISDIR(st.st_mode)) return Fail(kErrorDirectory);
  if (!posix::ResolveName(name, NameUse::kAsWritten, &spelled)) return false;
  return posix::EnterDirectory(n.drive, n.path, spelled.path);
}

bool MapDrive(char letter, const char* folder) { return posix::MapDriveLetter(letter, folder); }

}  // namespace brelt::platform
