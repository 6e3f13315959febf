// Where the text reader takes its characters from.
//
// The reader's steps ask two things of a source: whether the handle stands at the end of its
// file (the end-of-file test: position equal to size, both in 32 bits), and the next
// character (one read of one character, the last error cleared first, 0 when the read
// delivers nothing). CharSource answers each question with exactly those system calls: it
// is the reader as defined, and the reference the tests hold BlockSource to.
//
// BlockSource gives the same answers, the same last error and, once Finish has run, the same
// position, from few system calls: on a disk file it reads a block from the position, hands
// out characters from it, and at the end of the call moves the position back over the bytes
// it read but did not hand out. Knowing only what the reads delivered, it answers the
// end-of-file test as follows: a character in hand means not at the end; a read that delivers
// nothing behind delivered bytes means exactly at the end. Whatever it cannot decide that
// way (a read that fails, a position at or behind the end before anything was read), and any
// handle that is no disk file (pipes, consoles), it leaves to CharSource from the position
// behind the characters handed out, so the rest of the call is the reference's own.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "brelt/fio.h"
#include "fio/text_twin.h"
#include "platform/file_io.h"
#include "platform/last_error.h"

namespace brelt::fio {

// How the readers of the calling thread take characters: in blocks where the handle allows
// it (the default), or always one system read per character, as the tests' reference and the
// benchmarks' baseline.
enum class ReadWay : unsigned char { kBlocks, kCharWise };
void PinReadWay(ReadWay way);
ReadWay PinnedReadWay();

template <class T>
class CharSource {
 public:
  explicit CharSource(platform::Handle file) : file_(file) {}

  bool AtEnd() const { return FIO::EndOfFile(file_) != 0; }

  T Next() const {
    platform::SetLastError(0);
    unsigned char bytes[sizeof(T)] = {};
    std::uint32_t got = 0;
    platform::ReadFromFile(file_, bytes, sizeof bytes, &got);
    return CharOfBytes<T>(bytes);
  }

  void Finish() const {}

 private:
  platform::Handle file_;
};

template <class T>
class BlockSource {
 public:
  explicit BlockSource(platform::Handle file) : file_(file), chars_(file) {
    platform::SetLastError(0);
    std::uint64_t size = 0;
    // Up to this size every position up to the end fits the 32-bit test, so the test and the
    // comparison of whole positions agree.
    blocks_ = platform::DiskFileSize(file, &size) && size < 0xFFFFFFFFu;
  }
  BlockSource(const BlockSource&) = delete;
  BlockSource& operator=(const BlockSource&) = delete;

  bool AtEnd() {
    if (!blocks_) return chars_.AtEnd();
    if (have_ > 0) return false;
    if (!drained_) Refill();
    if (!blocks_) return chars_.AtEnd();
    if (have_ > 0) return false;
    // Bytes were delivered up to here and none lie behind: the position is the size.
    if (delivered_) return true;
    // Nothing in this file from the position on; it may even lie behind the end.
    blocks_ = false;
    return chars_.AtEnd();
  }

  T Next() {
    if (!blocks_) return chars_.Next();
    if (have_ < sizeof(T) && !drained_) Refill();
    if (!blocks_) return chars_.Next();
    unsigned char bytes[sizeof(T)] = {};
    const std::uint32_t n = std::min<std::uint32_t>(have_, sizeof(T));
    std::memcpy(bytes, next_, n);
    next_ += n;
    have_ -= n;
    return CharOfBytes<T>(bytes);
  }

  // Puts the handle's position right behind the characters handed out.
  void Finish() {
    if (blocks_) GiveBackUnused();
  }

 private:
  static constexpr std::uint32_t kCapacity = 8192;
  static constexpr std::uint32_t kFirstBlock = 64 * sizeof(T);

  // Reads the next block behind the bytes not yet handed out (fewer than one character).
  void Refill() {
    std::memmove(buffer_, next_, have_);
    next_ = buffer_;
    platform::SetLastError(0);
    std::uint32_t got = 0;
    const std::uint32_t want = std::min(block_, kCapacity - have_);
    const bool ok = platform::ReadFromFile(file_, buffer_ + have_, want, &got);
    have_ += got;
    if (!ok) {
      // The reference reads on from the position behind what was handed out.
      GiveBackUnused();
      blocks_ = false;
      return;
    }
    if (got == 0) {
      drained_ = true;
    } else {
      delivered_ = true;
    }
    block_ = std::min(block_ * 4, kCapacity);
  }

  void GiveBackUnused() {
    if (have_ == 0) return;
    platform::SetLastError(0);
    platform::MoveFilePointer(file_, -static_cast<std::int64_t>(have_), nullptr,
                              platform::kFromCurrent);
    have_ = 0;
  }

  platform::Handle file_;
  CharSource<T> chars_;
  bool blocks_ = false;
  bool drained_ = false;    // a read delivered nothing: the file ends at the bytes in hand
  bool delivered_ = false;  // a read delivered bytes, so none of them lay behind the end
  std::uint32_t have_ = 0;  // bytes read and not yet handed out, from next_ on
  std::uint32_t block_ = kFirstBlock;
  unsigned char* next_ = buffer_;
  unsigned char buffer_[kCapacity];
};

// Runs `body` with the source for the calling thread's read way.
template <class T, class Body>
void WithSource(platform::Handle file, Body body) {
  if (PinnedReadWay() == ReadWay::kCharWise) {
    CharSource<T> in(file);
    body(in);
  } else {
    BlockSource<T> in(file);
    body(in);
  }
}

}  // namespace brelt::fio
