// The one-text command line of a POSIX process, built from its argument vector.
#pragma once

#include <cstddef>
#include <string>

namespace brelt::platform::posix {

// `bytes` holds the arguments each ended by a NUL, as /proc/self/cmdline gives them (a last
// argument without its NUL counts as well). They are joined by single spaces. An argument
// that holds a space or a tab outside a quoted stretch of its own, or is empty, or begins
// with a quote stands between double quotes; the others are written as they are. So the
// parameters of the text are the arguments again, wherever that can be said without escapes,
// which the text does not have: an argument with blanks both inside and outside its quoted
// stretches, or with an odd number of quotes, does not come back whole.
std::string CommandLineOfArguments(const char* bytes, std::size_t size);

}  // namespace brelt::platform::posix
