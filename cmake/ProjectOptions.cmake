# Language level, warnings and sanitizers, shared by every target of the project.

option(TESSARON_BUILD_TESTS "Build the tests" ON)
option(TESSARON_BUILD_BENCH "Build the benchmarks" ON)
option(TESSARON_FUZZ "Build the libFuzzer targets (clang only)" OFF)
# Off for whoever only builds: what a compiler at its highest level of inlining warns about changes with every version.
option(TESSARON_WERROR "Treat warnings as errors" OFF)
set(TESSARON_SANITIZE "" CACHE STRING "Sanitizers to build with, such as address,undefined or thread")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")

add_library(tessaron_options INTERFACE)
target_compile_options(tessaron_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor -Woverloaded-virtual>
  $<$<BOOL:${TESSARON_WERROR}>:-Werror>)
target_include_directories(tessaron_options INTERFACE "${PROJECT_SOURCE_DIR}/include" "${PROJECT_SOURCE_DIR}")
if(TESSARON_SANITIZE)
  target_compile_options(tessaron_options INTERFACE -fsanitize=${TESSARON_SANITIZE} -fno-omit-frame-pointer
    -fno-sanitize-recover=all)
  target_link_options(tessaron_options INTERFACE -fsanitize=${TESSARON_SANITIZE})
endif()

# tessaron_library(NAME DEFINES ...): the shared library NAME and the object library NAMEObjects it is made of.
# The folders add their sources to NAMEObjects.
function(tessaron_library name)
  cmake_parse_arguments(ARG "" "" "DEFINES" ${ARGN})
  add_library(${name}Objects OBJECT)
  target_link_libraries(${name}Objects PUBLIC tessaron_options)
  target_compile_definitions(${name}Objects PRIVATE ${ARG_DEFINES})
  add_library(${name} SHARED)
  target_link_libraries(${name} PRIVATE ${name}Objects)
  set_target_properties(${name} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
endfunction()

# tessaron_versions(LIBRARY FILE): gives the names that a library exports the versions of a linker script.
function(tessaron_versions name file)
  target_link_options(${name} PRIVATE "-Wl,--version-script=${file}")
  set_property(TARGET ${name} APPEND PROPERTY LINK_DEPENDS "${file}")
endfunction()
