// A small application on brelt: it knows its data file only by the bare name "a.dat" and
// leaves the file's place to a redirection file. It lays out, in a temporary folder,
//   cfg\paths.txt   "*.dat = ..\data"      (a relative directory counts from cfg)
//   data\a.dat      four numbers
// then reads the table, opens "a.dat" through it and reads the numbers as 16-bit values.
#include <brelt/brelt.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

static void Put(const fs::path& file, const char* text) {
  fs::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << text;
}

int main() {
  const fs::path home = fs::temp_directory_path() / "brelt-example";
  const fs::path before = fs::current_path();
  Put(home / "cfg" / "paths.txt", "*.dat = ..\\data\r\n");
  Put(home / "data" / "a.dat", "440 8080\r\n65535 70000\r\n");
  fs::current_path(home);  // brelt follows the process's current directory

  // 1. The table: one line, *.dat, with one directory.
  const char table[] = "cfg\\paths.txt";
  FIOR::InitA(sizeof table - 1, table);

  // 2. Where the bare name is found, and the file opened through the same search.
  const char name[] = "a.dat";
  char found[260] = "";
  FIOR::FindPathA(sizeof name - 1, name, sizeof found - 1, found);
  std::printf("%s found as %s\n", name, found);
  const FIO::FileHandle file = FIOR::OpenReadA(sizeof name - 1, name, 1);

  // 3. Numbers until one does not fit 16 bits (or the file ends): ok turns 0.
  unsigned char ok = 1;
  int read = 0;
  while (ok != 0) {
    const unsigned short value = FIO::RdCard16A(file, &ok);
    std::printf("RdCard16A: %5u  ok %u\n", value, ok);
    read += ok;
  }
  std::printf("IOresult after the last read: %u\n", FIO::IOresult());
  FIO::Close(file);

  // 4. Done frees the table; the folder goes.
  FIOR::Done();
  fs::current_path(before);
  fs::remove_all(home);
  return read == 3 ? 0 : 1;
}
