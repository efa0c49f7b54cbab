# What is built, and how. Everything but the library itself is off for projects that embed this one.

option(BRISEL_BUILD_ASSETS "Make the resource bundle for all, and not only for programs that it is deployed with"
       ${PROJECT_IS_TOP_LEVEL})
option(BRISEL_BUILD_GALLERY "Build the program brisel" ${PROJECT_IS_TOP_LEVEL})
option(BRISEL_BUILD_TESTS "Build the tests" OFF)
option(BRISEL_BUILD_FUZZERS "Build the fuzz targets (clang only)" OFF)
option(BRISEL_BUILD_BENCHMARKS "Build the benchmarks and their peers" OFF)
# What clang-tidy sees is compiled without, and so is the library within other projects: each file includes what it needs.
option(BRISEL_PRECOMPILE "Precompile the standard library's headers" OFF)
option(BRISEL_INSTALL "Generate the install rules" ${PROJECT_IS_TOP_LEVEL})
option(BRISEL_WARNINGS_AS_ERRORS "Treat warnings as errors" ${PROJECT_IS_TOP_LEVEL})
if(PROJECT_IS_TOP_LEVEL)
  option(BUILD_SHARED_LIBS "Build shared libraries" ON)
endif()

set(BRISEL_BUNDLE_STORE "" CACHE PATH "Where build trees share the resource bundle instead of each making its own")
set(BRISEL_SANITIZE "" CACHE STRING "Sanitizers for everything, as -fsanitize= takes them")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(PROJECT_IS_TOP_LEVEL)
  # One layout for the build tree and the installed one: programs in bin/, libraries in lib/, the bundle in
  # share/BriselFoundation/, so that the library finds its bundle the same way in both.
  set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
  set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
  set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
  # Not lib/<triplet>, which Debian prefers below /usr: the library looks for ../share beside its own folder.
  set(CMAKE_INSTALL_LIBDIR lib CACHE PATH "Where libraries are installed, one level below the prefix")
  set(CMAKE_INSTALL_RPATH "$ORIGIN/../lib" "$ORIGIN")
endif()
set(BRISEL_BUNDLE_DIR ${PROJECT_BINARY_DIR}/share/BriselFoundation/BriselFoundation.bundle)
set_property(GLOBAL PROPERTY BRISEL_BUNDLE_DIR ${BRISEL_BUNDLE_DIR}) # For brisel_deploy_bundle(), which hosts call.
