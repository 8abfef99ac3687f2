# The target `docs`: the reference of the public headers, by doxygen, in docs/html of the build folder.
find_program(DOXYGEN_EXECUTABLE doxygen)
mark_as_advanced(DOXYGEN_EXECUTABLE)
if(NOT DOXYGEN_EXECUTABLE)
  add_custom_target(docs
    COMMAND ${CMAKE_COMMAND} -E echo "The reference is made by doxygen, which is not installed."
    COMMAND ${CMAKE_COMMAND} -E false VERBATIM)
  return()
endif()

tovikxml_public_headers(inputs)
list(PREPEND inputs docs/reference.md)
list(TRANSFORM inputs PREPEND "\"${PROJECT_SOURCE_DIR}/")
list(TRANSFORM inputs APPEND "\"")
list(JOIN inputs " " TOVIKXML_DOCS_INPUT)
set(TOVIKXML_DOCS_FOLDER "${PROJECT_BINARY_DIR}/docs")
configure_file(${PROJECT_SOURCE_DIR}/docs/Doxyfile.in ${TOVIKXML_DOCS_FOLDER}/Doxyfile @ONLY)
add_custom_target(docs
  COMMAND ${CMAKE_COMMAND} -D DOXYGEN=${DOXYGEN_EXECUTABLE} -D FOLDER=${TOVIKXML_DOCS_FOLDER}
          -P ${PROJECT_SOURCE_DIR}/docs/make_reference.cmake
  COMMENT "Reference in ${TOVIKXML_DOCS_FOLDER}/html/index.html" VERBATIM)
