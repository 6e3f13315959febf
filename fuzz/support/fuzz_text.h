// Texts for the fuzz targets, cut from the input and laid in guard-page arrays, so that a read or
// write one element too far faults at once.
//
// Input layout: a target first takes all its texts from the front of the input, each up to a
// backslash and the character behind it (FuzzedDataProvider's string form; "\\" is one
// backslash); then every flag and number from the back. So a plain text file is a seed of one
// NUL-terminated text, all flags 0, and a seed may give more texts behind "\" and a newline and
// numbers in its last bytes, read from the end backwards.
#pragma once

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <brelt/config.h>

#include "guarded_array.h"
#include "kernel_tables.h"
#include "lib/scan_kernels.h"
#include "platform/code_page_convert.h"

// A broken invariant ends the run like a fault, naming the check.
#define BRELT_FUZZ_CHECK(cond) \
  ((cond) ? (void)0 : ::brelt::fuzz::Broken(#cond, __FILE__, __LINE__))

namespace brelt::fuzz {

using brelt::WChar;
using test::GuardedArray;
using test::GuardSide;
template <class T>
using String = std::basic_string<T>;
inline constexpr unsigned kAll = 0xFFFFFFFFu;

[[noreturn]] inline void Broken(const char* what, const char* file, int line) {
  std::fprintf(stderr, "%s:%d: invariant broken: %s\n", file, line, what);
  std::abort();
}

// Mapping a guard page for every array of every input would cost more than the operations
// fuzzed, so each array borrows a region of its own, mapped once with its guard page and
// handed on when the array goes, and lies flush against the guard.
inline constexpr std::size_t kRegionBytes = 16384;

template <class T>
class Guarded {
 public:
  explicit Guarded(std::size_t count, GuardSide side = GuardSide::kBack)
      : count_(count), side_(side) {
    if (count * sizeof(T) > kRegionBytes) Broken("array above the region size", __FILE__, __LINE__);
    auto& spare = Spare(side);
    if (spare.empty()) {
      region_ = std::make_unique<GuardedArray<unsigned char>>(kRegionBytes, side);
    } else {
      region_ = std::move(spare.back());
      spare.pop_back();
    }
    unsigned char* base = region_->data();
    if (side == GuardSide::kBack) base += kRegionBytes - count * sizeof(T);
    data_ = reinterpret_cast<T*>(base);
    std::fill_n(data_, count, static_cast<T>('#'));  // the filler of the guarded arrays
  }
  Guarded(Guarded&&) = default;
  ~Guarded() {
    if (region_ != nullptr) Spare(side_).push_back(std::move(region_));
  }

  T* data() { return data_; }
  const T* data() const { return data_; }
  std::size_t size() const { return count_; }
  T& operator[](std::size_t i) { return data_[i]; }
  const T& operator[](std::size_t i) const { return data_[i]; }

 private:
  using Region = std::unique_ptr<GuardedArray<unsigned char>>;
  static std::vector<Region>& Spare(GuardSide side) {
    static std::vector<Region> lists[2];
    return lists[side == GuardSide::kFront ? 1 : 0];
  }
  std::size_t count_;
  GuardSide side_;
  Region region_;
  T* data_ = nullptr;
};

// One byte of flags per text; 0 is the plain case.
enum TextFlags : unsigned {
  kNoNul = 1,       // no NUL behind the characters: the text fills its array
  kAllOnes = 2,     // bound all ones ("as far as the NUL"), where the array holds a NUL
  kFrontGuard = 4,  // the unreadable page lies before element 0 instead of behind the end
  kUnitPairs = 8,   // 16-bit text from byte pairs (any code) rather than from single bytes
};

template <class T>
using Unsigned = std::make_unsigned_t<T>;

template <class T>
unsigned Code(T c) {
  return static_cast<Unsigned<T>>(c);
}

// The elements before the first NUL among the first `n`.
template <class T>
String<T> Measured(const T* s, std::uint64_t n) {
  std::uint64_t k = 0;
  while (k < n && s[k] != T{0}) ++k;
  return String<T>(s, k);
}

template <class T>
struct Text {
  Guarded<T> array;
  unsigned high;    // the bound handed to the library
  String<T> text;   // what the library must take as the text
  T* data() { return array.data(); }
  std::size_t size() const { return array.size(); }
  // Every element as it stands, NULs and filler included.
  String<T> Now() const { return String<T>(array.data(), array.size()); }
};

// `chars`, then a NUL unless kNoNul, then `spare` elements of the arrays' filler '#'.
template <class T>
Text<T> Place(std::basic_string_view<T> chars, unsigned flags, std::size_t spare = 0) {
  const bool nul = (flags & kNoNul) == 0 || chars.size() + spare == 0;
  const std::size_t size = chars.size() + (nul ? 1 : 0) + spare;
  Guarded<T> a(size, (flags & kFrontGuard) != 0 ? GuardSide::kFront : GuardSide::kBack);
  std::copy(chars.begin(), chars.end(), a.data());
  if (nul) a[chars.size()] = T{0};
  String<T> text = Measured(a.data(), size);
  const bool ones = (flags & kAllOnes) != 0 && text.size() < size;
  const unsigned high = ones ? kAll : static_cast<unsigned>(size - 1);
  return {std::move(a), high, std::move(text)};
}

// The characters of a twin from input bytes: one byte each, or for 16-bit text with kUnitPairs
// two bytes each, low byte first.
template <class T>
String<T> Chars(std::string_view bytes, unsigned flags) {
  String<T> out;
  if (sizeof(T) == 2 && (flags & kUnitPairs) != 0) {
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
      out.push_back(static_cast<T>(static_cast<unsigned char>(bytes[i]) |
                                   static_cast<unsigned char>(bytes[i + 1]) << 8));
    }
  } else {
    for (char c : bytes) out.push_back(static_cast<T>(static_cast<unsigned char>(c)));
  }
  return out;
}

// A text of the twin from bytes taken earlier, with its flags byte from the back of the input.
template <class T>
Text<T> Make(FuzzedDataProvider& in, std::string_view bytes, std::size_t spare = 0) {
  const unsigned flags = in.ConsumeIntegral<std::uint8_t>();
  const String<T> chars = Chars<T>(bytes, flags);
  return Place<T>(chars, flags, spare);
}

template <class T>
String<T> Widen(std::string_view ascii) {
  return Chars<T>(ascii, 0);
}

// A position or count for a text of `n` elements: mostly at most a little behind it,
// sometimes any 32-bit value, all ones included.
inline unsigned TakeIndex(FuzzedDataProvider& in, std::uint64_t n) {
  const auto pick = in.ConsumeIntegral<std::uint16_t>();
  if (pick < 0xF000) return static_cast<unsigned>(pick % (n + 3));
  if (pick < 0xF800) return kAll - (pick & 0xFF);
  return in.ConsumeIntegral<std::uint32_t>();
}

// The 8-bit code page of the run: UTF-8 (0) or Windows-1252 (1).
inline void TakeCodePage(FuzzedDataProvider& in) {
  const unsigned page = in.ConsumeBool() ? 1252 : 65001;
  if (!brelt::platform::PinCodePage(page)) Broken("code page not pinned", __FILE__, __LINE__);
}

// The vector width of this input's scans.
inline brelt::scan::Width& ScanWidth() {
  static brelt::scan::Width width = brelt::scan::CpuWidth();
  return width;
}

// The vector width of the library's scans for this input: 0 keeps the table chosen at load,
// other values walk every width the CPU offers. The exports bound at load (the Lib scans and
// compares, Str length, character positions and counts) keep the CPU's width; targets that
// check them call the body of ScanWidth() instead.
inline void TakeScanWidth(FuzzedDataProvider& in) {
  static const brelt::scan::Kernels* const loaded = &brelt::scan::Active();
  static const std::vector<test::KernelTable> tables = test::RunnableKernelTables();
  const unsigned pick = in.ConsumeIntegral<std::uint8_t>();
  if (pick == 0) {
    brelt::scan::UseKernels(*loaded);
    ScanWidth() = brelt::scan::CpuWidth();
  } else {
    const test::KernelTable& table = tables[(pick - 1) % tables.size()];
    brelt::scan::UseKernels(*table.kernels);
    ScanWidth() = table.width;
  }
}

// Runs `body` for the twin that the next flag picks, 0 for 8-bit text and 1 for 16-bit text,
// with the scan width that the byte behind it picks.
template <class Body>
void ForTwin(FuzzedDataProvider& in, Body body) {
  const bool wide = in.ConsumeBool();
  TakeScanWidth(in);
  if (wide) {
    body(WChar{});
  } else {
    body(char{});
  }
}

}  // namespace brelt::fuzz
