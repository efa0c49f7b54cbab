#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

namespace Brisel {

/// An empty directory, removed with all that has been put into it.
class TemporaryDirectory {
 public:
  TemporaryDirectory() {
    std::string name = (std::filesystem::temp_directory_path() / "brisel_test_XXXXXX").native();
    path_ = ::mkdtemp(name.data());
  }
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
  ~TemporaryDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::filesystem::path& path() const { return path_; }

  /// Makes a file with some content, and the directories on the way to it.
  std::filesystem::path write(const std::filesystem::path& name) const {
    std::filesystem::create_directories((path_ / name).parent_path());
    std::ofstream(path_ / name) << "content";
    return path_ / name;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace Brisel
