// Unicode simple case mapping of the Basic Multilingual Plane, from the generated run tables.
#pragma once

namespace brelt::platform::posix {

// The one code point that a character maps to, or the character itself.
char16_t SimpleUpper(char16_t ch);
char16_t SimpleLower(char16_t ch);

}  // namespace brelt::platform::posix
