// Prints, one line per item, the results that brelt gives the same on Windows and on Linux.
// scripts/side-by-side runs it natively and under Wine and compares the two outputs.
#include "sections.h"

int main() {
  sidebyside::Report r;
  sidebyside::FloatMaskWords(r);
  sidebyside::CaseFolds(r);
  sidebyside::CodePageConversion(r);
  sidebyside::WordOrdering(r);
  sidebyside::NumberText(r);
  sidebyside::Calendar(r);
  sidebyside::MathResults(r);
  sidebyside::FileOperations(r);
  return 0;
}
