// Lib::ExecA: a child process from a program name and a command line of 260 characters at most.
#include <cstdint>

#include "brelt/lib/process.h"
#include "brelt/str/copies.h"
#include "lib/command_line.h"
#include "platform/process.h"

namespace {

constexpr unsigned int kTextHigh = 260;
// A text of 260 characters holds at most 130 tokens of one character between blanks.
constexpr unsigned int kMostArguments = 130;

// The command line cut into parameters as Lib::ParamStrA would give them, for platforms that
// start a process with an argument vector; a child built on this library then reads the same
// parameters back. The parameters with their NULs take no more room than the text itself.
void CutArguments(const char* text, char (&storage)[kTextHigh + 1],
                  char* (&args)[kMostArguments + 1]) {
  unsigned int count = 0;
  char* next = storage;
  brelt::lib::TokenSpan token;
  while (brelt::lib::FindToken(text, count, &token)) {
    const auto high = static_cast<unsigned int>(token.length);  // room for a NUL behind it
    brelt::lib::CopyParam(token, high, next);
    args[count++] = next;
    next += token.length + 1;
  }
  args[count] = nullptr;
}

}  // namespace

namespace Lib {

unsigned char ExecA(unsigned int highProgram, const char* program, unsigned int highCommand,
                    const char* command, void* environment, void** process,
                    brelt::ULong* processId) {
  char programText[kTextHigh + 1];
  char commandText[kTextHigh + 1];
  if (Str::StrToCA(highProgram, program, kTextHigh, programText) == 0 ||
      Str::StrToCA(highCommand, command, kTextHigh, commandText) == 0) {
    return 0;
  }
  char argumentText[kTextHigh + 1];
  char* arguments[kMostArguments + 1];
  CutArguments(commandText, argumentText, arguments);
  brelt::platform::Handle handle;
  std::uint32_t id;
  if (!brelt::platform::StartProcess(programText, commandText, arguments, environment, &handle,
                                     &id)) {
    return 0;
  }
  *process = handle;
  *processId = id;
  return 1;
}

}  // namespace Lib
