// Every byte through the 8-bit code page to 16-bit units and back, by the bounded and by the
// pointer-and-length conversions. Each line: the units, the bytes they give back, and the
// byte count that the sizing call of U2AP asks for.
#include <brelt/str.h>

#include "sections.h"

namespace sidebyside {

void CodePageConversion(Report& r) {
  for (unsigned b = 1; b < 0x100; ++b) {
    const char byte = static_cast<char>(b);
    Str::WChar units[4] = {};
    Str::A2U(0, &byte, 3, units);
    std::string line;
    unsigned n = 0;
    for (; n < 3 && units[n] != 0; ++n) line += Hex(units[n], 4) + " ";
    char back[8] = {};
    Str::U2A(n == 0 ? 0 : n - 1, units, 7, back);
    line += "->";
    for (unsigned k = 0; k < 7 && back[k] != 0; ++k) {
      line += " " + Hex(static_cast<unsigned char>(back[k]), 2);
    }
    unsigned int need = 0;
    Str::U2AP(units, n, nullptr, &need);
    r.Line("codepage." + Hex(b, 2), line + " size " + Dec(need));
  }
}

}  // namespace sidebyside
