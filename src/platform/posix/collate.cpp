// An ordering in the manner of the Windows word sort, for Latin text: first by letters with
// case and accents set aside (punctuation before digits before letters), then by accents, then
// by case, lower before upper. Scripts beyond Latin order by their lower-case code points.
#include "platform/collate.h"

#include <algorithm>
#include <iterator>

#include "platform/posix/code_page.h"
#include "platform/posix/latin_base_table.h"
#include "platform/posix/unicode_case.h"

namespace brelt::platform {
namespace {

struct Weights {
  std::uint32_t primary;
  std::uint16_t accent;
  std::uint8_t upper;
};

// Characters of 8-bit text one by one under the active code page. Bytes that form no UTF-8
// character stand for themselves, behind everything else.
class Reader {
 public:
  Reader(const char* s, std::uint32_t n)
      : s_(reinterpret_cast<const unsigned char*>(s)), n_(n) {}
  bool Done() const { return i_ >= n_; }
  std::uint32_t Next() {
    const unsigned char b = s_[i_++];
    if (b < 0x80) return b;
    if (posix::ActiveCodePage() == posix::CodePage::kWindows1252) {
      return posix::Windows1252ToUnicode(b);
    }
    int extra = b >= 0xF0 ? 3 : b >= 0xE0 ? 2 : b >= 0xC2 ? 1 : -1;
    if (extra < 0 || b > 0xF4) return 0x110000 + b;
    std::uint32_t cp = b & (0x3F >> extra);
    for (int k = 0; k < extra; ++k) {
      if (i_ + k >= n_ || (s_[i_ + k] & 0xC0) != 0x80) return 0x110000 + b;
      cp = (cp << 6) | (s_[i_ + k] & 0x3F);
    }
    i_ += static_cast<std::uint32_t>(extra);
    return cp;
  }

 private:
  const unsigned char* s_;
  std::uint32_t n_;
  std::uint32_t i_ = 0;
};

Weights Weigh(std::uint32_t cp) {
  const std::uint32_t lower =
      cp <= 0xFFFF ? posix::SimpleLower(static_cast<char16_t>(cp)) : cp;
  Weights w{0, 0, static_cast<std::uint8_t>(lower != cp)};
  std::uint32_t base = lower;
  auto find = [](std::uint32_t c) {
    const auto* it = std::lower_bound(
        std::begin(posix::kLatinBases), std::end(posix::kLatinBases), c,
        [](const posix::LatinBase& e, std::uint32_t x) { return e.code < x; });
    return it != std::end(posix::kLatinBases) && it->code == c ? it : nullptr;
  };
  // A capital whose lower case drops its mark (I with dot) keeps the mark of its own.
  const posix::LatinBase* it = find(lower);
  if (it == nullptr) it = find(cp);
  if (it != nullptr) {
    base = static_cast<unsigned char>(it->base);
    w.accent = it->mark;
  }
  if (base >= '0' && base <= '9') {
    w.primary = 0x200000 + base;
  } else if (base >= 'a' && base <= 'z') {
    w.primary = 0x300000 + base;
  } else if (base < 0x80) {
    w.primary = 0x100000 + base;
  } else {
    w.primary = 0x400000 + base;
  }
  return w;
}

// -1, 0 or +1 for one level: the texts compared by that weight alone.
template <class Get>
int CompareLevel(const char* a, std::uint32_t la, const char* b, std::uint32_t lb, Get get) {
  Reader ra(a, la), rb(b, lb);
  while (!ra.Done() && !rb.Done()) {
    const auto wa = get(Weigh(ra.Next()));
    const auto wb = get(Weigh(rb.Next()));
    if (wa != wb) return wa < wb ? -1 : 1;
  }
  if (ra.Done() && rb.Done()) return 0;
  return ra.Done() ? -1 : 1;
}

}  // namespace

int CollateA(const char* a, std::uint32_t la, const char* b, std::uint32_t lb, bool ignoreCase) {
  int d = CompareLevel(a, la, b, lb, [](const Weights& w) { return w.primary; });
  if (d == 0) d = CompareLevel(a, la, b, lb, [](const Weights& w) { return w.accent; });
  if (d == 0 && !ignoreCase) {
    d = CompareLevel(a, la, b, lb, [](const Weights& w) { return w.upper; });
  }
  return d + 2;
}

}  // namespace brelt::platform
