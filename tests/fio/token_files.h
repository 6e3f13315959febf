// Helpers of the token reader and writer tests: file bytes of either character width, and the
// number and boolean readers of a twin by name, each giving its value as text.
#pragma once

#include <brelt/fio.h>

#include <cmath>
#include <cstdio>
#include <string>
#include <string_view>

namespace brelt::test {

// The bytes of ASCII text as the twin stores it: one byte a character, or two, low first.
template <class T>
std::string FileBytes(std::string_view text) {
  if (sizeof(T) == 1) return std::string(text);
  std::string out;
  for (char c : text) out += std::string{c, '\0'};
  return out;
}

// The other way; a 16-bit character above 255 shows as '~', a lone last byte as itself.
template <class T>
std::string FileText(std::string_view bytes) {
  if (sizeof(T) == 1) return std::string(bytes);
  std::string out;
  for (std::size_t i = 0; i < bytes.size(); i += 2) {
    out += i + 1 < bytes.size() && bytes[i + 1] != '\0' ? '~' : bytes[i];
  }
  return out;
}

// The elements of an array as stored, NULs included; a 16-bit character above 255 is '~'.
template <class Array>
std::string Stored(const Array& a) {
  std::string out;
  for (std::size_t i = 0; i < a.size(); ++i) {
    const unsigned c = static_cast<unsigned>(a[i]) & (sizeof a[i] == 1 ? 0xFFu : 0xFFFFu);
    out += c > 255 ? '~' : static_cast<char>(c);
  }
  return out;
}

template <class V>
std::string ValueText(V v) {
  if constexpr (std::is_floating_point_v<V>) {
    if (std::isnan(v)) return "nan";
    char buf[40];
    std::snprintf(buf, sizeof buf, sizeof v == 4 ? "%.9g" : "%.17g", static_cast<double>(v));
    return buf;
  } else {
    return std::to_string(+v);
  }
}

#define BRELT_TOKEN_READERS(X) \
  X(Card8) X(Card16) X(Card32) X(Hex8) X(Hex16) X(Hex32) X(Int8) X(Int16) X(Int32) X(Real) \
  X(LngReal) X(Bool)
#define BRELT_TOKEN_ENUM(name) k##name,
enum TokenReader { BRELT_TOKEN_READERS(BRELT_TOKEN_ENUM) kReaderCount };
#undef BRELT_TOKEN_ENUM

using ReadAsText = std::string (*)(FileHandle, unsigned char*);
template <auto F>
std::string ReadText(FileHandle file, unsigned char* ok) {
  return ValueText(F(file, ok));
}
#define BRELT_TOKEN_A(name) &ReadText<FIO::Rd##name##A>,
#define BRELT_TOKEN_W(name) &ReadText<FIO::Rd##name##W>,
template <class T>
inline constexpr ReadAsText kTokenReaders[] = {BRELT_TOKEN_READERS(BRELT_TOKEN_A)};
template <>
inline constexpr ReadAsText kTokenReaders<WChar>[] = {BRELT_TOKEN_READERS(BRELT_TOKEN_W)};
#undef BRELT_TOKEN_A
#undef BRELT_TOKEN_W

}  // namespace brelt::test
