# cpack in a build folder packages the library as its platform takes it:
# - Linux: two Debian packages, libbrelt<major> (the shared library under its soname) and
#   libbrelt-dev (headers, the libbrelt.so link, the CMake package, brelt.pc);
# - Windows: one zip with bin/brelt.dll, lib/libbrelt.dll.a, include/, the CMake package and
#   the example program.
# Packages land in <build>/packages.
set(CPACK_PACKAGE_NAME brelt)
set(CPACK_PACKAGE_VENDOR "brelt maintainers")
# No summary in front of the Debian descriptions: each package has a synopsis of its own.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGE_CONTACT "brelt maintainers <maintainers@users.noreply.c-seed-4bc7e8fb.example>")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)

if(WIN32)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME brelt-${PROJECT_VERSION}-windows-x64)
  set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
  # The example shows the layout at work: run bin\brelt_example.exe beside brelt.dll.
  if(TARGET brelt_example)
    install(TARGETS brelt_example RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT example)
  endif()
  set(CPACK_COMPONENTS_ALL runtime development example)
  set(CPACK_ARCHIVE_COMPONENT_INSTALL OFF)
else()
  set(CPACK_GENERATOR DEB)
  set(CPACK_DEB_COMPONENT_INSTALL ON)
  set(CPACK_COMPONENTS_ALL runtime development)
  # Installed under /usr through DESTDIR, so that brelt.pc is written for /usr and not for the
  # staging folder.
  set(CPACK_SET_DESTDIR ON)
  set(CPACK_INSTALL_PREFIX /usr)
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)

  set(brelt_runtime_package libbrelt${PROJECT_VERSION_MAJOR})
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${brelt_runtime_package})
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
  # Dependencies of the library as dpkg-shlibdeps finds them; a shlibs file and the ldconfig
  # trigger for the packages that link against it.
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
  set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
  # The ldconfig trigger instead of the ldconfig calls that CPack would write into postinst and
  # postrm; these two are therefore given, and do nothing.
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/triggers
      ${PROJECT_SOURCE_DIR}/cmake/debian/postinst ${PROJECT_SOURCE_DIR}/cmake/debian/postrm)
  set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
  # Descriptions: the synopsis, then the text that both packages share, then their own.
  set(brelt_about "brelt is one shared library through which an application reaches memory,
bounded strings in 8-bit and 16-bit characters, numbers as text, files,
path redirection, time, calendar and mathematics, with the same behaviour
on Linux and Windows.
.")
  set(CPACK_DEBIAN_RUNTIME_DESCRIPTION
      "brelt runtime library: strings, numbers as text, files, time, math
${brelt_about}
This package holds the shared library.")

  # Each package carries the copyright file and the changelog (compressed, as Debian wants it)
  # in its documentation folder.
  set(brelt_changelog ${CMAKE_BINARY_DIR}/debian/changelog)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/debian/changelog.in ${brelt_changelog} @ONLY)
  execute_process(COMMAND gzip -9nf ${brelt_changelog} COMMAND_ERROR_IS_FATAL ANY)
  set(brelt_package_docs ${PROJECT_SOURCE_DIR}/cmake/debian/copyright ${brelt_changelog}.gz)
  install(FILES ${brelt_package_docs} COMPONENT runtime
          DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/${brelt_runtime_package})
  install(FILES ${brelt_package_docs} COMPONENT development
          DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/libbrelt-dev)

  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libbrelt-dev)
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
  # libbrelt-dev depends on the library package of the same version.
  set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
  set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "development files for the brelt runtime library
${brelt_about}
This package holds the headers, the link to the library, the CMake package
(find_package(brelt)) and the pkg-config file (brelt.pc).")
endif()

include(CPack)
