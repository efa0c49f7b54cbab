# Tests stand beside the code; each folder collects its own into one program.

if(BRISEL_BUILD_TESTS)
  find_package(GTest REQUIRED)
  find_package(Threads REQUIRED)
  find_library(BRISEL_RAPIDCHECK rapidcheck REQUIRED)
  include(GoogleTest)
endif()

# What all test programs share. They compile in two thirds of the time without optimisation; the library under them
# keeps its own level.
function(brisel_test_options target)
  brisel_target_options(${target})
  target_compile_options(${target} PRIVATE -O0)
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR})
  target_compile_definitions(${target} PRIVATE BRISEL_TEST_BUNDLE="${BRISEL_BUNDLE_DIR}"
                                               BRISEL_TEST_SOURCES="${PROJECT_SOURCE_DIR}")
  target_link_libraries(${target} PRIVATE GTest::gmock GTest::gtest_main ${BRISEL_RAPIDCHECK} Threads::Threads)
endfunction()

# The test libraries' headers are half of what a test compiles: once for all programs. A program without tests holds
# them, since programs and libraries are compiled differently.
if(BRISEL_BUILD_TESTS)
  file(CONFIGURE OUTPUT test_headers.cc CONTENT "")
  add_executable(brisel_test_headers ${CMAKE_CURRENT_BINARY_DIR}/test_headers.cc)
  brisel_test_options(brisel_test_headers)
  target_precompile_headers(brisel_test_headers PRIVATE <gmock/gmock.h> <gtest/gtest.h> <rapidcheck.h>
                            <rapidcheck/gtest.h>)
endif()

# brisel_tests(<suite> SOURCES … LIBRARIES … [LABEL <label>]): the program <suite>_tests. Each test runs in a process of
# its own, so that a test may count what has been built since the start, and is listed as <suite>.<Suite>.<Name>, with the
# label for ctest's -L and -LE.
function(brisel_tests suite)
  if(NOT BRISEL_BUILD_TESTS)
    return()
  endif()
  cmake_parse_arguments(ARG "" "LABEL" "SOURCES;LIBRARIES" ${ARGN})
  set(target ${suite}_tests)
  set(properties TIMEOUT 120)
  if(ARG_LABEL)
    list(APPEND properties LABELS ${ARG_LABEL})
  endif()
  # Leaks of the host's libraries are known by their frames (tests/sanitizers/leaks.txt), which have no frame pointers.
  # What runs without them need not unwind so slowly: a deep nesting takes a quarter of the time.
  if(BRISEL_SANITIZE MATCHES "address" AND NOT ARG_LIBRARIES MATCHES "Brisel::(Foundation|PlatformLinux)|brisel_")
    list(APPEND properties ENVIRONMENT_MODIFICATION ASAN_OPTIONS=string_append::fast_unwind_on_malloc=1)
  endif()
  add_executable(${target} ${ARG_SOURCES})
  brisel_test_options(${target})
  target_precompile_headers(${target} REUSE_FROM brisel_test_headers)
  target_link_libraries(${target} PRIVATE ${ARG_LIBRARIES})
  # A busy machine may take its time to start a large program.
  gtest_discover_tests(${target} TEST_PREFIX ${suite}. DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 120
                       PROPERTIES ${properties})
endfunction()
