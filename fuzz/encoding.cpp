// Encodings: A2U, C_A2U, U2A, C_U2A into guarded destinations of random size, A2UP and U2AP with
// their sizing call and exact, short and roomy capacities, and IsUTF8 over the raw bytes, under
// either 8-bit code page.
// Invariants: a bounded conversion gives the whole conversion, with a NUL when there is room, or
// the empty string, and writes nothing behind them (nor, when it failed, behind `dstHigh`); the C_
// forms write the same arrays; the pointer form's sizing call gives the count it then produces, it
// fails one unit short and writes no NUL without room; a conversion converted back and forth again
// gives itself; IsUTF8 gives the result of the four-byte table walk.
//
// Input: the text; then from the back the direction, the scan width, the code page, the text's
// flags, the destination's bound, spare elements and flags.
#include <brelt/str/encoding.h>

#include "fuzz_text.h"

namespace {

using namespace brelt::fuzz;

void Bounded(unsigned sh, const char* s, unsigned dh, WChar* d) { Str::A2U(sh, s, dh, d); }
void Bounded(unsigned sh, const WChar* s, unsigned dh, char* d) { Str::U2A(sh, s, dh, d); }
void BoundedC(unsigned sh, const char* s, unsigned dh, WChar* d) { Str::C_A2U(dh, d, sh, s); }
void BoundedC(unsigned sh, const WChar* s, unsigned dh, char* d) { Str::C_U2A(dh, d, sh, s); }
void Pointer(const char* s, unsigned n, WChar* d, unsigned* dn) { Str::A2UP(s, n, d, dn); }
void Pointer(const WChar* s, unsigned n, char* d, unsigned* dn) { Str::U2AP(s, n, d, dn); }

template <class S>
using Target = std::conditional_t<sizeof(S) == 1, WChar, char>;

// The whole conversion of a text, through the bounded form into room enough: a 16-bit unit
// takes at most three bytes, a byte at most one unit.
template <class S>
String<Target<S>> Convert(const String<S>& s) {
  const Text<S> src = Place<S>(s, 0);
  Text<Target<S>> dst = Place<Target<S>>({}, kNoNul, 3 * s.size() + 1);
  Bounded(src.high, src.array.data(), dst.high, dst.data());
  return Measured(dst.data(), dst.size());
}

template <class S>
void CheckBounded(const Text<S>& src, unsigned dstHigh, std::size_t spare, unsigned flags) {
  using D = Target<S>;
  const String<D> whole = Convert(src.text);
  Text<D> dst = Place<D>({}, flags | kNoNul, std::size_t{dstHigh} + 1 + spare);
  Text<D> dstC = Place<D>({}, flags | kNoNul, std::size_t{dstHigh} + 1 + spare);
  const String<D> before = dst.Now();
  Bounded(src.high, src.array.data(), dstHigh, dst.data());
  BoundedC(src.high, src.array.data(), dstHigh, dstC.data());
  const std::size_t cap = std::size_t{dstHigh} + 1;
  String<D> want = whole.size() <= cap ? whole : String<D>();
  if (want.size() < cap) want.push_back(D{0});
  String<D> now = dst.Now();
  BRELT_FUZZ_CHECK(now.compare(0, want.size(), want) == 0);
  // What a conversion that did not fit left behind its NUL is not text, but it stays in dst.
  const std::size_t reach = whole.size() <= cap ? want.size() : cap;
  BRELT_FUZZ_CHECK(now.compare(reach, String<D>::npos, before, reach) == 0);
  BRELT_FUZZ_CHECK(dstC.Now() == now);
  // Back and forth again: what a conversion gives, its round trip gives too.
  BRELT_FUZZ_CHECK(Convert(Convert(whole)) == whole);
}

// The pointer form over every element of the array, NULs and all. Over a text and its NUL it
// gives what the bounded form gave and a NUL, where it asks for no other composition.
template <class S>
void CheckPointer(const Text<S>& src, unsigned flags) {
  using D = Target<S>;
  const bool plain = src.Now() == src.text + S{0} &&
                     (sizeof(S) == 1 || brelt::platform::ActiveCodePageId() == 65001);
  const auto n = static_cast<unsigned>(src.size());
  unsigned need = 0;
  Pointer(src.array.data(), n, nullptr, &need);
  // The same count into a destination of every shape: exact, one short, roomy.
  for (const unsigned cap : {need, need - 1, need + 1}) {
    if (need == 0 || cap == 0) continue;
    Text<D> dst = Place<D>({}, flags | kNoNul, cap);
    unsigned got = cap;
    Pointer(src.array.data(), n, dst.data(), &got);
    BRELT_FUZZ_CHECK(got == (cap < need ? 0 : need));
    if (cap > need) BRELT_FUZZ_CHECK(dst.array[need] == D{0});
    if (plain && cap >= need) {
      BRELT_FUZZ_CHECK(dst.Now().substr(0, need) == Convert(src.text) + D{0});
    }
  }
}

// The four-byte table walk of IsUTF8: ASCII bytes two at a time, or one sequence, possibly
// behind one ASCII byte.
bool IsUtf8Ref(const unsigned char* b, std::size_t n) {
  auto a = [](unsigned c) { return c < 0x80; };
  auto cont = [](unsigned c) { return (c & 0xC0) == 0x80; };
  auto lead2 = [](unsigned c) { return (c & 0xE0) == 0xC0; };
  auto lead3 = [](unsigned c) { return (c & 0xF0) == 0xE0; };
  auto lead4 = [](unsigned c) { return (c & 0xF8) == 0xF0; };
  if (n == 0) return false;
  std::size_t i = 0;
  while (n - i > 3) {
    const unsigned char* p = b + i;
    if (a(p[0]) && a(p[1])) i += 2;
    else if (a(p[0]) && lead2(p[1]) && cont(p[2])) i += 3;
    else if (a(p[0]) && lead3(p[1]) && cont(p[2]) && cont(p[3])) i += 4;
    else if (lead2(p[0]) && cont(p[1])) i += 2;
    else if (lead3(p[0]) && cont(p[1]) && cont(p[2])) i += 3;
    else if (lead4(p[0]) && cont(p[1]) && cont(p[2]) && cont(p[3])) i += 4;
    else return false;
  }
  const unsigned char* p = b + i;
  switch (n - i) {
    case 0: return true;
    case 1: return a(p[0]);
    case 2: return (a(p[0]) && a(p[1])) || (lead2(p[0]) && cont(p[1]));
    default:
      return (a(p[0]) && a(p[1]) && a(p[2])) || (lead3(p[0]) && cont(p[1]) && cont(p[2])) ||
             (a(p[0]) && lead2(p[1]) && cont(p[2])) || (lead2(p[0]) && cont(p[1]) && a(p[2]));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider in(data, size);
  const std::string bytes = in.ConsumeRandomLengthString(400);
  ForTwin(in, [&](auto twin) {
    using S = decltype(twin);
    TakeCodePage(in);
    const Text<S> src = Make<S>(in, bytes);
    const unsigned dstHigh = in.ConsumeIntegralInRange<unsigned>(0, 3 * src.text.size() + 2);
    const std::size_t spare = in.ConsumeIntegralInRange(0, 2);
    const unsigned flags = in.ConsumeIntegral<std::uint8_t>() & kFrontGuard;
    CheckBounded(src, dstHigh, spare, flags);
    CheckPointer(src, flags);
    if constexpr (sizeof(S) == 1) {
      const auto* raw = reinterpret_cast<const unsigned char*>(src.array.data());
      BRELT_FUZZ_CHECK(Str::IsUTF8(raw, static_cast<unsigned>(src.size())) ==
                       IsUtf8Ref(raw, src.size()));
      BRELT_FUZZ_CHECK(Str::IsUTF8(nullptr, static_cast<unsigned>(src.size())) == 0);
    }
  });
  return 0;
}
