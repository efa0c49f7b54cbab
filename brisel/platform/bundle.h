#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "brisel/platform/object.h"

namespace Brisel::Platform {

/// A directory with resources. Immutable; the directory is read afresh at each look-up, on any thread.
class NSBundle final : public NSObject {
 public:
  /// A path of the file system.
  using Path = std::filesystem::path;

  /// The bundle of the program: the directory that holds it. Named resources are looked for there, then in each of
  /// `resourceDirectories`, taken relative to it.
  static std::shared_ptr<const NSBundle> mainBundle(std::vector<Path> resourceDirectories = {});

  /// `bundleForClass:`, by the address of something in the code: the directory of the shared object that holds it, or
  /// of the program, when the code is linked into that. Look-up as with `mainBundle`.
  static std::shared_ptr<const NSBundle> bundleForAddress(const void* address,
                                                          std::vector<Path> resourceDirectories = {});

  /// The bundle in a directory; null where that cannot be opened.
  static std::shared_ptr<const NSBundle> bundleWithPath(const Path& path);

  /// The directory; absolute.
  const Path& bundlePath() const noexcept { return path_; }

  /// `pathForResource:ofType:`: where the file or directory `name.type` is, or `name` when the type is empty. Names
  /// that are empty, or would lead out of the directory, find nothing.
  std::optional<Path> pathForResource(std::string_view name, std::string_view ofType) const;

  /// `URLsForResourcesWithExtension:subdirectory:`, without a subdirectory: the files in the directory itself whose
  /// names end in a dot and the extension, ordered by the bytes of their names; links to files count. Nothing where the
  /// directory cannot be read.
  std::optional<std::vector<Path>> URLsForResourcesWithExtension(std::string_view extension) const;

 private:
  NSBundle(Path path, std::vector<Path> resourceDirectories)
      : path_(std::move(path)), resourceDirectories_(std::move(resourceDirectories)) {}

  Path path_;
  std::vector<Path> resourceDirectories_;
};

}  // namespace Brisel::Platform
