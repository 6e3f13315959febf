# Settings that depend on the target: which platform layer is built, how programs are run.
if(WIN32)
  set(BRELT_PLATFORM win32)
  set(BRELT_EXPORT_TARGET windows)
  # The DLL and the test programs carry the GCC, C++ and thread runtimes inside, so that they
  # need no DLL beyond the system's own.
  set(BRELT_STATIC_RUNTIME -static -static-libgcc -static-libstdc++)
  if(CMAKE_CROSSCOMPILING)
    set(CMAKE_CROSSCOMPILING_EMULATOR
        ${CMAKE_CURRENT_LIST_DIR}/wine-run.sh ${CMAKE_BINARY_DIR}/wineprefix)
  endif()
else()
  set(BRELT_PLATFORM posix)
  set(BRELT_EXPORT_TARGET linux)
  set(BRELT_STATIC_RUNTIME)
endif()

function(brelt_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra)
endfunction()
