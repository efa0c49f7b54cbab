#include "brisel/object_interface/fitting.h"

#include <memory>

#include <gtest/gtest.h>

#include "brisel/platform/font.h"
#include "brisel/platform/views/label.h"
#include "brisel/typography/fitting.h"

#include "tests/recording_ports.h"

namespace {

using namespace Brisel::Platform;
using Brisel::TypeStyle;
using VLMBrisel::canScaledStringFit;

class ObjectFitting : public testing::Test {
 protected:
  void SetUp() override { Brisel::recordingEngine(); }
};

TEST_F(ObjectFitting, TellsWhetherTheScaledStringFits) {
  // Ten characters of half an em: 80 points wide at 16.
  const auto string = NSAttributedString::initWithString(
      "AAAA AAAAA", TypeStyle::ballad().stringAttributes(UIContentSizeCategoryLarge));
  EXPECT_TRUE(canScaledStringFit(string, {80, 100}, 1, 1));
  EXPECT_FALSE(canScaledStringFit(string, {50, 100}, 1, 1));
  EXPECT_TRUE(canScaledStringFit(string, {50, 100}, 1, 0.5));
  EXPECT_FALSE(canScaledStringFit(string, {0.5, 100}, 1, 0.5));
  EXPECT_TRUE(canScaledStringFit(string, {0.5, 100}, 0, 0.5));
}

TEST_F(ObjectFitting, BuildsFittedStringsLikeTheValueInterface) {
  const auto target = UILabel::initWithFrame({{}, {60, 40}});
  const auto build = [&](double factor) {
    const auto object =
        briselSwift_attributedStringWithString("AAAA AAAAA", VLMBriselTypeStyle::ballad(), UIContentSizeCategoryLarge,
                                               factor, 1, *target, {{NSKernAttributeName, 0.5}});
    const auto value = Brisel::attributedString("AAAA AAAAA", TypeStyle::ballad(), UIContentSizeCategoryLarge, factor,
                                                1, *target, {{NSKernAttributeName, 0.5}});
    EXPECT_TRUE(object->isEqual(*value));
    return object->attribute(NSFontAttributeName, 0)->as<UIFont>()->pointSize();
  };
  EXPECT_EQ(build(1), 16);
  EXPECT_LT(build(0.25), 16);
}

TEST(ObjectFittingDeathTest, RefusesANullStyle) {
  const auto target = UIView::initWithFrame();
  EXPECT_DEATH(briselSwift_attributedStringWithString("", nullptr, UIContentSizeCategoryLarge, 1, 1, *target, {}),
               "null pointer");
}

}  // namespace
