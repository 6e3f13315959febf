// The POSIX command line from the argument vector: arguments joined by one space, quoted where
// the scanner would not read them back as they are, and the scanner cuts the text back into
// the arguments.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "lib/command_line.h"
#include "platform/posix/command_line.h"

namespace {

TEST(PosixCommandLine, JoinedFromArguments) {
  using namespace std::string_literals;
  const struct { std::string bytes; const char* line; std::vector<const char*> back; } rows[] = {
      {"prog\0"s, "prog", {"prog"}},
      {"prog\0a\0b c\0"s, "prog a \"b c\"", {"prog", "a", "b c"}},
      {"/bin/my prog\0x\ty\0"s, "\"/bin/my prog\" \"x\ty\"", {"/bin/my prog", "x\ty"}},
      {"prog\0\0z\0"s, "prog \"\" z", {"prog", "", "z"}},
      {"prog\0d\"e f\"g\0"s, "prog d\"e f\"g", {"prog", "d\"e f\"g"}},
      {"prog\0\"ab\"\0a\"b\" c\0"s, "prog \"\"ab\"\" \"a\"b\" c\"",
       {"prog", "\"ab\"", "a\"b\" c"}},
      // A leading quote with a blank in its stretch has no form that comes back.
      {"prog\0\"a b\"\0"s, "prog \"\"a b\"\"", {}},
      {"prog\0last"s, "prog last", {"prog", "last"}},
      {""s, "", {}},
  };
  for (const auto& r : rows) {
    const std::string line =
        brelt::platform::posix::CommandLineOfArguments(r.bytes.data(), r.bytes.size());
    EXPECT_EQ(line, r.line);
    if (r.back.empty()) continue;
    EXPECT_EQ(brelt::lib::ParamCountOf(line.c_str()), r.back.size() - 1) << r.line;
    for (unsigned i = 0; i < r.back.size(); ++i) {
      char param[64];
      brelt::lib::ParamStrOf(line.c_str(), sizeof param - 1, param, i);
      EXPECT_STREQ(param, r.back[i]) << r.line << " [" << i << "]";
    }
  }
}

}  // namespace
