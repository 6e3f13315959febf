// The name limit of every FIO operation that takes a file name: the name is copied, with a
// NUL, into a local array of 260 characters before the system sees it, so it may have at most
// 259. A longer name ends the operation before any system call, leaving the last error alone.
#pragma once

#include "brelt/config.h"

namespace brelt::fio {

inline constexpr unsigned int kNameHigh = 259;

struct SystemName {
  char text[kNameHigh + 2];  // one byte behind the 260, so that the text always ends
};

// The A form: the copy, then the last error cleared for the call that follows.
bool PrepareName(unsigned int high, const char* name, SystemName* out);

// The W form: the copy in 16 bits, then the conversion to the system's 8-bit code page, through
// which every name reaches the system, then the last error cleared. A conversion that fills all
// 260 characters is a name over the limit too, refused like one.
bool PrepareName(unsigned int high, const WChar* name, SystemName* out);

}  // namespace brelt::fio
