#include "gallery/picture_file.h"

#include <cerrno>
#include <cstdint>
#include <fstream>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "gallery/output_directory.h"

namespace Brisel::Gallery {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const fs::path& file, std::string_view why) {
  throw std::runtime_error("cannot read " + file.string() + ": " + std::string(why));
}

std::vector<std::uint8_t> contents(const fs::path& file) {
  std::error_code error;
  const fs::file_status status = fs::status(file, error);
  if (!fs::exists(status)) fail(file, error ? error.message() : "there is no such file");
  // A device may never end.
  if (!fs::is_regular_file(status)) fail(file, "it is not a regular file");
  const std::uintmax_t size = fs::file_size(file, error);
  if (error) fail(file, error.message());
  if (size == 0) fail(file, "the file is empty");
  if (size > std::numeric_limits<std::int32_t>::max()) fail(file, "the file is too large");
  std::vector<std::uint8_t> bytes(size);
  errno = 0;
  std::ifstream stream(file, std::ios::binary);
  stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  if (!stream) fail(file, std::generic_category().message(errno != 0 ? errno : EIO));
  return bytes;
}

}  // namespace

Platform::ImagePtr readPicture(const fs::path& file) {
  std::string problem;
  Platform::ImagePtr image = Platform::UIImage::imageWithData(contents(file), 1, &problem);
  if (!image) fail(file, problem);
  return image;
}

void writePicture(const fs::path& file, const Platform::ImagePtr& image) {
  if (!image || !image->bitmap()) {
    throw std::runtime_error("the picture would have no pixels, or more than 32767 on a side or 2^27 in all");
  }
  writeFile(file, UIImagePNGRepresentation(*image));
}

}  // namespace Brisel::Gallery
