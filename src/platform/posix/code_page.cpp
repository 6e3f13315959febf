#include "platform/posix/code_page.h"

#include <atomic>
#include <clocale>
#include <cstring>
#include <langinfo.h>
#include <strings.h>

namespace brelt::platform::posix {
namespace {

// Under the locale a test runner pins (C.UTF-8), until start-up reads the real one.
std::atomic<CodePage> active{CodePage::kUtf8};

// The characters of 0x80..0x9F; the rest of the page equals Latin-1, byte for code point.
constexpr char16_t kHighControls[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 98
};

}  // namespace

CodePage ActiveCodePage() { return active.load(std::memory_order_relaxed); }

void SelectCodePage(CodePage page) { active.store(page, std::memory_order_relaxed); }

void SelectCodePageFromLocale() {
  const char* codeset = nl_langinfo(CODESET);
  const bool utf8 = codeset != nullptr &&
                    (strcasecmp(codeset, "UTF-8") == 0 || strcasecmp(codeset, "utf8") == 0);
  SelectCodePage(utf8 ? CodePage::kUtf8 : CodePage::kWindows1252);
}

char16_t Windows1252ToUnicode(unsigned char byte) {
  if (byte >= 0x80 && byte < 0xA0) return kHighControls[byte - 0x80];
  return byte;
}

int UnicodeToWindows1252(char16_t unit) {
  if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) return unit;
  for (int i = 0; i < 32; ++i) {
    if (kHighControls[i] == unit) return 0x80 + i;
  }
  return -1;
}

}  // namespace brelt::platform::posix
