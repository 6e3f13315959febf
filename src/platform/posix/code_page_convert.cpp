// The POSIX stand-in for the system code page conversions: Windows-1252 or UTF-8, whichever
// start-up chose from the locale. UTF-8 text outside the BMP becomes surrogate pairs; bytes
// that are not UTF-8 and lone surrogates become U+FFFD, and characters that Windows-1252 lacks
// become '?', as the Windows services do.
#include "platform/code_page_convert.h"

#include "platform/posix/code_page.h"

namespace brelt::platform {
namespace {

using posix::CodePage;

constexpr char16_t kReplacement = 0xFFFD;

// Collects the units of one conversion. With capacity 0 it only counts; otherwise running out
// of room ends the conversion as a failure.
template <class T>
class Sink {
 public:
  Sink(T* dst, std::uint32_t cap) : dst_(dst), cap_(cap) {}
  bool Put(T unit) {
    if (cap_ != 0) {
      if (count_ >= cap_) return full_ = true, false;
      dst_[count_] = unit;
    }
    ++count_;
    return true;
  }
  std::uint32_t Result() const { return full_ || count_ > 0xFFFFFFFFu ? 0 : count_; }

 private:
  T* dst_;
  std::uint64_t cap_;
  std::uint64_t count_ = 0;
  bool full_ = false;
};

bool Continuation(unsigned char b) { return (b & 0xC0) == 0x80; }

// One character from UTF-8. A broken sequence is replaced as a whole, up to the byte that
// breaks it, which starts the next character.
bool DecodeUtf8(const unsigned char* s, std::uint32_t n, Sink<WChar>& out) {
  for (std::uint32_t i = 0; i < n;) {
    const unsigned char b = s[i];
    if (b < 0x80) {
      if (!out.Put(b)) return false;
      ++i;
      continue;
    }
    unsigned need = 0;
    unsigned char lo = 0x80, hi = 0xBF;  // range of the second byte
    char32_t cp = 0;
    if (b >= 0xC2 && b <= 0xDF) {
      need = 1, cp = b & 0x1F;
    } else if (b >= 0xE0 && b <= 0xEF) {
      need = 2, cp = b & 0x0F;
      if (b == 0xE0) lo = 0xA0;   // no overlong forms
      if (b == 0xED) hi = 0x9F;   // no surrogates
    } else if (b >= 0xF0 && b <= 0xF4) {
      need = 3, cp = b & 0x07;
      if (b == 0xF0) lo = 0x90;
      if (b == 0xF4) hi = 0x8F;   // nothing above U+10FFFF
    }
    std::uint32_t k = 1;
    bool whole = need != 0;
    for (; whole && k <= need; ++k) {
      if (i + k >= n) {
        whole = false;
        break;
      }
      const unsigned char c = s[i + k];
      const bool fits = k == 1 ? c >= lo && c <= hi : Continuation(c);
      if (!fits) {
        whole = false;
        break;
      }
      cp = (cp << 6) | (c & 0x3F);
    }
    if (!whole) {
      if (!out.Put(kReplacement)) return false;
      i += k;
      continue;
    }
    if (cp >= 0x10000) {
      cp -= 0x10000;
      if (!out.Put(static_cast<WChar>(0xD800 + (cp >> 10)))) return false;
      if (!out.Put(static_cast<WChar>(0xDC00 + (cp & 0x3FF)))) return false;
    } else if (!out.Put(static_cast<WChar>(cp))) {
      return false;
    }
    i += need + 1;
  }
  return true;
}

bool High(char16_t u) { return u >= 0xD800 && u <= 0xDBFF; }
bool Low(char16_t u) { return u >= 0xDC00 && u <= 0xDFFF; }

bool EncodeUtf8(const WChar* s, std::uint32_t n, Sink<char>& out) {
  auto put = [&out](char32_t v) { return out.Put(static_cast<char>(v)); };
  for (std::uint32_t i = 0; i < n; ++i) {
    char32_t cp = static_cast<char16_t>(s[i]);
    if (High(static_cast<char16_t>(cp)) && i + 1 < n && Low(static_cast<char16_t>(s[i + 1]))) {
      cp = 0x10000 + ((cp - 0xD800) << 10) + (static_cast<char16_t>(s[++i]) - 0xDC00);
    } else if (cp >= 0xD800 && cp <= 0xDFFF) {
      cp = kReplacement;
    }
    bool ok;
    if (cp < 0x80) {
      ok = put(cp);
    } else if (cp < 0x800) {
      ok = put(0xC0 | (cp >> 6)) && put(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
      ok = put(0xE0 | (cp >> 12)) && put(0x80 | ((cp >> 6) & 0x3F)) && put(0x80 | (cp & 0x3F));
    } else {
      ok = put(0xF0 | (cp >> 18)) && put(0x80 | ((cp >> 12) & 0x3F)) &&
           put(0x80 | ((cp >> 6) & 0x3F)) && put(0x80 | (cp & 0x3F));
    }
    if (!ok) return false;
  }
  return true;
}

bool DecodeWindows1252(const unsigned char* s, std::uint32_t n, Sink<WChar>& out) {
  for (std::uint32_t i = 0; i < n; ++i) {
    if (!out.Put(static_cast<WChar>(posix::Windows1252ToUnicode(s[i])))) return false;
  }
  return true;
}

// Decompositions of the letters of Windows-1252 that have one: base letter and combining
// mark, by position from 0xC0. '.' marks a letter with no decomposition.
constexpr char kBases[] = "AAAAAA.CEEEEIIII.NOOOOO..UUUUY..";
constexpr char kMarks[] = "gactdr.zgacdgacd.tgactd..gacda..";

char16_t MarkCode(char mark) {
  switch (mark) {
    case 'g': return 0x0300;  // grave
    case 'a': return 0x0301;  // acute
    case 'c': return 0x0302;  // circumflex
    case 't': return 0x0303;  // tilde
    case 'd': return 0x0308;  // diaeresis
    case 'r': return 0x030A;  // ring
    case 'v': return 0x030C;  // caron
    case 'z': return 0x0327;  // cedilla
    default: return 0;
  }
}

// The precomposed character of base + mark that the page holds, or 0.
char16_t Compose(char16_t base, char16_t mark) {
  if (base >= 0x80 || mark < 0x0300 || mark > 0x0327) return 0;
  for (int i = 0; i < 32; ++i) {
    if (kBases[i] == '.' || MarkCode(kMarks[i]) != mark) continue;
    if (base == static_cast<unsigned char>(kBases[i])) return static_cast<char16_t>(0xC0 + i);
    if (i != 31 && base == static_cast<unsigned char>(kBases[i] + 0x20)) {
      return static_cast<char16_t>(0xE0 + i);
    }
  }
  struct Extra {
    char16_t base, mark, composed;
  } constexpr kExtra[] = {{u'S', 0x030C, 0x0160}, {u's', 0x030C, 0x0161}, {u'Z', 0x030C, 0x017D},
                          {u'z', 0x030C, 0x017E}, {u'Y', 0x0308, 0x0178}, {u'y', 0x0308, 0x00FF}};
  for (const Extra& e : kExtra) {
    if (e.base == base && e.mark == mark) return e.composed;
  }
  return 0;
}

// A surrogate pair is one character and becomes one '?'.
bool EncodeWindows1252(const WChar* s, std::uint32_t n, bool composite, Sink<char>& out) {
  for (std::uint32_t i = 0; i < n; ++i) {
    char16_t u = static_cast<char16_t>(s[i]);
    if (High(u) && i + 1 < n && Low(static_cast<char16_t>(s[i + 1]))) {
      ++i;
    } else if (composite && i + 1 < n) {
      const char16_t whole = Compose(u, static_cast<char16_t>(s[i + 1]));
      if (whole != 0) u = whole, ++i;
    }
    const int byte = posix::UnicodeToWindows1252(u);
    if (!out.Put(static_cast<char>(byte < 0 || High(u) ? '?' : byte))) return false;
  }
  return true;
}

}  // namespace

std::uint32_t CodePageToUnits(const char* src, std::uint32_t n, WChar* dst, std::uint32_t cap) {
  if (dst == nullptr && cap != 0) return 0;
  Sink<WChar> out(dst, cap);
  const auto* bytes = reinterpret_cast<const unsigned char*>(src);
  const bool done = posix::ActiveCodePage() == CodePage::kUtf8 ? DecodeUtf8(bytes, n, out)
                                                               : DecodeWindows1252(bytes, n, out);
  return done ? out.Result() : 0;
}

// UTF-8 has every character, so the composite request changes nothing there.
std::uint32_t UnitsToCodePage(const WChar* src, std::uint32_t n, char* dst, std::uint32_t cap,
                              bool composite) {
  if (dst == nullptr && cap != 0) return 0;
  Sink<char> out(dst, cap);
  const bool done = posix::ActiveCodePage() == CodePage::kUtf8
                        ? EncodeUtf8(src, n, out)
                        : EncodeWindows1252(src, n, composite, out);
  return done ? out.Result() : 0;
}

namespace posix {

std::uint32_t Utf8ToUnits(const char* src, std::uint32_t n, WChar* dst, std::uint32_t cap) {
  if (dst == nullptr && cap != 0) return 0;
  Sink<WChar> out(dst, cap);
  return DecodeUtf8(reinterpret_cast<const unsigned char*>(src), n, out) ? out.Result() : 0;
}

std::uint32_t UnitsToUtf8(const WChar* src, std::uint32_t n, char* dst, std::uint32_t cap) {
  if (dst == nullptr && cap != 0) return 0;
  Sink<char> out(dst, cap);
  return EncodeUtf8(src, n, out) ? out.Result() : 0;
}

}  // namespace posix

unsigned int ActiveCodePageId() {
  return posix::ActiveCodePage() == CodePage::kUtf8 ? 65001 : 1252;
}

bool PinCodePage(unsigned int id) {
  if (id == 65001) posix::SelectCodePage(CodePage::kUtf8);
  if (id == 1252) posix::SelectCodePage(CodePage::kWindows1252);
  return ActiveCodePageId() == id;
}

}  // namespace brelt::platform
