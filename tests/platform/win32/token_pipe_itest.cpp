// The token reader and writer over an anonymous Windows pipe.
#include <windows.h>

#include "../../fio/token_pipe.h"

TEST(Win32TokenPipe, ReadsCharacterByCharacter) {
  HANDLE readEnd = nullptr, writeEnd = nullptr;
  ASSERT_TRUE(CreatePipe(&readEnd, &writeEnd, nullptr, 0));
  brelt::test::TokensThroughPipe(readEnd, writeEnd);
}
