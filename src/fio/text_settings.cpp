// FIO: the variables that steer the text reader and writer, and the module's start-up step
// that gives them their start values. Applications may change them at any time; the reader
// and writer read them at each use.
#include <algorithm>
#include <iterator>

#include "brelt/fio.h"

namespace {

// 9, 10, 13, 26 and 32: tab, LF, CR, the end-of-file mark and the blank.
constexpr unsigned char kStartSeparatorsA[32] = {0x00, 0x26, 0x00, 0x04, 0x01};
constexpr unsigned char kStartSeparatorsW[16] = {0x00, 0x26, 0x00, 0x04, 0x01};

}  // namespace

namespace FIO {

unsigned char SeparatorsA[32];
unsigned char SeparatorsW[16];
char EOLA;
WChar EOLW;

unsigned char Eng;
unsigned char ChopOff;
char PrefixCharA;
WChar PrefixCharW;
char SuffixCharA;
WChar SuffixCharW;

void InitModule() {
  std::copy(std::begin(kStartSeparatorsA), std::end(kStartSeparatorsA), SeparatorsA);
  std::copy(std::begin(kStartSeparatorsW), std::end(kStartSeparatorsW), SeparatorsW);
  EOLA = '\n';
  EOLW = u'\n';
  Eng = 0;
  ChopOff = 0;
  PrefixCharA = ' ';
  PrefixCharW = u' ';
  SuffixCharA = ' ';
  SuffixCharW = u' ';
}

}  // namespace FIO
