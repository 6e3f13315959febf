// Str: the module's case tables and its start-up.
#include "case_tables.h"

#include <array>

#include "brelt/lib.h"
#include "brelt/str/case.h"
#include "case_tables_1250.h"
#include "platform/locale.h"

namespace {

// Loaded with the Windows-1250 pairs; only SetTabs writes them, and InitModule leaves them.
constinit std::array<unsigned short, 256> capTab = brelt::str::kCapTab1250;
constinit std::array<unsigned short, 256> lowTab = brelt::str::kLowTab1250;

}  // namespace

namespace brelt::str {

const unsigned short* CapTable() { return capTab.data(); }
const unsigned short* LowTable() { return lowTab.data(); }

}  // namespace brelt::str

namespace Str {

// 64 words of 32 bits are 256 bytes: entries 0 to 127 of each table; 128 to 255 never change.
void SetTabs(unsigned short* cap, unsigned short* low) {
  Lib::LongWordMove(cap, capTab.data(), 64);
  Lib::LongWordMove(low, lowTab.data(), 64);
}

void InitModule() { brelt::platform::SetStartupLocale(); }

}  // namespace Str
