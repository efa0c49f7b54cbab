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

# pkg-config takes "cairo >= 1.16" where FindPkgConfig takes "cairo>=1.16".
string(REPLACE ">=" " >= " BRISEL_PC_REQUIRES "${BRISEL_LINUX_MODULES}")
list(JOIN BRISEL_PC_REQUIRES ", " BRISEL_PC_REQUIRES)
file(RELATIVE_PATH BRISEL_PC_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(${CMAKE_CURRENT_LIST_DIR}/BriselFoundation.pc.in BriselFoundation.pc @ONLY)
install(
  FILES ${CMAKE_CURRENT_BINARY_DIR}/BriselFoundation.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
  COMPONENT Development)

install(
  FILES ${PROJECT_SOURCE_DIR}/NOTICE.md
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/BriselFoundation
  COMPONENT Runtime)
