# `docs`: the HTML API reference of the public headers, made by Doxygen into
# <build>/docs/html. A warning fails it.
find_program(BRELT_DOXYGEN doxygen)
set(BRELT_DOCS_DIR ${CMAKE_BINARY_DIR}/docs)
if(BRELT_DOXYGEN)
  configure_file(${PROJECT_SOURCE_DIR}/docs/Doxyfile.in ${BRELT_DOCS_DIR}/Doxyfile @ONLY)
  file(GLOB_RECURSE brelt_public_headers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/include/*.h)
  add_custom_target(docs
    COMMAND ${CMAKE_COMMAND} -E remove_directory ${BRELT_DOCS_DIR}/html
    COMMAND ${BRELT_DOXYGEN} ${BRELT_DOCS_DIR}/Doxyfile
    COMMAND ${CMAKE_COMMAND} -E echo "API reference: ${BRELT_DOCS_DIR}/html/index.html"
    WORKING_DIRECTORY ${BRELT_DOCS_DIR}
    SOURCES ${PROJECT_SOURCE_DIR}/docs/Doxyfile.in ${PROJECT_SOURCE_DIR}/docs/doc_comments.awk
    VERBATIM)
else()
  add_custom_target(docs
    COMMAND ${CMAKE_COMMAND} -E echo "doxygen is missing: scripts/deps installs it"
    COMMAND ${CMAKE_COMMAND} -E false)
endif()
