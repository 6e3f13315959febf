// The command-line scanner behind Lib::ParamCount and Lib::ParamStrA, over given texts: '^'
// in a row stands for the double quote. Parameters land in guarded arrays, so a write past
// `high` faults.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "guarded_array.h"
#include "lib/command_line.h"

namespace {

using brelt::test::GuardedArray;

std::string Quotes(std::string s) {
  for (char& c : s) c = c == '^' ? '"' : c;
  return s;
}

// Parameter `index` of `line` in an array of `size` characters, as stored: NULs as '0' and
// untouched elements as '#'.
std::string Param(const std::string& line, unsigned index, std::size_t size) {
  GuardedArray<char> dst(size);
  brelt::lib::ParamStrOf(line.c_str(), dst.high(), dst.data(), index);
  return dst.Raw();
}

// The parameter up to its NUL, from an array with room to spare.
std::string Measured(const std::string& line, unsigned index) {
  const std::string raw = Param(line, index, 80);
  return raw.substr(0, raw.find('0'));
}

TEST(LibCommandLine, CountAndParameters) {
  const struct { const char* line; unsigned count; std::vector<const char*> params; } rows[] = {
      {"prog a ^b c^ d^e f^g", 3, {"prog", "a", "b c", "d^e f^g"}},
      {"", 0, {}},
      {"   \t ", 0, {}},
      {"prog", 0, {"prog"}},
      {"^c:\\my dir\\prog^ x", 1, {"c:\\my dir\\prog", "x"}},
      {"prog ^a b^c", 1, {"prog", "a bc"}},
      {"prog ^abc", 1, {"prog", "abc"}},
      {"prog ^^", 1, {"prog", ""}},
      {"prog ^a^b^c^", 1, {"prog", "a^b^c"}},
      {"prog a\\^b c", 1, {"prog", "a\\^b c"}},
      {"\t prog\t\ta  b \t", 2, {"prog", "a", "b"}},
      {"prog ^a\tb^ ^^^^ x^y z^", 3, {"prog", "a\tb", "^^", "x^y z^"}},
      {"p ^^x ^", 2, {"p", "x", ""}},
  };
  for (const auto& r : rows) {
    const std::string line = Quotes(r.line);
    EXPECT_EQ(brelt::lib::ParamCountOf(line.c_str()), r.count) << r.line;
    for (unsigned i = 0; i < r.params.size() + 2; ++i) {
      const std::string want = i < r.params.size() ? Quotes(r.params[i]) : "";
      EXPECT_EQ(Measured(line, i), want) << r.line << " [" << i << "]";
    }
  }
}

// A parameter is cut to the array without a NUL; the quotes are removed from what was kept.
TEST(LibCommandLine, ParametersCutToTheArray) {
  const struct { const char* line; unsigned index; std::size_t size; const char* raw; } rows[] = {
      {"p abcdef", 1, 3, "abc"},
      {"p abc", 1, 3, "abc"},
      {"p abc", 1, 4, "abc0"},
      {"p ^abcdef^", 1, 4, "abc0"},
      {"p ^ab^cd", 1, 4, "ab00"},
      {"p ^ab^cd", 1, 7, "abcd000"},
      {"p ^^", 1, 1, "0"},
      {"p x", 2, 3, "0##"},
      {"p x", 0xFFFFFFFF, 1, "0"},
  };
  for (const auto& r : rows) {
    EXPECT_EQ(Param(Quotes(r.line), r.index, r.size), Quotes(r.raw))
        << r.line << " [" << r.index << "] in " << r.size;
  }
}

}  // namespace
