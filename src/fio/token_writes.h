// The writes every text writer is made of: a run of characters, a repeated character, and a
// text in a field, the one place where field width, fill and ChopOff are handled.
#pragma once

#include <algorithm>
#include <cstdint>

#include "brelt/fio.h"
#include "fio/text_twin.h"
#include "platform/file_io.h"
#include "platform/last_error.h"

namespace brelt::fio {

// One system write of `count` characters, also of none.
template <class T>
void WriteChars(platform::Handle file, const T* text, std::uint32_t count) {
  platform::SetLastError(0);
  std::uint32_t done = 0;
  platform::WriteToFile(file, text, count * static_cast<std::uint32_t>(sizeof(T)), &done);
}

// Fill goes out in blocks of 160 bytes (80 or 160 characters); a count of 0 makes no call.
template <class T>
void WriteRepeated(platform::Handle file, T ch, std::uint32_t count) {
  constexpr std::uint32_t kBlock = sizeof(T) == 1 ? 80 : 160;
  T block[kBlock];
  std::fill_n(block, std::min(count, kBlock), ch);
  while (count > 0) {
    const std::uint32_t n = std::min(count, kBlock);
    WriteChars(file, block, n);
    count -= n;
  }
}

inline constexpr std::uint32_t kFieldTextHigh = 255;

// The first 256 characters of (high, src) in a field of |width|: behind the prefix fill for a
// positive width, before the suffix fill for a negative one. A longer text goes out whole, or
// with ChopOff set as |width| question marks. A field that fits the local line goes out in one
// write, fill and all; a wider fill goes out in blocks around the text's own write, in the
// same order.
template <class T>
void WriteField(platform::Handle file, std::uint32_t high, const T* src, std::int32_t width) {
  constexpr std::uint32_t kLine = 512;
  T text[kFieldTextHigh + 1];
  TextTwin<T>::Copy(kFieldTextHigh, text, high, src);
  std::uint32_t length = TextTwin<T>::Length(kFieldTextHigh, text);
  const std::uint32_t w = width < 0 ? 0u - static_cast<std::uint32_t>(width)
                                    : static_cast<std::uint32_t>(width);
  std::int64_t pad = static_cast<std::int64_t>(w) - length;
  if (pad < 0 && FIO::ChopOff != 0) {
    std::fill_n(text, w, T('?'));
    length = w;
    pad = 0;
  }
  if (pad <= 0) {
    WriteChars(file, text, length);
    return;
  }
  const auto padding = static_cast<std::uint32_t>(pad);
  const bool right = width > 0;
  const T fill = right ? TextTwin<T>::PrefixChar() : TextTwin<T>::SuffixChar();
  if (padding <= kLine - length) {
    T line[kLine];
    std::fill_n(line + (right ? 0 : length), padding, fill);
    std::copy_n(text, length, line + (right ? padding : 0));
    WriteChars(file, line, padding + length);
    return;
  }
  if (right) WriteRepeated(file, fill, padding);
  WriteChars(file, text, length);
  if (!right) WriteRepeated(file, fill, padding);
}

}  // namespace brelt::fio
