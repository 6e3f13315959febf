// The token reader and writer over a POSIX pipe.
#include <unistd.h>

#include "../../fio/token_pipe.h"
#include "platform/handle.h"

TEST(PosixTokenPipe, ReadsCharacterByCharacter) {
  int fds[2];
  ASSERT_EQ(pipe(fds), 0);
  namespace pf = brelt::platform;
  brelt::test::TokensThroughPipe(pf::HandleOfDescriptor(fds[0]), pf::HandleOfDescriptor(fds[1]));
}
