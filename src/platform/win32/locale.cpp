#include "platform/locale.h"

#include <windows.h>

#include <clocale>

namespace brelt::platform {

// ".ACP" is the system's default ANSI code page.
void SetStartupLocale() {
  std::setlocale(LC_ALL, ".ACP");
  std::setlocale(LC_NUMERIC, "C");
}

// The user's point straight from the system, the same that the runtime's ".ACP" numeric
// locale would take, without switching the runtime's numeric category for it.
unsigned UserDecimalPointA(char (&point)[kMaxPointUnits]) {
  char text[kMaxPointUnits + 1];
  const int n = GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, text, sizeof text);
  unsigned length = 0;
  for (; n > 0 && length < kMaxPointUnits && text[length] != '\0'; ++length) {
    point[length] = text[length];
  }
  if (length == 0) point[length++] = '.';
  return length;
}

unsigned UserDecimalPointW(WChar (&point)[kMaxPointUnits]) {
  WChar text[kMaxPointUnits + 1];
  const int n = GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, text,
                               static_cast<int>(sizeof text / sizeof text[0]));
  unsigned length = 0;
  for (; n > 0 && length < kMaxPointUnits && text[length] != L'\0'; ++length) {
    point[length] = text[length];
  }
  if (length == 0) point[length++] = L'.';
  return length;
}

}  // namespace brelt::platform
