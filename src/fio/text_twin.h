// What the 8-bit and 16-bit halves of the text reader and writer differ in: their variables,
// the Str operations they call (str/str_twin.h), and how a character is made of file bytes. Each operation is
// written once as a template over the character type and reaches its twin's parts here.
#pragma once

#include <cstdint>
#include <cstring>

#include "brelt/fio.h"
#include "brelt/str.h"
#include "str/str_twin.h"

namespace brelt::fio {

template <class T>
struct TextTwin;

template <>
struct TextTwin<char> : brelt::str::StrTwin<char> {
  static constexpr std::uint32_t kSetSize = 32;
  static const unsigned char* Separators() { return FIO::SeparatorsA; }
  static char Eol() { return FIO::EOLA; }
  static char PrefixChar() { return FIO::PrefixCharA; }
  static char SuffixChar() { return FIO::SuffixCharA; }
};

template <>
struct TextTwin<WChar> : brelt::str::StrTwin<WChar> {
  static constexpr std::uint32_t kSetSize = 16;
  static const unsigned char* Separators() { return FIO::SeparatorsW; }
  static WChar Eol() { return FIO::EOLW; }
  static WChar PrefixChar() { return FIO::PrefixCharW; }
  static WChar SuffixChar() { return FIO::SuffixCharW; }
};

// A character from its file bytes, low byte first; bytes a short read left out are 0.
template <class T>
T CharOfBytes(const unsigned char* bytes) {
  if constexpr (sizeof(T) == 1) {
    return static_cast<T>(bytes[0]);
  } else {
    return static_cast<T>(bytes[0] | bytes[1] << 8);
  }
}

}  // namespace brelt::fio
