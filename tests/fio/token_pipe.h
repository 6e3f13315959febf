// Tokens through a pipe, whose handle cannot seek: the reader takes one character per read
// there, and the writer's character write, which asks for the position, still writes. Each
// platform's suite makes the pipe and runs this.
#pragma once

#include <brelt/fio.h>
#include <gtest/gtest.h>

#include <string>

#include "guarded_array.h"
#include "token_files.h"

namespace brelt::test {

inline void TokensThroughPipe(FileHandle readEnd, FileHandle writeEnd) {
  FIO::WrCard16A(writeEnd, 12, 3);
  FIO::WrCharA(writeEnd, ' ');
  GuardedArray<char> rest(std::string_view("34\r\nab\r\nx"));
  FIO::WrStrA(writeEnd, rest.high(), rest.data());
  EXPECT_EQ(FIO::IOresult(), 0u);
  FIO::Close(writeEnd);

  unsigned char ok = 0;
  EXPECT_EQ(FIO::RdCard16A(readEnd, &ok), 12);
  EXPECT_EQ(ok, 1);
  GuardedArray<char> item(4), line(6);
  FIO::RdItemA(readEnd, 3, item.data());
  EXPECT_EQ(Stored(item), std::string("34\0#", 4));
  FIO::RdStrA(readEnd, 5, line.data());
  EXPECT_EQ(Stored(line), std::string("ab\0###", 6));
  EXPECT_EQ(FIO::RdCharA(readEnd), 'x');
  // A pipe never stands at the end of a file, so at its end an item is NULs to the array's
  // end, and the last read failed: the writer is gone.
  FIO::RdItemA(readEnd, 3, item.data());
  EXPECT_EQ(Stored(item), std::string(4, '\0'));
  EXPECT_EQ(FIO::IOresult(), 109u);
  FIO::Close(readEnd);
}

}  // namespace brelt::test
