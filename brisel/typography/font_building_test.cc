#include "brisel/typography/internal/font_building.h"

#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/font_descriptor.h"
#include "brisel/typography/font.h"
#include "brisel/typography/font_stacks.h"
#include "brisel/typography/type_style.h"

#include "tests/recording_ports.h"

// Each test runs in a process of its own, and so begins with an empty cache.
namespace Brisel {
namespace {

using namespace Platform;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using NumberSpacing = Font::Feature::NumberSpacingOption;

const Font::Feature kMonospaced = Font::Feature::numberSpacing(NumberSpacing::monospaced);
const Font::Feature kDefaultSpacing = Font::Feature::numberSpacing(NumberSpacing::default_);

class FontBuilding : public testing::Test {
 protected:
  void SetUp() override { recordingEngine(); }

  static std::shared_ptr<const UIFont> plain(double size) {
    return Font::font(Font::tondal, {}, Font::Weight::book, size, {});
  }

  /// A list among the attributes of a font, which must be there.
  static std::vector<Value> list(const UIFont& font, std::string_view attribute) {
    const Value* value = font.fontDescriptor()->objectForKey(attribute);
    if (!value || !value->asList()) return {"no list"};
    return {value->asList()->begin(), value->asList()->end()};
  }

  static std::vector<std::string> cascade(const UIFont& font) {
    std::vector<std::string> names;
    for (const Value& value : list(font, UIFontDescriptorCascadeListAttribute)) {
      const auto descriptor = value.as<UIFontDescriptor>();
      names.push_back(descriptor ? descriptor->postscriptName() : "no descriptor");
      if (descriptor && descriptor->pointSize() != font.pointSize()) names.back() += " in another size";
    }
    return names;
  }
};

TEST_F(FontBuilding, NamesFamilyAndWeight) {
  EXPECT_EQ(plain(16)->fontName(), "Tondal-Book");
  EXPECT_EQ(plain(16)->pointSize(), 16.0);
  EXPECT_EQ(Font::font(Font::tondalTitleTall, {}, Font::Weight::black, 12.5, {})->fontName(), "TondalTitleTall-Black");
}

TEST_F(FontBuilding, CarriesBothListsEvenWhereTheyAreEmpty) {
  EXPECT_THAT(list(*plain(16), UIFontDescriptorCascadeListAttribute), IsEmpty());
  EXPECT_THAT(list(*plain(16), UIFontDescriptorFeatureSettingsAttribute), IsEmpty());
}

TEST_F(FontBuilding, TakesTheFallbacksInOrderInItsWeightAndSize) {
  EXPECT_THAT(cascade(*Font::font(Font::tondal, {Font::tondalHebr, Font::tondalArab}, Font::Weight::bold, 16, {})),
              ElementsAre("TondalHebr-Bold", "TondalArab-Bold"));
}

TEST_F(FontBuilding, KeepsTheDefaultSpacingAsAnEmptyEntry) {
  const auto font = Font::font(Font::tondal, {}, Font::Weight::book, 16, {kDefaultSpacing});
  EXPECT_THAT(list(*font, UIFontDescriptorFeatureSettingsAttribute), ElementsAre(Value(Dictionary())));
}

TEST_F(FontBuilding, AsksForMonospacedDigitsByNumber) {
  const auto font = Font::font(Font::tondal, {}, Font::Weight::book, 16, {kMonospaced, kDefaultSpacing});
  EXPECT_THAT(
      list(*font, UIFontDescriptorFeatureSettingsAttribute),
      ElementsAre(Value(Dictionary{{UIFontFeatureTypeIdentifierKey, 6}, {UIFontFeatureSelectorIdentifierKey, 0}}),
                  Value(Dictionary())));
}

TEST_F(FontBuilding, ReturnsTheSameFontForTheSameRequest) {
  const auto request = [] {
    return Font::font(Font::tondal, {Font::tondalArab}, Font::Weight::book, 16, {kMonospaced});
  };
  EXPECT_EQ(request(), request());
  EXPECT_EQ(plain(0.0), plain(-0.0));
}

TEST_F(FontBuilding, TellsRequestsApart) {
  const std::vector<std::shared_ptr<const UIFont>> fonts = {
      Font::font(Font::tondal, {Font::tondalArab, Font::tondalHebr}, Font::Weight::book, 16, {}),
      Font::font(Font::tondal, {Font::tondalHebr, Font::tondalArab}, Font::Weight::book, 16, {}),
      Font::font(Font::tondal, {Font::tondalArab}, Font::Weight::book, 16, {}),
      Font::font(Font::tondalArab, {Font::tondalArab, Font::tondalHebr}, Font::Weight::book, 16, {}),
      Font::font(Font::tondal, {Font::tondalArab, Font::tondalHebr}, Font::Weight::bold, 16, {}),
      Font::font(Font::tondal, {Font::tondalArab, Font::tondalHebr}, Font::Weight::book, 17, {}),
      Font::font(Font::tondal, {Font::tondalArab, Font::tondalHebr}, Font::Weight::book, 16, {kMonospaced}),
      Font::font(Font::tondal, {Font::tondalArab, Font::tondalHebr}, Font::Weight::book, 16, {kDefaultSpacing}),
  };
  for (std::size_t a = 0; a < fonts.size(); ++a)
    for (std::size_t b = 0; b < a; ++b) {
      EXPECT_NE(fonts[a], fonts[b]);
      EXPECT_FALSE(fonts[a]->isEqual(*fonts[b])) << a << ' ' << b;
    }
}

TEST_F(FontBuilding, KeepsTwoFontsForEachTypeStyle) {
  EXPECT_EQ(Brisel::internal::kFontCacheCapacity, 38);
  EXPECT_EQ(static_cast<std::size_t>(Brisel::internal::kFontCacheCapacity), 2 * TypeStyle::allCases().size());
}

TEST_F(FontBuilding, ForgetsTheFontThatWasUsedLeastRecentlyAtThe39th) {
  std::vector<std::shared_ptr<const UIFont>> fonts;
  for (int i = 0; i < 38; ++i) fonts.push_back(plain(10 + i));
  EXPECT_EQ(plain(10), fonts[0]);  // used again, so that the second one is the oldest
  plain(100);
  EXPECT_EQ(plain(10), fonts[0]);
  for (std::size_t i = 2; i < 38; ++i) EXPECT_EQ(plain(10 + static_cast<double>(i)), fonts[i]);
  const auto second = plain(11);
  EXPECT_NE(second, fonts[1]);
  EXPECT_TRUE(second->isEqual(*fonts[1]));
}

TEST_F(FontBuilding, SurvivesSizesThatAreNoSizes) {
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  const auto kept = plain(16);
  for (int i = 0; i < 100; ++i) EXPECT_EQ(plain(kNaN)->pointSize(), 0.0);
  for (const double size : {-1.0, std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()})
    EXPECT_EQ(plain(size)->pointSize(), 0.0);
  EXPECT_EQ(plain(16), kept);
}

TEST_F(FontBuilding, TakesSizesThatAreNoSizesForZero) {
  const auto zero = Font::font(Font::tondal, {Font::tondalArab}, Font::Weight::book, 0, {});
  for (const double size : {-5.0, std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
                            -std::numeric_limits<double>::infinity()})
    EXPECT_EQ(Font::font(Font::tondal, {Font::tondalArab}, Font::Weight::book, size, {}), zero) << size;
}

TEST_F(FontBuilding, TakesListsOfAnyKind) {
  const std::vector<Font> fallbacks(FontStack::text.fallbackFonts.begin(), FontStack::text.fallbackFonts.end());
  EXPECT_EQ(
      Font::font(Font::tondal, fallbacks, Font::Weight::book, 16, {}),
      Font::font(Font::tondal, FontStack::text.fallbackFonts, Font::Weight::book, 16, std::vector<Font::Feature>()));
}

TEST_F(FontBuilding, MayBeDoneByManyThreads) {
  std::vector<std::vector<std::string>> names(8);
  std::vector<std::thread> threads;
  for (auto& mine : names)
    threads.emplace_back([&mine] {
      for (int round = 0; round < 20; ++round)
        for (const Font::Weight weight : Font::Weight::allCases())
          for (int size = 0; size < 20; ++size)
            mine.push_back(Font::font(Font::tondal, FontStack::text.fallbackFonts, weight, size, {})->fontName());
    });
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(names.front().size(), 1200U);
  EXPECT_EQ(names.front()[25], "Tondal-Bold");
  EXPECT_THAT(names, Each(names.front()));
  EXPECT_EQ(plain(16), plain(16));
}

}  // namespace
}  // namespace Brisel
