#include <limits>
#include <memory>
#include <string_view>

#include <gtest/gtest.h>

#include "brisel/platform/font.h"
#include "brisel/platform/views/layout_constraint.h"
#include "brisel/typography/fitting.h"
#include "brisel/typography/styled_string.h"

#include "tests/recording_ports.h"

namespace Brisel {
namespace {

using namespace Platform;

// A view that constraints keep at a size, and that counts how often it was measured.
class Box final : public UIView {
 public:
  static std::shared_ptr<Box> withSize(CGSize size) {
    auto view = made(std::shared_ptr<Box>(new Box), {});
    view->setTranslatesAutoresizingMaskIntoConstraints(false);
    NSLayoutConstraint::activateConstraints({view->widthAnchor().constraintEqualToConstant(size.width),
                                             view->heightAnchor().constraintEqualToConstant(size.height)});
    return view;
  }
  CGSize systemLayoutSizeFittingSize(CGSize size) override {
    ++measurements;
    return UIView::systemLayoutSizeFittingSize(size);
  }
  int measurements = 0;
};

std::shared_ptr<NSMutableAttributedString> fitted(std::string_view string, double fontSize, double factor, UIView& box,
                                                  const Dictionary& baseAttributes = {}) {
  return attributedString(string, TypeStyle::viola().withFontSize(fontSize), UIContentSizeCategoryLarge, factor, 1, box,
                          baseAttributes);
}

double pointSize(const NSAttributedString& string) {
  return string.attribute(NSFontAttributeName, 0)->as<UIFont>()->pointSize();
}

// On an engine that makes every character half as wide, and every line as high, as the font's size.
class FittedString : public testing::Test {
 protected:
  void SetUp() override { recordingEngine(); }
};

TEST_F(FittedString, IsTheStyledStringWhereTheFactorAllowsNoShrinking) {
  const auto box = Box::withSize({60, 100});
  const auto styled = attributedString("aaaa bbbb", TypeStyle::viola().withFontSize(20.0), UIContentSizeCategoryLarge);
  for (const double factor : {0.0, 1.0, -1.0, 1.5, std::numeric_limits<double>::quiet_NaN()})
    EXPECT_TRUE(fitted("aaaa bbbb", 20, factor, *box)->isEqual(*styled)) << factor;
  EXPECT_EQ(box->measurements, 0);
}

TEST_F(FittedString, IsEmptyForAnEmptyText) {
  const auto box = Box::withSize({60, 100});
  EXPECT_EQ(fitted("", 20, 0.5, *box)->length(), 0U);
  EXPECT_EQ(box->measurements, 0);
}

TEST_F(FittedString, ShrinksToFitTheView) {
  const auto box = Box::withSize({68, 100});
  EXPECT_EQ(pointSize(*fitted("aaaa bbbb", 20, 0.5, *box)), 15);
  EXPECT_EQ(box->measurements, 1);
}

TEST_F(FittedString, ShrinksByLittleMoreThanHalfOfWhatIsAllowedWhereThatIsEnough) {
  // Lower than a line, so that only the scale ends the shrinking: 0.725 of the size, not 0.5.
  const auto box = Box::withSize({60, 5});
  EXPECT_EQ(pointSize(*fitted("aa", 40, 0.5, *box)), 29);
}

TEST_F(FittedString, ShrinksAsFarAsAllowedWhereItIsNot) {
  const auto box = Box::withSize({60, 100});
  EXPECT_EQ(pointSize(*fitted("aaaa bbbb", 20, 0.5, *box)), 13);
  EXPECT_EQ(pointSize(*fitted("aaaa bbbb cccc", 20, 0.5, *box)), 10);  // and does not fit
}

TEST_F(FittedString, StartsAnewFromTheStyledString) {
  // Nine characters of half the size and the kern: 68.5 points wide where the first attempt ends, at 14.
  const auto box = Box::withSize({60, 100});
  const auto string = fitted("aaaa bbbb", 20, 0.5, *box, {{NSKernAttributeName, 2.0}});
  EXPECT_EQ(pointSize(*string), 12);
  double kern = 2;
  for (double size = 19; size >= 12; --size) kern *= size / 20;
  EXPECT_EQ(string->attribute(NSKernAttributeName, 0)->asDouble(), kern);
}

TEST_F(FittedString, ComputesTheFirstMinimumInTheWrittenOrder) {
  // (1 - 0.25) * -0.55 + 1 is a little less than 0.5875, which 47 / 80 is.
  const auto box = Box::withSize({1000, 5});
  EXPECT_EQ(pointSize(*fitted("aa", 80, 0.25, *box)), 46);
}

TEST_F(FittedString, HasOtherFontsForCharactersThatItsOwnLacks) {
  // Set in the first character's font, the text is fixed anew.
  recordingEngine().setMissingCharacters(U"b", "Other");
  const auto box = Box::withSize({60, 100});
  const auto string = fitted("aaaa bbbb", 20, 0.5, *box);
  const auto other = string->attribute(NSFontAttributeName, 5)->as<UIFont>();
  EXPECT_EQ(other->fontName(), "Other");
  EXPECT_EQ(other->pointSize(), 13);
  EXPECT_EQ(pointSize(*string), 13);
}

TEST_F(FittedString, MayBeChangedByTheCaller) {
  const auto box = Box::withSize({60, 100});
  const auto string = fitted("aaaa bbbb", 20, 0.5, *box);
  string->addAttribute(NSKernAttributeName, 1, {0, 4});
  EXPECT_EQ(string->attributeRuns().size(), 2U);
}

}  // namespace
}  // namespace Brisel
