// An ordering in the manner of the Windows word sort, over the sort elements of
// collate_weights: first by the elements' first-level weights, then by their accents, then by
// case (lower before upper), and last by the hyphens, apostrophes and other characters that
// weigh only there. So "coop" sorts before "co-op", and "-x" with the x's, not before "a".
#include "platform/collate.h"

#include "platform/posix/code_page.h"
#include "platform/posix/collate_weights.h"

namespace brelt::platform {
namespace {

using posix::CharWeight;
using posix::SortElement;

// Characters of 8-bit text one by one under the active code page. Bytes that form no UTF-8
// character stand for themselves, behind everything else.
class Reader {
 public:
  Reader(const char* s, std::uint32_t n)
      : s_(reinterpret_cast<const unsigned char*>(s)), n_(n) {}
  bool Done() const { return i_ >= n_; }
  char32_t Next() {
    const unsigned char b = s_[i_++];
    if (b < 0x80) return b;
    if (posix::ActiveCodePage() == posix::CodePage::kWindows1252) {
      return posix::Windows1252ToUnicode(b);
    }
    int extra = b >= 0xF0 ? 3 : b >= 0xE0 ? 2 : b >= 0xC2 ? 1 : -1;
    if (extra < 0 || b > 0xF4) return 0x110000 + b;
    char32_t cp = b & (0x3F >> extra);
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

// A weight of the last level and the number of sort elements in front of it.
struct SpecialMark {
  std::uint32_t position;
  std::uint32_t weight;
};

// Walks a text as its sort elements, or as its last-level marks.
class Walker {
 public:
  Walker(const char* s, std::uint32_t n) : reader_(s, n) {}

  bool NextElement(SortElement* e) {
    for (;;) {
      if (pending_ < weight_.count) {
        *e = weight_.element[pending_++];
        return true;
      }
      if (!Advance()) return false;
    }
  }

  bool NextSpecial(SpecialMark* m) {
    for (;;) {
      if (pending_ < weight_.count) {
        ++elements_;
        ++pending_;
        continue;
      }
      if (weight_.kind == CharWeight::Kind::kSpecial && !specialTaken_) {
        specialTaken_ = true;
        *m = {elements_, weight_.special};
        return true;
      }
      if (!Advance()) return false;
    }
  }

 private:
  bool Advance() {
    if (reader_.Done()) return false;
    weight_ = posix::WeighForSort(reader_.Next());
    pending_ = 0;
    specialTaken_ = false;
    if (weight_.kind != CharWeight::Kind::kElements) weight_.count = 0;
    return true;
  }

  Reader reader_;
  CharWeight weight_{CharWeight::Kind::kIgnored, 0, 0, {}};
  int pending_ = 0;
  bool specialTaken_ = true;
  std::uint32_t elements_ = 0;
};

// -1, 0 or +1 for one of the first three levels: the texts compared by that part of their
// elements alone, a text that runs out first being the smaller.
template <class Get>
int CompareElements(const char* a, std::uint32_t la, const char* b, std::uint32_t lb, Get get) {
  Walker wa(a, la), wb(b, lb);
  SortElement ea, eb;
  for (;;) {
    const bool hasA = wa.NextElement(&ea), hasB = wb.NextElement(&eb);
    if (!hasA || !hasB) return hasA == hasB ? 0 : hasA ? 1 : -1;
    const auto ga = get(ea), gb = get(eb);
    if (ga != gb) return ga < gb ? -1 : 1;
  }
}

// The last level: mark by mark, one further to the right sorts first, then the lighter one;
// a text with fewer marks is the smaller.
int CompareSpecials(const char* a, std::uint32_t la, const char* b, std::uint32_t lb) {
  Walker wa(a, la), wb(b, lb);
  SpecialMark ma, mb;
  for (;;) {
    const bool hasA = wa.NextSpecial(&ma), hasB = wb.NextSpecial(&mb);
    if (!hasA || !hasB) return hasA == hasB ? 0 : hasA ? 1 : -1;
    if (ma.position != mb.position) return ma.position > mb.position ? -1 : 1;
    if (ma.weight != mb.weight) return ma.weight < mb.weight ? -1 : 1;
  }
}

}  // namespace

int CollateA(const char* a, std::uint32_t la, const char* b, std::uint32_t lb, bool ignoreCase) {
  int d = CompareElements(a, la, b, lb, [](const SortElement& e) { return e.primary; });
  if (d == 0) d = CompareElements(a, la, b, lb, [](const SortElement& e) { return e.diacritic; });
  if (d == 0 && !ignoreCase) {
    d = CompareElements(a, la, b, lb, [](const SortElement& e) { return e.upper; });
  }
  if (d == 0) d = CompareSpecials(a, la, b, lb);
  return d + 2;
}

}  // namespace brelt::platform
