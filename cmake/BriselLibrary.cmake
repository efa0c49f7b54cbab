# How each of our targets is compiled.

# brisel_target_options(<target>): warnings, exact floating point, sanitizers.
function(brisel_target_options target)
  target_compile_options(
    ${target}
    PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
            # Doubles are computed as written, on every compiler and at every level.
            -ffp-contract=off)
  if(BRISEL_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(BRISEL_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=${BRISEL_SANITIZE} -fno-sanitize-recover=all
                                             -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=${BRISEL_SANITIZE})
  endif()
endfunction()

# brisel_precompile(<target>): the standard library's headers once for all files, where a preset asks for it. They are a
# third of what is compiled.
function(brisel_precompile target)
  if(BRISEL_PRECOMPILE)
    target_precompile_headers(
      ${target} PRIVATE <algorithm> <array> <atomic> <cmath> <filesystem> <functional> <limits> <map> <memory> <mutex>
      <optional> <span> <string> <string_view> <unordered_map> <variant> <vector>)
  endif()
endfunction()

# brisel_library(<name> DESCRIPTION … SOURCES … [PUBLIC …] [PRIVATE …]): the library Brisel<name>, exported as
# Brisel::<name>. The description is pkg-config's.
function(brisel_library name)
  cmake_parse_arguments(ARG "" "DESCRIPTION" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
  set(target Brisel${name})
  add_library(${target} ${ARG_SOURCES})
  add_library(Brisel::${name} ALIAS ${target})
  brisel_target_options(${target})
  brisel_precompile(${target})
  if(BRISEL_BUILD_FUZZERS)
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
  endif()
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
                                              $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_link_libraries(${target} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
  target_link_options(${target} PRIVATE $<$<NOT:$<BOOL:${BRISEL_SANITIZE}>>:LINKER:-z,defs>)
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${name} BRISEL_DESCRIPTION "${ARG_DESCRIPTION}"
                                             VERSION ${PROJECT_VERSION}
                                             SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
  set_property(GLOBAL APPEND PROPERTY BRISEL_LIBRARIES ${target})
endfunction()

# brisel_sources(<library> <file>…): adds files of this folder to Brisel<library>, which brisel/CMakeLists.txt builds.
function(brisel_sources library)
  list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  set_property(GLOBAL APPEND PROPERTY BRISEL_SOURCES_${library} ${ARGN})
endfunction()
