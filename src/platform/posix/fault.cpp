// Float control through the SSE control register, and fault translation through the
// synchronous signals.
//
// The fault signals get one process-wide handler, installed when the first thread asks. On a
// thread that asked, the handler calls the translator, which throws straight out of the
// signal frame into the faulting function (the unwinder knows signal frames, and code that
// catches is built with -fnon-call-exceptions). SA_NODEFER keeps the signal unblocked, since
// the throw never passes through sigreturn. On any other thread the signal takes the course
// it had before.
#include "platform/fault.h"

#include <signal.h>
#include <ucontext.h>
#include <xmmintrin.h>

#include <mutex>

namespace brelt::platform {

namespace {

// MXCSR: mask bits 7..12, flags 0..5, rounding 13..14.
struct MaskPair {
  std::uint32_t word;
  std::uint32_t mxcsr;
};
constexpr MaskPair kMasks[] = {
    {0x00001, 0x1000},  // precision (inexact)
    {0x00002, 0x0800},  // underflow
    {0x00004, 0x0400},  // overflow
    {0x00008, 0x0200},  // division by zero
    {0x00010, 0x0080},  // invalid
    {0x80000, 0x0100},  // denormal
};
constexpr std::uint32_t kMxcsrFlags = 0x3F;
constexpr std::uint32_t kPrecision53 = 0x10000;  // SSE arithmetic on doubles

constexpr int kFaultSignals[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL};
struct sigaction g_previous[4];
FaultTranslator g_translator = nullptr;
std::once_flag g_installed;
__thread bool t_translate __attribute__((tls_model("initial-exec"))) = false;

std::uint32_t FloatTrapCode(int si_code, const void* context) {
  switch (si_code) {
    case FPE_INTDIV: return kIntegerDivideByZero;
    case FPE_INTOVF: return kIntegerOverflow;
    case FPE_FLTDIV: return kFloatDivideByZero;
    case FPE_FLTOVF: return kFloatOverflow;
    case FPE_FLTUND: return kFloatUnderflow;
    case FPE_FLTRES: return kFloatInexactResult;
    case FPE_FLTINV: return kFloatInvalidOperation;
    case FPE_FLTSUB: return kArrayBoundsExceeded;
    default: break;
  }
  // The kernel names no code for a denormal operand; the register's flags tell.
  const auto* uc = static_cast<const ucontext_t*>(context);
  if (uc->uc_mcontext.fpregs != nullptr) {
    const std::uint32_t mxcsr = uc->uc_mcontext.fpregs->mxcsr;
    if ((mxcsr & 0x02) != 0 && (mxcsr & 0x100) == 0) return kFloatDenormalOperand;
  }
  return kFloatMultipleTraps;
}

std::uint32_t FaultCode(int sig, const siginfo_t* info, const void* context) {
  switch (sig) {
    case SIGFPE: return FloatTrapCode(info->si_code, context);
    case SIGILL: return info->si_code == ILL_PRVOPC ? kPrivilegedInstruction : kIllegalInstruction;
    case SIGBUS: return info->si_code == BUS_ADRALN ? kAccessViolation : kInPageError;
    default: return kAccessViolation;
  }
}

int SlotOf(int sig) {
  for (int i = 0; i < 4; ++i) {
    if (kFaultSignals[i] == sig) return i;
  }
  return 0;
}

// The kernel runs the handler with a fresh floating-point state and would restore the
// thread's own at sigreturn, which a throw never reaches: put the control words back first.
void RestoreFloatControl(const void* context) {
  const auto* uc = static_cast<const ucontext_t*>(context);
  if (uc->uc_mcontext.fpregs == nullptr) return;
  _mm_setcsr(uc->uc_mcontext.fpregs->mxcsr);
  const unsigned short cw = uc->uc_mcontext.fpregs->cwd;
  __asm__ volatile("fldcw %0" : : "m"(cw));
}

void OnFault(int sig, siginfo_t* info, void* context) {
  // Only a fault the processor raised is translated, not a signal another process sent.
  if (t_translate && info->si_code > 0) {
    const std::uint32_t code = FaultCode(sig, info, context);
    RestoreFloatControl(context);
    g_translator(code);
  }
  const struct sigaction& prev = g_previous[SlotOf(sig)];
  if ((prev.sa_flags & SA_SIGINFO) != 0 && prev.sa_sigaction != nullptr) {
    prev.sa_sigaction(sig, info, context);
    return;
  }
  const bool sent = info->si_code <= 0;
  if (prev.sa_handler == SIG_IGN && sent) return;
  if (prev.sa_handler != SIG_DFL && prev.sa_handler != SIG_IGN) {
    prev.sa_handler(sig);
    return;
  }
  // Back to the default course: a faulting instruction runs again and ends the process; a
  // signal that was sent is raised again, since nothing would repeat it.
  signal(sig, SIG_DFL);
  if (sent) raise(sig);
}

void InstallHandler() {
  struct sigaction sa = {};
  sa.sa_sigaction = OnFault;
  sa.sa_flags = SA_SIGINFO | SA_NODEFER;
  sigemptyset(&sa.sa_mask);
  for (int i = 0; i < 4; ++i) sigaction(kFaultSignals[i], &sa, &g_previous[i]);
}

}  // namespace

std::uint32_t FloatControlWord() {
  const std::uint32_t mxcsr = _mm_getcsr();
  std::uint32_t word = kPrecision53 | (((mxcsr >> 13) & 3u) << 8);
  for (const MaskPair& m : kMasks) {
    if (mxcsr & m.mxcsr) word |= m.word;
  }
  return word;
}

void SetFloatMaskBits(std::uint32_t mask) {
  std::uint32_t mxcsr = _mm_getcsr();
  for (const MaskPair& m : kMasks) {
    mxcsr = (mask & m.word) ? (mxcsr | m.mxcsr) : (mxcsr & ~m.mxcsr);
  }
  _mm_setcsr(mxcsr);
}

void ClearFloatFlags() {
  _mm_setcsr(_mm_getcsr() & ~kMxcsrFlags);
  __asm__ volatile("fnclex");
}

void TranslateFaultsOnThisThread(FaultTranslator translator) {
  std::call_once(g_installed, [translator] {
    g_translator = translator;
    InstallHandler();
  });
  t_translate = true;
}

}  // namespace brelt::platform
