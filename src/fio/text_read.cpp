// FIO: characters, lines and items from a handle.
#include "brelt/fio.h"
#include "fio/token_source.h"
#include "fio/token_steps.h"

namespace {

namespace bf = brelt::fio;

}  // namespace

namespace FIO {

// One read of one character in any case: there is nothing a block could save.
char RdCharA(FileHandle file) { return bf::CharSource<char>(file).Next(); }
WChar RdCharW(FileHandle file) { return bf::CharSource<WChar>(file).Next(); }

void RdStrA(FileHandle file, unsigned int high, char* dst) { bf::ReadLineFrom(file, high, dst); }
void RdStrW(FileHandle file, unsigned int high, WChar* dst) { bf::ReadLineFrom(file, high, dst); }

void RdItemA(FileHandle file, unsigned int high, char* dst) { bf::ReadItemFrom(file, high, dst); }
void RdItemW(FileHandle file, unsigned int high, WChar* dst) { bf::ReadItemFrom(file, high, dst); }

}  // namespace FIO
