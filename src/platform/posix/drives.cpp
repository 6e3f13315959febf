#include "platform/posix/drives.h"

#include <limits.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <mutex>

#include "platform/last_error.h"
#include "platform/posix/errors.h"

namespace brelt::platform::posix {
namespace {

struct Drives {
  std::recursive_mutex lock;
  char current = 'C';
  bool mapped[26] = {};
  std::string root[26];
  std::string dir[26];    // where the drive's directory is, as the system names it
  std::string shown[26];  // the same, spelled as the caller gave it
  Drives() { mapped['C' - 'A'] = true; }
};

Drives& State() {
  static Drives drives;
  return drives;
}

int Index(char letter) {
  if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
  return letter >= 'A' && letter <= 'Z' ? letter - 'A' : -1;
}

// `path` below `root`: the rest of it ("" for the root itself), or false when it lies outside.
bool Below(const std::string& root, const std::string& path, std::string* rest) {
  if (path.compare(0, root.size(), root) != 0) return false;
  if (path.size() > root.size() && path[root.size()] != '/') return false;
  *rest = path.substr(root.size());
  if (*rest == "/") rest->clear();
  return true;
}

// The process's directory is the current drive's, unless the application moved it with the
// system's own calls; then it counts on C:, where every folder lies.
void FollowProcessDirectory(Drives& d) {
  char cwd[PATH_MAX];
  if (getcwd(cwd, sizeof cwd) == nullptr) return;
  int i = d.current - 'A';
  std::string rest;
  if (!Below(d.root[i], cwd, &rest)) {
    d.current = 'C';
    i = 'C' - 'A';
    Below("", cwd, &rest);
  }
  if (rest != d.dir[i]) d.dir[i] = d.shown[i] = rest;
}

}  // namespace

bool DriveFolders(char letter, std::string* root, std::string* current) {
  Drives& d = State();
  std::lock_guard<std::recursive_mutex> hold(d.lock);
  const int i = Index(letter);
  if (i < 0 || !d.mapped[i]) return false;
  *root = d.root[i];
  if (current == nullptr) return true;
  if (i == d.current - 'A') FollowProcessDirectory(d);
  *current = d.shown[i];
  return true;
}

char CurrentDrive() {
  Drives& d = State();
  std::lock_guard<std::recursive_mutex> hold(d.lock);
  FollowProcessDirectory(d);
  return d.current;
}

bool EnterDirectory(char letter, const std::string& native, const std::string& spelled) {
  Drives& d = State();
  std::lock_guard<std::recursive_mutex> hold(d.lock);
  const int i = Index(letter);
  std::string shown;
  if (i < 0 || !d.mapped[i] || !Below(d.root[i], spelled, &shown)) {
    return Fail(kErrorPathNotFound);
  }
  FollowProcessDirectory(d);  // the drive we leave keeps where it was
  if (chdir(native.c_str()) != 0) return FailFromErrno();
  d.current = static_cast<char>('A' + i);
  d.shown[i] = shown;
  d.dir[i] = shown;
  char cwd[PATH_MAX];
  // Compared with later readings, so the system's own name of the folder is kept.
  if (getcwd(cwd, sizeof cwd) != nullptr) Below(d.root[i], cwd, &d.dir[i]);
  return true;
}

bool MapDriveLetter(char letter, const char* folder) {
  Drives& d = State();
  std::lock_guard<std::recursive_mutex> hold(d.lock);
  const int i = Index(letter);
  if (i < 0 || i == 'C' - 'A') return Fail(kErrorInvalidParameter);
  if (folder == nullptr) {
    d.mapped[i] = false;
    if (d.current - 'A' == i) d.current = 'C';
    return true;
  }
  char real[PATH_MAX];
  struct stat st;
  if (realpath(folder, real) == nullptr || stat(real, &st) != 0) return FailFromErrno();
  if (!S_ISDIR(st.st_mode)) return Fail(kErrorDirectory);
  d.root[i] = real[1] == '\0' ? "" : real;
  d.dir[i].clear();
  d.shown[i].clear();
  d.mapped[i] = true;
  return true;
}

}  // namespace brelt::platform::posix
