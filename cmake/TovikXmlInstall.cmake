# The installed package: library, public headers, CMake package, pkg-config file, and the documents.
include(CMakePackageConfigHelpers)

tovikxml_public_headers(headers)
foreach(header IN LISTS headers)
  get_filename_component(folder ${header} DIRECTORY)
  install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${folder})
endforeach()
install(FILES ${PROJECT_BINARY_DIR}/generated/tovikxml/base/export.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tovikxml/base)

install(TARGETS tovikxml EXPORT TovikXmlTargets)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/TovikXml)
install(EXPORT TovikXmlTargets NAMESPACE TovikXml:: DESTINATION ${package_dir})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/TovikXmlConfig.cmake.in
  ${PROJECT_BINARY_DIR}/TovikXmlConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/TovikXmlConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/TovikXmlConfig.cmake
              ${PROJECT_BINARY_DIR}/TovikXmlConfigVersion.cmake DESTINATION ${package_dir})

get_filename_component(TOVIKXML_EXPAT_NAME ${TOVIKXML_EXPAT_LIBRARY} NAME_WE)
string(REGEX REPLACE "^lib" "" TOVIKXML_EXPAT_NAME ${TOVIKXML_EXPAT_NAME})
if(NOT BUILD_SHARED_LIBS)
  set(TOVIKXML_PC_CFLAGS "-DTOVIKXML_STATIC_DEFINE")
  set(TOVIKXML_PC_LIBS "-l${TOVIKXML_EXPAT_NAME} -lpcre2-8 -lz")
endif()
# The prefix is found from where the file lies, so that the installed tree can be moved, and
# `cmake --install --prefix` tells the truth; folders that were given as absolute paths stay.
set(TOVIKXML_PC_PREFIX "${CMAKE_INSTALL_PREFIX}")
if(NOT IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
  file(RELATIVE_PATH up "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
  set(TOVIKXML_PC_PREFIX "\${pcfiledir}/${up}")
endif()
foreach(folder LIB INCLUDE)
  set(TOVIKXML_PC_${folder}DIR "\${prefix}/${CMAKE_INSTALL_${folder}DIR}")
  if(IS_ABSOLUTE "${CMAKE_INSTALL_${folder}DIR}")
    set(TOVIKXML_PC_${folder}DIR "${CMAKE_INSTALL_${folder}DIR}")
  endif()
endforeach()
configure_file(${PROJECT_SOURCE_DIR}/cmake/tovikxml.pc.in ${PROJECT_BINARY_DIR}/tovikxml.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/tovikxml.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# As they lie in the project, so that the links between them hold, with the reference beside them if
# it was made.
set(documents README.md CHANGELOG.md ARCHITECTURE.md CONTRIBUTING.md)
list(TRANSFORM documents PREPEND "${PROJECT_SOURCE_DIR}/")
install(FILES ${documents} DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs ${PROJECT_SOURCE_DIR}/examples
        DESTINATION ${CMAKE_INSTALL_DOCDIR}
        PATTERN "*.in" EXCLUDE PATTERN "make_reference.cmake" EXCLUDE PATTERN "reference.*" EXCLUDE)
install(DIRECTORY ${PROJECT_BINARY_DIR}/docs/html/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/reference
        OPTIONAL)
