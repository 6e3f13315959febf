#include "platform/posix/command_line.h"

#include <string_view>

#include "platform/posix/proc_reader.h"
#include "platform/process.h"

namespace brelt::platform {
namespace posix {
namespace {

// The scanner reads `arg`, standing alone, back as itself: it is not empty, does not begin
// with a quote (which a parameter loses), and has no blank outside a quoted stretch.
bool ReadsBackAsIs(std::string_view arg) {
  if (arg.empty() || arg[0] == '"') return false;
  bool quoted = false;
  for (char c : arg) {
    if (c == '"') {
      quoted = !quoted;
    } else if (!quoted && (c == ' ' || c == '\t')) {
      return false;
    }
  }
  return true;
}

}  // namespace

std::string CommandLineOfArguments(const char* bytes, std::size_t size) {
  std::string line;
  for (std::size_t start = 0; start < size;) {
    std::size_t end = start;
    while (end < size && bytes[end] != '\0') ++end;
    const std::string_view arg(bytes + start, end - start);
    if (start != 0) line += ' ';
    if (ReadsBackAsIs(arg)) {
      line += arg;
    } else {
      line += '"';
      line += arg;
      line += '"';
    }
    start = end + 1;
  }
  return line;
}

}  // namespace posix

const char* ProcessCommandLine() {
  // Read once, at the first call; the arguments of a running process do not change.
  static const std::string line = [] {
    std::string bytes;
    posix::ProcReader reader("/proc/self/cmdline");
    for (int c = reader.Next(); c >= 0; c = reader.Next()) bytes += static_cast<char>(c);
    return posix::CommandLineOfArguments(bytes.data(), bytes.size());
  }();
  return line.c_str();
}

}  // namespace brelt::platform
