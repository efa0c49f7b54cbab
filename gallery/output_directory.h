// Files and directories that appear whole or not at all.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <string_view>

namespace Brisel::Gallery {

std::span<const std::uint8_t> bytesOf(std::string_view text);

/// Writes a file beside its place and moves it there. Throws std::runtime_error with a line that says what failed;
/// nothing is left behind then.
void writeFile(const std::filesystem::path& file, std::span<const std::uint8_t> bytes);

/// Whether the first kilobytes of a file hold a text. False for what is no regular file, a link to one included.
bool headHolds(const std::filesystem::path& file, std::string_view text);

/// A directory that is filled beside its place and moved there when it is complete.
///
/// What stands there may only be an earlier one or an empty directory. Different files may be
/// written by several threads at a time.
class OutputDirectory {
 public:
  /// `isEarlier` tells whether a directory is an earlier one. Throws std::runtime_error where the place is taken by
  /// something else or cannot be written to.
  OutputDirectory(const std::filesystem::path& place,
                  const std::function<bool(const std::filesystem::path& directory)>& isEarlier);
  OutputDirectory(const OutputDirectory&) = delete;
  OutputDirectory& operator=(const OutputDirectory&) = delete;
  /// Removes everything unless it was committed.
  ~OutputDirectory();

  /// `file` is relative to the directory. Throws std::runtime_error.
  void write(const std::filesystem::path& file, std::span<const std::uint8_t> bytes) const;
  void write(const std::filesystem::path& file, std::string_view text) const { write(file, bytesOf(text)); }
  void copy(const std::filesystem::path& from, const std::filesystem::path& file) const;

  /// Moves the directory to its place. Throws std::runtime_error.
  void commit();

 private:
  std::filesystem::path place_;
  std::filesystem::path draft_;
};

}  // namespace Brisel::Gallery
