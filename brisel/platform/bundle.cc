#include "brisel/platform/bundle.h"

#include <algorithm>
#include <string>
#include <system_error>
#include <utility>

#include <dlfcn.h>
#include <link.h>

namespace Brisel::Platform {
namespace {

namespace fs = std::filesystem;

fs::path programFile() {
  std::error_code error;
  return fs::read_symlink("/proc/self/exe", error);
}

// The shared object that holds an address; the program where none does.
fs::path codeFile(const void* address) {
  Dl_info info{};
  void* map = nullptr;
  if (dladdr1(address, &info, &map, RTLD_DL_LINKMAP) == 0 || !map) return programFile();
  const char* name = static_cast<const link_map*>(map)->l_name;
  if (!name || !*name) return programFile();  // How the loader lists the program.
  std::error_code error;
  // Links are followed: the resources lie beside the file itself.
  fs::path file = fs::canonical(name, error);
  return error ? fs::absolute(name, error) : file;
}

// Whether a part of a file name stays within one directory.
bool isHarmless(std::string_view part) { return part.find_first_of(std::string_view("/\0", 2)) == part.npos; }

}  // namespace

std::shared_ptr<const NSBundle> NSBundle::mainBundle(std::vector<Path> resourceDirectories) {
  return std::shared_ptr<const NSBundle>(new NSBundle(programFile().parent_path(), std::move(resourceDirectories)));
}

std::shared_ptr<const NSBundle> NSBundle::bundleForAddress(const void* address, std::vector<Path> resourceDirectories) {
  return std::shared_ptr<const NSBundle>(new NSBundle(codeFile(address).parent_path(), std::move(resourceDirectories)));
}

std::shared_ptr<const NSBundle> NSBundle::bundleWithPath(const Path& path) {
  std::error_code error;
  const Path absolute = fs::absolute(path, error).lexically_normal();
  if (error || path.empty()) return nullptr;
  const fs::directory_iterator opened(absolute, error);
  if (error) return nullptr;
  return std::shared_ptr<const NSBundle>(new NSBundle(absolute, {}));
}

std::optional<std::filesystem::path> NSBundle::pathForResource(std::string_view name, std::string_view ofType) const {
  if (name.empty() || !isHarmless(name) || !isHarmless(ofType)) return std::nullopt;
  std::string file(name);
  if (!ofType.empty()) file.append(".").append(ofType);
  if (file == "." || file == "..") return std::nullopt;
  std::error_code error;
  if (Path found = path_ / file; fs::exists(found, error)) return found;
  for (const Path& directory : resourceDirectories_)
    if (Path found = (path_ / directory / file).lexically_normal(); fs::exists(found, error)) return found;
  return std::nullopt;
}

std::optional<std::vector<std::filesystem::path>> NSBundle::URLsForResourcesWithExtension(
    std::string_view extension) const {
  std::error_code error;
  fs::directory_iterator entry(path_, error);
  if (error) return std::nullopt;
  std::vector<Path> found;
  const std::string ending = "." + std::string(extension);
  for (; entry != fs::directory_iterator(); entry.increment(error)) {
    const std::string name = entry->path().filename().native();
    const bool matches = !extension.empty() && name.size() > ending.size() && name.ends_with(ending);
    std::error_code unknown;
    if (matches && entry->is_regular_file(unknown)) found.push_back(entry->path());
  }
  if (error) return std::nullopt;  // Half a list would be worse than none.
  std::sort(found.begin(), found.end(),
            [](const Path& a, const Path& b) { return a.filename().native() < b.filename().native(); });
  return found;
}

}  // namespace Brisel::Platform
