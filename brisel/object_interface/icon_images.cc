#include "brisel/object_interface/icon_images.h"

#include <optional>

#include "brisel/icons/icon_image.h"
#include "brisel/icons/internal/icon_lookup.h"
#include "brisel/icons/internal/icon_rendering.h"
#include "brisel/platform/fatal_error.h"
#include "brisel/tokens/color.h"

using Brisel::Icon;
using Brisel::Platform::CGPoint;
using Brisel::Platform::CGSize;
using Brisel::Platform::ColorPtr;
using Brisel::Platform::ImagePtr;
using Brisel::Platform::UIColor;

namespace {

using IconPtr = std::shared_ptr<const VLMBriselSwiftIcons>;

constexpr CGPoint kNoOffset{0, 0};

const Icon* valueOf(const IconPtr& icon) { return icon ? &icon->icon() : nullptr; }

ImagePtr imageOrBlank(const Icon* icon, CGSize iconSize, CGSize imageSize, std::optional<Icon::GlyphSize> glyphSize,
                      const ColorPtr& color, const ColorPtr& backgroundColor, CGPoint offset) {
  if (!backgroundColor) Brisel::Platform::fatalError("An icon was given a null colour");
  if (!icon) return Brisel::internal::blankIconImage(iconSize, imageSize, *backgroundColor);
  return Brisel::image(*icon, iconSize, imageSize, glyphSize, color, backgroundColor, offset);
}

Icon::GlyphSize known(VLMBriselIconGlyphSize glyphSize) {
  const auto size = VLMBriselSwiftIcons::GlyphSize::fromRawValue(glyphSize);
  if (!size) Brisel::Platform::fatalError("There is no such glyph size");
  return size->glyphSize();
}

}  // namespace

// --- Of an icon object ---

ImagePtr briselSwift_imageForIcon(const IconPtr& icon, CGSize size, const ColorPtr& color,
                                  const ColorPtr& backgroundColor) {
  return imageOrBlank(valueOf(icon), size, size, std::nullopt, color, backgroundColor, kNoOffset);
}

ImagePtr briselSwift_imageForIcon(const IconPtr& icon, CGSize size, VLMBriselIconGlyphSize glyphSize,
                                  const ColorPtr& color, const ColorPtr& backgroundColor) {
  return briselSwift_imageForIcon(icon, size, size, glyphSize, color, backgroundColor, kNoOffset);
}

ImagePtr briselSwift_imageForIcon(const IconPtr& icon, CGSize iconSize, CGSize imageSize, const ColorPtr& color,
                                  const ColorPtr& backgroundColor, CGPoint offset) {
  return imageOrBlank(valueOf(icon), iconSize, imageSize, std::nullopt, color, backgroundColor, offset);
}

ImagePtr briselSwift_imageForIcon(const IconPtr& icon, CGSize iconSize, CGSize imageSize,
                                  VLMBriselIconGlyphSize glyphSize, const ColorPtr& color,
                                  const ColorPtr& backgroundColor, CGPoint offset) {
  return imageOrBlank(valueOf(icon), iconSize, imageSize, known(glyphSize), color, backgroundColor, offset);
}

// --- Of an icon's number ---

ImagePtr brisel_imageForIcon(VLMBriselIcon icon, CGSize size) {
  return brisel_imageForIcon(icon, size, Brisel::Color::white().value());
}

ImagePtr brisel_imageForIcon(VLMBriselIcon icon, CGSize size, const ColorPtr& color) {
  return brisel_imageForIcon(icon, size, color, UIColor::clearColor());
}

ImagePtr brisel_imageForIcon(VLMBriselIcon icon, CGSize size, const ColorPtr& color, const ColorPtr& backgroundColor) {
  return brisel_imageForIcon(icon, size, size, color, backgroundColor, kNoOffset);
}

ImagePtr brisel_imageForIcon(VLMBriselIcon icon, CGSize size, VLMBriselIconGlyphSize glyphSize, const ColorPtr& color,
                             const ColorPtr& backgroundColor) {
  return brisel_imageForIcon(icon, size, size, glyphSize, color, backgroundColor, kNoOffset);
}

ImagePtr brisel_imageForIcon(VLMBriselIcon icon, CGSize iconSize, CGSize imageSize, const ColorPtr& color) {
  return brisel_imageForIcon(icon, iconSize, imageSize, color, UIColor::clearColor(), kNoOffset);
}

ImagePtr brisel_imageForIcon(VLMBriselIcon icon, CGSize iconSize, CGSize imageSize, const ColorPtr& color,
                             const ColorPtr& backgroundColor) {
  return brisel_imageForIcon(icon, iconSize, imageSize, color, backgroundColor, kNoOffset);
}

ImagePtr brisel_imageForIcon(VLMBriselIcon icon, CGSize iconSize, CGSize imageSize, const ColorPtr& color,
                             const ColorPtr& backgroundColor, CGPoint offset) {
  return brisel_imageForIcon(icon, iconSize, imageSize, VLMBriselIconGlyphSizeFromCGSize(iconSize), color,
                             backgroundColor, offset);
}

ImagePtr brisel_imageForIcon(VLMBriselIcon icon, CGSize iconSize, CGSize imageSize, VLMBriselIconGlyphSize glyphSize,
                             const ColorPtr& color, const ColorPtr& backgroundColor, CGPoint offset) {
  const Icon::GlyphSize converted = VLMBrisel::convertGlyphSize(glyphSize).glyphSize();
  return imageOrBlank(Brisel::internal::iconOfNumber(icon), iconSize, imageSize, converted, color, backgroundColor,
                      offset);
}
