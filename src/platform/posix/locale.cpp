#include "platform/locale.h"

#include <clocale>
#include <langinfo.h>
#include <locale.h>

#include "platform/code_page_convert.h"
#include "platform/posix/code_page.h"

namespace brelt::platform {

void SetStartupLocale() {
  std::setlocale(LC_ALL, "");
  std::setlocale(LC_NUMERIC, "C");
  posix::SelectCodePageFromLocale();
}

// The user's conventions are those the environment names (LC_ALL, LC_NUMERIC, LANG), which a
// locale object of its own reads; the process's numeric category stays "C" throughout.
unsigned UserDecimalPointA(char (&point)[kMaxPointUnits]) {
  unsigned n = 0;
  if (locale_t user = newlocale(LC_NUMERIC_MASK, "", static_cast<locale_t>(0))) {
    if (const char* radix = nl_langinfo_l(RADIXCHAR, user)) {
      for (; n < kMaxPointUnits && radix[n] != '\0'; ++n) point[n] = radix[n];
    }
    freelocale(user);
  }
  if (n == 0) point[n++] = '.';
  return n;
}

unsigned UserDecimalPointW(WChar (&point)[kMaxPointUnits]) {
  char bytes[kMaxPointUnits];
  const unsigned n = UserDecimalPointA(bytes);
  const std::uint32_t units = CodePageToUnits(bytes, n, point, kMaxPointUnits);
  if (units != 0) return units;
  point[0] = u'.';
  return 1;
}

}  // namespace brelt::platform
