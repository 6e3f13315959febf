// Command lines: the scanner of Lib::ParamCount and Lib::ParamStrA over any text, and the
// POSIX command line built from an argument vector.
// Invariants: the count and every parameter, into a guarded array of random size, are those
// of a plain cut of the text (tokens split at blanks outside quoted stretches, cut to the array,
// a NUL where there is room, then the first and the last quote removed from a token that
// begins with one) and nothing behind `high` is written; and arguments joined into a command
// line are cut back into themselves wherever a text without escapes can hold them.
//
// Input: the command-line text; then from the back the destination's size, the parameter index,
// and the bytes at which the text is split into arguments for the join.
#include <algorithm>
#include <string>
#include <vector>

#include "fuzz_text.h"
#include "lib/command_line.h"
#include "platform/posix/command_line.h"

namespace {

using namespace brelt::fuzz;

std::vector<std::string> Tokens(const std::string& text) {
  std::vector<std::string> out;
  std::size_t i = 0;
  for (;;) {
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
    if (i == text.size()) return out;
    std::string token;
    bool quoted = false;
    for (; i < text.size(); ++i) {
      const char c = text[i];
      if (!quoted && (c == ' ' || c == '\t')) break;
      if (c == '"') quoted = !quoted;
      token += c;
    }
    out.push_back(token);
  }
}

// The array after ParamStrA: the token cut to `capacity`, a NUL behind it where there is room,
// and on a leading quote the first and last quotes removed by deletion within the array.
std::string Expected(const std::vector<std::string>& tokens, std::uint64_t index,
                     std::size_t capacity, const std::string& before) {
  std::string a = before;
  if (index >= tokens.size()) {
    a[0] = '\0';
    return a;
  }
  const std::string& t = tokens[index];
  const std::size_t n = std::min(t.size(), capacity);
  a.replace(0, n, t, 0, n);
  if (n < capacity) a[n] = '\0';
  if (a[0] != '"') return a;
  // Deleting one character of a string in its array: the rest moves down, a NUL ends it.
  auto erase = [&](std::size_t pos) {
    const std::size_t len = std::min(a.find('\0'), capacity);
    a.erase(pos, 1);
    a.insert(len - 1, 1, '\0');
    a.resize(capacity);
  };
  erase(0);
  const std::size_t len = std::min(a.find('\0'), capacity);
  const std::size_t last = a.rfind('"', len == 0 ? 0 : len - 1);
  if (len != 0 && last != std::string::npos) erase(last);
  return a;
}

// An argument that a command line without escapes can give back: its quotes are balanced,
// and its blanks all lie outside its quoted stretches (then it can be wrapped in quotes), or
// all inside them with no quote in front (then it can stand as it is).
bool ComesBack(const std::string& arg) {
  bool quoted = false, inside = false, outside = false;
  for (char c : arg) {
    if (c == '"') quoted = !quoted;
    if (c == ' ' || c == '\t') (quoted ? inside : outside) = true;
  }
  return !quoted && !(inside && (outside || arg[0] == '"'));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider in(data, size);
  std::string text = in.ConsumeRandomLengthString(400);
  text = text.substr(0, text.find('\0'));
  const std::vector<std::string> tokens = Tokens(text);

  Guarded<char> line(text.size() + 1);
  std::copy(text.begin(), text.end(), line.data());
  line[text.size()] = '\0';
  BRELT_FUZZ_CHECK(brelt::lib::ParamCountOf(line.data()) ==
                   (tokens.empty() ? 0 : tokens.size() - 1));

  const std::size_t capacity = in.ConsumeIntegralInRange<std::size_t>(1, 40);
  const auto pick = in.ConsumeIntegral<std::uint8_t>();
  const unsigned index = pick < 0xF0 ? pick % (tokens.size() + 2) : 0xFFFFFFFF - (pick & 0xF);
  Guarded<char> dst(capacity);
  const std::string before(dst.data(), capacity);
  brelt::lib::ParamStrOf(line.data(), static_cast<unsigned>(capacity - 1), dst.data(), index);
  BRELT_FUZZ_CHECK(std::string(dst.data(), capacity) ==
                   Expected(tokens, index, capacity, before));

  // Arguments cut from the text at the bytes the input names.
  std::string bytes = text;
  while (in.remaining_bytes() > 0 && !bytes.empty()) {
    bytes[in.ConsumeIntegral<std::uint16_t>() % bytes.size()] = '\0';
  }
  std::vector<std::string> args;
  for (std::size_t start = 0; start < bytes.size();) {
    const std::size_t end = std::min(bytes.find('\0', start), bytes.size());
    args.push_back(bytes.substr(start, end - start));
    start = end + 1;
  }
  const std::string joined =
      brelt::platform::posix::CommandLineOfArguments(bytes.data(), bytes.size());
  if (!std::all_of(args.begin(), args.end(), ComesBack)) return 0;
  BRELT_FUZZ_CHECK(brelt::lib::ParamCountOf(joined.c_str()) ==
                   (args.empty() ? 0 : args.size() - 1));
  for (std::size_t i = 0; i < args.size(); ++i) {
    std::string param(joined.size() + 1, '#');
    brelt::lib::ParamStrOf(joined.c_str(), static_cast<unsigned>(param.size() - 1), param.data(),
                           static_cast<unsigned>(i));
    BRELT_FUZZ_CHECK(param.substr(0, param.find('\0')) == args[i]);
  }
  return 0;
}
