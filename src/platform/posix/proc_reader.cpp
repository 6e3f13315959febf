#include "platform/posix/proc_reader.h"

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace brelt::platform::posix {

ProcReader::ProcReader(const char* path) : fd_(open(path, O_RDONLY | O_CLOEXEC)) {}

ProcReader::~ProcReader() {
  if (fd_ >= 0) close(fd_);
}

int ProcReader::Next() {
  if (pos_ == end_) {
    if (fd_ < 0) return -1;
    ssize_t got;
    do {
      got = read(fd_, buffer_, sizeof buffer_);
    } while (got < 0 && errno == EINTR);
    if (got <= 0) return -1;
    pos_ = 0;
    end_ = static_cast<int>(got);
  }
  return static_cast<unsigned char>(buffer_[pos_++]);
}

std::uint64_t ProcReader::Number(int base, int* stop) {
  int c = Next();
  while (c == ' ' || c == '\t') c = Next();
  std::uint64_t value = 0;
  for (;; c = Next()) {
    int digit;
    if (c >= '0' && c <= '9') digit = c - '0';
    else if (base == 16 && c >= 'a' && c <= 'f') digit = c - 'a' + 10;
    else break;
    value = value * base + digit;
  }
  *stop = c;
  return value;
}

bool ProcReader::NextLine() {
  for (int c = Next(); c != '\n'; c = Next()) {
    if (c < 0) return false;
  }
  return true;
}

}  // namespace brelt::platform::posix
