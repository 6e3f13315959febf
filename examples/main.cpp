// A small application on brelt: it builds a greeting in a fixed array, looks through it and
// shows what the bounded strings do at the array's edge.
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
  return 0;
}
