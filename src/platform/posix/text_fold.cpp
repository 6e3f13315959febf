// 8-bit text is Windows-1252 or UTF-8, as start-up chose from the locale; 16-bit text folds by
// the case pairs of Unicode simple case mapping, which is what the Windows runtime gives for a
// character locale.
#include "platform/text_fold.h"

#include <array>

#include "platform/posix/code_page.h"
#include "platform/posix/unicode_case.h"

namespace brelt::platform {
namespace {

using posix::CodePage;

using ByteMap = std::array<unsigned char, 256>;

// A Windows-1252 byte keeps its value unless its partner is on the page as well.
ByteMap Windows1252Map(char16_t (*fold)(char16_t)) {
  ByteMap map{};
  for (int b = 0; b < 256; ++b) {
    const int to = posix::UnicodeToWindows1252(fold(posix::Windows1252ToUnicode(
        static_cast<unsigned char>(b))));
    map[b] = static_cast<unsigned char>(to < 0 ? b : to);
  }
  return map;
}

const ByteMap& Upper1252() {
  static const ByteMap map = Windows1252Map(posix::SimpleUpper);
  return map;
}
const ByteMap& Lower1252() {
  static const ByteMap map = Windows1252Map(posix::SimpleLower);
  return map;
}

// Length of the well-formed UTF-8 sequence of at most 3 bytes (a BMP character) at s, within
// n bytes, and its code point; 0 when there is none. Four-byte sequences lie outside the
// 16-bit map and are passed over whole.
int DecodeUtf8(const unsigned char* s, std::uint64_t n, char16_t* out, int* skip) {
  const unsigned char b = s[0];
  *skip = 1;
  auto cont = [&](std::uint64_t i) { return i < n && (s[i] & 0xC0) == 0x80; };
  if (b >= 0xC2 && b <= 0xDF && cont(1)) {
    *out = static_cast<char16_t>(((b & 0x1F) << 6) | (s[1] & 0x3F));
    return *skip = 2;
  }
  if (b >= 0xE0 && b <= 0xEF && cont(1) && cont(2)) {
    const unsigned cp = ((b & 0x0F) << 12) | ((s[1] & 0x3F) << 6) | (s[2] & 0x3F);
    if (cp < 0x800 || (cp >= 0xD800 && cp <= 0xDFFF)) return 0;
    *out = static_cast<char16_t>(cp);
    return *skip = 3;
  }
  if (b >= 0xF0 && b <= 0xF4 && cont(1) && cont(2) && cont(3)) *skip = 4;
  return 0;
}

int Utf8Size(char16_t cp) { return cp < 0x80 ? 1 : cp < 0x800 ? 2 : 3; }

void EncodeUtf8(char16_t cp, unsigned char* s) {
  if (cp < 0x80) {
    s[0] = static_cast<unsigned char>(cp);
  } else if (cp < 0x800) {
    s[0] = static_cast<unsigned char>(0xC0 | (cp >> 6));
    s[1] = static_cast<unsigned char>(0x80 | (cp & 0x3F));
  } else {
    s[0] = static_cast<unsigned char>(0xE0 | (cp >> 12));
    s[1] = static_cast<unsigned char>(0x80 | ((cp >> 6) & 0x3F));
    s[2] = static_cast<unsigned char>(0x80 | (cp & 0x3F));
  }
}

// A character whose partner needs another byte count (U+023A and U+2C65, for one) stays as it
// is, so that the text keeps its length. Bytes that form no character are left alone.
void FoldUtf8(unsigned char* s, std::uint64_t n, char16_t (*fold)(char16_t)) {
  std::uint64_t i = 0;
  while (i < n) {
    if (s[i] < 0x80) {
      s[i] = static_cast<unsigned char>(fold(s[i]));
      ++i;
      continue;
    }
    char16_t cp = 0;
    int skip = 1;
    const int size = DecodeUtf8(s + i, n - i, &cp, &skip);
    if (size > 0) {
      const char16_t to = fold(cp);
      if (to != cp && Utf8Size(to) == size) EncodeUtf8(to, s + i);
    }
    i += static_cast<std::uint64_t>(skip);
  }
}

void Fold(char* text, std::uint64_t n, const ByteMap& page1252, char16_t (*fold)(char16_t)) {
  auto* s = reinterpret_cast<unsigned char*>(text);
  if (posix::ActiveCodePage() == CodePage::kUtf8) {
    FoldUtf8(s, n, fold);
    return;
  }
  for (std::uint64_t i = 0; i < n; ++i) s[i] = page1252[s[i]];
}

}  // namespace

void UpperBuffA(char* s, std::uint64_t n) { Fold(s, n, Upper1252(), posix::SimpleUpper); }
void LowerBuffA(char* s, std::uint64_t n) { Fold(s, n, Lower1252(), posix::SimpleLower); }

// A lone byte above 0x7F is never a whole UTF-8 character, so only ASCII folds there.
char UpperCharA(char ch) {
  const auto b = static_cast<unsigned char>(ch);
  if (b < 0x80) return (b >= 'a' && b <= 'z') ? static_cast<char>(b - 32) : ch;
  if (posix::ActiveCodePage() == CodePage::kUtf8) return ch;
  return static_cast<char>(Upper1252()[b]);
}
char LowerCharA(char ch) {
  const auto b = static_cast<unsigned char>(ch);
  if (b < 0x80) return (b >= 'A' && b <= 'Z') ? static_cast<char>(b + 32) : ch;
  if (posix::ActiveCodePage() == CodePage::kUtf8) return ch;
  return static_cast<char>(Lower1252()[b]);
}

WChar UpperW(WChar ch) { return posix::SimpleUpper(ch); }
WChar LowerW(WChar ch) { return posix::SimpleLower(ch); }

void UpperStringW(WChar* s) {
  for (; *s != 0; ++s) *s = posix::SimpleUpper(*s);
}
void LowerStringW(WChar* s) {
  for (; *s != 0; ++s) *s = posix::SimpleLower(*s);
}

}  // namespace brelt::platform
