# How the targets of this project are declared: a layer (one folder of src/), a
# program, and the tests of one folder. The flags that all of them share stand here.

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
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
  $<$<CXX_COMPILER_ID:GNU>:-Wno-null-dereference>)
if(TARVEX_SANITIZE)
  target_compile_options(tarvex_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                -fno-omit-frame-pointer)
  target_link_options(tarvex_flags INTERFACE -fsanitize=address,undefined)
endif()

# tarvex_layer(NAME SOURCES a.cpp ... LINKS layer-below ...): the static library tarvex_NAME.
# A layer links only what stands below it; the linker then refuses any other arrow.
function(tarvex_layer name)
  cmake_parse_arguments(LAYER "" "" "SOURCES;LINKS" ${ARGN})
  add_library(tarvex_${name} STATIC ${LAYER_SOURCES})
  target_link_libraries(tarvex_${name} PUBLIC tarvex_flags ${LAYER_LINKS})
endfunction()

# tarvex_tests(NAME SOURCES a.cpp ... LINKS lib ...): the test program test_NAME, run by ctest.
function(tarvex_tests name)
  cmake_parse_arguments(TESTS "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(test_${name} ${TESTS_SOURCES})
  target_include_directories(test_${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(test_${name} PRIVATE tarvex_test_main ${TESTS_LINKS})
  target_compile_definitions(test_${name} PRIVATE TARVEX_SOURCE_DIR="${CMAKE_SOURCE_DIR}"
                                                  TARVEX_BINARY_DIR="${CMAKE_BINARY_DIR}")
  add_test(NAME ${name} COMMAND test_${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 300)
endfunction()
