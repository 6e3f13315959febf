// SEH: the calling thread's floating-point exception mask, and machine faults received as
// thrown values.
#pragma once

#include <brelt/config.h>

namespace SEH {

// Mask bits of the control word; a set bit keeps that exception from trapping.
inline constexpr unsigned int kMaskInexact = 0x00001;
inline constexpr unsigned int kMaskUnderflow = 0x00002;
inline constexpr unsigned int kMaskOverflow = 0x00004;
inline constexpr unsigned int kMaskZeroDivide = 0x00008;
inline constexpr unsigned int kMaskInvalid = 0x00010;
inline constexpr unsigned int kMaskDenormal = 0x80000;
inline constexpr unsigned int kMaskAll = 0x8001F;

// Start-up step of the module; it does nothing.
BRELT_API void InitModule();

// From now on every machine fault on the calling thread (access violation, integer or float
// division by zero, an unmasked float trap, ...) is thrown as an `unsigned int` holding the
// platform's exception code (0xC0000005, 0xC0000094, 0xC000008E, ...). Other threads keep the
// platform's default course. Code that catches such a value must be compiled so that a
// faulting instruction may throw (GCC: -fnon-call-exceptions).
BRELT_API void EnableSEH();

// The calling thread's whole control word.
BRELT_API unsigned int GetFloatExceptionsMask();
// Clears pending exception flags and sets the six mask bits from `mask` (other bits of it are
// ignored); gives the whole word as it was, which can be passed back here to restore it.
BRELT_API unsigned int SetFloatExceptionsMask(unsigned int mask);
// Everything but the inexact result traps.
BRELT_API unsigned int EnableFloatExceptions();
// Nothing traps; pending flags are left as they are.
BRELT_API unsigned int DisableFloatExceptions();

}  // namespace SEH
