// Drive letters over the POSIX tree. C: is the POSIX root; further letters can be mapped to
// folders, and a letter that is not mapped does not exist. Each drive keeps its own current
// directory, and the process's current directory is that of the current drive, so that
// native relative names and the drive's agree.
#pragma once

#include <string>

namespace brelt::platform::posix {

// What resolving a name needs to know of one drive: its native root ("" for the POSIX root)
// and its current directory below that root, as shown ("" for the root itself, else "/a/b").
// False when the letter names no drive.
bool DriveFolders(char letter, std::string* root, std::string* current);

// The letter of the current drive.
char CurrentDrive();

// Makes `native` (an existing folder, below the root of `letter`) the current directory of
// drive `letter` and that drive the current one. As on Windows, the directory is shown from
// then on as the caller spelled it (`spelled`, the same folder as the name was written), as
// long as the process stays there. Sets the last error on failure.
bool EnterDirectory(char letter, const std::string& native, const std::string& spelled);

// Maps `letter` to the native folder `folder`, or removes the mapping when `folder` is null.
// C: cannot be mapped. Sets the last error on failure.
bool MapDriveLetter(char letter, const char* folder);

}  // namespace brelt::platform::posix
