// Shapes round, behind and on a picture that has alpha, and the verified badge.
#include <gtest/gtest.h>

#include "brisel/infrastructure/shape_images.h"
#include "brisel/platform/screen.h"
#include "brisel/platform/views/image_renderer.h"

#include "tests/pictures/reference.h"

namespace Brisel::Pictures {
namespace {

using namespace Platform;

class ShapePicture : public testing::Test {
 protected:
  ShapePicture() { UIScreen::mainScreen().setScale(2); }

  // A disc of 20 points that fades to the right, in a yellow frame, with a hole above its middle: no two of its sides
  // are alike.
  static ImagePtr motif() {
    return UIGraphicsImageRenderer({20, 20}).image([](Canvas& canvas) {
      const auto disc = UIBezierPath::bezierPathWithOvalInRect({{1, 1}, {18, 18}});
      canvas.save();
      canvas.clipToPath(disc);
      for (int x = 0; x < 20; ++x) {
        canvas.fillRect({{x * 1.0, 0}, {1, 20}}, UIColor::rgb(0.1, 0.3, 0.8, 1 - x / 24.0));
      }
      canvas.setBlendMode(CGBlendMode::clear);
      canvas.fillRect({{7, 4}, {6, 4}}, UIColor::grey(0, 0));
      canvas.restore();
      UIBezierPath frame = UIBezierPath::bezierPathWithRect({{0.5, 0.5}, {19, 19}});
      frame.setLineWidth(1);
      canvas.strokePath(frame, UIColor::rgb(0.9, 0.7, 0.1));
    });
  }

  const ColorPtr pink = UIColor::initWithRed(0.9, 0.2, 0.5, 1);
  const ColorPtr green = UIColor::initWithRed(0.1, 0.7, 0.3, 0.6);
};

TEST_F(ShapePicture, OfACircle) {
  EXPECT_TRUE(equalsReference(*withCircle(*motif(), 26, 3, pink, green, false)->bitmap(), "circle"));
}

TEST_F(ShapePicture, OfACircleThatCutsThePictureOut) {
  EXPECT_TRUE(equalsReference(*withCircle(*motif(), 26, 3, pink, green, true)->bitmap(), "circle_cut_out"));
}

TEST_F(ShapePicture, OfAStar) {
  EXPECT_TRUE(equalsReference(*withStar(*motif(), 32, 20, 5, green, false)->bitmap(), "star"));
}

TEST_F(ShapePicture, OfAStarThatCutsThePictureOut) {
  EXPECT_TRUE(equalsReference(*withStar(*motif(), 32, 20, 5, green, true)->bitmap(), "star_cut_out"));
}

TEST_F(ShapePicture, OfADot) { EXPECT_TRUE(equalsReference(*withDot(*motif(), 6, 0, {16, 4}, pink)->bitmap(), "dot")); }

TEST_F(ShapePicture, OfADotInAGap) {
  EXPECT_TRUE(equalsReference(*withDot(*motif(), 6, 10, {16, 4}, pink)->bitmap(), "dot_cut_out"));
}

TEST_F(ShapePicture, OfTheBadge) {
  const auto blue = UIColor::initWithRed(0.2, 0.5, 1, 1);
  EXPECT_TRUE(equalsReference(*verifiedIndicator({24, 24}, blue)->bitmap(), "badge_24x24"));
  EXPECT_TRUE(equalsReference(*verifiedIndicator({48, 24}, blue)->bitmap(), "badge_48x24"));
}

}  // namespace
}  // namespace Brisel::Pictures
