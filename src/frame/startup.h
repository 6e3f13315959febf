// The library's start-up sequence, run once per process when the library is loaded.
#pragma once

namespace brelt::frame {

// Runs every module initialiser in the fixed order. Each step only sets its own module's
// state and nothing in it can fail. Programs that link the library's objects statically (the
// internal tests) call it themselves, since no load event reaches them.
void RunStartup();

}  // namespace brelt::frame
