// The calling thread's floating-point control word, and the translation of machine faults
// into thrown values.
#pragma once

#include <cstdint>

namespace brelt::platform {

// The control word in the runtime's layout: mask bits 0x1 inexact, 0x2 underflow,
// 0x4 overflow, 0x8 division by zero, 0x10 invalid, 0x80000 denormal (set = masked), with the
// rounding field at 0x300 and the precision field at 0x30000.
std::uint32_t FloatControlWord();
// Writes the six mask bits from `mask`; nothing else changes.
void SetFloatMaskBits(std::uint32_t mask);
// Clears the pending exception flags.
void ClearFloatFlags();

// Windows exception codes, which both targets give for their faults.
inline constexpr std::uint32_t kAccessViolation = 0xC0000005;
inline constexpr std::uint32_t kInPageError = 0xC0000006;
inline constexpr std::uint32_t kIllegalInstruction = 0xC000001D;
inline constexpr std::uint32_t kArrayBoundsExceeded = 0xC000008C;
inline constexpr std::uint32_t kFloatDenormalOperand = 0xC000008D;
inline constexpr std::uint32_t kFloatDivideByZero = 0xC000008E;
inline constexpr std::uint32_t kFloatInexactResult = 0xC000008F;
inline constexpr std::uint32_t kFloatInvalidOperation = 0xC0000090;
inline constexpr std::uint32_t kFloatOverflow = 0xC0000091;
inline constexpr std::uint32_t kFloatUnderflow = 0xC0000093;
inline constexpr std::uint32_t kIntegerDivideByZero = 0xC0000094;
inline constexpr std::uint32_t kIntegerOverflow = 0xC0000095;
inline constexpr std::uint32_t kPrivilegedInstruction = 0xC0000096;
inline constexpr std::uint32_t kFloatMultipleTraps = 0xC00002B5;

// Called on the faulting thread with the fault's code; it must throw.
using FaultTranslator = void (*)(std::uint32_t code);

// From now on a machine fault on the calling thread calls `translator`, which throws out of
// the faulting instruction. Threads that did not ask keep the platform's default course.
void TranslateFaultsOnThisThread(FaultTranslator translator);

}  // namespace brelt::platform
