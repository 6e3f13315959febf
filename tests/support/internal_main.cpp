// Entry of the internal suite. It links the library's objects directly, so no load event runs
// start-up for it: it does so here, as the shared library's load would.
#include <gtest/gtest.h>

#include "frame/startup.h"

int main(int argc, char** argv) {
  brelt::frame::RunStartup();
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
