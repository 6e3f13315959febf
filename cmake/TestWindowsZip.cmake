# Builds the Windows zip with cpack, unpacks it into a scratch folder, checks its layout and
# the DLL's version resource, runs the example it carries under Wine, and builds the example
# again against the unpacked library with find_package.
#   cmake -DBUILD_DIR=... -DSOURCE_DIR=... -DTOOLCHAIN=... -DEMULATOR=... -DWINDRES=...
#         -DVERSION=... -P TestWindowsZip.cmake
cmake_minimum_required(VERSION 3.25)

set(work ${BUILD_DIR}/windows-zip)
file(REMOVE_RECURSE ${work})
file(MAKE_DIRECTORY ${work}/unpacked)

include(${CMAKE_CURRENT_LIST_DIR}/TestSupport.cmake)

execute_process(COMMAND cpack --config ${BUILD_DIR}/CPackConfig.cmake -B ${work}/out
  WORKING_DIRECTORY ${BUILD_DIR} OUTPUT_VARIABLE log ERROR_VARIABLE log RESULT_VARIABLE rc)
set(zip ${work}/out/brelt-${VERSION}-windows-x64.zip)
if(NOT rc EQUAL 0 OR NOT EXISTS ${zip})
  message(FATAL_ERROR "cpack made no ${zip}:\n${log}")
endif()
run(${CMAKE_COMMAND} -E chdir ${work}/unpacked ${CMAKE_COMMAND} -E tar xf ${zip})

set(root ${work}/unpacked)
foreach(path bin/brelt.dll bin/brelt_example.exe lib/libbrelt.dll.a include/brelt/brelt.h
             lib/cmake/brelt/breltConfig.cmake lib/cmake/brelt/breltConfigVersion.cmake)
  if(NOT EXISTS ${root}/${path})
    message(FATAL_ERROR "${path} is missing from ${zip}")
  endif()
endforeach()

# The version resource, read back from the DLL as resource text.
execute_process(COMMAND ${WINDRES} -i ${root}/bin/brelt.dll -O rc
  OUTPUT_VARIABLE resource RESULT_VARIABLE rc)
string(REPLACE "." ", " numbers ${VERSION})
if(NOT rc EQUAL 0 OR NOT resource MATCHES "FILEVERSION ${numbers}, 0\n"
   OR NOT resource MATCHES "VALUE \"ProductVersion\", \"${VERSION}\"")
  message(FATAL_ERROR "brelt.dll does not carry version ${VERSION}:\n${resource}")
endif()
message(STATUS "brelt.dll carries version ${VERSION}")

# The example as shipped, beside the DLL of the zip.
run(${EMULATOR} ${root}/bin/brelt_example.exe)

# An application built against the unpacked zip.
run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/examples -B ${work}/app -DCMAKE_PREFIX_PATH=${root}
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN})
run(${CMAKE_COMMAND} --build ${work}/app)
run(${EMULATOR} ${work}/app/brelt_example.exe)
message(STATUS "the Windows zip unpacked, ran its example and built another")
