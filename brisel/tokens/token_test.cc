// Opacities, spacers, the screen's scale, and tokens where the platform takes numbers.
#include <concepts>
#include <limits>
#include <tuple>
#include <type_traits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/tokens/catalogue.h"
#include "brisel/tokens/color.h"
#include "brisel/tokens/opacity.h"
#include "brisel/tokens/screen_scale.h"
#include "brisel/tokens/spacer.h"
#include "brisel/tokens/token_conversions.h"

namespace Brisel {
namespace {

using Row = std::tuple<std::string_view, std::string_view, double>;

// Neither can be made from a bare number; only spacers can be compared.
static_assert(!std::is_default_constructible_v<Opacity> && !std::is_constructible_v<Opacity, double>);
static_assert(!std::is_default_constructible_v<Spacer> && !std::is_constructible_v<Spacer, double>);
static_assert(!std::equality_comparable<Opacity>);
static_assert(std::equality_comparable<Spacer>);
static_assert(!std::totally_ordered<Spacer>);
static_assert(!std::is_convertible_v<Opacity, double> && !std::is_convertible_v<Spacer, double>);
static_assert(!std::is_default_constructible_v<Screen>);

template <class T>
std::vector<Row> rows(std::span<const Catalogue::Entry<T>> entries) {
  std::vector<Row> rows;
  for (const auto& entry : entries) rows.emplace_back(entry.name, entry.objectName, entry.get().value());
  return rows;
}

TEST(Opacity, HasSixTokens) {
  EXPECT_THAT(
      rows(Catalogue::opacities()),
      testing::ElementsAre(Row{"x0", "opacity0", 0.0}, Row{"x10", "opacity10", 0.1}, Row{"x30", "opacity30", 0.3},
                           Row{"x50", "opacity50", 0.5}, Row{"x70", "opacity70", 0.7}, Row{"x90", "opacity90", 0.9}));
}

TEST(Spacer, HasThirteenTokens) {
  EXPECT_THAT(
      rows(Catalogue::spacers()),
      testing::ElementsAre(Row{"x4", "spacer4", 4.0}, Row{"x8", "spacer8", 8.0}, Row{"x12", "spacer12", 12.0},
                           Row{"x16", "spacer16", 16.0}, Row{"x20", "spacer20", 20.0}, Row{"x24", "spacer24", 24.0},
                           Row{"x32", "spacer32", 32.0}, Row{"x40", "spacer40", 40.0}, Row{"x48", "spacer48", 48.0},
                           Row{"x56", "spacer56", 56.0}, Row{"x64", "spacer64", 64.0}, Row{"x72", "spacer72", 72.0},
                           Row{"x80", "spacer80", 80.0}));
}

TEST(Spacer, EqualsASpacerOfTheSameValue) {
  EXPECT_TRUE(Spacer::x4() == Spacer::x4());
  EXPECT_FALSE(Spacer::x4() == Spacer::x8());
}

TEST(TokenConversions, GiveTheTokensValueUnchanged) {
  EXPECT_EQ(space(Spacer::x16()), 16.0);
  EXPECT_EQ(opacity(Opacity::x0()), 0.0);
  EXPECT_EQ(opacity(Opacity::x70()), 0.7);
}

TEST(TokenConversions, MakeInsetsSideBySide) {
  EXPECT_EQ(edgeInsets(Spacer::x8(), Spacer::x16(), Spacer::x8(), Spacer::x16()),
            (Platform::UIEdgeInsets{8, 16, 8, 16}));
  EXPECT_EQ(edgeInsets(Spacer::x4(), Spacer::x8(), Spacer::x12(), Spacer::x20()),
            (Platform::UIEdgeInsets{.top = 4, .left = 8, .bottom = 12, .right = 20}));
  EXPECT_EQ(directionalEdgeInsets(Spacer::x4(), Spacer::x8(), Spacer::x12(), Spacer::x20()),
            (Platform::NSDirectionalEdgeInsets{.top = 4, .leading = 8, .bottom = 12, .trailing = 20}));
}

TEST(TokenConversions, ReplaceTheAlphaAndKeepTheForm) {
  const auto faint = withAlphaComponent(*Color::gray7().value(), Opacity::x30());
  EXPECT_EQ(*faint, Platform::UIColor::grey(0.071, 0.3));
  EXPECT_EQ(*withAlphaComponent(*Color::green157().value(), Opacity::x0()),
            Platform::UIColor::rgb(0.118, 0.843, 0.376, 0.0));
  EXPECT_EQ(Color::gray7().value()->alpha(), 1.0);
}

TEST(Screen, ReadsTheMainScreensScaleAfresh) {
  auto& screen = Platform::UIScreen::mainScreen();
  EXPECT_EQ(Screen::scale(), 1.0);
  screen.setScale(3.0);
  EXPECT_EQ(Screen::scale(), 3.0);
  screen.setScale(2.625);
  EXPECT_EQ(Screen::scale(), 2.625);  // not rounded either
}

TEST(Screen, KeepsItsScaleWhenToldNonsense) {
  auto& screen = Platform::UIScreen::mainScreen();
  screen.setScale(2.0);
  for (const double nonsense :
       {0.0, -1.0, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()})
    screen.setScale(nonsense);
  EXPECT_EQ(Screen::scale(), 2.0);
}

}  // namespace
}  // namespace Brisel
