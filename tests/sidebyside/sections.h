// The groups of results that must come out the same on every target, one function each.
#pragma once

#include "report.h"

namespace sidebyside {

void FloatMaskWords(Report& r);  // first: it reads the control word as start-up left it
void CaseFolds(Report& r);
void CodePageConversion(Report& r);
void WordOrdering(Report& r);
void NumberText(Report& r);
void Calendar(Report& r);
void MathResults(Report& r);
void FileOperations(Report& r);  // in the current folder, which it leaves as it found it

}  // namespace sidebyside
