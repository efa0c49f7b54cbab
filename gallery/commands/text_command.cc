#include "gallery/commands/text_command.h"

#include <cmath>

#include "brisel/platform/views/image_renderer.h"
#include "brisel/platform/views/text_drawing.h"
#include "brisel/themes/theme.h"
#include "brisel/typography/styled_string.h"

#include "gallery/catalogue_names.h"
#include "gallery/picture_file.h"

namespace Brisel::Gallery {

void drawText(const TextCommand& command) {
  const TypeStyle* const style = findStyle(command.style);
  if (style == nullptr) throw UsageError("no style is called \"" + command.style + "\"");
  const auto category = findCategory(command.category);
  if (!category) throw UsageError("no category is called \"" + command.category + "\"");
  const Theme::ColorSet& theme = Theme::dark().base();
  const Platform::ColorPtr color = namedColor(command.color, theme.text().base());
  const Platform::ColorPtr background = namedColor(command.background, theme.background().base());

  const auto text = attributedString(command.text, *style, category->platformCategory(),
                                     {{Platform::NSForegroundColorAttributeName, color}});
  Platform::TextLayout::Options options;
  options.width = command.width;
  const Platform::TextDrawing drawing(*text, options);
  // The picture is as wide as the room that was asked for, as lines may be aligned to its other side.
  const Platform::CGSize size{std::ceil(std::isfinite(command.width) ? command.width : drawing.size().width),
                              std::ceil(drawing.size().height)};
  Platform::UIGraphicsImageRendererFormat format;
  format.scale = command.scale;
  const Platform::UIGraphicsImageRenderer renderer(size, format);
  writePicture(command.file, renderer.image([&](Platform::Canvas& canvas) {
    canvas.fillRect({{0, 0}, size}, *background);
    drawing.draw(canvas, {0, 0});
  }));
}

}  // namespace Brisel::Gallery
