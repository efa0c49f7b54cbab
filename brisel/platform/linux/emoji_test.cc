// Glyphs that are pictures instead of outlines, of a font that is built here.
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <hb.h>

#include "brisel/platform/linux/canvas_pixels_test.h"
#include "brisel/platform/linux/font_face.h"

namespace Brisel::Platform::Linux {
namespace {

using Bytes = std::vector<std::uint8_t>;

void append(Bytes& bytes, int size, std::uint32_t number) {
  for (int shift = 8 * (size - 1); shift >= 0; shift -= 8) bytes.push_back(static_cast<std::uint8_t>(number >> shift));
}

void addTable(hb_face_t* face, hb_tag_t tag, const Bytes& bytes) {
  hb_blob_t* blob = hb_blob_create(reinterpret_cast<const char*>(bytes.data()), static_cast<unsigned>(bytes.size()),
                                   HB_MEMORY_MODE_DUPLICATE, nullptr, nullptr);
  hb_face_builder_add_table(face, tag, blob);
  hb_blob_destroy(blob);
}

// A font whose only glyph, 0, is the file's picture, two pixels of it an em, standing on the baseline.
HbFontPtr makePictureFont(const Bytes& file) {
  Bytes maxp;
  append(maxp, 4, 0x00005000);
  append(maxp, 2, 1);  // glyphs
  Bytes sbix;
  append(sbix, 2, 1);   // version
  append(sbix, 2, 1);   // flags
  append(sbix, 4, 1);   // strikes
  append(sbix, 4, 12);  // where the first is
  append(sbix, 2, 2);   // its pixels an em
  append(sbix, 2, 72);
  append(sbix, 4, 12);  // where glyph 0 begins in it, and ends
  append(sbix, 4, 12 + 8 + static_cast<std::uint32_t>(file.size()));
  append(sbix, 4, 0);  // the picture's lower left corner
  for (const char letter : std::string_view("png ")) sbix.push_back(static_cast<std::uint8_t>(letter));
  sbix.insert(sbix.end(), file.begin(), file.end());
  hb_face_t* face = hb_face_builder_create();
  addTable(face, HB_TAG('m', 'a', 'x', 'p'), maxp);
  addTable(face, HB_TAG('s', 'b', 'i', 'x'), sbix);
  HbFontPtr font(hb_font_create(face));
  hb_face_destroy(face);
  hb_font_set_scale(font.get(), 1000, 1000);
  return font;
}

class Emoji : public testing::Test {
 protected:
  // Drawn in blue, of which a picture takes nothing.
  void draw(Canvas& canvas, CGFloat pointSize, CGPoint origin) const {
    const PositionedGlyph glyph{0, origin};
    canvas.drawGlyphs(face, pointSize, {&glyph, 1}, UIColor::rgb(0, 0, 1));
  }

  // Red and half transparent above, slate and nothing below.
  const Bitmap picture{2, 2, {255, 0, 0, 255, 0, 0, 0, 102, 51, 102, 153, 255, 0, 0, 0, 0}};
  const FontFace face{engine(), makePictureFont(engine().encodePng(picture)), ""};
};

TEST_F(Emoji, AreDrawnInTheirOwnColoursOnTheBaseline) {
  const auto canvas = makeCanvas(4, 2);
  draw(*canvas, 1, {1, 2});  // two pixels, as large as the picture
  for (int y = 0; y < 8; ++y) {
    for (int x = 0; x < 8; ++x) {
      const bool isInside = x >= 2 && x < 4 && y >= 2 && y < 4;
      EXPECT_EQ(at(*canvas, x, y), isInside ? at(picture, x - 2, y - 2) : kNothing) << x << ' ' << y;
    }
  }
}

TEST_F(Emoji, AreEnlargedWithTheirText) {
  const auto canvas = makeCanvas(8);
  canvas->setInterpolationQuality(CGInterpolationQuality::none);
  draw(*canvas, 8, {0, 8});
  for (const auto& [x, y] : {std::pair{0, 0}, {7, 0}, {3, 3}, {4, 3}, {0, 7}, {7, 7}}) {
    EXPECT_EQ(at(*canvas, x, y), at(picture, x / 4, y / 4)) << x << ' ' << y;
  }
}

TEST_F(Emoji, EraseByTheirCoverage) {
  for (const bool isOpaque : {false, true}) {
    const auto canvas = makeCanvas(2, 1, isOpaque);
    canvas->fillRect(kAll, kSlate);
    canvas->setBlendMode(CGBlendMode::clear);
    draw(*canvas, 2, {0, 2});
    const Pixel erased = isOpaque ? kBlackBytes : kNothing;
    EXPECT_EQ(at(*canvas, 0, 0), erased);
    EXPECT_EQ(at(*canvas, 0, 1), erased);
    EXPECT_EQ(at(*canvas, 1, 1), kSlateBytes);
    EXPECT_NEAR(at(*canvas, 1, 0)[2], 153 * 0.6, 1);  // 102 is two fifths of 255
  }
}

TEST_F(Emoji, OfAbsurdSizesAndPlacesDoNoHarm) {
  const auto canvas = makeCanvas(4);
  for (const CGFloat huge : {1e5, 1e10, 1e300}) {
    for (const CGPoint origin : {CGPoint{huge, huge}, CGPoint{-huge, -huge}, CGPoint{-huge, huge}, CGPoint{1, 1}}) {
      for (const CGFloat size : {1e-300, 1e-5, 1.0, huge}) draw(*canvas, size, origin);
    }
  }
  canvas->fillRect(kAll, kSlate);
  EXPECT_EQ(at(*canvas, 2, 2), kSlateBytes);
}

TEST_F(Emoji, OfADamagedFileLeaveTheCanvasAsItIs) {
  const FontFace damaged(engine(), makePictureFont(Bytes(60, 1)), "");
  const PositionedGlyph glyph{0, {0, 4}};
  const auto canvas = makeCanvas(4);
  canvas->drawGlyphs(damaged, 4, {&glyph, 1}, kBlack);
  EXPECT_TRUE(canvas->bitmap().isValid());
  EXPECT_TRUE(isBlank(canvas->bitmap()));
}

}  // namespace
}  // namespace Brisel::Platform::Linux
