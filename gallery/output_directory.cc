#include "gallery/output_directory.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Brisel::Gallery {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(std::string_view what, const fs::path& path, std::string_view why) {
  throw std::runtime_error(std::string(what) + " " + path.string() + ": " + std::string(why));
}

[[noreturn]] void fail(std::string_view what, const fs::path& path, const std::error_code& error) {
  fail(what, path, error.message());
}

// Both fail where something has that name, and return 0 where they succeed.
int makeEmptyDirectory(const char* path) { return ::mkdir(path, 0777); }
int makeEmptyFile(const char* path) {
  const int file = ::open(path, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  return file < 0 ? file : ::close(file);
}

// Makes something new beside `place`, hidden from listings. What an ended process left there may bear our number, which
// is always the same in a container: names that are taken are passed over. Empty where there is an error.
fs::path makeBeside(const fs::path& place, std::string_view purpose, int (*make)(const char*), std::error_code& error) {
  for (long number = ::getpid();; ++number) {
    const std::string name =
        "." + place.filename().string() + "." + std::string(purpose) + "-" + std::to_string(number);
    fs::path path = place.parent_path() / name;
    if (make(path.c_str()) == 0) return path;
    if (errno == EEXIST) continue;
    error.assign(errno, std::generic_category());
    return {};
  }
}

// Returns what went wrong, if anything.
std::error_code writePlainly(const fs::path& file, std::span<const std::uint8_t> bytes) {
  errno = 0;
  std::ofstream stream(file, std::ios::binary | std::ios::trunc);
  stream.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  stream.close();
  return stream ? std::error_code() : std::error_code(errno != 0 ? errno : EIO, std::generic_category());
}

void makeDirectories(const fs::path& directory) {
  std::error_code error;
  fs::create_directories(directory, error);
  if (error) fail("cannot make", directory, error);
}

// The real place of a path that need not exist: without a trailing slash, links followed.
fs::path resolved(const fs::path& path) {
  std::error_code error;
  fs::path place = fs::weakly_canonical(fs::absolute(path), error);
  if (error) fail("cannot use", path, error);
  return place.has_filename() ? place : place.parent_path();
}

}  // namespace

std::span<const std::uint8_t> bytesOf(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

bool headHolds(const fs::path& file, std::string_view text) {
  std::error_code ignored;
  // Opening a pipe would wait for who writes to it.
  if (!fs::is_regular_file(fs::symlink_status(file, ignored))) return false;
  std::ifstream stream(file, std::ios::binary);
  std::array<char, 4096> head{};
  stream.read(head.data(), head.size());
  return std::string_view(head.data(), static_cast<std::size_t>(stream.gcount())).find(text) != std::string_view::npos;
}

void writeFile(const fs::path& file, std::span<const std::uint8_t> bytes) {
  const fs::path place = resolved(file);
  std::error_code ignored;
  const fs::file_status status = fs::status(place, ignored);
  // A device must not be replaced by a picture.
  if (fs::exists(status) && !fs::is_regular_file(status)) fail("cannot write", file, "it is not a regular file");
  std::error_code error;
  const fs::path draft = makeBeside(place, "draft", makeEmptyFile, error);
  if (!error) error = writePlainly(draft, bytes);
  if (!error) fs::rename(draft, place, error);
  if (!error) return;
  if (!draft.empty()) fs::remove(draft, ignored);
  fail("cannot write", file, error);
}

OutputDirectory::OutputDirectory(const fs::path& place, const std::function<bool(const fs::path&)>& isEarlier)
    : place_(resolved(place)) {
  std::error_code error;
  const fs::file_status status = fs::status(place_, error);
  if (fs::exists(status)) {
    if (!fs::is_directory(status)) fail("cannot use", place, "it is not a directory");
    const bool isEmpty = fs::is_empty(place_, error);
    if (error) fail("cannot read", place, error);
    if (!isEmpty && !isEarlier(place_)) fail("cannot use", place, "it holds other files");
  }
  makeDirectories(place_.parent_path());
  error.clear();
  draft_ = makeBeside(place_, "draft", makeEmptyDirectory, error);
  if (error) fail("cannot make a directory beside", place, error);
}

OutputDirectory::~OutputDirectory() {
  std::error_code ignored;
  if (!draft_.empty()) fs::remove_all(draft_, ignored);
}

void OutputDirectory::write(const fs::path& file, std::span<const std::uint8_t> bytes) const {
  makeDirectories((draft_ / file).parent_path());
  if (const std::error_code error = writePlainly(draft_ / file, bytes)) fail("cannot write", draft_ / file, error);
}

void OutputDirectory::copy(const fs::path& from, const fs::path& file) const {
  makeDirectories((draft_ / file).parent_path());
  std::error_code error;
  fs::copy_file(from, draft_ / file, error);
  if (error) fail("cannot copy", from, error);
}

void OutputDirectory::commit() {
  std::error_code error;
  // The system swaps the old directory for the new one in one step, where its file system can.
  if (::renameat2(AT_FDCWD, draft_.c_str(), AT_FDCWD, place_.c_str(), RENAME_EXCHANGE) == 0) {
    fs::remove_all(draft_, error);  // now the old one
    draft_.clear();
    return;
  }
  std::error_code ignored;
  fs::path old;
  if (fs::exists(place_, ignored)) {
    old = makeBeside(place_, "old", makeEmptyDirectory, error);
    if (!error) fs::rename(place_, old, error);
    if (error) {
      if (!old.empty()) fs::remove(old, ignored);
      fail("cannot replace", place_, error);
    }
  }
  fs::rename(draft_, place_, error);
  if (error) {
    if (!old.empty()) fs::rename(old, place_, ignored);
    fail("cannot write", place_, error);
  }
  draft_.clear();
  if (!old.empty()) fs::remove_all(old, ignored);
}

}  // namespace Brisel::Gallery
