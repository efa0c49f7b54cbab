#include "gallery/contrast.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "brisel/platform/color.h"
#include "brisel/themes/catalogue.h"
#include "brisel/themes/theme.h"

#include "gallery/arguments.h"

namespace Brisel::Gallery {
namespace {

using Platform::ColorPtr;
using Platform::UIColor;

const UIColor kBlack = UIColor::rgb(0, 0, 0);
const UIColor kWhite = UIColor::rgb(1, 1, 1);

double anyComponent() { return *rc::gen::inRange(0, 1001) / 1000.0; }
UIColor anyColor() { return UIColor::rgb(anyComponent(), anyComponent(), anyComponent()); }

const Catalogue::SlotEntry& slot(std::string_view path) {
  const auto slots = Catalogue::slots();
  return *std::find_if(slots.begin(), slots.end(), [&](const auto& entry) { return entry.path == path; });
}

Contrast contrast(const Theme::ColorSet& set, std::string_view foreground, std::string_view background) {
  return contrastOf(set, slot(foreground), slot(background));
}

// One background and one text colour throughout, and a base of its own under them.
Theme::ColorSet setOf(const UIColor& text, const UIColor& background, const UIColor& base) {
  const auto color = [](const UIColor& value) {
    const auto [red, green, blue, alpha] = value.getRed();
    return UIColor::initWithRed(red, green, blue, alpha);
  };
  const ColorPtr front = color(text), back = color(background);
  const Theme::State state(back, back, back);
  return Theme::ColorSet(Theme::Background(state, state, state, Theme::State(color(base), back, back)),
                         Theme::Text(front, front, front, front, front, front, front),
                         Theme::Essential(front, front, front, front, front, front, front),
                         Theme::Decorative(front, front));
}

TEST(Contrast, IsExactly21BetweenBlackAndWhite) {
  EXPECT_EQ(relativeLuminance(kBlack), 0);
  EXPECT_EQ(relativeLuminance(kWhite), 1);
  EXPECT_EQ(contrastRatio(kBlack, kWhite), 21);
}

TEST(Contrast, HasTheKnownRatios) {
  EXPECT_NEAR(contrastRatio(UIColor::rgb(0, 0, 1), kWhite), 8.592471, 1e-6);
  EXPECT_NEAR(contrastRatio(UIColor::rgb(1, 0, 0), kWhite), 3.998477, 1e-6);
  const auto grey = [](int byte) { return UIColor::grey(byte / 255.0, 1); };
  EXPECT_NEAR(contrastRatio(grey(0x76), kWhite), 4.542225, 1e-6);  // the lightest grey for text on white
  EXPECT_NEAR(contrastRatio(grey(0x77), kWhite), 4.478090, 1e-6);
}

// Until May 2021 the guidelines drew the line at 0.03928.
TEST(Contrast, IsTheSameForAllBytesAsWithTheEarlierThreshold) {
  const auto earlier = [](double component) {
    return component <= 0.03928 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
  };
  for (int byte = 0; byte < 256; ++byte) {
    const double component = byte / 255.0;
    EXPECT_EQ(relativeLuminance(UIColor::rgb(component, 0, 0)), 0.2126 * earlier(component)) << byte;
  }
  EXPECT_EQ(relativeLuminance(UIColor::rgb(0.04, 0, 0)), 0.2126 * (0.04 / 12.92));
}

TEST(Contrast, IsSymmetricAndFrom1To21) {
  EXPECT_TRUE(rc::check([] {
    const UIColor a = anyColor(), b = anyColor();
    RC_ASSERT(contrastRatio(a, b) == contrastRatio(b, a));
    RC_ASSERT(contrastRatio(a, b) >= 1 && contrastRatio(a, b) <= 21);
    RC_ASSERT(contrastRatio(a, a) == 1);
  }));
}

TEST(Contrast, GrowsAwayFromBlackWithEveryComponent) {
  EXPECT_TRUE(rc::check([] {
    const auto [red, green, blue, alpha] = anyColor().getRed();
    const double more = *rc::gen::inRange(1, 1000) / 1000.0;
    const double ratio = contrastRatio(UIColor::rgb(red, green, blue), kBlack);
    RC_ASSERT(contrastRatio(UIColor::rgb(red + more, green, blue), kBlack) > ratio);
    RC_ASSERT(contrastRatio(UIColor::rgb(red, green + more, blue), kBlack) > ratio);
    RC_ASSERT(contrastRatio(UIColor::rgb(red, green, blue + more), kBlack) > ratio);
  }));
}

TEST(Contrast, IsWrittenWithoutReachingALimitThatItMisses) {
  EXPECT_EQ(ratioText(4.4999), "4.49");
  EXPECT_EQ(ratioText(2.999999), "2.99");
  EXPECT_EQ(ratioText(std::nextafter(7, 0)), "6.99");
  EXPECT_EQ(ratioText(4.5), "4.50");
  EXPECT_EQ(ratioText(21), "21.00");
}

TEST(Contrast, IsExplainedByTheHelpInTheSameWords) {
  std::string help(helpText("contrast"));
  std::replace(help.begin(), help.end(), '\n', ' ');
  EXPECT_THAT(help, testing::HasSubstr(std::string(kContrastMethod)));
}

TEST(Compositing, ShowsTheColourTheGroundOrWhatLiesBetween) {
  EXPECT_TRUE(rc::check([] {
    const auto color = anyColor().getRed(), ground = anyColor().getRed();
    const auto over = [&](double alpha) {
      return composited(UIColor::rgb(color.red, color.green, color.blue, alpha),
                        UIColor::rgb(ground.red, ground.green, ground.blue))
          .getRed();
    };
    RC_ASSERT(over(1) == color);
    RC_ASSERT(over(0) == ground);
    const auto mixed = over(anyComponent());
    RC_ASSERT(mixed.alpha == 1);
    const auto isBetween = [](double x, double a, double b) {
      return x >= std::min(a, b) - 1e-15 && x <= std::max(a, b) + 1e-15;
    };
    RC_ASSERT(isBetween(mixed.red, color.red, ground.red));
    RC_ASSERT(isBetween(mixed.green, color.green, ground.green));
    RC_ASSERT(isBetween(mixed.blue, color.blue, ground.blue));
  }));
  EXPECT_EQ(composited(UIColor::grey(1, 0.25), kBlack), UIColor::rgb(0.25, 0.25, 0.25));
}

TEST(ContrastLevel, IsNotRoundedUpTo) {
  const auto below = [](double limit) { return std::nextafter(limit, 0); };
  EXPECT_EQ(textLevel(7), ContrastLevel::aaa);
  EXPECT_EQ(textLevel(below(7)), ContrastLevel::aa);
  EXPECT_EQ(textLevel(4.5), ContrastLevel::aa);
  EXPECT_EQ(textLevel(below(4.5)), ContrastLevel::aaLarge);
  EXPECT_EQ(textLevel(3), ContrastLevel::aaLarge);
  EXPECT_EQ(textLevel(below(3)), ContrastLevel::fail);
  EXPECT_EQ(essentialLevel(21), ContrastLevel::aa);
  EXPECT_EQ(essentialLevel(3), ContrastLevel::aa);
  EXPECT_EQ(essentialLevel(below(3)), ContrastLevel::fail);
}

TEST(ContrastLevel, HasAName) {
  EXPECT_EQ(levelName(ContrastLevel::fail), "fail");
  EXPECT_EQ(levelName(ContrastLevel::aaLarge), "AA large");
  EXPECT_EQ(levelName(ContrastLevel::aa), "AA");
  EXPECT_EQ(levelName(ContrastLevel::aaa), "AAA");
}

TEST(ContrastOfAColorSet, IsThatOf14ForegroundsOn12Backgrounds) {
  const auto slots = Catalogue::slots();
  EXPECT_EQ(std::count_if(slots.begin(), slots.end(), isForeground), 14);
  EXPECT_EQ(std::count_if(slots.begin(), slots.end(), isBackground), 12);
  EXPECT_FALSE(isForeground(slot("decorative.base")));
}

TEST(ContrastOfAColorSet, IsThatOfTheDesignedComponents) {
  const auto found = contrast(Theme::dark().base(), "text.base", "background.base");
  EXPECT_NEAR(found.ratio, 18.717732072152, 1e-9);  // white on 0.071, not on 18/255
  EXPECT_EQ(found.level, ContrastLevel::aaa);
  EXPECT_EQ(contrast(Theme::dark().base(), "essential.base", "background.base").level, ContrastLevel::aa);
}

TEST(ContrastOfAColorSet, LaysATranslucentBackgroundOverItsBase) {
  // White at 0.1 on 0.071; rounded, the ratio would pass for any text.
  const auto onTint = contrast(Theme::dark().base(), "text.negative", "background.tinted.highlight");
  EXPECT_NEAR(onTint.ratio, 4.496768228254, 1e-9);
  EXPECT_EQ(onTint.level, ContrastLevel::aaLarge);
  // White at 0.06 on black.
  EXPECT_NEAR(contrast(Theme::dark().mutedAccent(), "text.subdued", "background.tinted.press").ratio, 7.147869119239,
              1e-9);
}

TEST(ContrastOfAColorSet, IsThePoorerOneOverBlackAndOverWhiteMedia) {
  const auto& media = Theme::dark().overMedia();
  EXPECT_NEAR(contrast(media, "text.base", "background.unsafeForSmallText.base").ratio, 3.037317308121, 1e-9);
  EXPECT_NEAR(contrast(media, "text.base", "background.press").ratio, 9.232896223430, 1e-9);
  // Black text is the poorer over black media.
  const auto black = setOf(kBlack, UIColor::rgb(1, 1, 1, 0.1), UIColor::rgb(1, 1, 1, 0.5));
  EXPECT_NEAR(contrast(black, "text.base", "background.press").ratio, 1.200456511497, 1e-9);
}

TEST(ContrastOfAColorSet, LaysATranslucentForegroundOverItsBackground) {
  const auto set = setOf(UIColor::rgb(1, 1, 1, 0.5), kBlack, kWhite);
  EXPECT_NEAR(contrast(set, "text.base", "background.press").ratio, 5.280822809645, 1e-9);
  EXPECT_EQ(contrast(set, "text.base", "background.base").ratio, 1);  // white on white
}

}  // namespace
}  // namespace Brisel::Gallery
