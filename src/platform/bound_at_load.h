// Exported operations whose body is chosen for the CPU once, while the library loads.
#pragma once

// BRELT_BOUND_AT_LOAD(Space, Name, Ret, Params, Args, Body) defines the exported function
// Space::Name, declared in a public header as `Ret Name Params`. `Body` is an expression that
// names the body for this CPU: a function of the same type. It may be evaluated before any of
// the library's static objects are initialised, so it may use constants only.
//
// An ELF object resolves the symbol itself to the body (an indirect function), so that a call
// reaches the body with no step between; the chooser, brelt_pick_<Space>_<Name>, has to be a
// function of external linkage for that (it stays inside the library). Elsewhere the export
// jumps through a pointer that starts at a first-call function: that one names the body,
// stores it in the pointer for every later call and calls it. The pointer is constant-
// initialised, so no call tests a guard and no order of static set-up can find it empty; the
// threads of a first call race only to store the same value.
#if defined(__ELF__)
#define BRELT_BOUND_AT_LOAD(Space, Name, Ret, Params, Args, Body)                           \
  extern "C" {                                                                              \
  [[gnu::used, gnu::no_sanitize_address]] auto brelt_pick_##Space##_##Name() {              \
    return Body;                                                                            \
  }                                                                                         \
  }                                                                                         \
  namespace Space {                                                                         \
  Ret Name Params __attribute__((ifunc("brelt_pick_" #Space "_" #Name)));                   \
  }
#else
#include <atomic>
#define BRELT_BOUND_AT_LOAD(Space, Name, Ret, Params, Args, Body)                          \
  namespace Space {                                                                        \
  namespace {                                                                              \
  Ret brelt_first_##Name Params;                                                           \
  std::atomic<Ret(*) Params> brelt_body_##Name{&brelt_first_##Name};                       \
  Ret brelt_first_##Name Params {                                                          \
    const auto body = Body;                                                                \
    brelt_body_##Name.store(body, std::memory_order_relaxed);                              \
    return body Args;                                                                      \
  }                                                                                        \
  }                                                                                        \
  Ret Name Params { return brelt_body_##Name.load(std::memory_order_relaxed) Args; }       \
  }
#endif
