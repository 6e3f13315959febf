// The module's two case tables, for the internal tests: nothing in the library reads them.
#pragma once

namespace brelt::str {

const unsigned short* CapTable();
const unsigned short* LowTable();

}  // namespace brelt::str
