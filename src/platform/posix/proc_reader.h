// A small reader of /proc text files that needs no heap: the memory figures and the pointer
// tests must work when the heap has nothing left.
#pragma once

#include <cstdint>

namespace brelt::platform::posix {

class ProcReader {
 public:
  explicit ProcReader(const char* path);
  ~ProcReader();
  ProcReader(const ProcReader&) = delete;
  ProcReader& operator=(const ProcReader&) = delete;

  bool ok() const { return fd_ >= 0; }
  // The next byte, or -1 at the end of the file.
  int Next();
  // Reads a number in the given base, skipping leading blanks; stops on the first other byte,
  // which is consumed and returned through `stop` (-1 at the end).
  std::uint64_t Number(int base, int* stop);
  // Skips to the start of the next line; false at the end of the file.
  bool NextLine();

 private:
  int fd_;
  int pos_ = 0;
  int end_ = 0;
  char buffer_[4096];
};

}  // namespace brelt::platform::posix
