// The text of one conversion is described once, by Emit, and replayed into two sinks: one
// that only counts (so that a strict print knows before it writes whether the text fits) and
// one that stores into the caller's array and drops what falls behind it.
#include "str/real_print.h"

#include <bit>
#include <cstdint>
#include <cstring>

#include "str/real_digits.h"

namespace brelt::str::real {
namespace {

template <class T>
class Writer {
 public:
  Writer(T* dst, std::uint64_t cap, PointText<T> point) : dst_(dst), cap_(cap), point_(point) {}
  void Put(char c) {
    if (n_ < cap_) dst_[n_] = static_cast<T>(c);
    ++n_;
  }
  void Fill(char c, std::uint64_t k) {
    const std::uint64_t end = Stored(k);
    if constexpr (sizeof(T) == 1) {
      std::memset(dst_ + n_, c, end - n_);
    } else {
      for (std::uint64_t i = n_; i < end; ++i) dst_[i] = static_cast<T>(c);
    }
    n_ += k;
  }
  void Copy(const char* s, std::uint64_t k) {
    const std::uint64_t end = Stored(k);
    if constexpr (sizeof(T) == 1) {
      std::memcpy(dst_ + n_, s, end - n_);
    } else {
      for (std::uint64_t i = n_; i < end; ++i) dst_[i] = static_cast<T>(*s++);
    }
    n_ += k;
  }
  void Point() {
    const std::uint64_t end = Stored(point_.length);
    for (std::uint64_t i = n_; i < end; ++i) dst_[i] = point_.text[i - n_];
    n_ += point_.length;
  }
  std::uint64_t size() const { return n_; }

 private:
  // The end of what k more characters leave in the array.
  std::uint64_t Stored(std::uint64_t k) const {
    return n_ >= cap_ ? n_ : (k < cap_ - n_ ? n_ + k : cap_);
  }
  T* dst_;
  std::uint64_t cap_;
  PointText<T> point_;
  std::uint64_t n_ = 0;
};

class Counter {
 public:
  explicit Counter(unsigned pointLength) : pointLength_(pointLength) {}
  void Put(char) { ++n_; }
  void Fill(char, std::uint64_t k) { n_ += k; }
  void Copy(const char*, std::uint64_t k) { n_ += k; }
  void Point() { n_ += pointLength_; }
  std::uint64_t size() const { return n_; }

