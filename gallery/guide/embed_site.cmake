# Writes a C++ source that holds files, byte by byte: cmake -D OUTPUT=… -D "FILES=a;b" -P embed_site.cmake
set(arrays "")
set(rows "")
set(index 0)
foreach(file IN LISTS FILES)
  file(READ "${file}" bytes HEX)
  string(REGEX REPLACE "(..)" "'\\\\x\\1'," bytes "${bytes}")
  cmake_path(GET file FILENAME name)
  string(APPEND arrays "constexpr char kFile${index}[] = {${bytes}};\n")
  string(APPEND rows "    {\"${name}\", {kFile${index}, sizeof kFile${index}}},\n")
  math(EXPR index "${index} + 1")
endforeach()
file(WRITE "${OUTPUT}" "#include \"gallery/guide/site_files.h\"

#include <stdexcept>
#include <string>

namespace Brisel::Gallery {
namespace {
${arrays}
struct File {
  std::string_view name, text;
};
constexpr File kFiles[] = {
${rows}};
}  // namespace

std::string_view siteFile(std::string_view name) {
  for (const File& file : kFiles) {
    if (file.name == name) return file.text;
  }
  throw std::logic_error(\"no file of the site is called \" + std::string(name));
}

}  // namespace Brisel::Gallery
")
