// What the 8-bit and 16-bit halves of the text reader and writer differ in: their variables,
// the Str conversions they call, and how a character is made of file bytes. Each operation is
// written once as a template over the character type and reaches its twin's parts here.
#pragma once

#include <cstdint>
#include <cstring>

#include "brelt/fio.h"
#include "brelt/str.h"

namespace brelt::fio {

template <class T>
struct TextTwin;

template <>
struct TextTwin<char> {
  static constexpr std::uint32_t kSetSize = 32;
  static const unsigned char* Separators() { return FIO::SeparatorsA; }
  static char Eol() { return FIO::EOLA; }
  static char PrefixChar() { return FIO::PrefixCharA; }
  static char SuffixChar() { return FIO::SuffixCharA; }
  static constexpr auto Copy = Str::CopyA;
  static constexpr auto Length = Str::LengthA;
  static constexpr auto Compare = Str::CompareA;
  static constexpr auto StrToCard = Str::StrToCardA;
  static constexpr auto StrToInt = Str::StrToIntA;
  static constexpr auto StrToReal = Str::StrToRealA;
  static constexpr auto CardToStr = Str::CardToStrA;
  static constexpr auto IntToStr = Str::IntToStrA;
  static constexpr auto RealToStr = Str::RealToStrA;
  static constexpr auto FixRealToStr = Str::FixRealToStrA;
};

template <>
struct TextTwin<WChar> {
  static constexpr std::uint32_t kSetSize = 16;
  static const unsigned char* Separators() { return FIO::SeparatorsW; }
  static WChar Eol() { return FIO::EOLW; }
  static WChar PrefixChar() { return FIO::PrefixCharW; }
  static WChar SuffixChar() { return FIO::SuffixCharW; }
  static constexpr auto Copy = Str::CopyW;
  static constexpr auto Length = Str::LengthW;
  static constexpr auto Compare = Str::CompareW;
  static constexpr auto StrToCard = Str::StrToCardW;
  static constexpr auto StrToInt = Str::StrToIntW;
  static constexpr auto StrToReal = Str::StrToRealW;
  static constexpr auto CardToStr = Str::CardToStrW;
  static constexpr auto IntToStr = Str::IntToStrW;
  static constexpr auto RealToStr = Str::RealToStrW;
  static constexpr auto FixRealToStr = Str::FixRealToStrW;
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
