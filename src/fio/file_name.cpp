#include "fio/file_name.h"

#include "brelt/str/copies.h"
#include "brelt/str/encoding.h"
#include "platform/last_error.h"

namespace brelt::fio {

bool PrepareName(unsigned int high, const char* name, SystemName* out) {
  if (!Str::StrToCA(high, name, kNameHigh, out->text)) return false;
  platform::SetLastError(0);
  return true;
}

bool PrepareName(unsigned int high, const WChar* name, SystemName* out) {
  WChar wide[kNameHigh + 1];
  if (!Str::StrToCW(high, name, kNameHigh, wide)) return false;
  out->text[kNameHigh] = out->text[kNameHigh + 1] = '\0';
  Str::U2A(kNameHigh, wide, kNameHigh, out->text);
  if (out->text[kNameHigh] != '\0') return false;
  platform::SetLastError(0);
  return true;
}

}  // namespace brelt::fio
