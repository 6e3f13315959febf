#include "platform/posix/dos_names.h"

#include <dirent.h>
#include <errno.h>
#include <sys/stat.h>

#include <cstring>
#include <string>

#include "platform/last_error.h"
#include "platform/posix/drives.h"
#include "platform/posix/errors.h"
#include "platform/posix/name_text.h"

namespace brelt::platform::posix {
namespace {

bool IsSeparator(unsigned char c) { return c == '\\' || c == '/'; }

bool IsLetter(unsigned char c) { return (c | 0x20) >= 'a' && (c | 0x20) <= 'z'; }

// The characters Windows refuses, checked before anything touches the disk.
bool CheckCharacters(const unsigned char* s, std::uint32_t n, NameUse use) {
  std::uint32_t lastStart = 0;
  for (std::uint32_t i = 0; i < n; ++i) {
    if (IsSeparator(s[i])) lastStart = i + 1;
  }
  for (std::uint32_t i = 0; i < n; ++i) {
    const unsigned char c = s[i];
    const bool wild = c == '*' || c == '?';
    if (c < 32 || c == '<' || c == '>' || c == '"' || c == '|' ||
        (wild && (use != NameUse::kPattern || i < lastStart)) ||
        (c == ':' && !(i == 1 && IsLetter(s[0])))) {
      return Fail(kErrorInvalidName);
    }
  }
  return true;
}

class PathBuilder {
 public:
  explicit PathBuilder(NativeName* out) : out_(out) {}

  bool Start(const std::string& root, const std::string& below) {
    rootLength_ = static_cast<std::uint32_t>(root.size());
    return Append(root.data(), root.size()) && Append(below.data(), below.size());
  }

  // One component of the name, in the code page.
  bool Push(const char* s, std::uint32_t n) {
    if (n == 1 && s[0] == '.') return true;
    if (n == 2 && s[0] == '.' && s[1] == '.') {
      std::uint32_t i = out_->length;
      while (i > rootLength_ && out_->path[i - 1] != '/') --i;
      out_->length = i > rootLength_ ? i - 1 : rootLength_;
      return true;
    }
    while (n > 0 && (s[n - 1] == '.' || s[n - 1] == ' ')) --n;
    if (n == 0) return true;
    if (!Append("/", 1)) return false;
    const std::uint32_t room = kNativeMax - 1 - out_->length;
    const std::uint32_t written = CodePageToNative(s, n, out_->path + out_->length, room);
    if (written == 0) return Fail(kErrorFilenameTooLong);
    out_->length += written;
    return true;
  }

  void Finish() {
    if (out_->length == 0) out_->path[out_->length++] = '/';  // the POSIX root itself
    out_->path[out_->length] = '\0';
    std::uint32_t i = out_->length;
    while (i > rootLength_ && out_->path[i - 1] != '/') --i;
    out_->lastStart = i > rootLength_ ? i : out_->length;
  }

 private:
  bool Append(const char* s, std::size_t n) {
    if (out_->length + n >= kNativeMax) return Fail(kErrorFilenameTooLong);
    std::memcpy(out_->path + out_->length, s, n);
    out_->length += static_cast<std::uint32_t>(n);
    return true;
  }

