#include "brisel/themes/theme.h"

#include <array>
#include <concepts>
#include <cstddef>
#include <functional>
#include <string_view>
#include <type_traits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "brisel/themes/catalogue.h"
#include "brisel/themes/internal/slot_reader.h"

namespace Brisel {
namespace {

using Platform::ColorPtr;
using Platform::UIColor;

template <class A, class B>
concept Comparable = requires(const A& a, const B& b) {
  a == b;
};

template <class T>
constexpr bool isValue =
    std::copyable<T>&& std::equality_comparable<T> && !std::is_default_constructible_v<T> && requires(const T& value) {
  std::hash<T>{}(value);
};

static_assert(isValue<Theme> && isValue<Theme::ColorSet> && isValue<Theme::Background> && isValue<Theme::Text> &&
              isValue<Theme::Essential> && isValue<Theme::Decorative> && isValue<Theme::State>);

// Text and essential have one shape and are still not each other.
static_assert(!Comparable<Theme::Text, Theme::Essential>);
static_assert(!std::is_convertible_v<Theme::Text, Theme::Essential>);
static_assert(!std::is_constructible_v<Theme::Text, Theme::Essential>);
static_assert(!Comparable<Theme::State, Theme::Decorative>);
// No list of colours is taken for a part of a theme, and only a reader makes parts from itself.
template <class Color>
concept TakesBraces = requires(Color color) {
  take({color, color});
};
static_assert(!TakesBraces<ColorPtr>);
static_assert(!std::is_constructible_v<Theme::ColorSet, internal::SlotReader&>);
static_assert(std::is_same_v<decltype(std::declval<const Theme::State&>().base()), const ColorPtr&>);
static_assert(sizeof(Theme) == 280 * sizeof(ColorPtr));

template <class T>
std::size_t hashOf(const T& value) {
  return std::hash<T>{}(value);
}

// A new colour, so that equality cannot come from identity.
ColorPtr level(double red) { return UIColor::initWithRed(red, 0.25, 0.5, 1.0); }

Theme::State state(double first) { return Theme::State(level(first), level(first + 1), level(first + 2)); }

// A colour set whose slots have the levels first, first + 1, … in the order of construction.
Theme::ColorSet colorSet(double first) {
  const auto at = [first](int slot) { return level(first + slot); };
  return Theme::ColorSet(Theme::Background(state(first), state(first + 3), state(first + 6), state(first + 9)),
                         Theme::Text(at(12), at(13), at(14), at(15), at(16), at(17), at(18)),
                         Theme::Essential(at(19), at(20), at(21), at(22), at(23), at(24), at(25)),
                         Theme::Decorative(at(26), at(27)));
}

std::vector<double> levels(const Theme::ColorSet& set) {
  std::vector<double> levels;
  for (const auto& slot : Catalogue::slots()) levels.push_back(slot.get(set)->getRed().red);
  return levels;
}

constexpr std::size_t kThemeColors = 280;
using Cells = std::vector<UIColor>;

Cells distinctCells() {
  Cells cells;
  for (std::size_t i = 0; i < kThemeColors; ++i) cells.push_back(UIColor::rgb(static_cast<double>(i), 0, 0));
  return cells;
}

// Set by set, and not interleaved as a published table is.
Theme themeOf(const Cells& cells) {
  const auto set = [&](std::size_t index) {
    return internal::SlotReader(&cells[28 * index], 1).read<Theme::ColorSet>();
  };
  return Theme(set(0), set(1), set(2), set(3), set(4), set(5), set(6), set(7), set(8), set(9));
}

TEST(Theme, NamesTheSlotsOfAColorSetInOrder) {
  std::vector<std::string_view> paths;
  for (const auto& slot : Catalogue::slots()) paths.push_back(slot.path);
  EXPECT_THAT(paths, testing::ElementsAre(
                         "background.elevated.base", "background.elevated.highlight", "background.elevated.press",
                         "background.tinted.base", "background.tinted.highlight", "background.tinted.press",
                         "background.unsafeForSmallText.base", "background.unsafeForSmallText.highlight",
                         "background.unsafeForSmallText.press", "background.base", "background.highlight",
                         "background.press", "text.base", "text.subdued", "text.brightAccent", "text.negative",
                         "text.warning", "text.positive", "text.announcement", "essential.base", "essential.subdued",
                         "essential.brightAccent", "essential.negative", "essential.warning", "essential.positive",
                         "essential.announcement", "decorative.base", "decorative.subdued"));
}

TEST(Theme, NamesItsColorSetsInOrder) {
  std::vector<std::string_view> names;
  for (const auto& set : Catalogue::colorSets()) names.push_back(set.name);
  EXPECT_THAT(names, testing::ElementsAre("base", "brightAccent", "negative", "warning", "positive", "announcement",
                                          "invertedDark", "invertedLight", "mutedAccent", "overMedia"));
}

TEST(Theme, PutsTheColoursOfAConstructorIntoTheSlotsInOrder) {
  std::vector<double> expected;
  for (int i = 0; i < 28; ++i) expected.push_back(100 + i);
  EXPECT_EQ(levels(colorSet(100)), expected);
}

TEST(Theme, ReadsATableIntoTheSlotsInTheSameOrder) {
  const Cells cells = distinctCells();
  std::vector<double> expected;
  for (int i = 0; i < 28; ++i) expected.push_back(3 + 10 * i);
  EXPECT_EQ(levels(internal::SlotReader(&cells[3], 10).read<Theme::ColorSet>()), expected);
}

TEST(Theme, PutsTheColorSetsOfItsConstructorIntoFieldOrder) {
  const Cells cells = distinctCells();  // the theme's colours lie in it
  const Theme theme = themeOf(cells);
  double first = 0;
  for (const auto& set : Catalogue::colorSets()) {
    EXPECT_EQ((theme.*set.get)().background().elevated().base()->getRed().red, first) << set.name;
    first += 28;
  }
}

TEST(Theme, EqualsOneThatWasBuiltSeparately) {
  EXPECT_EQ(colorSet(1), colorSet(1));
  EXPECT_EQ(hashOf(colorSet(1)), hashOf(colorSet(1)));
  EXPECT_NE(colorSet(1).text().base(), colorSet(1).text().base());  // other instances
  EXPECT_FALSE(colorSet(1) == colorSet(2));
  EXPECT_EQ(state(1), state(1));
  EXPECT_EQ(hashOf(state(1)), hashOf(state(1)));
}

TEST(Theme, DiffersWhereverOneColourDoes) {
  const Cells cells = distinctCells(), same = distinctCells();
  const Theme theme = themeOf(cells);
  EXPECT_EQ(theme, themeOf(same));
  EXPECT_EQ(hashOf(theme), hashOf(themeOf(same)));
  for (std::size_t i = 0; i < kThemeColors; ++i) {
    Cells changed = cells;
    changed[i] = UIColor::rgb(-1, 0, 0);
    EXPECT_NE(theme, themeOf(changed)) << i;
    EXPECT_NE(hashOf(theme), hashOf(themeOf(changed))) << i;
  }
}

TEST(Theme, ComparesFormsToo) {
  const Theme::Decorative grey(UIColor::initWithWhite(1.0, 0.1), level(0));
  const Theme::Decorative rgb(UIColor::initWithRed(1.0, 1.0, 1.0, 0.1), level(0));
  EXPECT_FALSE(grey == rgb);
}

TEST(Theme, HashesMinusZeroAsZero) {
  const Theme::Decorative zero(level(0.0), level(1)), minusZero(level(-0.0), level(1));
  EXPECT_EQ(zero, minusZero);
  EXPECT_EQ(hashOf(zero), hashOf(minusZero));
}

TEST(Theme, SharesItsColoursWithItsCopies) {
  const Theme::ColorSet set = colorSet(0);
  const Theme::ColorSet copy = set;  // NOLINT(performance-unnecessary-copy-initialization): the copy is the subject
  EXPECT_EQ(copy.text().negative(), set.text().negative());
}

TEST(ThemeDeathTest, TakesANullColourForAProgrammingError) {
  EXPECT_DEATH(Theme::State(nullptr, level(0), level(0)), "null colour");
  EXPECT_DEATH(Theme::Decorative(level(0), nullptr), "null colour");
  EXPECT_DEATH(Theme::Text(level(0), level(0), level(0), level(0), level(0), level(0), nullptr), "null colour");
}

RC_GTEST_PROP(ThemeState, IsEqualAndHashesEqualExactlyWhereItsColoursAre, (std::array<bool, 6> which)) {
  const auto make = [&](std::size_t first) {
    const auto color = [&](std::size_t i) { return level(which[first + i] ? 0.5 : 0.75); };
    return Theme::State(color(0), color(1), color(2));
  };
  const Theme::State a = make(0), b = make(3);
  const bool same = which[0] == which[3] && which[1] == which[4] && which[2] == which[5];
  RC_ASSERT((a == b) == same);
  RC_ASSERT((b == a) == same);
  RC_ASSERT((hashOf(a) == hashOf(b)) == same);
}

}  // namespace
}  // namespace Brisel
