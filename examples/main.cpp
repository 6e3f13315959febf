// A small application on brelt: it builds a greeting in a fixed array, looks through it,
// shows what the bounded strings do at the array's edge, and touches numbers, memory,
// wildcards and the calendar.
#include <brelt/brelt.h>

#include <cstdio>

int main() {
  char line[32];
  const char hello[] = "Hello, ";
  const char name[] = "brelt";
  Str::ConcatA(sizeof line - 1, line, sizeof hello - 1, hello, sizeof name - 1, name);
  std::printf("%s (length %u)\n", line, Str::LengthA(sizeof line - 1, line));

  const char needle[] = "brelt";
  std::printf("\"%s\" found at %u\n", needle, Str::PosA(sizeof line - 1, line, sizeof needle - 1, needle));
  std::printf("last 'l' at %u, %u of them\n", Str::RCharPosA(sizeof line - 1, line, 'l'),
              Str::CountA(sizeof line - 1, line, 'l'));

  // Four characters fill a four-element array: no terminator is stored, and that is a whole
  // string of length 4.
  char word[4];
  Str::CopyA(sizeof word - 1, word, sizeof line - 1, line);
  std::printf("cut to 4: \"%.4s\", length %u\n", word, Str::LengthA(sizeof word - 1, word));

  // The block operations count: bytes equal before the first difference.
  const char a[] = "abcdef", b[] = "abcxef";
  std::printf("equal prefix of \"%s\" and \"%s\": %llu bytes\n", a, b,
              static_cast<unsigned long long>(Lib::Compare(a, b, 6)));

  // Numbers as text and back, in any base from 2 to 16.
  char digits[40];
  unsigned char ok = 0;
  Str::IntToStrA(-255, sizeof digits - 1, digits, 16, &ok);
  std::printf("-255 in base 16: %s (ok %u)\n", digits, ok);
  const char real[] = "6.02214076E23";
  const double avogadro = Str::StrToRealA(sizeof real - 1, real, &ok);
  std::printf("%s reads as %.9g (ok %u); 2 to the -3rd is %g\n", real, avogadro, ok,
              MATHLIB::IntPow(2.0, -3));

  // Memory that cannot fail from the caller's view, and case-blind wildcards.
  void* block = nullptr;
  Storage::Allocate(&block, 64);
  char* file = static_cast<char*>(block);
  Str::CopyA(63, file, 10, "Report.TXT");
  Str::CapsA(63, file);
  const char pattern[] = "*.t?t";
  std::printf("%s matches %s: %u\n", file, pattern,
              Str::MatchA(63, file, sizeof pattern - 1, pattern));
  Storage::Free(&block);

  // Julian day numbers: noon of 1 January 2000 is day 2451545.
  std::printf("JD of 2000-01-01 12:00: %.1f\n", os::JD(2000, 1, 1, 0.5));
  return 0;
}
