#include "lib/command_line.h"

#include "brelt/str/core.h"
#include "brelt/str/edit.h"

namespace brelt::lib {
namespace {

bool Blank(char c) { return c == ' ' || c == '\t'; }

const char* SkipBlanks(const char* p) {
  while (Blank(*p)) ++p;
  return p;
}

// The end of the token that starts at p: the first blank outside a quoted stretch, or the NUL.
const char* TokenEnd(const char* p) {
  bool quoted = false;
  for (; *p != '\0'; ++p) {
    if (*p == '"') {
      quoted = !quoted;
    } else if (!quoted && Blank(*p)) {
      break;
    }
  }
  return p;
}

}  // namespace

bool FindToken(const char* text, std::uint64_t index, TokenSpan* token) {
  const char* p = text;
  for (std::uint64_t k = 0;; ++k) {
    p = SkipBlanks(p);
    if (*p == '\0') return false;
    const char* end = TokenEnd(p);
    if (k == index) {
      *token = TokenSpan{p, static_cast<std::size_t>(end - p)};
      return true;
    }
    p = end;
  }
}

unsigned int ParamCountOf(const char* text) {
  unsigned int count = 0;
  for (const char* p = SkipBlanks(text); *p != '\0'; p = SkipBlanks(TokenEnd(p))) ++count;
  return count == 0 ? 0 : count - 1;
}

void CopyParam(const TokenSpan& token, unsigned int high, char* dst) {
  const std::uint64_t capacity = std::uint64_t{high} + 1;
  const std::uint64_t n = token.length < capacity ? token.length : capacity;
  for (std::uint64_t i = 0; i < n; ++i) dst[i] = token.start[i];
  if (n < capacity) dst[n] = '\0';
  if (dst[0] != '"') return;
  Str::DeleteA(high, dst, 0, 1);
  const unsigned int last = Str::RCharPosA(high, dst, '"');
  if (last != brelt::kNotFound) Str::DeleteA(high, dst, last, 1);
}

void ParamStrOf(const char* text, unsigned int high, char* dst, unsigned int index) {
  TokenSpan token;
  if (!FindToken(text, index, &token)) {
    dst[0] = '\0';
    return;
  }
  CopyParam(token, high, dst);
}

}  // namespace brelt::lib