  NativeName* out_;
  std::uint32_t rootLength_ = 0;
};

// In folder `dir` (a native path, "" for the root), an entry whose name differs from
// (name, n) in case alone; its name goes to `found`.
bool FindIgnoringCase(const char* dir, const char* name, std::uint32_t n, std::string* found) {
  DIR* d = opendir(dir[0] == '\0' ? "/" : dir);
  if (d == nullptr) return false;
  bool hit = false;
  while (const dirent* e = readdir(d)) {
    const auto len = static_cast<std::uint32_t>(std::strlen(e->d_name));
    if (SameNameIgnoringCase(e->d_name, len, name, n)) {
      *found = e->d_name;
      hit = true;
      break;
    }
  }
  closedir(d);
  return hit;
}

// Where the lookup of `n` may start: behind the deepest folder on the way that exists as
// written, sought from the end, so that a missing file in an existing folder costs one more
// test of existence before its folder is read. From `from` on otherwise.
std::uint32_t DeepestFolderAsWritten(NativeName* n, std::uint32_t from) {
  std::uint32_t end = n->length;
  while (end > from) {
    std::uint32_t slash = end - 1;
    while (slash > from && n->path[slash] != '/') --slash;
    if (slash <= from) break;
    n->path[slash] = '\0';
    struct stat st;
    const bool folder = stat(n->path, &st) == 0 && S_ISDIR(st.st_mode);
    n->path[slash] = '/';
    if (folder) return slash;
    end = slash;
  }
  return from;
}

// Brings the components from `from` on to their spelling on disk (see the header), and notes
// whether every folder on the way exists.
bool MatchCaseOnDisk(NativeName* n, std::uint32_t from, bool lookupLast) {
  n->parentFound = true;
  n->missingErrno = 0;
  struct stat st;
  if (stat(n->path, &st) == 0) return true;
  const int missing = errno;
  bool respelled = false;
  std::uint32_t i = DeepestFolderAsWritten(n, from);  // at the '/' in front of a component
  while (i < n->length) {
    std::uint32_t next = i + 1;
    while (next < n->length && n->path[next] != '/') ++next;
    const bool last = next == n->length;
    if (last && !lookupLast) break;
    const char saved = n->path[next];
    n->path[next] = '\0';
    bool present = false;
    if (last && !respelled) {
      errno = missing;  // the whole name as written, tested above
    } else {
      present = stat(n->path, &st) == 0;
    }
    if (!present && errno == ENOENT) {
      const int err = errno;
      n->path[i] = '\0';
      std::string found;
      const bool hit = FindIgnoringCase(n->path, n->path + i + 1, next - i - 1, &found);
      n->path[i] = '/';
      errno = err;
      if (hit) {
        const auto size = static_cast<std::uint32_t>(found.size());
        if (n->length - (next - i - 1) + size >= kNativeMax) return Fail(kErrorFilenameTooLong);
        n->path[next] = saved;
        std::memmove(n->path + i + 1 + size, n->path + next, n->length - next + 1);
        std::memcpy(n->path + i + 1, found.data(), size);
        n->length = n->length - (next - i - 1) + size;
        next = i + 1 + size;
        n->path[next] = '\0';
        present = stat(n->path, &st) == 0;
        respelled = true;
      }
    }
    n->path[next] = saved;
    if (last) {
      if (!present) n->missingErrno = errno;
      break;
    }
    if (!present || !S_ISDIR(st.st_mode)) {
      n->parentFound = false;
      break;
    }
    i = next;
  }
  return true;
}

}  // namespace

bool ResolveName(const char* name, NameUse use, NativeName* out) {
  const auto* s = reinterpret_cast<const unsigned char*>(name);
  const auto n = static_cast<std::uint32_t>(std::strlen(name));
  if (n == 0) return Fail(kErrorPathNotFound);
  if (!CheckCharacters(s, n, use)) return false;
  std::uint32_t pos = 0;
  char drive;
  if (n >= 2 && s[1] == ':') {
    drive = static_cast<char>(s[0] & ~0x20);
    pos = 2;
  } else {
    drive = CurrentDrive();
    if (n >= 2 && IsSeparator(s[0]) && IsSeparator(s[1])) return Fail(kErrorBadNetPath);
  }
  const bool fromRoot = pos < n && IsSeparator(s[pos]);
  std::string root, current;
  if (!DriveFolders(drive, &root, fromRoot ? nullptr : &current)) {
    return Fail(kErrorPathNotFound);
  }
  out->length = 0;
  out->drive = drive;
  out->trailingSeparator = IsSeparator(s[n - 1]);
  PathBuilder path(out);
  if (!path.Start(root, fromRoot ? std::string() : current)) return false;
  while (pos < n) {
    while (pos < n && IsSeparator(s[pos])) ++pos;
    std::uint32_t end = pos;
    while (end < n && !IsSeparator(s[end])) ++end;
    if (end > pos && !path.Push(name + pos, end - pos)) return false;
    pos = end;
  }
  path.Finish();
  if (use == NameUse::kAsWritten) return true;
  return MatchCaseOnDisk(out, static_cast<std::uint32_t>(root.size()),
                         use == NameUse::kPlain);
}

bool FailForName(const NativeName& n) {
  if (errno == ENOENT && !n.parentFound) return Fail(kErrorPathNotFound);
  return FailFromErrno();
}

}  // namespace brelt::platform::posix
