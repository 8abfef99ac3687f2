# Settings and helpers for everything that is built here; nothing of this reaches a consumer.

if(TOVIKXML_SANITIZE)
  add_compile_options(-fsanitize=${TOVIKXML_SANITIZE} -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${TOVIKXML_SANITIZE})
  if(TOVIKXML_SANITIZE MATCHES "undefined")
    add_compile_options(-fno-sanitize-recover=undefined)
  endif()
endif()

# The language level and warnings of the project's own targets.
function(tovikxml_own_target target)
  target_compile_features(${target} PRIVATE cxx_std_20)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                                             $<$<BOOL:${TOVIKXML_WERROR}>:-Werror>)
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # g++ 12 gives this one falsely for std::string::insert (GCC bug 105329).
    target_compile_options(${target} PRIVATE -Wno-restrict)
  endif()
  if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    # clang 14 gives this one falsely for the destructor of a template inside a class.
    target_compile_options(${target} PRIVATE -Wno-dtor-name)
  endif()
endfunction()

# tovikxml_sources(FOLDER name...): adds FOLDER/name.cpp of the library.
function(tovikxml_sources folder)
  foreach(name IN LISTS ARGN)
    set_property(GLOBAL APPEND PROPERTY TOVIKXML_SOURCES
                 "${PROJECT_SOURCE_DIR}/tovikxml/${folder}/${name}.cpp")
  endforeach()
endfunction()

# tovikxml_internal_headers(FOLDER name...): headers that are not installed.
function(tovikxml_internal_headers folder)
  foreach(name IN LISTS ARGN)
    set_property(GLOBAL APPEND PROPERTY TOVIKXML_INTERNAL_HEADERS "tovikxml/${folder}/${name}.h")
  endforeach()
endfunction()

# Stores in RESULT the headers that are installed, relative to the project.
function(tovikxml_public_headers result)
  get_property(internal_headers GLOBAL PROPERTY TOVIKXML_INTERNAL_HEADERS)
  file(GLOB_RECURSE headers RELATIVE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/tovikxml/*.h)
  list(REMOVE_ITEM headers ${internal_headers})
  set(${result} ${headers} PARENT_SCOPE)
endfunction()

# tovikxml_test(NAME source...): a GoogleTest program with access to internals.
function(tovikxml_test name)
  add_executable(test_${name} ${ARGN})
  tovikxml_own_target(test_${name})
  target_link_libraries(test_${name} PRIVATE tovikxml_internal tovikxml_test_support GTest::gtest_main)
  gtest_discover_tests(test_${name} DISCOVERY_MODE PRE_TEST TEST_PREFIX ${name}.
                       WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
endfunction()
