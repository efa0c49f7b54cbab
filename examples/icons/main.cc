// Icons by name, as text and as images, and images looked at closely.
#include <algorithm>
#include <cstdio>
#include <optional>

#include "brisel/icons/icon.h"
#include "brisel/icons/icon_error.h"
#include "brisel/icons/icon_image.h"
#include "brisel/infrastructure/image_blending.h"
#include "brisel/infrastructure/image_comparison.h"
#include "brisel/infrastructure/image_enlarging.h"
#include "brisel/infrastructure/shape_images.h"
#include "brisel/object_interface/icon_images.h"
#include "brisel/object_interface/icons.h"
#include "brisel/tokens/color.h"

using Brisel::Color;
using Brisel::Icon;
using Brisel::Platform::UIColor;

void showNames() {
  //! [names]
  std::printf("%s\n", Icon::addCalendar().description().c_str());
  std::printf("%s\n", Icon("AddCalendar") == Icon::addCalendar() ? "found by name" : "not found");
  try {
    const Icon none("Unicorn");
  } catch (const Brisel::Error::Icon& error) {
    std::printf("%s\n", error.what());
  }
  // From right to left four icons take each other's place.
  std::printf("%s\n", Icon::chevronLeft().rightToLeft().description().c_str());
  //! [names]

  //! [numbers]
  // The object interface has numbers and constants, which stay as they are when icons are added.
  const auto constant = NSStringFromVLMBriselIcon(VLMBriselIconAddCalendar);
  std::printf("%d is %.*s\n", static_cast<int>(VLMBriselIconAddCalendar), static_cast<int>(constant.size()),
              constant.data());
  //! [numbers]
}

void showImages() {
  const auto& white = Color::white().value();
  //! [image]
  const auto heart = Brisel::image(Icon::heart(), {24, 24}, {32, 32}, std::nullopt, white, UIColor::clearColor(), {});
  std::printf("%g points wide\n", heart->size().width);

  // An icon is text, too.
  const auto text = Brisel::attributedString(Icon::heart(), 24);
  std::printf("%zu character\n", text->length());
  //! [image]

  //! [image object]
  const auto older = brisel_imageForIcon(VLMBriselIconHeart, {24, 24}, {32, 32}, white);
  std::printf("%s\n", Brisel::isEqualToPixels(*heart, older, 0) ? "alike" : "different");
  //! [image object]

  //! [badge]
  const auto badge = Brisel::verifiedIndicator({24, 24}, Color::azure135().value());
  const auto starred = Brisel::withStar(*heart, 48, 40, 12, Color::azure135().value(), false);
  std::printf("%g and %g points wide\n", badge->size().width, starred->size().width);
  //! [badge]
}

void showPixels() {
  //! [pixels]
  using Brisel::Platform::Bitmap;
  using Brisel::Platform::UIImage;
  const auto red = UIImage::imageWithBitmap(Bitmap{1, 1, {200, 0, 0, 255}}, 1);
  const auto blue = UIImage::imageWithBitmap(Bitmap{1, 1, {0, 0, 100, 255}}, 1);

  // The lighter of both, channel by channel. Pixels are null where an image has none.
  const auto lighter = Brisel::imageByBlendingUsingRgbaBlock(
      *red, blue, [](const Brisel::Pixel* a, const Brisel::Pixel* b, Brisel::Pixel& output, bool& stop) {
        stop = !a || !b;
        if (!stop) output = {std::max(a->red, b->red), std::max(a->green, b->green), std::max(a->blue, b->blue), 255};
      });
  const auto& rgba = lighter->bitmap()->rgba;
  std::printf("(%d, %d, %d)\n", rgba[0], rgba[1], rgba[2]);

  // 0.4 of full scale is 102 of 255: a channel that differs by 200 is too far off, one that does by 100 is not.
  std::printf("%s, %s\n", Brisel::isEqualToPixels(*red, blue, 0.4) ? "equal" : "unequal",
              Brisel::isEqualToPixels(*red, lighter, 0.4) ? "equal" : "unequal");

  // Eight pixels for each, to look at.
  const auto large = Brisel::imageByScaling(*red, 8, Brisel::Platform::CGInterpolationQuality::none, nullptr);
  std::printf("%d pixels wide\n", large->bitmap()->width);
  //! [pixels]
}

int main() {
  showNames();
  showImages();
  showPixels();
}
