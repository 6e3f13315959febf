// Helpers of the token reader and writer tests: file bytes of either width, arrays as stored,
// and the readers of a twin, the number readers giving their value as text.
#pragma once

#include <brelt/fio.h>

#include <cmath>
#include <cstdio>
#include <string>
#include <string_view>

namespace brelt::test {

// ASCII text as the twin stores it (two bytes a character in W, low byte first), and back; a
// 16-bit character above 255 shows as '~'.
template <class T>
std::string FileBytes(std::string_view text) {
  std::string out;
  for (char c : text) out += sizeof(T) == 1 ? std::string{c} : std::string{c, '\0'};
  return out;
}
template <class T>
std::string FileText(std::string_view bytes) {
  std::string out;
  for (std::size_t i = 0; i < bytes.size(); i += sizeof(T)) {
    out += sizeof(T) == 2 && i + 1 < bytes.size() && bytes[i + 1] != '\0' ? '~' : bytes[i];
  }
  return out;
}
template <class Array>
std::string Stored(const Array& a) {
  std::string out;
  for (std::size_t i = 0; i < a.size(); ++i) {
    const unsigned c = static_cast<unsigned>(a[i]) & (sizeof a[i] == 1 ? 0xFFu : 0xFFFFu);
    out += c > 255 ? '~' : static_cast<char>(c);
  }
  return out;
}

template <auto F>
std::string ReadText(FileHandle file, unsigned char* ok) {
  const auto v = F(file, ok);
  if constexpr (!std::is_floating_point_v<decltype(v)>) return std::to_string(+v);
  char buf[40];
  std::snprintf(buf, sizeof buf, sizeof v == 4 ? "%.9g" : "%.17g", static_cast<double>(v));
  return std::isnan(v) ? "nan" : buf;
}
#define BRELT_TOKEN_READERS(X) \
  X(Card8) X(Card16) X(Card32) X(Hex8) X(Hex16) X(Hex32) X(Int8) X(Int16) X(Int32) X(Real) \
  X(LngReal) X(Bool)
#define BRELT_TOKEN_ENUM(name) k##name,
#define BRELT_TOKEN_A(name) &ReadText<FIO::Rd##name##A>,
#define BRELT_TOKEN_W(name) &ReadText<FIO::Rd##name##W>,
enum TokenReader { BRELT_TOKEN_READERS(BRELT_TOKEN_ENUM) kReaderCount };
using Reader = std::string (*)(FileHandle, unsigned char*);

template <class T> struct TokenTwin;
template <> struct TokenTwin<char> {
  static constexpr Reader kReaders[] = {BRELT_TOKEN_READERS(BRELT_TOKEN_A)};
  static constexpr auto RdChar = FIO::RdCharA;
  static constexpr auto RdStr = FIO::RdStrA, RdItem = FIO::RdItemA;
  static unsigned char* Set() { return FIO::SeparatorsA; }
  static void SetEol(char c) { FIO::EOLA = c; }
};
template <> struct TokenTwin<WChar> {
  static constexpr Reader kReaders[] = {BRELT_TOKEN_READERS(BRELT_TOKEN_W)};
  static constexpr auto RdChar = FIO::RdCharW;
  static constexpr auto RdStr = FIO::RdStrW, RdItem = FIO::RdItemW;
  static unsigned char* Set() { return FIO::SeparatorsW; }
  static void SetEol(char c) { FIO::EOLW = static_cast<unsigned char>(c); }
};

}  // namespace brelt::test
