# Builds the Debian packages with cpack, checks what each holds and depends on, unpacks both
# with dpkg-deb -x into a scratch root, builds the example against them (pkg-config and
# find_package) and runs it, and lets lintian judge both packages: an error (E:) fails.
#   cmake -DBUILD_DIR=... -DSOURCE_DIR=... -DCXX=... -DVERSION=... -DMAJOR=...
#         -P TestDebianPackages.cmake
cmake_minimum_required(VERSION 3.25)

set(work ${BUILD_DIR}/debian-packages)
file(REMOVE_RECURSE ${work})
file(MAKE_DIRECTORY ${work})

include(${CMAKE_CURRENT_LIST_DIR}/TestSupport.cmake)

# Output of a command, which must succeed.
function(read out)
  execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE text RESULT_VARIABLE rc
                  OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT rc EQUAL 0)
    list(JOIN ARGN " " cmd)
    message(FATAL_ERROR "failed (${rc}): ${cmd}")
  endif()
  set(${out} "${text}" PARENT_SCOPE)
endfunction()

function(expect text pattern what)
  if(NOT "${text}" MATCHES "${pattern}")
    message(FATAL_ERROR "${what}: no match for ${pattern} in\n${text}")
  endif()
endfunction()

function(refuse text pattern what)
  if("${text}" MATCHES "${pattern}")
    message(FATAL_ERROR "${what}: unexpected ${pattern} in\n${text}")
  endif()
endfunction()

execute_process(COMMAND cpack --config ${BUILD_DIR}/CPackConfig.cmake -B ${work}/out
  WORKING_DIRECTORY ${BUILD_DIR} OUTPUT_VARIABLE log ERROR_VARIABLE log RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "cpack failed:\n${log}")
endif()

set(runtime_name libbrelt${MAJOR})
file(GLOB runtime ${work}/out/${runtime_name}_*.deb)
file(GLOB development ${work}/out/libbrelt-dev_*.deb)
if(NOT runtime OR NOT development)
  message(FATAL_ERROR "cpack made no ${runtime_name} or libbrelt-dev package:\n${log}")
endif()

# The library package: the shared library under its soname, its dependencies as found in the
# library itself, and the shlibs file that passes them on to what links against it.
read(fields dpkg-deb -f ${runtime} Package Version Section Depends)
message(STATUS "${runtime_name}:\n${fields}")
expect("${fields}" "Version: ${VERSION}\n" ${runtime_name})
expect("${fields}" "Depends:.*libc6 \\(>= [0-9]" "${runtime_name} dependencies")
expect("${fields}" "Depends:.*libstdc\\+\\+6 \\(>= [0-9]" "${runtime_name} dependencies")
read(files dpkg-deb -c ${runtime})
expect("${files}" "/usr/lib/libbrelt\\.so\\.${MAJOR} -> libbrelt\\.so\\.${VERSION}"
       "${runtime_name} contents")
refuse("${files}" "/usr/include|libbrelt\\.so ->|\\.pc\n|\\.cmake\n" "${runtime_name} contents")
run(dpkg-deb -e ${runtime} ${work}/control)
file(READ ${work}/control/shlibs shlibs)
expect("${shlibs}" "libbrelt ${MAJOR} ${runtime_name} \\(>= ${VERSION}\\)" "shlibs")

# The development package: everything an application is built with, and the library package
# of the same version.
read(fields dpkg-deb -f ${development} Package Version Section Depends)
message(STATUS "libbrelt-dev:\n${fields}")
expect("${fields}" "Version: ${VERSION}\n" libbrelt-dev)
expect("${fields}" "Depends: ${runtime_name} \\(= ${VERSION}\\)" "libbrelt-dev dependencies")
read(files dpkg-deb -c ${development})
foreach(path "/usr/lib/libbrelt\\.so -> libbrelt\\.so\\.${MAJOR}" "/usr/include/brelt/brelt\\.h"
             "/usr/lib/cmake/brelt/breltConfig\\.cmake" "/usr/lib/pkgconfig/brelt\\.pc")
  expect("${files}" "${path}" "libbrelt-dev contents")
endforeach()

# Both unpacked into one scratch root, as dpkg would install them under /.
set(root ${work}/root)
run(dpkg-deb -x ${runtime} ${root})
run(dpkg-deb -x ${development} ${root})
set(ENV{LD_LIBRARY_PATH} ${root}/usr/lib)

# pkg-config, told that /usr is under the scratch root.
set(ENV{PKG_CONFIG_LIBDIR} ${root}/usr/lib/pkgconfig)
set(ENV{PKG_CONFIG_SYSROOT_DIR} ${root})
read(flags pkg-config --cflags --libs brelt)
read(pc_version pkg-config --modversion brelt)
message(STATUS "pkg-config --cflags --libs brelt: ${flags} (version ${pc_version})")
if(NOT pc_version STREQUAL VERSION)
  message(FATAL_ERROR "brelt.pc gives version ${pc_version}, not ${VERSION}")
endif()
separate_arguments(flags UNIX_COMMAND "${flags}")
run(${CXX} -std=c++20 ${SOURCE_DIR}/examples/main.cpp ${flags} -o ${work}/example-pkg-config)
run(${work}/example-pkg-config)

# find_package, with the scratch /usr as the prefix.
run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/examples -B ${work}/example-cmake
    -DCMAKE_PREFIX_PATH=${root}/usr -DCMAKE_BUILD_TYPE=Release)
run(${CMAKE_COMMAND} --build ${work}/example-cmake)
run(${work}/example-cmake/brelt_example)

# lintian: errors fail, warnings are shown.
execute_process(COMMAND lintian --tag-display-limit 0 ${runtime} ${development}
  OUTPUT_VARIABLE report ERROR_VARIABLE report RESULT_VARIABLE rc)
message(STATUS "lintian:\n${report}")
string(REGEX MATCHALL "(^|\n)E: [^\n]*" errors "${report}")
if(errors OR NOT rc EQUAL 0)
  message(FATAL_ERROR "lintian failed (${rc}) or reports errors:\n${report}")
endif()
message(STATUS "both Debian packages built, unpacked, used and passed lintian")
