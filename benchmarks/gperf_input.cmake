# Writes gperf's input: the names of the icons. cmake -D ICONS=icons.def -D OUTPUT=file -P gperf_input.cmake
file(STRINGS "${ICONS}" rows REGEX "^BRISEL_ICON\\(")
set(words)
foreach(row IN LISTS rows)
  string(REGEX REPLACE "^BRISEL_ICON\\([^,]*, *([A-Za-z0-9]+),.*" "\\1" name "${row}")
  string(APPEND words "${name}\n")
endforeach()
file(WRITE "${OUTPUT}" "%readonly-tables\n%compare-lengths\n%{\n#include <string.h>\n%}\n%%\n${words}%%\n")
