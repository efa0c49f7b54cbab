#include "brisel/icons/icon_image.h"

#include <cmath>
#include <limits>
#include <new>
#include <string>

#include "brisel/icons/icon_font.h"
#include "brisel/icons/internal/icon_lookup.h"
#include "brisel/icons/internal/icon_rendering.h"
#include "brisel/platform/fatal_error.h"
#include "brisel/platform/internal/utf.h"
#include "brisel/platform/screen.h"
#include "brisel/platform/views/image_renderer.h"
#include "brisel/tokens/internal/lazy_table.h"

namespace Brisel {

namespace {

using Platform::CGFloat;
using Platform::CGPoint;
using Platform::CGSize;
using Platform::ColorPtr;
using Platform::ImagePtr;
using Platform::UIImage;

// Whether anything is left of a size when it is cut to whole pixels. Written so that not-a-number fails.
bool hasPixels(CGSize size, CGFloat scale) { return size.width * scale >= 1 && size.height * scale >= 1; }

CGSize cutToPixels(CGSize size, CGFloat scale) {
  return {std::floor(size.width * scale) / scale, std::floor(size.height * scale) / scale};
}

bool isDrawable(CGSize size) {
  constexpr CGFloat kLargest = std::numeric_limits<CGFloat>::max();
  return size.width > 0 && size.width < kLargest && size.height > 0 && size.height < kLargest;
}

// Cut to a tenth, by way of a 64-bit integer.
CGFloat fontSizeOf(CGFloat iconHeight) {
  const CGFloat tenths = std::trunc(iconHeight * 10);
  if (!(tenths < 0x1p63)) Platform::fatalError("An icon is too high to have a font size");
  return tenths / 10;
}

Platform::UIGraphicsImageRendererFormat formatOn(const Platform::UIColor& backgroundColor, CGFloat scale) {
  Platform::UIGraphicsImageRendererFormat format;
  format.scale = scale;
  format.opaque = backgroundColor.alpha() == 1.0;
  return format;
}

ImagePtr render(const IconConfiguration& configuration, CGSize iconSize, CGSize imageSize, CGFloat scale) {
  const CGFloat fontSize = fontSizeOf(iconSize.height);
  const auto glyphSize = configuration.glyphSize().value_or(internal::glyphSizeForPointSize(fontSize));
  const Icon::Glyph glyph = internal::glyphForSize(configuration.icon(), glyphSize);
  const CGPoint origin{(imageSize.width - iconSize.width) * 0.5 + configuration.offset().x,
                       (imageSize.height - iconSize.height) * 0.5 + configuration.offset().y};
  const Platform::UIColor& background = *configuration.backgroundColor();
  const Platform::UIGraphicsImageRenderer renderer(imageSize, formatOn(background, scale));
  const ImagePtr drawn = renderer.image([&](Platform::Canvas& canvas) {
    if (background.alpha() != 0) canvas.fillRect({{0, 0}, imageSize}, background);
    internal::drawIconGlyph(canvas, glyph, fontSize, {origin, iconSize}, configuration.color());
  });
  return drawn->imageWithRenderingMode(Platform::UIImageRenderingMode::alwaysOriginal);
}

std::int64_t memoryUsage(const UIImage& image) {
  if (!image.bitmap()) return 0;
  return static_cast<std::int64_t>(image.bitmap()->bytesPerRow()) * image.bitmap()->height;
}

// Not what could not be drawn, which may succeed another time; what would fill the cache alone; nor what nobody will
// find again, since it holds not-a-number.
bool isWorthKeeping(const internal::IconConfigurationView& request, const UIImage& image) {
  return image.bitmap() && memoryUsage(image) < internal::iconImageCache().memoryLimit() &&
         internal::IconConfigurationEqual()(request, request);
}

struct CacheSlot {
  mutable internal::IconImageCache cache;
};

void buildCache(void* place, std::size_t) noexcept {
  ::new (place)
      CacheSlot{internal::IconImageCache(internal::kIconImageCacheCapacity, internal::kIconImageCacheMemoryLimit)};
}

constinit internal::LazyTable<CacheSlot, 1, buildCache> cacheSlot;

}  // namespace

internal::IconImageCache& internal::iconImageCache() { return cacheSlot[0].cache; }

std::shared_ptr<const Platform::NSAttributedString> attributedString(const Icon& icon, CGFloat fontSize,
                                                                     std::optional<Icon::GlyphSize> glyphSize,
                                                                     const Platform::Dictionary& attributes) {
  const Icon::Glyph glyph = internal::glyphForSize(icon, glyphSize.value_or(internal::glyphSizeForPointSize(fontSize)));
  const Platform::Dictionary font{{Platform::NSFontAttributeName, iconFont(fontSize)}};
  return Platform::NSAttributedString::initWithString(
      Platform::internal::toUtf8(Platform::internal::toUtf16(glyph.unichar())), font.mergedWith(attributes));
}

ImagePtr image(const Icon& icon, CGSize iconSize, CGSize imageSize, std::optional<Icon::GlyphSize> glyphSize,
               const ColorPtr& color, const ColorPtr& backgroundColor, CGPoint offset) {
  if (!color || !backgroundColor) Platform::fatalError("An icon was given a null colour");
  // Read once, as another thread may set it while the image is being made.
  const CGFloat scale = Platform::UIScreen::mainScreen().scale();
  if (!hasPixels(iconSize, scale) || !hasPixels(imageSize, scale)) return UIImage::init();

  // The request as it was made is the key: sizes that are cut to the same pixels are kept twice; this is deliberate.
  auto& cache = internal::iconImageCache();
  const internal::IconConfigurationView request(icon, iconSize, imageSize, glyphSize, *color, *backgroundColor, offset);
  if (auto cached = cache.getValue(request)) return *std::move(cached);

  const CGSize drawnIconSize = cutToPixels(iconSize, scale);
  const CGSize drawnImageSize = cutToPixels(imageSize, scale);
  if (!isDrawable(drawnIconSize) || !isDrawable(drawnImageSize)) return UIImage::init();
  const IconConfiguration configuration(icon, iconSize, imageSize, glyphSize, color, backgroundColor, offset);
  ImagePtr image = render(configuration, drawnIconSize, drawnImageSize, scale);
  if (isWorthKeeping(request, *image)) cache.setValue(image, configuration, memoryUsage(*image));
  return image;
}

ImagePtr image(const Icon& icon, CGSize size, std::optional<Icon::GlyphSize> glyphSize, const ColorPtr& color,
               const ColorPtr& backgroundColor) {
  return image(icon, size, size, glyphSize, color, backgroundColor, {0, 0});
}

// The ground is not filled: an opaque image is black, as a fresh opaque canvas is.
ImagePtr internal::blankIconImage(CGSize iconSize, CGSize imageSize, const Platform::UIColor& backgroundColor) {
  if (!isDrawable(iconSize) || !isDrawable(imageSize)) return UIImage::init();
  const auto format = formatOn(backgroundColor, Platform::UIScreen::mainScreen().scale());
  return Platform::UIGraphicsImageRenderer(imageSize, format).image([](Platform::Canvas&) {});
}

}  // namespace Brisel
