# How the targets of this project are declared: a layer (one folder of src/), a
# program, and the tests of one folder. The flags that all of them share stand here.

find_program(CCACHE ccache)
if(CCACHE)
  # What ccache asks for before it keeps a file that reads a precompiled header.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
endif()
find_program(LLD ld.lld)
if(LLD)
  add_link_options(-fuse-ld=lld)
endif()

find_package(PkgConfig REQUIRED)
pkg_check_modules(SODIUM REQUIRED IMPORTED_TARGET libsodium)
find_package(SQLite3 REQUIRED)
find_package(nlohmann_json REQUIRED)

add_library(tarvex_flags INTERFACE)
target_include_directories(tarvex_flags INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_options(tarvex_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
  -Wnull-dereference $<$<BOOL:${TARVEX_WERROR}>:-Werror>
  # False alarms of g++ 12 about the standard library's own strings.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-null-dereference;-Wno-array-bounds;-Wno-restrict;-Wno-stringop-overread;-Wno-stringop-overflow>)
# An index beyond its container ends the program, also for users: groups keep the books whole, what is read or
# written out of place would not.
target_compile_definitions(tarvex_flags INTERFACE _GLIBCXX_ASSERTIONS)

if(TARVEX_SANITIZE)
  target_compile_options(tarvex_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                -fno-omit-frame-pointer)
  target_link_options(tarvex_flags INTERFACE -fsanitize=address,undefined)
endif()

target_compile_options(tarvex_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)

# tarvex_pch(NAME header libraries): headers that many files read, compiled once and shared by
# REUSE_FROM; two thirds of a form's compile time.
function(tarvex_pch name header)
  file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/${name}.cpp CONTENT "")
  add_library(${name} OBJECT ${CMAKE_BINARY_DIR}/${name}.cpp)
  target_link_libraries(${name} PRIVATE tarvex_flags ${ARGN})
  target_precompile_headers(${name} PRIVATE ${CMAKE_SOURCE_DIR}/cmake/pch/${header})
endfunction()

tarvex_pch(tarvex_pch standard.h)

# tarvex_layer(NAME SOURCES a.cpp ... LINKS layer-below ...): the static library tarvex_NAME.
# With OWN_PCH it brings a precompiled header of its own.
# A layer links only what stands below it; the linker then refuses any other arrow.
function(tarvex_layer name)
  cmake_parse_arguments(LAYER "OWN_PCH" "" "SOURCES;LINKS" ${ARGN})
  add_library(tarvex_${name} STATIC ${LAYER_SOURCES})
  target_link_libraries(tarvex_${name} PUBLIC tarvex_flags ${LAYER_LINKS})
  if(NOT LAYER_OWN_PCH)
    target_precompile_headers(tarvex_${name} REUSE_FROM tarvex_pch)
  endif()
endfunction()

# tarvex_tests(NAME SOURCES a.cpp ... LINKS lib ...): the test program test_NAME, run by ctest.
function(tarvex_tests name)
  cmake_parse_arguments(TESTS "OWN_PCH" "" "SOURCES;LINKS" ${ARGN})
  add_executable(test_${name} ${TESTS_SOURCES})
  if(TESTS_OWN_PCH)  # other flags than the rest: the toolkit's
    target_precompile_headers(test_${name} PRIVATE ${CMAKE_SOURCE_DIR}/cmake/pch/tests.h)
  else()
    target_precompile_headers(test_${name} REUSE_FROM tarvex_tests_pch)
  endif()
  target_include_directories(test_${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(test_${name} PRIVATE tarvex_test_main ${TESTS_LINKS})
  target_compile_definitions(test_${name} PRIVATE TARVEX_SOURCE_DIR="${CMAKE_SOURCE_DIR}"
                                                  TARVEX_BINARY_DIR="${CMAKE_BINARY_DIR}")
  add_test(NAME ${name} COMMAND test_${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 300)
endfunction()
