// The scanner of command-line texts behind Lib::ParamCount, Lib::ParamStrA and Lib::ExecA.
//
// Tokens are separated by spaces and tabs; a double quote inside a token opens a stretch, up
// to the next double quote or the end of the text, in which blanks do not separate. Both
// quotes stay in the token. Nothing escapes anything: a backslash is a plain character.
#pragma once

#include <cstddef>
#include <cstdint>

namespace brelt::lib {

struct TokenSpan {
  const char* start;
  std::size_t length;
};

// Token `index` (0 is the first) of the NUL-terminated `text`; false when it has fewer.
bool FindToken(const char* text, std::uint64_t index, TokenSpan* token);

// Lib::ParamCount over `text`: the number of tokens after the first.
unsigned int ParamCountOf(const char* text);

// Lib::ParamStrA over `text`.
void ParamStrOf(const char* text, unsigned int high, char* dst, unsigned int index);

// A token as a parameter in (high, dst): cut to the array, a NUL behind it where there is room;
// then, if it begins with a double quote, that quote and the last one are removed.
void CopyParam(const TokenSpan& token, unsigned int high, char* dst);

}  // namespace brelt::lib
