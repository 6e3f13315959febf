# Installs the built library into a scratch prefix, then builds the example as a plain
# Makefile would, with the flags of `pkg-config --cflags --libs brelt`, and runs it.
#   cmake -DBUILD_DIR=... -DSOURCE_DIR=... -DCXX=... [-DCXX_FLAGS=...] [-DEXE_LINKER_FLAGS=...]
#         -P TestPkgConfig.cmake
cmake_minimum_required(VERSION 3.25)

set(work ${BUILD_DIR}/pkg-config-package)
file(REMOVE_RECURSE ${work})

include(${CMAKE_CURRENT_LIST_DIR}/TestSupport.cmake)

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${work}/prefix)

# Only the scratch prefix is searched: a brelt installed on the machine must not answer.
file(GLOB pc_files ${work}/prefix/*/pkgconfig/brelt.pc ${work}/prefix/*/*/pkgconfig/brelt.pc)
if(NOT pc_files)
  message(FATAL_ERROR "no brelt.pc under ${work}/prefix")
endif()
get_filename_component(pc_dir ${pc_files} DIRECTORY)
set(ENV{PKG_CONFIG_LIBDIR} ${pc_dir})
unset(ENV{PKG_CONFIG_PATH})
execute_process(COMMAND pkg-config --cflags --libs brelt
  OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "pkg-config --cflags --libs brelt failed")
endif()
message(STATUS "pkg-config --cflags --libs brelt: ${flags}")
if(NOT flags MATCHES "-I${work}/prefix/include" OR NOT flags MATCHES "-lbrelt")
  message(FATAL_ERROR "brelt.pc does not point into the prefix ${work}/prefix")
endif()

separate_arguments(flags UNIX_COMMAND "${flags}")
separate_arguments(cxx_flags UNIX_COMMAND "${CXX_FLAGS} ${EXE_LINKER_FLAGS}")
run(${CXX} -std=c++20 ${cxx_flags} ${SOURCE_DIR}/examples/main.cpp ${flags}
    -o ${work}/brelt_example)

# No run path is built in: the loader finds the library as it finds an installed one.
string(REGEX MATCH "-L[^;]+" libdir_flag "${flags}")
string(SUBSTRING "${libdir_flag}" 2 -1 libdir)
set(ENV{LD_LIBRARY_PATH} ${libdir})
run(${work}/brelt_example)
message(STATUS "pkg-config built and ran ${work}/brelt_example")
