#include "brisel/platform/views/text_drawing.h"

#include <limits>
#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/font.h"
#include "brisel/platform/font_descriptor.h"
#include "brisel/platform/layout_direction.h"
#include "brisel/platform/port.h"
#include "brisel/platform/recording/engine.h"

namespace Brisel::Platform {
namespace {

constexpr unsigned kWrapping = NSStringDrawingUsesLineFragmentOrigin | NSStringDrawingUsesFontLeading;

// With the recording engine a character is half its font's size wide, and a line as high as the size.
class TextDrawingTest : public testing::Test {
 protected:
  TextDrawingTest() { setEngine(engine_); }

  static Value font(CGFloat size, const char* name = "Any-Book") {
    return Value(std::static_pointer_cast<const NSObject>(
        UIFont::fontWithDescriptor(UIFontDescriptor::fontDescriptorWithName(name, size), size)));
  }

  static Dictionary attributes(CGFloat size) { return Dictionary{{Value(NSFontAttributeName), font(size)}}; }

  std::shared_ptr<RecordingEngine> engine_ = std::make_shared<RecordingEngine>();
};

TEST_F(TextDrawingTest, BoundsATextByItsLines) {
  const auto text = NSAttributedString::initWithString("aa bb cc", attributes(20));
  EXPECT_EQ(boundingRectWithSize(*text, {1000, 1000}, kWrapping), (CGRect{{0, 0}, {80, 20}}));
  EXPECT_EQ(boundingRectWithSize(*text, {50, 1000}, kWrapping), (CGRect{{0, 0}, {50, 40}}));
  EXPECT_EQ(boundingRectWithSize(*text, {50, 1}, kWrapping).size.height, 40);
  EXPECT_EQ(boundingRectWithSize(*text, {50, std::numeric_limits<double>::max()}, kWrapping).size.height, 40);
}

TEST_F(TextDrawingTest, WithoutLineFragmentsTheOriginIsTheBaselineAndNothingWraps) {
  const auto text = NSAttributedString::initWithString("aa bb", attributes(20));
  EXPECT_EQ(boundingRectWithSize(*text, {10, 10}, 0), (CGRect{{0, -15}, {50, 20}}));
}

TEST_F(TextDrawingTest, AnEmptyTextHasNoBounds) {
  EXPECT_EQ(boundingRectWithSize(*NSAttributedString::initWithString(""), {100, 100}, kWrapping), CGRect{});
}

TEST_F(TextDrawingTest, ATextWithoutAFontIsSetAtTwelvePoints) {
  EXPECT_EQ(boundingRectWithSize(*NSAttributedString::initWithString("ab"), {100, 100}, kWrapping).size,
            (CGSize{12, 12}));
}

TEST_F(TextDrawingTest, TakesEachRunsFontAndKern) {
  const auto text = NSMutableAttributedString::initWithString("aabb", attributes(20));
  text->addAttribute(NSFontAttributeName, font(40), {2, 2});
  text->addAttribute(NSKernAttributeName, Value(3), {2, 2});
  EXPECT_EQ(boundingRectWithSize(*text, {1000, 1000}, kWrapping).size, (CGSize{66, 40}));
}

TEST_F(TextDrawingTest, AChangeOfColourDoesNotPartWhatIsShapedTogether) {
  const auto text = NSMutableAttributedString::initWithString("aabb", attributes(20));
  text->addAttribute(NSForegroundColorAttributeName, Value(UIColor::initWithRed(1, 0, 0, 1)), {1, 2});
  EXPECT_EQ(TextSpans(*text).typefaces.size(), 1U);
  EXPECT_EQ(TextSpans(*text).paints.size(), 3U);
  text->addAttribute(NSKernAttributeName, Value(1.5), {1, 1});
  EXPECT_EQ(TextSpans(*text).typefaces.size(), 3U);
}

TEST_F(TextDrawingTest, AttributesOfTheWrongKindCountAsAbsent) {
  const Dictionary odd{{Value(NSFontAttributeName), Value("Any-Book")},
                       {Value(NSKernAttributeName), Value("wide")},
                       {Value(NSForegroundColorAttributeName), Value(7)},
                       {Value(NSParagraphStyleAttributeName), Value(true)}};
  EXPECT_EQ(boundingRectWithSize(*NSAttributedString::initWithString("ab", odd), {100, 100}, kWrapping).size,
            (CGSize{12, 12}));
}

TEST_F(TextDrawingTest, DrawsInItsColoursAtThePoint) {
  const auto red = UIColor::initWithRed(1, 0, 0, 1);
  const auto text = NSMutableAttributedString::initWithString("ab", attributes(20));
  text->addAttribute(NSForegroundColorAttributeName, Value(red), {0, 2});
  const auto canvas = engine().makeCanvas({100, 100}, 2);
  drawAtPoint(*text, *canvas, {10, 5});
  const auto drawings = engine_->record().drawings;
  ASSERT_EQ(drawings.size(), 1U);
  EXPECT_EQ(drawings[0].face, "Any-Book");
  EXPECT_EQ(drawings[0].pointSize, 20);
  EXPECT_EQ(drawings[0].color, *red);
  EXPECT_EQ(drawings[0].glyphs[0].origin, (CGPoint{10, 20}));
}

TEST_F(TextDrawingTest, DrawsIntoARectanglesWidth) {
  const auto text = NSAttributedString::initWithString("aa bb", attributes(20));
  const auto canvas = engine().makeCanvas({100, 100}, 1);
  drawInRect(*text, *canvas, {{10, 10}, {20, 5}});
  const auto drawings = engine_->record().drawings;
  ASSERT_EQ(drawings.size(), 2U);
  EXPECT_EQ(drawings[1].glyphs[0].origin, (CGPoint{10, 45}));
}

TEST_F(TextDrawingTest, TheFirstParagraphStyleGivesTheDirection) {
  const auto style = NSMutableParagraphStyle::init();
  style->setBaseWritingDirection(WritingDirection::rightToLeft);
  const Dictionary directed{
      {Value(NSParagraphStyleAttributeName), Value(std::static_pointer_cast<const NSObject>(style))}};
  EXPECT_EQ(TextSpans(*NSAttributedString::initWithString("ab", directed)).direction, WritingDirection::rightToLeft);
  EXPECT_EQ(TextSpans(*NSAttributedString::initWithString("ab")).direction, WritingDirection::natural);
}

using PortDeathTest = TextDrawingTest;

TEST_F(PortDeathTest, AnotherEngineAfterTheFirstIsAProgrammingError) {
  EXPECT_DEATH(setEngine(std::make_shared<RecordingEngine>()), "setEngine");
}

}  // namespace
}  // namespace Brisel::Platform
