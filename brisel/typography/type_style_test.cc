#include "brisel/typography/type_style.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <functional>
#include <limits>
#include <string>
#include <string_view>
#include <thread>
#include <type_traits>
#include <unordered_set>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "brisel/platform/internal/decimal.h"
#include "brisel/typography/catalogue.h"
#include "brisel/typography/font_stacks.h"
#include "brisel/typography/internal/built_count.h"

namespace Brisel {
namespace {

using Platform::internal::decimal;
using testing::ElementsAre;
using testing::IsEmpty;
using Group = TypeStyle::Group;
using Range = TypeStyle::AccessibilityRange;
using Configuration = TypeStyle::Configuration;

const Font::Feature kMonospaced = Font::Feature::numberSpacing(Font::Feature::NumberSpacingOption::monospaced);
const Font::Feature kDefaultSpacing = Font::Feature::numberSpacing(Font::Feature::NumberSpacingOption::default_);

template <class T>
std::size_t hash(const T& value) {
  return std::hash<T>()(value);
}

// --- The catalogue ---

constexpr std::string_view kDesign = R"(
ballad = Ballad: text stack, Book 16.0, 13.0 16.0 22.0 50.0, 1.0 1.0 1.0 1.0, as typed, body
balladBold = Ballad Bold: text stack, Bold 16.0, 13.0 16.0 22.0 50.0, 1.0 1.0 1.0 1.0, as typed, body
viola = Viola: text stack, Book 14.0, 11.0 14.0 20.0 48.0, 1.0 1.0 1.0 1.0, as typed, body
violaBold = Viola Bold: text stack, Bold 14.0, 11.0 14.0 20.0 48.0, 1.0 1.0 1.0 1.0, as typed, body
mesto = Mesto: text stack, Book 13.0, 10.0 13.0 19.0 46.0, 1.0 1.0 1.0 1.0, as typed, body
mestoBold = Mesto Bold: text stack, Bold 13.0, 10.0 13.0 19.0 46.0, 1.0 1.0 1.0 1.0, as typed, body
bass = Bass: title stack, Black 56.0, 53.0 56.0 62.0 64.0, 0.25 0.3 0.4 0.8, as typed, displayTitles
forte = Forte: title stack, Bold 48.0, 45.0 48.0 54.0 62.0, 0.3 0.35 0.45 0.85, as typed, displayTitles
brio = Brio: title stack, Bold 40.0, 37.0 40.0 46.0 60.0, 0.35 0.4 0.5 0.85, as typed, displayTitles
finale = Finale: text stack, Book 11.0, 10.0 11.0 17.0 42.0, 1.0 1.0 1.0 1.0, as typed, smallText
finaleBold = Finale Bold: text stack, Bold 11.0, 10.0 11.0 17.0 42.0, 1.0 1.0 1.0 1.0, as typed, smallText
minuet = Minuet: text stack, Book 10.0, 10.0 10.0 16.0 40.0, 1.0 1.0 1.0 1.0, capitals, smallText
minuetBold = Minuet Bold: text stack, Bold 10.0, 10.0 10.0 16.0 40.0, 1.0 1.0 1.0 1.0, capitals, smallText
metronome = Metronome: text stack, Bold 14.0, 11.0 14.0 20.0 48.0, 1.0 1.0 1.0 1.0, capitals, smallText
altoBrio = Alto Brio: title stack, Bold 32.0, 29.0 32.0 38.0 58.0, 1.0 1.0 1.0 1.0, as typed, titles
alto = Alto: title stack, Bold 32.0, 29.0 32.0 38.0 58.0, 1.0 1.0 1.0 1.0, as typed, titles
canon = Canon: title stack, Bold 24.0, 21.0 24.0 30.0 56.0, 1.0 1.0 1.0 1.0, as typed, titles
celloCanon = Cello Canon: title stack, Bold 18.0, 15.0 18.0 24.0 54.0, 1.0 1.0 1.0 1.0, as typed, titles
cello = Cello: text stack, Bold 18.0, 15.0 18.0 24.0 54.0, 1.0 1.0 1.0 1.0, as typed, titles
)";

std::string numbers(const Range& range) {
  return decimal(range.min()) + ' ' + decimal(range.mid()) + ' ' + decimal(range.max()) + ' ' + decimal(range.axMax());
}

std::string stackName(const TypeStyle& style) {
  for (const auto& [stack, name] : {std::pair(FontStack::text, "text"), std::pair(FontStack::title, "title")})
    if (style.primaryFont() == stack.primaryFont && std::ranges::equal(style.fallbackFonts(), stack.fallbackFonts))
      return name;
  return "another";
}

std::string groupName(Group group) {
  switch (group) {
    case Group::smallText:
      return "smallText";
    case Group::body:
      return "body";
    case Group::titles:
      return "titles";
    case Group::displayTitles:
      return "displayTitles";
  }
  return "another";
}

TEST(TypeStyleCatalogue, IsAsDesigned) {
  std::string catalogue = "\n";
  for (const auto& [identifier, objectName, get] : Catalogue::typeStyles()) {
    const TypeStyle& style = get();
    catalogue += std::string(identifier) + " = " + style.name() + ": " + stackName(style) + " stack, " +
                 std::string(style.fontWeight().nameSuffix()) + ' ' + decimal(style.fontSize()) + ", " +
                 numbers(style.configuration().fontSize()) + ", " +
                 numbers(style.configuration().minimumScaleFactor()) + ", " +
                 (style.configuration().usesUpperCaseLayout() ? "capitals" : "as typed") + ", " +
                 groupName(style.group()) + '\n';
  }
  EXPECT_EQ(catalogue, kDesign);
}

TEST(TypeStyleCatalogue, ListsAllStylesInOrder) {
  const auto& all = TypeStyle::allCases();
  ASSERT_EQ(all.size(), 19U);
  ASSERT_EQ(all.size(), Catalogue::typeStyles().size());
  EXPECT_EQ(all.front(), TypeStyle::ballad());
  EXPECT_EQ(all.back(), TypeStyle::cello());
  for (std::size_t i = 0; i < all.size(); ++i) EXPECT_EQ(all[i], Catalogue::typeStyles()[i].get());
  EXPECT_EQ(&TypeStyle::allCases(), &TypeStyle::allCases());
}

TEST(TypeStyleCatalogue, HasNoFontFeatures) {
  for (const TypeStyle& style : TypeStyle::allCases())
    EXPECT_THAT(style.configuration().fontFeatures(), IsEmpty()) << style.name();
}

TEST(TypeStyleCatalogue, KeepsWhatLooksLikeSlips) {
  const TypeStyle &alto = TypeStyle::alto(), &altoBrio = TypeStyle::altoBrio();
  EXPECT_NE(alto, altoBrio);
  EXPECT_EQ(TypeStyle(altoBrio.name(), alto.primaryFont(), alto.fallbackFonts(), alto.fontWeight(), alto.fontSize(),
                      alto.group(), alto.configuration()),
            altoBrio);
  for (const TypeStyle& style : {TypeStyle::minuet(), TypeStyle::minuetBold()})
    EXPECT_EQ(style.configuration().fontSize().min(), style.configuration().fontSize().mid());
  EXPECT_EQ(TypeStyle::metronome().configuration().fontSize(), TypeStyle::viola().configuration().fontSize());
  EXPECT_EQ(TypeStyle::cello().primaryFont(), Font::tondal);
  EXPECT_EQ(TypeStyle::celloCanon().primaryFont(), Font::tondalTitle);
  EXPECT_EQ(TypeStyle::cello().configuration(), TypeStyle::celloCanon().configuration());
  for (const TypeStyle& style : TypeStyle::allCases())
    EXPECT_EQ(style.configuration().minimumScaleFactor().min() < 1.0, style.group() == Group::displayTitles)
        << style.name();
}

TEST(TypeStyleCatalogue, IsBuiltStyleByStyle) {
  ASSERT_EQ(internal::builtTypeStyles(), 0U);
  EXPECT_EQ(Catalogue::typeStyles().size(), 19U);
  EXPECT_EQ(internal::builtTypeStyles(), 0U);
  TypeStyle::bass();
  EXPECT_EQ(&TypeStyle::bass(), &TypeStyle::bass());
  EXPECT_EQ(internal::builtTypeStyles(), 1U);
  TypeStyle::allCases();
  EXPECT_EQ(internal::builtTypeStyles(), 19U);
}

TEST(TypeStyleCatalogue, GivesConcurrentFirstReadersTheSameStyles) {
  constexpr std::size_t kThreads = 8;
  std::atomic<std::size_t> waiting{kThreads};
  std::vector<std::vector<const void*>> seen(kThreads);
  std::vector<std::thread> threads;
  for (auto& mine : seen)
    threads.emplace_back([&] {
      waiting.fetch_sub(1);
      while (waiting.load() > 0) std::this_thread::yield();
      for (const auto& entry : Catalogue::typeStyles()) mine.push_back(&entry.get());
      mine.push_back(&TypeStyle::allCases());
    });
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(internal::builtTypeStyles(), 19U);
  EXPECT_THAT(seen, testing::Each(seen.front()));
}

TEST(TypeStyleGroup, HasItsNumbers) {
  EXPECT_EQ(static_cast<int>(Group::smallText), 0);
  EXPECT_EQ(static_cast<int>(Group::body), 1);
  EXPECT_EQ(static_cast<int>(Group::titles), 2);
  EXPECT_EQ(static_cast<int>(Group::displayTitles), 3);
}

TEST(TypeStyleGroup, IsKnownByTheIdentifierOfAStyleOnly) {
  for (const auto& entry : Catalogue::typeStyles()) EXPECT_EQ(typeStyleGroup(entry.name), entry.get().group());
  EXPECT_EQ(typeStyleGroup("cello"), Group::titles);
  for (const std::string_view unknown : {"Cello", "Ballad Bold", "", "cello ", "CELLO", "celloBold"})
    EXPECT_EQ(typeStyleGroup(unknown), Group::body) << unknown;
}

// --- Derived styles ---

/// A style whose every field is unlike those of the catalogue.
TypeStyle custom() {
  return TypeStyle(
      "Custom", Font::tondalGrek, {Font::tondalTitle, Font::tondalHebr}, Font::Weight::black, 17.0, Group::titles,
      Configuration(Range(1.0, 2.0, 3.0, 4.0), Range(0.1, 0.2, 0.3, 0.4), true, {kMonospaced, kDefaultSpacing}));
}

TEST(DerivedTypeStyle, HasTheOneSizeAtEveryScale) {
  const TypeStyle derived = TypeStyle::ballad().withFontSize(20);
  EXPECT_EQ(derived.fontSize(), 20.0);
  EXPECT_EQ(derived.configuration().fontSize(), Range(20.0, 20.0, 20.0, 20.0));
  EXPECT_EQ(derived.name(), "Ballad");
  EXPECT_THAT(derived.configuration().fontFeatures(), IsEmpty());
}

// Which fields each operation changes. All others must stay, and five of the eight drop the font features.
TEST(DerivedTypeStyle, ChangesWhatItsOperationSays) {
  const TypeStyle style = custom();
  const auto expected = [](double fontSize, const Range& sizes, const Range& factors, bool upperCase,
                           std::vector<Font::Feature> features, Font primary, std::vector<Font> fallbacks) {
    return TypeStyle("Custom", primary, std::move(fallbacks), Font::Weight::black, fontSize, Group::titles,
                     Configuration(sizes, factors, upperCase, std::move(features)));
  };
  const Range sizes(1.0, 2.0, 3.0, 4.0), factors(0.1, 0.2, 0.3, 0.4), other(5.0, 6.0, 7.0, 8.0);
  const std::vector<Font> fallbacks{Font::tondalTitle, Font::tondalHebr};
  const std::vector<Font::Feature> features{kMonospaced, kDefaultSpacing};
  const Font primary = Font::tondalGrek;

  EXPECT_EQ(style.withFontSize(9.0), expected(9.0, Range(9.0, 9.0, 9.0, 9.0), factors, true, {}, primary, fallbacks));
  EXPECT_EQ(style.withFontSize(other), expected(6.0, other, factors, true, {}, primary, fallbacks));
  EXPECT_EQ(style.withMinimumScaleFactor(0.5),
            expected(17.0, sizes, Range(0.5, 0.5, 0.5, 0.5), true, {}, primary, fallbacks));
  EXPECT_EQ(style.withMinimumScaleFactor(other), expected(17.0, sizes, other, true, {}, primary, fallbacks));
  EXPECT_EQ(style.withUsesUpperCaseLayout(false), expected(17.0, sizes, factors, false, {}, primary, fallbacks));
  EXPECT_EQ(style.withFontFeatures({kMonospaced}),
            expected(17.0, sizes, factors, true, {kMonospaced}, primary, fallbacks));
  EXPECT_EQ(style.withPrimaryFont(Font::tondal),
            expected(17.0, sizes, factors, true, features, Font::tondal, fallbacks));
  EXPECT_EQ(style.withFallbackFonts({Font::tondalDeva}),
            expected(17.0, sizes, factors, true, features, primary, {Font::tondalDeva}));
  EXPECT_EQ(style, custom());
}

TEST(DerivedTypeStyle, DropsTheFeaturesEvenWhereNothingElseChanges) {
  EXPECT_NE(custom().withUsesUpperCaseLayout(true), custom());
  EXPECT_EQ(custom().withUsesUpperCaseLayout(true), custom().withFontFeatures({}));
}

// A condition is no size, and a size is no condition.
template <class Argument>
concept TakenAsUpperCaseLayout = requires(const TypeStyle& style, Argument argument) {
  style.withUsesUpperCaseLayout({argument});
};
static_assert(TakenAsUpperCaseLayout<bool> && !TakenAsUpperCaseLayout<double>);

// --- Equality ---

TEST(TypeStyleEquality, AsksEveryField) {
  const TypeStyle style = custom();
  const auto with = [&](std::string name, Font::Weight weight, double fontSize, Group group) {
    return TypeStyle(std::move(name), style.primaryFont(), style.fallbackFonts(), weight, fontSize, group,
                     style.configuration());
  };
  EXPECT_EQ(style, with("Custom", Font::Weight::black, 17.0, Group::titles));
  const Range& sizes = style.configuration().fontSize();
  const TypeStyle others[] = {
      with("custom", Font::Weight::black, 17.0, Group::titles),
      with("Custom", Font::Weight::bold, 17.0, Group::titles),
      with("Custom", Font::Weight::black, 17.5, Group::titles),
      with("Custom", Font::Weight::black, 17.0, Group::body),
      style.withPrimaryFont(Font::tondal),
      style.withFallbackFonts({Font::tondalHebr, Font::tondalTitle}),
      style.withFontFeatures({kDefaultSpacing, kMonospaced}),
      style.withFontFeatures({kMonospaced}),
      style.withFontSize(sizes),
  };
  for (const TypeStyle& other : others) {
    EXPECT_NE(style, other) << other.debugDescription();
    EXPECT_NE(hash(style), hash(other)) << other.debugDescription();
  }
}

TEST(TypeStyleEquality, TellsEighteenStylesApartWithoutTheirNames) {
  std::unordered_set<TypeStyle> named, nameless;
  for (const TypeStyle& style : TypeStyle::allCases()) {
    named.insert(style);
    nameless.insert(TypeStyle("", style.primaryFont(), style.fallbackFonts(), style.fontWeight(), style.fontSize(),
                              style.group(), style.configuration()));
  }
  EXPECT_EQ(named.size(), 19U);
  EXPECT_EQ(nameless.size(), 18U);
}

TEST(TypeStyleEquality, TakesZerosAsEqualWhateverTheirSign) {
  const TypeStyle zero = custom().withFontSize(0.0), negative = custom().withFontSize(-0.0);
  EXPECT_EQ(zero, negative);
  EXPECT_EQ(hash(zero), hash(negative));
  EXPECT_EQ(hash(zero.configuration()), hash(negative.configuration()));
  EXPECT_EQ(hash(Range(0.0, -0.0, 1.0, 2.0)), hash(Range(-0.0, 0.0, 1.0, 2.0)));
}

TEST(TypeStyleEquality, TakesNotANumberAsUnequalToItself) {
  const TypeStyle style = custom().withFontSize(std::numeric_limits<double>::quiet_NaN());
  EXPECT_FALSE(style == style);
}

RC_GTEST_PROP(TypeStyleEquality, AgreesWithItsHash, (int a, int b, int c, int d, bool upperCase)) {
  const auto build = [&] {
    return TypeStyle("Any", Font::tondal, {Font::tondalArab}, Font::Weight::book, a, Group::body,
                     Configuration(Range(a, b, c, d), Range(d, c, b, a), upperCase, {kMonospaced}));
  };
  RC_ASSERT(build() == build());
  RC_ASSERT(hash(build()) == hash(build()));
  RC_ASSERT((Range(a, b, c, d) == Range(b, a, d, c)) == (a == b && c == d));
}

}  // namespace
}  // namespace Brisel
