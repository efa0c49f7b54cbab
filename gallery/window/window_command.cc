#include "gallery/window/window_command.h"

#include <cmath>

#include "brisel/platform/screen.h"

#include "gallery/catalogue_names.h"
#include "gallery/desktop/text_size.h"
#include "gallery/picture_file.h"

namespace Brisel::Gallery {
namespace {

NamedColorSet colorSetCalled(const std::string& name) {
  for (const NamedColorSet& set : allColorSets()) {
    if (set.name == name) return set;
  }
  throw UsageError("no colour set is called \"" + name + "\"");
}

std::optional<ContentSizeCategory> textSizeCalled(const std::string& name) {
  if (name.empty()) return std::nullopt;
  const auto category = findCategory(name);
  if (!category) throw UsageError("no category is called \"" + name + "\"");
  return category;
}

}  // namespace

WindowLook::WindowLook(const WindowCommand& command)
    : colors(colorSetCalled(command.set)),
      direction(command.isRightToLeft ? Platform::UIUserInterfaceLayoutDirection::rightToLeft
                                      : Platform::UIUserInterfaceLayoutDirection::leftToRight),
      textSize(textSizeCalled(command.textSize)) {}

std::unique_ptr<SampleScreen> makeScreen(const WindowCommand& command, const WindowLook& look) {
  announceTextSize(look.textSize.value_or(ContentSizeCategory::large));
  const Platform::CGSize size{command.width, command.height.value_or(kLargestWindowSide)};
  auto screen = std::make_unique<SampleScreen>(size, look.colors, look.direction);
  if (!command.height) screen->setSize({command.width, std::ceil(screen->wholeHeight())});
  return screen;
}

void drawWindow(const WindowCommand& command) {
  const WindowLook look(command);
  const double scale = command.scale.value_or(1);
  Platform::UIScreen::mainScreen().setScale(scale);
  writePicture(command.screenshot, makeScreen(command, look)->draw(scale));
}

}  // namespace Brisel::Gallery
