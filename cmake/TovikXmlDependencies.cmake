# expat in its 16-bit form where the system has it, else the 8-bit form behind an adapter; zlib; PCRE2.

find_path(EXPAT_INCLUDE_DIR expat.h REQUIRED)
find_library(EXPATW_LIBRARY expatw)
if(EXPATW_LIBRARY AND NOT TOVIKXML_NARROW_EXPAT)
  set(TOVIKXML_EXPAT_LIBRARY ${EXPATW_LIBRARY})
  set(TOVIKXML_EXPAT_DEFINITIONS XML_UNICODE)
else()
  find_library(EXPAT_LIBRARY expat REQUIRED)
  set(TOVIKXML_EXPAT_LIBRARY ${EXPAT_LIBRARY})
  set(TOVIKXML_EXPAT_DEFINITIONS)
endif()
add_library(tovikxml_expat INTERFACE)
target_include_directories(tovikxml_expat SYSTEM INTERFACE ${EXPAT_INCLUDE_DIR})
target_link_libraries(tovikxml_expat INTERFACE ${TOVIKXML_EXPAT_LIBRARY})
target_compile_definitions(tovikxml_expat INTERFACE ${TOVIKXML_EXPAT_DEFINITIONS})

find_package(ZLIB REQUIRED)

find_path(PCRE2_INCLUDE_DIR pcre2.h REQUIRED)
find_library(PCRE2_LIBRARY pcre2-8 REQUIRED)
add_library(tovikxml_pcre2 INTERFACE)
target_include_directories(tovikxml_pcre2 SYSTEM INTERFACE ${PCRE2_INCLUDE_DIR})
target_link_libraries(tovikxml_pcre2 INTERFACE ${PCRE2_LIBRARY})
target_compile_definitions(tovikxml_pcre2 INTERFACE PCRE2_CODE_UNIT_WIDTH=8)

mark_as_advanced(EXPAT_INCLUDE_DIR EXPATW_LIBRARY EXPAT_LIBRARY PCRE2_INCLUDE_DIR PCRE2_LIBRARY)
