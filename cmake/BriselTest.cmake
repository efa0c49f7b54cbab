# Tests stand beside the code; each folder collects its own into one program.

if(BRISEL_BUILD_TESTS)
  find_package(GTest REQUIRED)
  find_package(Threads REQUIRED)
  find_library(BRISEL_RAPIDCHECK rapidcheck REQUIRED)
  include(GoogleTest)
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
  set(labels)
  if(ARG_LABEL)
    set(labels LABELS ${ARG_LABEL})
  endif()
  add_executable(${target} ${ARG_SOURCES})
  brisel_target_options(${target})
  if(BRISEL_SANITIZE)
    # Instrumented tests compile in half the time without optimisation. The library under them keeps its own level.
    target_compile_options(${target} PRIVATE -O0)
  endif()
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR})
  target_compile_definitions(${target} PRIVATE BRISEL_TEST_BUNDLE="${BRISEL_BUNDLE_DIR}"
                                                    BRISEL_TEST_SOURCES="${PROJECT_SOURCE_DIR}")
  target_link_libraries(${target} PRIVATE ${ARG_LIBRARIES} GTest::gmock GTest::gtest_main ${BRISEL_RAPIDCHECK}
                                          Threads::Threads)
  gtest_discover_tests(${target} TEST_PREFIX ${suite}. DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 120 ${labels})
endfunction()
