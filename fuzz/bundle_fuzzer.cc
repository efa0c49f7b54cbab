// A bundle directory with odd content under odd names, asked for odd resources.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "brisel/platform/bundle.h"

#include "fuzz/input.h"

namespace {

namespace fs = std::filesystem;
using Brisel::Fuzz::require;
using Brisel::Platform::NSBundle;

// Fresh for each input, within a directory of this process.
class Directory {
 public:
  Directory() {
    std::string name = (fs::temp_directory_path() / "bundle_fuzzer_XXXXXX").native();
    require(mkdtemp(name.data()) != nullptr);
    path_ = name;
  }
  Directory(const Directory&) = delete;
  Directory& operator=(const Directory&) = delete;
  ~Directory() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  const fs::path& path() const { return path_; }

 private:
  fs::path path_;
};

// Makes what the kind says, where the system lets it.
void makeEntry(const fs::path& path, int kind) {
  const std::string& name = path.native();
  switch (kind) {
    case 0:
      mkdir(name.c_str(), 0700);
      break;
    case 1:
      mkfifo(name.c_str(), 0600);
      break;
    case 2:
      if (symlink(path.filename().c_str(), name.c_str()) != 0) return;  // to itself
      break;
    case 3:
      if (symlink("..", name.c_str()) != 0) return;
      break;
    default:
      if (const int file = open(name.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600); file >= 0) close(file);
      break;
  }
}

}  // namespace

// The input is a series of lines: a digit that tells what to make, then its name, which is also looked up.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Directory root;
  const fs::path inside = root.path() / "bundle";
  fs::create_directory(inside);
  makeEntry(root.path() / "outside.otf", 9);
  const auto bundle = NSBundle::bundleWithPath(inside);
  require(bundle != nullptr);

  std::string_view rest(reinterpret_cast<const char*>(data), size);
  for (int lines = 0; !rest.empty() && lines < 64; ++lines) {
    const std::string_view line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(rest.size(), line.size() + 1));
    if (line.empty()) continue;
    const std::string name(line.substr(1));
    const std::size_t dot = name.rfind('.');
    const std::string type = dot == name.npos ? std::string() : name.substr(dot + 1);
    // Only what a directory can hold may be made; everything may be asked for.
    if (name.find_first_of(std::string_view("/\0", 2)) == name.npos && !name.empty())
      makeEntry(inside / name, line[0] - '0');

    for (const auto& found : {bundle->pathForResource(name, ""), bundle->pathForResource(name.substr(0, dot), type)})
      require(!found || found->parent_path() == inside);
    const auto listed = bundle->URLsForResourcesWithExtension(type);
    require(listed.has_value());
    require(std::is_sorted(listed->begin(), listed->end(),
                           [](const fs::path& a, const fs::path& b) { return a.native() < b.native(); }));
    for (const fs::path& file : *listed) {
      require(file.parent_path() == inside);
      require(fs::is_regular_file(file));
    }
  }
  return 0;
}
