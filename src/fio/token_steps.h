// The reader's steps for a line and for an item, over a source of token_source.h. They are
// the one definition of what the readers return; the sources only decide how the characters
// come off the handle.
#pragma once

#include <cstdint>

#include "fio/text_twin.h"
#include "fio/token_source.h"
#include "lib/bit_set.h"

namespace brelt::fio {

inline constexpr std::uint32_t kEndOfFileMark = 26;
inline constexpr std::uint32_t kCarriageReturn = 13;
inline constexpr std::uint32_t kLineFeed = 10;

// A line: up to `eol` or the mark 26, which are consumed and end the text with a NUL; CR and
// LF are dropped wherever else they stand. A full array ends the line without a NUL. At the
// end of the file every read gives 0, which is stored like a character, so a last line comes
// back followed by NULs up to the array's end.
template <class T, class Source>
void ReadLine(Source& in, std::uint32_t high, T* dst) {
  const T eol = TextTwin<T>::Eol();
  std::uint32_t count = 0;
  for (;;) {
    const T ch = in.Next();
    if (ch == T(kEndOfFileMark) || ch == eol) {
      dst[count] = T{0};
      break;
    }
    if (ch != T(kLineFeed) && ch != T(kCarriageReturn)) dst[count++] = ch;
    if (count > high) break;
  }
  in.Finish();
}

// An item: separators skipped while the file lasts, then characters collected until a
// separator, the end of the file, a 26 or a CR behind the first character (the CR takes the
// character after it along), or a full array, which ends the item without a NUL.
template <class T, class Source>
void ReadItem(Source& in, std::uint32_t high, T* dst) {
  const unsigned char* const set = TextTwin<T>::Separators();
  auto separates = [set](T c) {
    return bits::SetIn(static_cast<std::uint32_t>(c), set, TextTwin<T>::kSetSize) != 0;
  };
  std::uint32_t count = 0;
  T ch{};
  bool inHand = false;
  while (!in.AtEnd()) {
    ch = in.Next();
    if (!separates(ch)) {
      inHand = true;
      break;
    }
  }
  while (inHand && !separates(ch)) {
    dst[count++] = ch;
    if (count > high) {
      in.Finish();
      return;
    }
    if (in.AtEnd()) break;
    ch = in.Next();
    if (ch == T(kEndOfFileMark)) break;
    if (ch == T(kCarriageReturn)) {
      in.Next();
      break;
    }
  }
  dst[count] = T{0};
  in.Finish();
}

template <class T>
void ReadLineFrom(platform::Handle file, std::uint32_t high, T* dst) {
  WithSource<T>(file, [&](auto& in) { ReadLine<T>(in, high, dst); });
}

template <class T>
void ReadItemFrom(platform::Handle file, std::uint32_t high, T* dst) {
  WithSource<T>(file, [&](auto& in) { ReadItem<T>(in, high, dst); });
}

}  // namespace brelt::fio
