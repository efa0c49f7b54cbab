# brisel_keep_public(<list> <source folder>): drops from a list of headers those that are not public. docs/Doxyfile says
# which they are, by wildcards: what it does not describe.
function(brisel_keep_public list source)
  file(STRINGS ${source}/docs/Doxyfile hidden REGEX "^EXCLUDE_PATTERNS ")
  string(REGEX REPLACE "^[^=]*= *" "" hidden "${hidden}")
  if(NOT hidden)
    message(FATAL_ERROR "docs/Doxyfile has no EXCLUDE_PATTERNS")
  endif()
  string(REPLACE "." "[.]" hidden "${hidden}")
  string(REPLACE "*" ".*" hidden "${hidden}")
  string(REGEX REPLACE " +" "|" hidden "${hidden}")
  list(FILTER ${list} EXCLUDE REGEX "^(${hidden})$")
  set(${list} ${${list}} PARENT_SCOPE)
endfunction()
