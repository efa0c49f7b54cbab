#include "gallery/text_command.h"

#include <cmath>
#include <memory>

#include "brisel/platform/port.h"
#include "brisel/platform/views/text_drawing.h"
#include "brisel/themes/theme.h"
#include "brisel/typography/styled_string.h"

#include "gallery/catalogue_names.h"
#include "gallery/output_directory.h"

namespace Brisel::Gallery {
namespace {

Platform::UIColor namedColor(const std::string& name, const Platform::ColorPtr& unnamed) {
  if (name.empty()) return *unnamed;
  const auto color = findColor(name);
  if (!color) throw UsageError("no colour is called \"" + name + "\"");
  return *color;
}

}  // namespace

void drawText(const TextCommand& command) {
  const TypeStyle* const style = findStyle(command.style);
  if (style == nullptr) throw UsageError("no style is called \"" + command.style + "\"");
  const auto category = findCategory(command.category);
  if (!category) throw UsageError("no category is called \"" + command.category + "\"");
  const Theme::ColorSet& theme = Theme::dark().base();
  const auto color = std::make_shared<const Platform::UIColor>(namedColor(command.color, theme.text().base()));
  const Platform::UIColor background = namedColor(command.background, theme.background().base());

  const auto text = attributedString(command.text, *style, category->platformCategory(),
                                     {{Platform::NSForegroundColorAttributeName, Platform::ColorPtr(color)}});
  Platform::TextLayout::Options options;
  options.width = command.width;
  const Platform::TextDrawing drawing(*text, options);
  // The picture is as wide as the room that was asked for, as lines may be aligned to its other side.
  const Platform::CGSize size{std::ceil(std::isfinite(command.width) ? command.width : drawing.size().width),
                              std::ceil(drawing.size().height)};
  const auto canvas = Platform::engine().makeCanvas(size, command.scale);
  if (!canvas) throw std::runtime_error("the picture would have no pixels, or more than 32767 on a side");
  canvas->fillRect({{0, 0}, size}, background);
  drawing.draw(*canvas, {0, 0});
  writeFile(command.file, Platform::engine().encodePng(canvas->bitmap()));
}

}  // namespace Brisel::Gallery
