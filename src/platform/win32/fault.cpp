// Float control through the runtime's control word, and fault translation through a
// vectored exception handler.
//
// The runtime's own translator hook does not link with this toolchain, so faults are caught
// first by a vectored handler. On a thread that asked for translation it makes the faulting
// thread look as if the faulting instruction had called a small frame (BreltFaultThunk) and
// resumes it there; that frame calls the translator, which throws an ordinary C++ exception
// that unwinds back through the faulting function. The return address given to the thunk is
// one byte past the start of the faulting instruction, so that the unwinder's usual "return
// address minus one" lands inside that instruction. The thunk keeps a frame pointer, so the
// stack may be realigned for the call whatever alignment the fault left.
#include "platform/fault.h"

#include <float.h>
#include <windows.h>

#include <mutex>

namespace brelt::platform {

namespace {

FaultTranslator g_translator = nullptr;
DWORD g_tlsSlot = TLS_OUT_OF_INDEXES;
std::once_flag g_installed;

// The system's core modules guard their own probes (IsBadReadPtr and friends) with handlers
// that a vectored handler would pre-empt; faults inside them are left to those handlers.
// Their address ranges are taken once, so that the fault path needs no loader call.
struct CodeRange {
  DWORD64 begin = 0, end = 0;
};
CodeRange g_systemRanges[3];

CodeRange RangeOf(const wchar_t* name) {
  const auto* base = reinterpret_cast<const unsigned char*>(GetModuleHandleW(name));
  if (base == nullptr) return {};
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto* nt = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
  const auto begin = reinterpret_cast<DWORD64>(base);
  return {begin, begin + nt->OptionalHeader.SizeOfImage};
}

bool InSystemCore(DWORD64 pc) {
  for (const CodeRange& r : g_systemRanges) {
    if (pc >= r.begin && pc < r.end) return true;
  }
  return false;
}

}  // namespace
}  // namespace brelt::platform

extern "C" [[noreturn]] void BreltRaiseFaultCode(std::uint32_t code) {
  brelt::platform::g_translator(code);
  __builtin_trap();
}

extern "C" void BreltFaultThunk();

// Entered with the stack as a call from the faulting instruction left it and the code in rcx.
__asm__(R"(
    .text
    .globl BreltFaultThunk
    .def BreltFaultThunk; .scl 2; .type 32; .endef
    .seh_proc BreltFaultThunk
BreltFaultThunk:
    pushq %rbp
    .seh_pushreg %rbp
    movq %rsp, %rbp
    .seh_setframe %rbp, 0
    .seh_endprologue
    andq $-16, %rsp
    subq $32, %rsp
    call BreltRaiseFaultCode
    int3
    .seh_endproc
)");

namespace brelt::platform {

namespace {

LONG CALLBACK OnException(EXCEPTION_POINTERS* info) {
  const DWORD code = info->ExceptionRecord->ExceptionCode;
  // Machine faults carry error severity; software exceptions (C++ throws among them) set the
  // customer bit and are left alone.
  if ((code & 0xF0000000u) != 0xC0000000u) return EXCEPTION_CONTINUE_SEARCH;
  // TlsGetValue resets the last error, which a fault left to other handlers must keep.
  const DWORD lastError = GetLastError();
  const bool translate = TlsGetValue(g_tlsSlot) != nullptr;
  SetLastError(lastError);
  if (!translate) return EXCEPTION_CONTINUE_SEARCH;
  CONTEXT* c = info->ContextRecord;
  if (InSystemCore(c->Rip)) return EXCEPTION_CONTINUE_SEARCH;
  c->Rsp -= 8;
  *reinterpret_cast<DWORD64*>(c->Rsp) = c->Rip + 1;
  c->Rcx = code;
  c->Rip = reinterpret_cast<DWORD64>(&BreltFaultThunk);
  return EXCEPTION_CONTINUE_EXECUTION;
}

}  // namespace

std::uint32_t FloatControlWord() { return _control87(0, 0); }

void SetFloatMaskBits(std::uint32_t mask) { _control87(mask, 0x8001F); }

void ClearFloatFlags() { _clearfp(); }

void TranslateFaultsOnThisThread(FaultTranslator translator) {
  std::call_once(g_installed, [translator] {
    g_translator = translator;
    g_systemRanges[0] = RangeOf(L"ntdll.dll");
    g_systemRanges[1] = RangeOf(L"kernelbase.dll");
    g_systemRanges[2] = RangeOf(L"kernel32.dll");
    g_tlsSlot = TlsAlloc();
    AddVectoredExceptionHandler(1, OnException);
  });
  TlsSetValue(g_tlsSlot, reinterpret_cast<void*>(1));
}

}  // namespace brelt::platform
