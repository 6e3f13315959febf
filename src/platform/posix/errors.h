// How the POSIX layer turns errno into the Win32 codes of the last error.
#pragma once

#include <cstdint>

namespace brelt::platform::posix {

// The Win32 code for an errno value, by the one table of the layer.
std::uint32_t Win32CodeOf(int error);

// Sets the last error from errno. Always answers false, so that a failing call can end with
// `return FailFromErrno();`.
bool FailFromErrno();

// Sets the last error to `code` and answers false.
bool Fail(std::uint32_t code);

}  // namespace brelt::platform::posix
