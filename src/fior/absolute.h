// What makes a name absolute for the path operations and the search: a backslash in front,
// or a colon behind its first character.
#pragma once

namespace brelt::fior {

inline bool IsAbsolute(unsigned int high, const char* name) {
  if (name[0] == '\\') return true;
  return name[0] != '\0' && high >= 1 && name[1] == ':';
}

}  // namespace brelt::fior
