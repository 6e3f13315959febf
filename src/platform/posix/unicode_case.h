// Unicode simple case mapping of the Basic Multilingual Plane, from the generated run tables:
// the pairs that map both ways, as the Windows runtime folds. A one-way mapping (the micro
// sign, the Kelvin sign, the title-case digraphs) leaves its character as it is.
#pragma once

namespace brelt::platform::posix {

// The partner of a character, or the character itself.
char16_t SimpleUpper(char16_t ch);
char16_t SimpleLower(char16_t ch);

}  // namespace brelt::platform::posix
