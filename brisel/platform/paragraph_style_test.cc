#include "brisel/platform/paragraph_style.h"

#include <functional>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "brisel/platform/value.h"

namespace Brisel::Platform {
namespace {

TEST(ParagraphStyle, StartsNaturalAndWithoutRules) {
  const auto style = NSParagraphStyle::defaultParagraphStyle();
  EXPECT_EQ(style->alignment(), NSTextAlignment::natural);
  EXPECT_EQ(style->lineBreakMode(), NSLineBreakMode::byWordWrapping);
  EXPECT_EQ(style->baseWritingDirection(), WritingDirection::natural);
  EXPECT_EQ(style->lineSpacing(), 0);
  EXPECT_EQ(style->lineHeightMultiple(), 0);
  EXPECT_EQ(style->minimumLineHeight(), 0);
  EXPECT_EQ(style->maximumLineHeight(), 0);
  EXPECT_EQ(style->paragraphSpacing(), 0);
}

TEST(ParagraphStyle, CountsEachSettingInEquality) {
  const std::vector<std::function<void(NSMutableParagraphStyle&)>> changes = {
      [](auto& s) { s.setAlignment(NSTextAlignment::center); },
      [](auto& s) { s.setLineBreakMode(NSLineBreakMode::byTruncatingTail); },
      [](auto& s) { s.setBaseWritingDirection(WritingDirection::rightToLeft); },
      [](auto& s) { s.setLineSpacing(1); },
      [](auto& s) { s.setLineHeightMultiple(1); },
      [](auto& s) { s.setMinimumLineHeight(1); },
      [](auto& s) { s.setMaximumLineHeight(1); },
      [](auto& s) { s.setParagraphSpacing(1); },
  };
  const auto plain = NSParagraphStyle::defaultParagraphStyle();
  for (const auto& change : changes) {
    const auto a = NSMutableParagraphStyle::init();
    const auto b = plain->mutableCopy();
    change(*a);
    EXPECT_FALSE(a->isEqual(*plain));
    change(*b);
    EXPECT_TRUE(a->isEqual(*b));
    EXPECT_EQ(a->objectHash(), b->objectHash());
    EXPECT_TRUE(a->copy()->isEqual(*a));
  }
}

TEST(ParagraphStyle, IsCopiedAsItIsNow) {
  const auto style = NSMutableParagraphStyle::init();
  style->setLineSpacing(3);
  const auto copy = style->copy();
  style->setLineSpacing(4);
  EXPECT_EQ(copy->lineSpacing(), 3);
  EXPECT_EQ(style->mutableCopy()->lineSpacing(), 4);
}

TEST(ParagraphStyle, KeepsWhatItIsGiven) {
  const auto style = NSMutableParagraphStyle::init();
  style->setLineSpacing(-2);
  style->setMinimumLineHeight(std::numeric_limits<double>::infinity());
  EXPECT_EQ(style->lineSpacing(), -2);
  EXPECT_EQ(style->minimumLineHeight(), std::numeric_limits<double>::infinity());
}

TEST(ParagraphStyle, HashesZerosOfBothSignsAlike) {
  const auto a = NSMutableParagraphStyle::init();
  const auto b = NSMutableParagraphStyle::init();
  b->setLineSpacing(-0.0);
  EXPECT_EQ(Value(a), Value(b));
  EXPECT_EQ(Value(a).hash(), Value(b).hash());
}

}  // namespace
}  // namespace Brisel::Platform
