// Icons of the bundle that ships, drawn by the port that ships.
#include <algorithm>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "brisel/icons/icon.h"
#include "brisel/icons/icon_image.h"
#include "brisel/icons/internal/icon_lookup.h"
#include "brisel/icons/internal/icon_rendering.h"
#include "brisel/platform/paragraph_style.h"
#include "brisel/platform/port.h"
#include "brisel/platform/screen.h"
#include "brisel/platform/views/text_drawing.h"
#include "brisel/tokens/color.h"

namespace Brisel {
namespace {

using namespace Platform;
using GlyphSize = Icon::GlyphSize;

class DrawnIcon : public testing::Test {
 protected:
  void SetUp() override { engine().setUsesHostFonts(false); }

  static ImagePtr white(const Icon& icon, double side, std::optional<GlyphSize> glyphSize = {}) {
    return image(icon, {side, side}, glyphSize, Color::white().value(), UIColor::clearColor());
  }

  // An icon by its attributed string, in the written order and without anything that is kept.
  static Bitmap drawnAsText(const Icon& icon, double fontSize, GlyphSize glyphSize, CGSize canvasSize, double scale,
                            const CGRect& box, const ColorPtr& color) {
    const auto style = NSMutableParagraphStyle::init();
    style->setAlignment(NSTextAlignment::center);
    const auto text = attributedString(
        icon, fontSize, glyphSize,
        {{NSParagraphStyleAttributeName, Value(style->copy())}, {NSForegroundColorAttributeName, color}});
    const auto canvas = engine().makeCanvas(canvasSize, scale);
    drawInRect(*text, *canvas, box);
    return canvas->bitmap();
  }
};

TEST_F(DrawnIcon, IsItsAttributedStringDrawnAtAnySizePlaceAndColour) {
  EXPECT_TRUE(rc::check([] {
    const auto& icons = Icon::allCases();
    const Icon& icon = icons[*rc::gen::inRange<std::size_t>(0, icons.size())];
    const double scale = *rc::gen::element(1.0, 2.0, 2.625, 3.0);
    const double fontSize = *rc::gen::inRange(10, 600) / 10.0;
    const auto glyphSize = *rc::gen::element(GlyphSize::x16, GlyphSize::x24);
    const CGRect box{{*rc::gen::inRange(-200, 400) / 10.0, *rc::gen::inRange(-200, 400) / 10.0},
                     {*rc::gen::inRange(1, 800) / 10.0, *rc::gen::inRange(1, 800) / 10.0}};
    const auto color = UIColor::initWithRed(0.2, 0.5, 0.9, *rc::gen::inRange(0, 11) / 10.0);
    const auto canvas = engine().makeCanvas({60, 60}, scale);
    Brisel::internal::drawIconGlyph(*canvas, Brisel::internal::glyphForSize(icon, glyphSize), fontSize, box, color);
    RC_ASSERT(canvas->bitmap() == drawnAsText(icon, fontSize, glyphSize, {60, 60}, scale, box, color));
  }));
}

// The rows and columns at the sides that hold no ink.
struct Margins {
  int left = 0, right = 0, top = 0, bottom = 0;
};

Margins marginsOf(const Bitmap& bitmap) {
  Margins m{bitmap.width, bitmap.width, bitmap.height, bitmap.height};
  for (int y = 0; y < bitmap.height; ++y) {
    for (int x = 0; x < bitmap.width; ++x) {
      if (bitmap.pixel(x, y)[3] == 0) continue;
      m.left = std::min(m.left, x);
      m.right = std::min(m.right, bitmap.width - 1 - x);
      m.top = std::min(m.top, y);
      m.bottom = std::min(m.bottom, bitmap.height - 1 - y);
    }
  }
  return m;
}

TEST_F(DrawnIcon, HasInkInBothDesignsAndNoneOutsideItsBox) {
  UIScreen::mainScreen().setScale(2);
  for (const Icon& icon : Icon::allCases()) {
    for (const GlyphSize size : GlyphSize::allCases()) {
      const ImagePtr picture =
          image(icon, {64, 64}, {80, 80}, size, Color::white().value(), UIColor::clearColor(), {0, 0});
      ASSERT_TRUE(picture->bitmap());
      const Margins m = marginsOf(*picture->bitmap());
      ASSERT_LT(m.left, 80) << icon.name() << ": no ink";
      EXPECT_GE(std::min({m.left, m.right, m.top, m.bottom}), 16) << icon.name() << " would be cut off";
    }
  }
}

TEST_F(DrawnIcon, FillsItsBoxAtAnyScale) {
  // A circle in the middle of its em stands in the middle of its image, to the pixel: the 16-point design is drawn 20
  // units from each edge of a box of 256, the 24-point design 24 units.
  for (const double scale : {1.0, 2.0, 3.0}) {
    UIScreen::mainScreen().setScale(scale);
    const auto color = UIColor::initWithRed(1, 1, 1 / scale, 1);  // what is kept stays at the scale of its time
    for (const double side : {16.0, 20.0, 24.0, 32.0}) {
      const Margins m = marginsOf(*image(Icon::pauseAlt(), {side, side}, {}, color, UIColor::clearColor())->bitmap());
      const int margin = static_cast<int>(side * scale * (side <= 16 ? 20 : 24) / 256);
      EXPECT_EQ(m.left, margin) << side << " at " << scale;
      EXPECT_EQ(m.right, margin) << side << " at " << scale;
      EXPECT_EQ(m.top, margin) << side << " at " << scale;
      EXPECT_EQ(m.bottom, margin) << side << " at " << scale;
    }
  }
}

TEST_F(DrawnIcon, OnAnOpaqueGroundIsOpaqueThroughout) {
  const ImagePtr picture = image(Icon::heart(), {24, 24}, {}, Color::white().value(), Color::black().value());
  const Bitmap& bitmap = *picture->bitmap();
  for (std::size_t i = 3; i < bitmap.rgba.size(); i += 4) ASSERT_EQ(bitmap.rgba[i], 255);
  EXPECT_EQ(bitmap.pixel(0, 0)[0], 0);
  EXPECT_EQ(bitmap.pixel(12, 12)[0], 0);  // the heart is an outline
}

TEST_F(DrawnIcon, SharesItsPictureWithTheIconThatSharesItsGlyphs) {
  for (const GlyphSize size : GlyphSize::allCases()) {
    EXPECT_EQ(*white(Icon::ban(), 48, size)->bitmap(), *white(Icon::skip(), 48, size)->bitmap());
    EXPECT_EQ(*white(Icon::banActive(), 48, size)->bitmap(), *white(Icon::skipActive(), 48, size)->bitmap());
  }
}

TEST_F(DrawnIcon, IsTheSameWhetherOneThreadDrawsOrEight) {
  constexpr std::size_t kThreads = 8;
  const auto& icons = Icon::allCases();
  std::vector<std::vector<ImagePtr>> drawn(kThreads);
  std::vector<std::thread> threads;
  for (std::size_t t = 0; t < kThreads; ++t) {
    threads.emplace_back([&, t] {
      for (std::size_t i = 0; i < icons.size(); ++i) drawn[t].push_back(white(icons[(i + 41 * t) % icons.size()], 24));
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (std::size_t i = 0; i < icons.size(); ++i) {
    const Bitmap alone =
        drawnAsText(icons[i], 24, GlyphSize::x24, {24, 24}, 1, {{0, 0}, {24, 24}}, Color::white().value());
    for (std::size_t t = 0; t < kThreads; ++t) {
      const auto at = (i + icons.size() * kThreads - 41 * t) % icons.size();
      ASSERT_EQ(*drawn[t][at]->bitmap(), alone) << icons[i].name();
    }
  }
}

}  // namespace
}  // namespace Brisel