 private:
  unsigned pointLength_;
  std::uint64_t n_ = 0;
};

enum class Kind { kFinite, kInfinite, kNaN };

// What a conversion prints, worked out once before any text is made.
struct Number {
  Kind kind;
  bool negative;
  Decimal d;  // finite values only
};

void Prepare(double value, const Conversion& c, Number& num) {
  const auto bits = std::bit_cast<std::uint64_t>(value);
  num.negative = (bits >> 63) != 0;
  const bool nonFinite = ((bits >> 52) & 0x7FF) == 0x7FF;
  num.kind = !nonFinite ? Kind::kFinite
                      : ((bits << 12) == 0 ? Kind::kInfinite : Kind::kNaN);
  if (num.kind != Kind::kFinite) return;
  switch (c.style) {
    case Style::kScientific: return RoundScientific(value, c.precision, num.d);
    case Style::kFixed: return RoundFixed(value, c.precision, num.d);
    case Style::kGeneral:
      return RoundScientific(value, c.precision == 0 ? 0 : c.precision - 1, num.d);
  }
}

// n digits of d from index `from` on, zeros where d has none.
template <class S>
void EmitDigits(S& s, const Decimal& d, std::int64_t from, std::uint64_t n) {
  if (from < 0) {
    const auto lead = static_cast<std::uint64_t>(-from);
    const std::uint64_t z = lead < n ? lead : n;
    s.Fill('0', z);
    n -= z;
    from = 0;
  }
  if (n == 0) return;
  if (from < static_cast<std::int64_t>(d.count)) {
    const auto left = static_cast<std::uint64_t>(d.count - from);
    const std::uint64_t k = left < n ? left : n;
    s.Copy(d.digit + from, k);
    n -= k;
  }
  s.Fill('0', n);
}

template <class S>
void EmitExponent(S& s, int x) {
  s.Put(x < 0 ? '-' : '+');
  const unsigned a = x < 0 ? 0u - static_cast<unsigned>(x) : static_cast<unsigned>(x);
  if (a >= 100) s.Put(static_cast<char>('0' + a / 100));
  s.Put(static_cast<char>('0' + a / 10 % 10));
  s.Put(static_cast<char>('0' + a % 10));
}

// The integer part of a fixed text: at least one digit.
template <class S>
void EmitWhole(S& s, const Decimal& d) {
  if (d.point > 0) {
    EmitDigits(s, d, 0, static_cast<std::uint64_t>(d.point));
  } else {
    s.Put('0');
  }
}

template <class S>
void EmitGeneral(S& s, const Decimal& d, std::uint64_t precision) {
  const std::int64_t p = precision == 0 ? 1 : static_cast<std::int64_t>(precision);
  const std::int64_t x = d.IsZero() ? 0 : d.point - 1;
  std::int64_t sig = d.count;  // digits up to the last that is not a trailing zero
  while (sig > 1 && d.digit[sig - 1] == '0') --sig;
  if (p > x && x >= -4) {
    EmitWhole(s, d);
    const std::int64_t fraction = sig - d.point;
    if (fraction > 0) {
      s.Point();
      EmitDigits(s, d, d.point, static_cast<std::uint64_t>(fraction));
    }
    return;
  }
  s.Put(d.digit[0]);
  if (sig > 1) {
    s.Point();
    EmitDigits(s, d, 1, static_cast<std::uint64_t>(sig - 1));
  }
  s.Put('E');
  EmitExponent(s, static_cast<int>(x));
}

template <class S>
void Emit(S& s, const Number& num, const Conversion& c) {
  const bool upper = c.style != Style::kFixed;
  if (num.kind == Kind::kNaN) return s.Copy(upper ? "NAN" : "nan", 3);
  if (num.negative) s.Put('-');
  if (num.kind == Kind::kInfinite) return s.Copy(upper ? "INF" : "inf", 3);
  const Decimal& d = num.d;
  switch (c.style) {
    case Style::kScientific:
      s.Put(d.digit[0]);
      if (c.precision != 0) {
        s.Point();
        EmitDigits(s, d, 1, c.precision);
      }
      s.Put('E');
      return EmitExponent(s, d.IsZero() ? 0 : d.point - 1);
    case Style::kFixed:
      EmitWhole(s, d);
      if (c.precision != 0) {
        s.Point();
        EmitDigits(s, d, d.point, c.precision);
      }
      return;
    case Style::kGeneral: return EmitGeneral(s, d, c.precision);
  }
}

}  // namespace

template <class T>
bool PrintStrict(double value, const Conversion& c, unsigned int high, T* dst,
                 PointText<T> point) {
  Number num;
  Prepare(value, c, num);
  Counter counter(point.length);
  Emit(counter, num, c);
  const std::uint64_t text = counter.size();
  const std::uint64_t length = text < c.width ? c.width : text;
  if (length > high) {
    dst[0] = T{0};
    return false;
  }
  Writer<T> w(dst, length, point);
  w.Fill(' ', length - text);
  Emit(w, num, c);
  dst[length] = T{0};
  return true;
}

template <class T>
void PrintCutting(double value, const Conversion& c, unsigned int high, T* dst) {
  Number num;
  Prepare(value, c, num);
  Writer<T> w(dst, std::uint64_t{high} + 1, {kDot<T>, 1});
  if (c.width != 0) {
    Counter counter(1);
    Emit(counter, num, c);
    if (counter.size() < c.width) w.Fill(' ', c.width - counter.size());
  }
  Emit(w, num, c);
  if (w.size() <= high) dst[w.size()] = T{0};
}

template bool PrintStrict(double, const Conversion&, unsigned int, char*, PointText<char>);
template bool PrintStrict(double, const Conversion&, unsigned int, WChar*, PointText<WChar>);
template void PrintCutting(double, const Conversion&, unsigned int, char*);
template void PrintCutting(double, const Conversion&, unsigned int, WChar*);

}  // namespace brelt::str::real
