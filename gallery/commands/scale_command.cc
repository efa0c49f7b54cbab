#include "gallery/commands/scale_command.h"

#include "brisel/infrastructure/image_enlarging.h"

#include "gallery/catalogue_names.h"
#include "gallery/picture_file.h"

namespace Brisel::Gallery {
namespace {

Platform::CGInterpolationQuality quality(std::string_view name) {
  using Quality = Platform::CGInterpolationQuality;
  if (name == "low") return Quality::low;
  if (name == "medium") return Quality::medium;
  return name == "high" ? Quality::high : Quality::none;
}

}  // namespace

void scalePicture(const ScaleCommand& command) {
  const Platform::ColorPtr grid = namedColor(command.grid, nullptr);
  const Platform::ImagePtr picture = readPicture(command.picture);
  writePicture(command.file, imageByScaling(*picture, command.factor, quality(command.interpolation), grid));
}

}  // namespace Brisel::Gallery
