#include "platform/locale.h"

#include <clocale>

namespace brelt::platform {

// ".ACP" is the system's default ANSI code page.
void SetStartupLocale() {
  std::setlocale(LC_ALL, ".ACP");
  std::setlocale(LC_NUMERIC, "C");
}

}  // namespace brelt::platform
