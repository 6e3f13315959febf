# cmake --install puts the headers, the library and a CMake package in place, so that an
# application says find_package(brelt) and links brelt::brelt.
include(CMakePackageConfigHelpers)

install(TARGETS brelt EXPORT breltTargets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/brelt DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

set(brelt_cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/brelt)
install(EXPORT breltTargets NAMESPACE brelt:: DESTINATION ${brelt_cmake_dir})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/breltConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/breltConfig.cmake INSTALL_DESTINATION ${brelt_cmake_dir})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/breltConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/breltConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/breltConfigVersion.cmake
        DESTINATION ${brelt_cmake_dir})
