# cmake --install puts the headers, the library, a CMake package and a pkg-config file in
# place, so that an application says find_package(brelt) and links brelt::brelt, or asks
# pkg-config for brelt. Two components, as the Debian packages split them: `runtime` is the
# shared library alone (the DLL on Windows), `development` everything an application is
# built with.
include(CMakePackageConfigHelpers)

install(TARGETS brelt EXPORT breltTargets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime
          NAMELINK_COMPONENT development
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/brelt DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        COMPONENT development)

set(brelt_cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/brelt)
install(EXPORT breltTargets NAMESPACE brelt:: DESTINATION ${brelt_cmake_dir}
        COMPONENT development)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/breltConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/breltConfig.cmake INSTALL_DESTINATION ${brelt_cmake_dir})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/breltConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/breltConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/breltConfigVersion.cmake
        DESTINATION ${brelt_cmake_dir} COMPONENT development)

# brelt.pc names the prefix the files are installed under, which is known only when they are
# installed (cmake --install --prefix, or /usr in a Debian package): everything else is filled
# in now, the prefix then.
if(NOT WIN32)
  set(BRELT_PC_PREFIX @BRELT_PC_PREFIX@)
  set(brelt_pc_template ${CMAKE_CURRENT_BINARY_DIR}/pkgconfig/brelt.pc.in)
  set(brelt_pc ${CMAKE_CURRENT_BINARY_DIR}/pkgconfig/brelt.pc)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/brelt.pc.in ${brelt_pc_template} @ONLY)
  install(CODE "
    set(BRELT_PC_PREFIX \"\${CMAKE_INSTALL_PREFIX}\")
    configure_file(\"${brelt_pc_template}\" \"${brelt_pc}\" @ONLY)"
    COMPONENT development)
  install(FILES ${brelt_pc} DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endif()
