#include "gallery/window/icon_view.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "brisel/icons/icon_image.h"
#include "brisel/platform/views/image_renderer.h"

namespace Brisel::Gallery {
namespace {

using Platform::Bitmap;

constexpr double kSide = 24;

Platform::ColorPtr white() { return Platform::UIColor::initWithWhite(1, 1); }

Bitmap drawn(const Icon& icon, bool isMirrored) {
  const auto view = IconView::initWithIcon(icon, kSide, white());
  view->setFrame({{}, {kSide, kSide}});
  if (isMirrored) view->setSemanticContentAttribute(Platform::UISemanticContentAttribute::forceRightToLeft);
  const auto picture = Platform::UIGraphicsImageRenderer({kSide, kSide}).image([&](Platform::Canvas& canvas) {
    view->drawHierarchy(canvas, {});
  });
  return *picture->bitmap();
}

Bitmap imageOf(const Icon& icon) {
  return *image(icon, {kSide, kSide}, std::nullopt, white(), Platform::UIColor::clearColor())->bitmap();
}

Bitmap flipped(Bitmap bitmap) {
  const Bitmap original = bitmap;
  for (int y = 0; y < bitmap.height; ++y) {
    for (int x = 0; x < bitmap.width; ++x) {
      const auto* pixel = original.pixel(bitmap.width - 1 - x, y);
      std::copy(pixel, pixel + 4, bitmap.rgba.begin() + (bitmap.pixel(x, y) - bitmap.rgba.data()));
    }
  }
  return bitmap;
}

TEST(IconViews, DrawTheIconsImage) { EXPECT_EQ(drawn(Icon::listView(), false), imageOf(Icon::listView())); }

TEST(IconViews, MirrorIconsThatAskForIt) {
  ASSERT_TRUE(Icon::listView().autoMirror());
  EXPECT_EQ(drawn(Icon::listView(), true), flipped(imageOf(Icon::listView())));
  EXPECT_EQ(drawn(Icon::heart(), true), imageOf(Icon::heart()));
}

// Mirrored as well, they would point the wrong way again.
TEST(IconViews, ShowTheOtherIconUnmirroredWhereTwoTakeEachOthersPlace) {
  ASSERT_TRUE(Icon::chevronRight().autoMirror());
  EXPECT_EQ(drawn(Icon::chevronRight(), true), imageOf(Icon::chevronLeft()));
}

TEST(IconViews, AreSquaresOfTheirSide) {
  const auto view = IconView::initWithIcon(Icon::heart(), 24, white());
  view->setSide(31);
  EXPECT_EQ(view->intrinsicContentSize(), (Platform::CGSize{31, 31}));
  EXPECT_EQ(view->sizeThatFits({1, 1}), (Platform::CGSize{31, 31}));
}

}  // namespace
}  // namespace Brisel::Gallery
