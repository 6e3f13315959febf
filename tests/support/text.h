// Text helpers shared by the tests of both character widths.
#pragma once

#include <brelt/config.h>

#include <string>
#include <string_view>

namespace brelt::test {

// ASCII text in the character type of a twin; "\0" inside the view survives.
template <class T>
std::basic_string<T> As(std::string_view ascii) {
  std::basic_string<T> out;
  for (char c : ascii) out.push_back(static_cast<T>(static_cast<unsigned char>(c)));
  return out;
}

inline std::basic_string<WChar> Wide(std::string_view ascii) { return As<WChar>(ascii); }

}  // namespace brelt::test
