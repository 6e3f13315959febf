// Searching bounded strings: Length, Pos, NextPos, CharPos, NextCharPos, RCharPos and Count, A and
// W, over any text (NULs inside it and elements behind its terminator included), pattern, character
// and start.
// Invariant: each gives what the plain element-by-element walk of its definition gives, the
// candidate starts of NextPos and NextCharPos stopping at the first NUL they meet, not at the
// text's end.
//
// Input: the text and the pattern; then from the back the twin, the scan width, the flags of text
// and pattern, the character (or an index into the text to take it from) and the start.
#include <brelt/str/core.h>

#include "fuzz_text.h"

namespace {

using namespace brelt::fuzz;

// Those bound at load to the body of the CPU's width are called at the input's scan width.
#define BRELT_SEARCH_OPS(X) X(Pos) X(NextPos) X(NextCharPos)
#define BRELT_BOUND_OPS(X) X(Length) X(CharPos) X(RCharPos) X(Count)
#define BRELT_A_OP(name) static constexpr auto name = Str::name##A;
#define BRELT_W_OP(name) static constexpr auto name = Str::name##W;
#define BRELT_A_BOUND(name) \
  static auto name() { return BRELT_BODY_AT_WIDTH(ScanWidth(), brelt::str::TextScans, name##A); }
#define BRELT_W_BOUND(name) \
  static auto name() { return BRELT_BODY_AT_WIDTH(ScanWidth(), brelt::str::TextScans, name##W); }
template <class T>
struct Twin;
template <>
struct Twin<char> { BRELT_SEARCH_OPS(BRELT_A_OP) BRELT_BOUND_OPS(BRELT_A_BOUND) };
template <>
struct Twin<WChar> { BRELT_SEARCH_OPS(BRELT_W_OP) BRELT_BOUND_OPS(BRELT_W_BOUND) };

// Candidate starts from `start` while the bound allows and no NUL stands there.
template <class T>
unsigned NextPosRef(const T* s, std::uint64_t high, const String<T>& pat, std::uint64_t start) {
  for (; start <= high && s[start] != T{0}; ++start) {
    for (std::uint64_t i = 0;; ++i) {
      if (i == pat.size()) return static_cast<unsigned>(start);
      if (start + i > high) return kAll;
      if (s[start + i] != pat[i]) break;
    }
  }
  return kAll;
}

template <class T>
unsigned NextCharPosRef(const T* s, std::uint64_t high, T ch, std::uint64_t start) {
  for (; start <= high && s[start] != T{0}; ++start) {
    if (s[start] == ch) return static_cast<unsigned>(start);
  }
  return kAll;
}

template <class T>
void Check(const Text<T>& s, const Text<T>& pat, T ch, unsigned start) {
  using Ops = Twin<T>;
  const T* p = s.array.data();
  const String<T>& text = s.text;
  // Behind the last NUL an all-ones bound is no bound at all: starts stay before it.
  if (s.high == kAll) start = std::min<unsigned>(start, static_cast<unsigned>(s.Now().rfind(T{0})));

  BRELT_FUZZ_CHECK(Ops::Length()(s.high, p) == text.size());
  BRELT_FUZZ_CHECK(Ops::Pos(s.high, p, pat.high, pat.array.data()) ==
                   NextPosRef(p, s.high, pat.text, 0));
  BRELT_FUZZ_CHECK(Ops::NextPos(s.high, p, pat.high, pat.array.data(), start) ==
                   NextPosRef(p, s.high, pat.text, start));
  BRELT_FUZZ_CHECK(Ops::CharPos()(s.high, p, ch) == NextCharPosRef(p, s.high, ch, 0));
  BRELT_FUZZ_CHECK(Ops::NextCharPos(s.high, p, ch, start) == NextCharPosRef(p, s.high, ch, start));
  const std::size_t last = ch == T{0} ? String<T>::npos : text.rfind(ch);
  BRELT_FUZZ_CHECK(Ops::RCharPos()(s.high, p, ch) == (last == String<T>::npos ? kAll : last));
  const auto count = ch == T{0} ? 0 : std::count(text.begin(), text.end(), ch);
  BRELT_FUZZ_CHECK(Ops::Count()(s.high, p, ch) == static_cast<unsigned>(count));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider in(data, size);
  const std::string text = in.ConsumeRandomLengthString(700);
  const std::string pattern = in.ConsumeRandomLengthString(24);
  ForTwin(in, [&](auto twin) {
    using T = decltype(twin);
    const Text<T> s = Make<T>(in, text), pat = Make<T>(in, pattern);
    // The character: one the text holds, mostly, else any.
    const auto pick = in.ConsumeIntegral<std::uint16_t>();
    const String<T> all = s.Now();
    const T ch = pick < 0xC000 ? all[pick % all.size()] : static_cast<T>(pick);
    Check<T>(s, pat, ch, TakeIndex(in, s.size()));
  });
  return 0;
}
