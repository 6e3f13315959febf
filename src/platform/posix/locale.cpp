#include "platform/locale.h"

#include <clocale>

#include "platform/posix/code_page.h"

namespace brelt::platform {

void SetStartupLocale() {
  std::setlocale(LC_ALL, "");
  std::setlocale(LC_NUMERIC, "C");
  posix::SelectCodePageFromLocale();
}

}  // namespace brelt::platform
