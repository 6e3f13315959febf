// Tokens through a pipe, which cannot seek: the reader takes a character per read there, and
// the character writer, which asks for the position, still writes. Each platform's suite
// makes the pipe and runs this.
#pragma once

#include <brelt/fio.h>
#include <gtest/gtest.h>

#include "guarded_array.h"
#include "token_files.h"

namespace brelt::test {

inline void TokensThroughPipe(FileHandle readEnd, FileHandle writeEnd) {
  FIO::WrCard16A(writeEnd, 12, 3);
  FIO::WrCharA(writeEnd, ' ');
  FIO::WrStrA(writeEnd, 8, "34\r\nab\r\nx");
  FIO::Close(writeEnd);
  unsigned char ok = 0;
  EXPECT_EQ(FIO::RdCard16A(readEnd, &ok), 12);
  GuardedArray<char> item(4), line(6);
  FIO::RdItemA(readEnd, 3, item.data());
  FIO::RdStrA(readEnd, 5, line.data());
  EXPECT_EQ(Stored(item) + Stored(line), std::string("34\0#ab\0###", 10));
  EXPECT_EQ(FIO::RdCharA(readEnd), 'x');
  // No end of file on a pipe: at its end an item is NULs, and the read failed for lack of a
  // writer.
  FIO::RdItemA(readEnd, 3, item.data());
  EXPECT_EQ(Stored(item), std::string(4, '\0'));
  EXPECT_EQ(FIO::IOresult(), 109u);
  FIO::Close(readEnd);
}

}  // namespace brelt::test
