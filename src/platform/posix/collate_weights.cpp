// The weights follow what the Windows word sort does with the characters of Windows-1252:
// symbols in its own order (not by code), then digits with the fractions between 0 and 1,
// then letters; accented letters sort as their base letter with the accent on the second
// level (acute before grave before circumflex before diaeresis before tilde before ring);
// ae, oe, sharp s and thorn sort as two letters. Characters beyond that repertoire: Latin
// letters by their base letter and first combining mark, anything else by its lower-case
// code point behind the Latin letters.
#include "platform/posix/collate_weights.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "platform/posix/latin_base_table.h"
#include "platform/posix/unicode_case.h"

namespace brelt::platform::posix {
namespace {

constexpr std::uint32_t kSymbols = 0x100000;
constexpr std::uint32_t kOtherSymbols = 0x180000;
constexpr std::uint32_t kDigits = 0x200000;
constexpr std::uint32_t kLatin = 0x300000;
constexpr std::uint32_t kOtherLetters = 0x400000;

// Symbols with a weight of the first level, in the order the word sort gives them.
constexpr char16_t kSymbolOrder[] = {
    u' ',    0x00A0,  u'\t',   u'\n',   u'\v',   u'\f',   u'\r',   u'!',    u'"',    u'#',
    u'$',    u'%',    u'&',    u'(',    u')',    u'*',    u',',    u'.',    u'/',    u':',
    u';',    u'?',    u'@',    u'[',    u'\\',   u']',    u'^',    u'_',    u'`',    u'{',
    u'|',    u'}',    u'~',    0x00A1,  0x00A6,  0x00A8,  0x00AF,  0x00B4,  0x00B8,  0x00BF,
    0x02DC,  0x2018,  0x2019,  0x201A,  0x201C,  0x201D,  0x201E,  0x2039,  0x203A,  0x00A2,
    0x00A3,  0x00A4,  0x00A5,  0x20AC,  u'+',    u'<',    u'=',    u'>',    0x00B1,  0x00AB,
    0x00BB,  0x00D7,  0x00F7,  0x00A7,  0x00A9,  0x00AC,  0x00AE,  0x00B0,  0x00B5,  0x00B6,
    0x00B7,  0x2026,  0x2020,  0x2021,  0x2022,  0x2030,  0x0081,  0x008D,  0x008F,  0x0090,
    0x009D,
};
// The modifier circumflex weighs exactly what '^' does.
constexpr char16_t kModifierCircumflex = 0x02C6;

struct SymbolRank {
  char16_t code;
  std::uint16_t rank;
};

const std::array<SymbolRank, std::size(kSymbolOrder)>& SymbolsByCode() {
  static const auto table = [] {
    std::array<SymbolRank, std::size(kSymbolOrder)> t{};
    for (std::size_t i = 0; i < t.size(); ++i) {
      t[i] = {kSymbolOrder[i], static_cast<std::uint16_t>(i + 1)};
    }
    std::sort(t.begin(), t.end(),
              [](const SymbolRank& a, const SymbolRank& b) { return a.code < b.code; });
    return t;
  }();
  return table;
}

int SymbolRankOf(char32_t cp) {
  if (cp == kModifierCircumflex) cp = u'^';
  const auto& table = SymbolsByCode();
  const auto it = std::lower_bound(table.begin(), table.end(), cp,
                                   [](const SymbolRank& e, char32_t c) { return e.code < c; });
  return it != table.end() && it->code == cp ? it->rank : 0;
}

// Accents on the second level, in the word sort's order; 0 is none.
enum Diacritic : std::uint8_t {
  kNone = 0, kOrdinal, kAcute, kGrave, kCircumflex, kDiaeresis, kTilde, kRing, kStroke,
  kCedilla, kCaron, kHook, kSuperscript, kOtherMarks = 16
};

std::uint8_t DiacriticOfMark(char16_t mark) {
  switch (mark) {
    case 0x0301: return kAcute;
    case 0x0300: return kGrave;
    case 0x0302: return kCircumflex;
    case 0x0308: return kDiaeresis;
    case 0x0303: return kTilde;
    case 0x030A: return kRing;
    case 0x0327: return kCedilla;
    case 0x030C: return kCaron;
    default: return static_cast<std::uint8_t>(kOtherMarks + (mark & 0x7F));
  }
}

// Letters and digits that do not decompose into a base and a mark, and the ones that sort as
// two letters.
struct OwnLetter {
  char16_t code;
  char base[3];
  std::uint8_t diacritic;
  std::uint8_t upper;
};
constexpr OwnLetter kOwnLetters[] = {
    {0x00AA, "a", kOrdinal, 0},     {0x00B2, "2", kSuperscript, 0}, {0x00B3, "3", kSuperscript, 0},
    {0x00B9, "1", kSuperscript, 0}, {0x00BA, "o", kOrdinal, 0},     {0x00C6, "ae", kNone, 1},
    {0x00D0, "d", kStroke, 1},      {0x00D8, "o", kStroke, 1},      {0x00DE, "th", kNone, 1},
    {0x00DF, "ss", kNone, 0},       {0x00E6, "ae", kNone, 0},       {0x00F0, "d", kStroke, 0},
    {0x00F8, "o", kStroke, 0},      {0x00FE, "th", kNone, 0},       {0x0152, "oe", kNone, 1},
    {0x0153, "oe", kNone, 0},       {0x0191, "f", kHook, 1},        {0x0192, "f", kHook, 0},
};

std::uint32_t PrimaryOfBase(char base) {
  if (base >= '0' && base <= '9') return kDigits + 4u * static_cast<std::uint32_t>(base - '0');
  return kLatin + 2u * static_cast<std::uint32_t>(base - 'a');
}

CharWeight Elements(const char* base, std::uint8_t diacritic, std::uint8_t upper) {
  CharWeight w{CharWeight::Kind::kElements, 0, 0, {}};
  for (; *base != 0; ++base) w.element[w.count++] = {PrimaryOfBase(*base), diacritic, upper};
  return w;
}

CharWeight One(std::uint32_t primary, std::uint8_t upper = 0) {
  return {CharWeight::Kind::kElements, 0, 1, {{primary, kNone, upper}, {}}};
}

CharWeight Special(std::uint32_t weight) {
  return {CharWeight::Kind::kSpecial, weight, 0, {}};
}

}  // namespace

CharWeight WeighForSort(char32_t cp) {
  // Ignored on every level: NUL and the soft hyphen.
  if (cp == 0 || cp == 0x00AD) return {CharWeight::Kind::kIgnored, 0, 0, {}};
  // The last level only: control characters by code, then the apostrophe, the hyphen and the
  // two dashes.
  if (cp < 0x20 && (cp < 0x09 || cp > 0x0D)) return Special(cp);
  if (cp == 0x7F) return Special(cp);
  if (cp == u'\'') return Special(0x100);
  if (cp == u'-') return Special(0x101);
  if (cp == 0x2013) return Special(0x102);
  if (cp == 0x2014) return Special(0x103);

  if (cp >= u'0' && cp <= u'9') return One(kDigits + 4 * (cp - u'0'));
  if (cp >= 0x00BC && cp <= 0x00BE) return One(kDigits + (cp - 0x00BC + 1));  // 1/4 1/2 3/4
  if (cp >= u'a' && cp <= u'z') return One(PrimaryOfBase(static_cast<char>(cp)));
  if (cp >= u'A' && cp <= u'Z') return One(PrimaryOfBase(static_cast<char>(cp - u'A' + u'a')), 1);
  if (cp == 0x2122) return One(PrimaryOfBase('t') + 1);  // the trade mark sign, after all t
  if (const int rank = SymbolRankOf(cp); rank != 0) {
    // The five bytes that Windows-1252 leaves undefined come through as C1 controls: one
    // weight for all, told apart on the second level.
    if (cp >= 0x80 && cp < 0xA0) {
      const int first = SymbolRankOf(0x81);
      CharWeight w = One(kSymbols + first);
      w.element[0].diacritic = static_cast<std::uint8_t>(rank - first + 1);
      return w;
    }
    return One(kSymbols + rank);
  }
  if (cp < 0x80) return One(kOtherSymbols + cp);
  if (cp > 0xFFFF) return One(kOtherLetters + cp);

  const auto unit = static_cast<char16_t>(cp);
  const auto own = std::lower_bound(
      std::begin(kOwnLetters), std::end(kOwnLetters), unit,
      [](const OwnLetter& e, char16_t c) { return e.code < c; });
  if (own != std::end(kOwnLetters) && own->code == unit) {
    return Elements(own->base, own->diacritic, own->upper);
  }
  const char16_t lower = SimpleLower(unit);
  const std::uint8_t upper = lower != unit ? 1 : 0;
  auto latin = [](char16_t c) {
    const auto* it = std::lower_bound(
        std::begin(kLatinBases), std::end(kLatinBases), c,
        [](const LatinBase& e, char16_t x) { return e.code < x; });
    return it != std::end(kLatinBases) && it->code == c ? it : nullptr;
  };
  const LatinBase* base = latin(lower);
  if (base == nullptr) base = latin(unit);  // a capital without a lower case of its own
  if (base != nullptr) {
    const char text[2] = {base->base, 0};
    return Elements(text, DiacriticOfMark(base->mark), upper);
  }
  if (cp < 0xA0) return One(kOtherSymbols + cp);
  return One(kOtherLetters + lower, upper);
}

}  // namespace brelt::platform::posix
