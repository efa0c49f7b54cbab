# Run at install time: copies the public headers of ${source_dir}/brisel below ${destination}.
#
# A header that is not public is copied only where a public one includes it, directly or not; so are the .def tables.
cmake_minimum_required(VERSION 3.25) # The policies that this file is written for; the install script sets none.

include(${CMAKE_CURRENT_LIST_DIR}/public_headers.cmake)
file(GLOB_RECURSE waiting RELATIVE ${source_dir} ${source_dir}/brisel/*.h)
brisel_keep_public(waiting ${source_dir})

set(public "")
while(waiting)
  list(POP_FRONT waiting header)
  if(header IN_LIST public)
    continue()
  endif()
  list(APPEND public ${header})
  file(STRINGS ${source_dir}/${header} includes REGEX "^#include \"brisel/")
  list(TRANSFORM includes REPLACE "^#include \"([^\"]+)\".*$" "\\1")
  list(APPEND waiting ${includes})
endwhile()

foreach(header IN LISTS public)
  cmake_path(GET header PARENT_PATH folder)
  file(INSTALL ${source_dir}/${header} DESTINATION ${destination}/${folder})
endforeach()
