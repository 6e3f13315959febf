// The 8-bit code page of the POSIX layer: what the Windows build calls the system's ANSI code
// page. It follows the character locale that start-up sets: UTF-8 under a UTF-8 locale,
// Windows-1252 under any other.
#pragma once

#include <cstdint>

#include "brelt/config.h"

namespace brelt::platform::posix {

enum class CodePage { kWindows1252, kUtf8 };

CodePage ActiveCodePage();

// Reads the current LC_CTYPE locale and chooses from it; start-up calls this.
void SelectCodePageFromLocale();

// Pins the code page regardless of the locale; for tests that need the other one.
void SelectCodePage(CodePage page);

// Windows-1252 and Unicode. Bytes 0x81, 0x8D, 0x8F, 0x90 and 0x9D have no character of their
// own and map to the C1 control of the same value, as the Windows conversion does.
char16_t Windows1252ToUnicode(unsigned char byte);

// The byte for a UTF-16 unit, or -1 when Windows-1252 has no such character.
int UnicodeToWindows1252(char16_t unit);

// UTF-8 and 16-bit units whatever page is in use: POSIX file names are UTF-8 bytes. Same
// contract as CodePageToUnits and UnitsToCodePage.
std::uint32_t Utf8ToUnits(const char* src, std::uint32_t n, WChar* dst, std::uint32_t cap);
std::uint32_t UnitsToUtf8(const WChar* src, std::uint32_t n, char* dst, std::uint32_t cap);

}  // namespace brelt::platform::posix
