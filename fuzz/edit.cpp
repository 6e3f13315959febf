// Editing in place: Insert, Delete, Slice, Prepend, Subst, LTrim, RTrim, Trim, LPadCh, RPadCh, with
// Copy, Append and Concat (core) and StrToC and StrToPas (copies), A and W, with bounds, positions,
// counts and pad characters from the input. The destination is a guarded array holding a text, a
// NUL or none, and spare filler, whose bound may stop short of its end; Copy may read from the
// destination's own array, Concat may take it as its first text.
// Invariants: the text that comes out is the plain string edit, cut to the capacity, with a NUL
// where there is room (or, where the operation must leave it alone, the array is as it was);
// nothing behind the new text and its NUL (for Subst, behind the old text) is written, the elements
// behind `high` included; the copies' results say whether the text fitted.
//
// Input: the destination's text, the source text and a third text (Concat's second text, Subst's
// replacement); then from the back the twin, the scan width, the operation, the destination's
// flags, spare elements and elements behind its bound, the flags of the other two texts, position,
// count, pad character, and whether and where the source lies in the destination.
#include <brelt/str/copies.h>
#include <brelt/str/core.h>
#include <brelt/str/edit.h>

#include "fuzz_text.h"

namespace {

using namespace brelt::fuzz;

#define BRELT_EDIT_OPS(X)                                                                      \
  X(Copy) X(Append) X(Concat) X(Insert) X(Delete) X(Slice) X(Prepend) X(Subst) X(LTrim)        \
  X(RTrim) X(Trim) X(LPadCh) X(RPadCh) X(StrToC) X(StrToPas)
#define BRELT_ENUM(name) k##name,
#define BRELT_A_OP(name) static constexpr auto name = Str::name##A;
#define BRELT_W_OP(name) static constexpr auto name = Str::name##W;
enum Op { BRELT_EDIT_OPS(BRELT_ENUM) kOps };
template <class T>
struct Twin;
template <>
struct Twin<char> { BRELT_EDIT_OPS(BRELT_A_OP) };
template <>
struct Twin<WChar> { BRELT_EDIT_OPS(BRELT_W_OP) };

template <class T>
struct Want {
  String<T> text;       // elements from index 0 on
  bool nul = false;     // and a NUL behind them
  bool same = false;    // or else: the array exactly as it was
  std::size_t keep = 0; // elements from here on, and behind text and NUL, stay as they were
  int result = -1;      // the copies' result
};

// What an operation must leave in a destination of bound `high` holding the text `t`, with
// `s` the source (Subst: the pattern), `b` the third text.
template <class T>
Want<T> Expect(Op op, unsigned high, const String<T>& t, const String<T>& s, unsigned srcHigh,
               const String<T>& b, unsigned pos, unsigned count, T ch) {
  // Most bounds are only compared, so all ones is no bound; some form high + 1 in 32 bits.
  const std::uint64_t cap = high == kAll ? std::uint64_t{1} << 40 : std::uint64_t{high} + 1;
  const std::uint32_t cap32 = high + 1u;
  Want<T> w;
  auto cut = [&w](const String<T>& x, std::uint64_t room) {
    w.text = x.substr(0, std::min<std::uint64_t>(x.size(), room));
    w.nul = w.text.size() < room;
    return w;
  };
  auto same = [&w] {
    w.same = true;
    return w;
  };
  auto blank = [](T c) { return c == T(9) || c == T(10) || c == T(13) || c == T(32); };
  switch (op) {
    case kCopy:
      return cap32 == 0 ? same() : cut(s, cap32);
    case kAppend:
      return t.size() >= cap ? same() : cut(t + s, cap);
    case kConcat:
      return cut(s + b, cap);
    case kInsert: {
      const std::size_t p = std::min<std::size_t>(pos, t.size());
      return cut(t.substr(0, p) + s + t.substr(p), cap);
    }
    case kDelete:
      if (count == 0 || pos >= t.size()) return same();
      return cut(String<T>(t).erase(pos, count), cap);
    case kSlice: {
      if (pos >= s.size()) return cut({}, 1);
      const std::uint64_t n = std::min<std::uint64_t>({count, s.size() - pos, cap32});
      cut(s.substr(pos, n), cap32);
      w.nul = n <= high;
      return w;
    }
    case kPrepend:
      return s.size() > high ? cut(s, cap32) : cut(s + t, cap);
    case kSubst: {
      const std::size_t f = t.empty() ? String<T>::npos : t.find(s);
      if (f == String<T>::npos) return same();
      cut(t.substr(0, f) + b + t.substr(f + s.size()), cap);
      w.keep = t.size();
      return w;
    }
    case kLTrim:
    case kRTrim:
    case kTrim: {
      std::size_t from = 0, to = t.size();
      while (op != kRTrim && from < to && blank(t[from])) ++from;
      while (op != kLTrim && to > from && blank(t[to - 1])) --to;
      if (from == 0 && to == t.size()) return same();
      cut(t.substr(from, to - from), cap);
      // Trim's first step leaves its own NUL behind the text with the leading blanks gone.
      if (from > 0) w.keep = t.size() - from + 1;
      return w;
    }
    case kLPadCh:
    case kRPadCh: {
      const std::uint64_t width = std::min<std::uint64_t>(count, cap32);
      if (t.size() >= width || ch == T{0}) return same();
      const String<T> pad(width - t.size(), ch);
      return cut(op == kLPadCh ? pad + t : t + pad, cap);
    }
    case kStrToC:
      cut(s, cap);
      w.result = w.nul;
      return w;
    case kStrToPas: {
      // The source's element count is formed in 32 bits too: all ones reads nothing.
      const std::size_t m = srcHigh == kAll ? 0 : s.size();
      w.result = m < high;
      w.text = T(w.result ? m : 0) + s.substr(0, w.result ? m : high);
      return w;
    }
    case kOps:
      break;
  }
  return w;
}

template <class T>
void Run(FuzzedDataProvider& in, const std::string& dBytes, const std::string& sBytes,
         const std::string& bBytes) {
  using Ops = Twin<T>;
  const auto op = static_cast<Op>(in.ConsumeIntegralInRange<int>(0, kOps - 1));
  Text<T> d = Make<T>(in, dBytes, in.ConsumeIntegralInRange(0, 3));
  const std::size_t below = std::min<std::size_t>(in.ConsumeIntegralInRange(0, 2), d.size() - 1);
  if (d.high != kAll) d.high = static_cast<unsigned>(d.size() - 1 - below);
  Text<T> src = Make<T>(in, sBytes);
  const Text<T> b = Make<T>(in, bBytes);
  const unsigned pos = TakeIndex(in, d.size());
  const unsigned count = TakeIndex(in, d.size());
  const T ch = static_cast<T>(in.ConsumeIntegral<std::uint16_t>());

  // Copy may read from the destination's own array; Concat may take it as its first text.
  const String<T> before = d.Now();
  const T* s = src.array.data();
  unsigned srcHigh = src.high;
  String<T> sText = src.text;
  const bool alias = in.ConsumeBool() && (op == kCopy || op == kConcat) && d.high != kAll;
  if (alias && op == kCopy) {
    const std::size_t off = in.ConsumeIntegralInRange<std::size_t>(0, d.size() - 1);
    s = d.data() + off;
    srcHigh = static_cast<unsigned>(d.size() - 1 - off);
    sText = Measured(s, d.size() - off);
  } else if (alias) {
    s = d.data();
    srcHigh = d.high;
  }

  auto expect = [&] {
    const String<T> t = Measured(d.data(), std::uint64_t{d.high} + 1);
    if (alias && op == kConcat) sText = t;
    return Expect<T>(op, d.high, t, sText, srcHigh, b.text, pos, count, ch);
  };
  Want<T> want = expect();
  // All ones is no bound: where the result outgrows the array, the array's bound is used.
  if (d.high == kAll && !want.same && want.text.size() + want.nul > d.size()) {
    d.high = static_cast<unsigned>(d.size() - 1);
    want = expect();
  }

  T* p = d.data();
  const T* bp = b.array.data();
  int result = -1;
  switch (op) {
    case kCopy: Ops::Copy(d.high, p, srcHigh, s); break;
    case kAppend: Ops::Append(d.high, p, srcHigh, s); break;
    case kConcat: Ops::Concat(d.high, p, srcHigh, s, b.high, bp); break;
    case kInsert: Ops::Insert(d.high, p, srcHigh, s, pos); break;
    case kDelete: Ops::Delete(d.high, p, pos, count); break;
    case kSlice: Ops::Slice(d.high, p, srcHigh, s, pos, count); break;
    case kPrepend: Ops::Prepend(d.high, p, srcHigh, s); break;
    case kSubst: Ops::Subst(d.high, p, srcHigh, s, b.high, bp); break;
    case kLTrim: Ops::LTrim(d.high, p); break;
    case kRTrim: Ops::RTrim(d.high, p); break;
    case kTrim: Ops::Trim(d.high, p); break;
    case kLPadCh: Ops::LPadCh(d.high, p, count, ch); break;
    case kRPadCh: Ops::RPadCh(d.high, p, count, ch); break;
    case kStrToC: result = Ops::StrToC(srcHigh, s, d.high, p); break;
    case kStrToPas: result = Ops::StrToPas(srcHigh, s, d.high, p); break;
    case kOps: break;
  }

  const String<T> now = d.Now();
  BRELT_FUZZ_CHECK(result == want.result);
  if (want.same) {
    BRELT_FUZZ_CHECK(now == before);
    return;
  }
  const std::size_t end = want.text.size() + want.nul;
  BRELT_FUZZ_CHECK(end <= now.size());
  BRELT_FUZZ_CHECK(now.compare(0, want.text.size(), want.text) == 0);
  BRELT_FUZZ_CHECK(!want.nul || now[want.text.size()] == T{0});
  const std::size_t keep = std::max(end, want.keep);
  BRELT_FUZZ_CHECK(now.compare(keep, String<T>::npos, before, keep) == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider in(data, size);
  const std::string d = in.ConsumeRandomLengthString(300);
  const std::string s = in.ConsumeRandomLengthString(300);
  const std::string b = in.ConsumeRandomLengthString(100);
  ForTwin(in, [&](auto twin) { Run<decltype(twin)>(in, d, s, b); });
  return 0;
}
