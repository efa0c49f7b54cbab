#include "gallery/commands/icon_command.h"

#include <optional>

#include "brisel/icons/icon_image.h"
#include "brisel/platform/screen.h"
#include "brisel/themes/theme.h"

#include "gallery/catalogue_names.h"
#include "gallery/icon_names.h"
#include "gallery/picture_file.h"

namespace Brisel::Gallery {

void drawIcon(const IconCommand& command) {
  const Icon& icon = namedIcon(command.icon).get();
  std::optional<Icon::GlyphSize> design;
  if (!command.design.empty()) design = command.design == "x16" ? Icon::GlyphSize::x16 : Icon::GlyphSize::x24;
  const Platform::ColorPtr color = namedColor(command.color, Theme::dark().base().text().base());
  const Platform::ColorPtr background = namedColor(command.background, Platform::UIColor::clearColor());
  Platform::UIScreen::mainScreen().setScale(command.scale);
  writePicture(command.file, image(icon, {command.size, command.size}, design, color, background));
}

}  // namespace Brisel::Gallery
