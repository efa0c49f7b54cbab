# Run at install time: copies the public headers of ${source_dir}/brisel below ${destination}.
#
# A header is public unless it stands in an internal/ folder, belongs to a port that ships or is for tests. Such a one is
# copied only where a public header includes it, directly or not; so are the .def tables.
cmake_minimum_required(VERSION 3.25) # The policies that this file is written for; the install script sets none.

file(GLOB_RECURSE waiting RELATIVE ${source_dir} ${source_dir}/brisel/*.h)
list(FILTER waiting EXCLUDE REGEX "/internal/|^brisel/platform/linux/|_test[.]h$")

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
