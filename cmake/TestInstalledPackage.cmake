# Installs the built library into a scratch prefix, then builds the example as an outside
# application would, with find_package(brelt), and runs it.
#   cmake -DBUILD_DIR=... -DSOURCE_DIR=... [-DTOOLCHAIN=...] [-DEMULATOR=...]
#         [-DCXX_FLAGS=...] [-DEXE_LINKER_FLAGS=...] -P TestInstalledPackage.cmake
cmake_minimum_required(VERSION 3.25)

set(work ${BUILD_DIR}/installed-package)
file(REMOVE_RECURSE ${work}/prefix ${work}/app)

include(${CMAKE_CURRENT_LIST_DIR}/TestSupport.cmake)

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${work}/prefix)

set(configure ${CMAKE_COMMAND} -S ${SOURCE_DIR}/examples -B ${work}/app
    -DCMAKE_PREFIX_PATH=${work}/prefix -DCMAKE_BUILD_TYPE=Release
    # The application is built the way the library was (sanitizers, say).
    "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}" "-DCMAKE_EXE_LINKER_FLAGS=${EXE_LINKER_FLAGS}")
if(TOOLCHAIN)
  list(APPEND configure -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN})
endif()
run(${configure})
run(${CMAKE_COMMAND} --build ${work}/app)

if(EXISTS ${work}/app/brelt_example.exe)
  set(program ${work}/app/brelt_example.exe)
else()
  set(program ${work}/app/brelt_example)
endif()
run(${EMULATOR} ${program})
message(STATUS "the installed package built and ran ${program}")
