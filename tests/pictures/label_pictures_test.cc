// Labels in all line-break modes, directions and numbers of lines, as a person would see them. The host's fonts are
// off.
#include <cstdint>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "brisel/foundation.h"
#include "brisel/platform/port.h"
#include "brisel/platform/views/label.h"

#include "tests/pictures/reference.h"

namespace Brisel::Pictures {
namespace {

using namespace Platform;

constexpr CGFloat kWidth = 128;
constexpr CGFloat kGap = 8;
constexpr NSLineBreakMode kModes[] = {NSLineBreakMode::byWordWrapping,     NSLineBreakMode::byCharWrapping,
                                      NSLineBreakMode::byClipping,         NSLineBreakMode::byTruncatingHead,
                                      NSLineBreakMode::byTruncatingMiddle, NSLineBreakMode::byTruncatingTail};
constexpr const char* kEnglish = "Morning light on the tall windows of the observatory";
constexpr const char* kHebrew = "אור בוקר על החלונות הגבוהים של מצפה הכוכבים";
constexpr const char* kArabic = "ضوء الصباح على النوافذ العالية للمرصد القديم";
constexpr const char* kMixed = "הרכבת ל-Morning Bay יוצאת בשעה 16:45 מרציף שלוש";

class LabelPicture : public testing::Test {
 protected:
  LabelPicture() {
    engine().setUsesHostFonts(false);
    ground_->setBackgroundColor(Theme::dark().base().background().base());
  }

  UILabel& add(const char* text, const CGRect& frame, std::int64_t lines, NSLineBreakMode mode) {
    const auto label = UILabel::initWithFrame(frame);
    label->setBackgroundColor(UIColor::initWithWhite(1, 0.1));
    label->setTextColor(Theme::dark().base().text().base());
    label->setFont(TypeStyle::ballad().font(UIContentSizeCategoryLarge));
    label->setText(text);
    label->setNumberOfLines(lines);
    label->setLineBreakMode(mode);
    ground_->addSubview(label);
    return *label;
  }

  Bitmap draw(CGSize size) {
    ground_->setFrame({{}, size});
    const auto canvas = engine().makeCanvas(size, 2);
    ground_->drawHierarchy(*canvas, {0, 0});
    return canvas->bitmap();
  }

  // A column for each mode, a row for each number of lines.
  Bitmap drawInAllModes(const char* text) {
    CGFloat y = kGap;
    for (const std::int64_t lines : {1, 2, 3}) {
      const CGFloat height = 24 * static_cast<CGFloat>(lines);
      CGFloat x = kGap;
      for (const NSLineBreakMode mode : kModes) {
        add(text, {{x, y}, {kWidth, height}}, lines, mode);
        x += kWidth + kGap;
      }
      y += height + kGap;
    }
    return draw({kGap + 6 * (kWidth + kGap), y});
  }

  std::shared_ptr<UIView> ground_ = UIView::initWithFrame();
};

TEST_F(LabelPicture, OfEnglishInAllModes) { EXPECT_TRUE(equalsReference(drawInAllModes(kEnglish), "label_english")); }
TEST_F(LabelPicture, OfHebrewInAllModes) { EXPECT_TRUE(equalsReference(drawInAllModes(kHebrew), "label_hebrew")); }
TEST_F(LabelPicture, OfArabicInAllModes) { EXPECT_TRUE(equalsReference(drawInAllModes(kArabic), "label_arabic")); }
TEST_F(LabelPicture, OfMixedTextInAllModes) { EXPECT_TRUE(equalsReference(drawInAllModes(kMixed), "label_mixed")); }

TEST_F(LabelPicture, OfAlignedAndShrunkText) {
  CGFloat y = kGap;
  for (const char* text : {"Morning", "Morning light on the windows"}) {
    CGFloat x = kGap;
    for (const auto alignment : {NSTextAlignment::left, NSTextAlignment::center, NSTextAlignment::right}) {
      add(text, {{x, y}, {kWidth, 60}}, 2, NSLineBreakMode::byTruncatingTail).setTextAlignment(alignment);
      x += kWidth + kGap;
    }
    y += 60 + kGap;
  }
  CGFloat x = kGap;
  for (const std::int64_t lines : {1, 2, 0}) {
    add(kEnglish, {{x, y}, {kWidth, 48}}, lines, NSLineBreakMode::byTruncatingTail).setAdjustsFontSizeToFitWidth(true);
    UILabel& bounded = add(kEnglish, {{x, y + 56}, {kWidth, 48}}, lines, NSLineBreakMode::byTruncatingTail);
    bounded.setAdjustsFontSizeToFitWidth(true);
    bounded.setMinimumScaleFactor(0.8);
    x += kWidth + kGap;
  }
  EXPECT_TRUE(equalsReference(draw({kGap + 3 * (kWidth + kGap), y + 112}), "label_aligned_and_shrunk"));
}

}  // namespace
}  // namespace Brisel::Pictures
