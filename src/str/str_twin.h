// The A or W form of each Str operation that code written once over the character type
// calls: StrTwin<char>::Copy is Str::CopyA, StrTwin<WChar>::Copy is Str::CopyW.
#pragma once

#include "brelt/str.h"

namespace brelt::str {

template <class T>
struct StrTwin;

template <>
struct StrTwin<char> {
  static constexpr auto Copy = Str::CopyA;
  static constexpr auto Length = Str::LengthA;
  static constexpr auto Slice = Str::SliceA;
  static constexpr auto NextCharPos = Str::NextCharPosA;
  static constexpr auto RCharPos = Str::RCharPosA;
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
struct StrTwin<WChar> {
  static constexpr auto Copy = Str::CopyW;
  static constexpr auto Length = Str::LengthW;
  static constexpr auto Slice = Str::SliceW;
  static constexpr auto NextCharPos = Str::NextCharPosW;
  static constexpr auto RCharPos = Str::RCharPosW;
  static constexpr auto Compare = Str::CompareW;
  static constexpr auto StrToCard = Str::StrToCardW;
  static constexpr auto StrToInt = Str::StrToIntW;
  static constexpr auto StrToReal = Str::StrToRealW;
  static constexpr auto CardToStr = Str::CardToStrW;
  static constexpr auto IntToStr = Str::IntToStrW;
  static constexpr auto RealToStr = Str::RealToStrW;
  static constexpr auto FixRealToStr = Str::FixRealToStrW;
};

}  // namespace brelt::str
