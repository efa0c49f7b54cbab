# What `cmake --install` writes. The tree may be moved afterwards: nothing in it holds the prefix.
#
#   bin/                         the program
#   include/brisel/              public headers
#   lib/                         libraries, lib/cmake/BriselFoundation/, lib/pkgconfig/
#   share/BriselFoundation/      the resource bundle (assets/ installs it)

include(CMakePackageConfigHelpers)

get_property(BRISEL_LIBRARY_TARGETS GLOBAL PROPERTY BRISEL_LIBRARIES)
get_property(BRISEL_LINUX_MODULES GLOBAL PROPERTY BRISEL_LINUX_MODULES)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/BriselFoundation)

install(
  TARGETS ${BRISEL_LIBRARY_TARGETS}
  EXPORT BriselFoundationTargets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
          COMPONENT Runtime
          NAMELINK_COMPONENT Development
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Development)

# Which headers are public is worked out when they are installed, so that a new include needs no new configuration.
install(
  CODE "set(source_dir \"${PROJECT_SOURCE_DIR}\")
set(destination \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_INCLUDEDIR}\")
include(\"${CMAKE_CURRENT_LIST_DIR}/install_headers.cmake\")"
  COMPONENT Development)

install(
  EXPORT BriselFoundationTargets
  NAMESPACE Brisel::
  DESTINATION ${package_dir}
  COMPONENT Development)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/BriselFoundationConfig.cmake.in BriselFoundationConfig.cmake
                              INSTALL_DESTINATION ${package_dir} PATH_VARS CMAKE_INSTALL_DATADIR)
write_basic_package_version_file(BriselFoundationConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(
  FILES ${CMAKE_CURRENT_BINARY_DIR}/BriselFoundationConfig.cmake
        ${CMAKE_CURRENT_BINARY_DIR}/BriselFoundationConfigVersion.cmake ${CMAKE_CURRENT_LIST_DIR}/BriselDeploy.cmake
  DESTINATION ${package_dir}
  COMPONENT Development)

# pkg-config: Brisel<name>.pc for each library, which requires what CMake links with it. What a static library was built
# on is among that; a shared one brings it itself. "cairo >= 1.16" is "cairo>=1.16" to FindPkgConfig.
string(REPLACE ">=" " >= " linux_modules "${BRISEL_LINUX_MODULES}")
file(RELATIVE_PATH BRISEL_PC_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" BRISEL_PC_PREFIX ${BRISEL_PC_PREFIX})
foreach(target IN LISTS BRISEL_LIBRARY_TARGETS)
  get_target_property(BRISEL_PC_DESCRIPTION ${target} BRISEL_DESCRIPTION)
  get_target_property(linked ${target} INTERFACE_LINK_LIBRARIES)
  set(BRISEL_PC_REQUIRES ${linked})
  list(FILTER BRISEL_PC_REQUIRES INCLUDE REGEX "^Brisel::")
  list(TRANSFORM BRISEL_PC_REQUIRES REPLACE "^Brisel::(.*)" "Brisel\\1 = ${PROJECT_VERSION}")
  list(JOIN BRISEL_PC_REQUIRES ", " BRISEL_PC_REQUIRES)
  set(BRISEL_PC_REQUIRES_PRIVATE "")
  if(linked MATCHES "PkgConfig::BRISEL_LINUX")
    list(JOIN linux_modules ", " BRISEL_PC_REQUIRES_PRIVATE)
  endif()
  get_target_property(type ${target} TYPE)
  set(BRISEL_PC_LIBS "")
  if(NOT type STREQUAL "INTERFACE_LIBRARY")
    set(BRISEL_PC_LIBS "-L\${libdir} -l${target}")
  endif()
  configure_file(${CMAKE_CURRENT_LIST_DIR}/library.pc.in ${target}.pc @ONLY)
  install(
    FILES ${CMAKE_CURRENT_BINARY_DIR}/${target}.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT Development)
endforeach()

install(
  FILES ${PROJECT_SOURCE_DIR}/NOTICE.md
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/BriselFoundation
  COMPONENT Runtime)
