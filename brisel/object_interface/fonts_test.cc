#include "brisel/object_interface/fonts.h"

#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/font_descriptor.h"

#include "tests/recording_ports.h"

namespace {

using namespace Brisel::Platform;
using Brisel::Font;
using testing::ElementsAre;
using testing::IsEmpty;
using Loader = VLMBriselFontLoader;

class ObjectFonts : public testing::Test {
 protected:
  void SetUp() override { Brisel::recordingEngine(); }

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
    }
    return names;
  }
  static std::vector<Value> settings(const UIFont& font) {
    return list(font, UIFontDescriptorFeatureSettingsAttribute);
  }
};

TEST_F(ObjectFonts, WrapEachTypefaceAndWeightOnce) {
#define BRISEL_TYPEFACE(name, familyName)                            \
  EXPECT_EQ(VLMBriselSwiftFont::name(), VLMBriselSwiftFont::name()); \
  EXPECT_EQ(VLMBriselSwiftFont::name()->font(), Font::name);         \
  EXPECT_EQ(VLMBriselSwiftFont::wrapping(Font::name), VLMBriselSwiftFont::name());
#define BRISEL_FONT_WEIGHT(name, suffix)                                         \
  EXPECT_EQ(VLMBriselSwiftFontWeight::name(), VLMBriselSwiftFontWeight::name()); \
  EXPECT_EQ(VLMBriselSwiftFontWeight::name()->fontWeight(), Font::Weight::name);
#include "brisel/typography/typefaces.def"
  EXPECT_NE(VLMBriselSwiftFont::tondal(), VLMBriselSwiftFont::tondalArab());
}

TEST_F(ObjectFonts, WrapEachTypefaceOnceForAllThreads) {
  std::vector<const VLMBriselSwiftFont*> seen(8);
  std::vector<std::thread> threads;
  for (auto& mine : seen) threads.emplace_back([&mine] { mine = VLMBriselSwiftFont::tondalDeva().get(); });
  for (auto& thread : threads) thread.join();
  EXPECT_THAT(seen, testing::Each(VLMBriselSwiftFont::tondalDeva().get()));
}

TEST_F(ObjectFonts, KeepFeaturesInAnObject) {
  using NumberSpacing = Font::Feature::NumberSpacingOption;
  const auto monospaced = Font::Feature::numberSpacing(NumberSpacing::monospaced);
  EXPECT_THAT(VLMBriselSwiftFontFeatures::createFontFeaturesWithFontFeatures({monospaced})->value(),
              ElementsAre(monospaced));
}

TEST_F(ObjectFonts, AreThoseOfTheValueInterfaceWithoutFeatures) {
  const auto font = VLMBriselSwiftFont::fontWithPrimaryFont(
      VLMBriselSwiftFont::tondal(), {VLMBriselSwiftFont::tondalHebr(), VLMBriselSwiftFont::tondalArab()},
      VLMBriselSwiftFontWeight::bold(), 16);
  EXPECT_EQ(font, Font::font(Font::tondal, {Font::tondalHebr, Font::tondalArab}, Font::Weight::bold, 16, {}));
  EXPECT_THAT(cascade(*font), ElementsAre("TondalHebr-Bold", "TondalArab-Bold"));
  EXPECT_THAT(settings(*font), IsEmpty());
}

using ObjectFontsDeathTest = ObjectFonts;

TEST_F(ObjectFontsDeathTest, RefuseNullPointers) {
  const auto tondal = VLMBriselSwiftFont::tondal();
  const auto book = VLMBriselSwiftFontWeight::book();
  EXPECT_DEATH(VLMBriselSwiftFont::fontWithPrimaryFont(nullptr, {}, book, 16), "null pointer");
  EXPECT_DEATH(VLMBriselSwiftFont::fontWithPrimaryFont(tondal, {nullptr}, book, 16), "null pointer");
  EXPECT_DEATH(VLMBriselSwiftFont::fontWithPrimaryFont(tondal, {}, nullptr, 16), "null pointer");
}

// --- The loader ---

TEST_F(ObjectFonts, OfTheTextStackFallBackToTheScripts) {
  const auto book = Loader::tondalBookStackWithSize(16), bold = Loader::tondalBoldStackWithSize(12.5);
  EXPECT_EQ(book->fontName(), "Tondal-Book");
  EXPECT_EQ(book->pointSize(), 16.0);
  EXPECT_THAT(cascade(*book), ElementsAre("TondalArab-Book", "TondalHebr-Book", "TondalCyrl-Book", "TondalGrek-Book",
                                          "TondalDeva-Book"));
  EXPECT_EQ(bold->fontName(), "Tondal-Bold");
  EXPECT_EQ(bold->pointSize(), 12.5);
  EXPECT_THAT(cascade(*bold), ElementsAre("TondalArab-Bold", "TondalHebr-Bold", "TondalCyrl-Bold", "TondalGrek-Bold",
                                          "TondalDeva-Bold"));
}

TEST_F(ObjectFonts, OfTheTitleStackFallBackToTheTallCutFirst) {
  const auto bold = Loader::tondalTitleBoldStackWithSize(16), black = Loader::tondalTitleBlackStackWithSize(40);
  EXPECT_EQ(bold->fontName(), "TondalTitle-Bold");
  EXPECT_THAT(cascade(*bold), ElementsAre("TondalTitleTall-Bold", "TondalArab-Bold", "TondalHebr-Bold",
                                          "TondalCyrl-Bold", "TondalGrek-Bold", "TondalDeva-Bold"));
  EXPECT_EQ(black->fontName(), "TondalTitle-Black");
  EXPECT_THAT(cascade(*black), ElementsAre("TondalTitleTall-Black", "TondalArab-Black", "TondalHebr-Black",
                                           "TondalCyrl-Black", "TondalGrek-Black", "TondalDeva-Black"));
}

TEST_F(ObjectFonts, TakeSettingsAsTheyAreGiven) {
  const List given{Dictionary{{"another key", 3}}, "no dictionary"};
  for (const auto& font :
       {Loader::tondalBookStackWithSize(16, given), Loader::tondalBoldStackWithSize(16, given),
        Loader::tondalTitleBoldStackWithSize(16, given), Loader::tondalTitleBlackStackWithSize(16, given),
        Loader::tondalFontStackWithPrimaryFont(VLMBriselSwiftFont::tondal(), {}, VLMBriselSwiftFontWeight::book(), 16,
                                               given)})
    EXPECT_THAT(settings(*font), ElementsAre(given[0], given[1])) << font->fontName();
}

TEST_F(ObjectFonts, ChangeNothingElseBySettings) {
  const List given{Dictionary{{UIFontFeatureTypeIdentifierKey, 6}, {UIFontFeatureSelectorIdentifierKey, 0}}};
  const auto plain = Loader::tondalTitleBlackStackWithSize(16), set = Loader::tondalTitleBlackStackWithSize(16, given);
  EXPECT_FALSE(set->isEqual(*plain));
  EXPECT_EQ(set->fontName(), plain->fontName());
  EXPECT_EQ(cascade(*set), cascade(*plain));
  EXPECT_EQ(set->pointSize(), plain->pointSize());
}

TEST_F(ObjectFonts, OfTheLoaderAreNewAndEqualToTheBaseFontWithoutSettings) {
  const auto general = [](const Loader::FeatureSettings& settings) {
    return Loader::tondalFontStackWithPrimaryFont(VLMBriselSwiftFont::tondalTitle(), {VLMBriselSwiftFont::tondalGrek()},
                                                  VLMBriselSwiftFontWeight::black(), 20, settings);
  };
  const auto base = VLMBriselSwiftFont::fontWithPrimaryFont(
      VLMBriselSwiftFont::tondalTitle(), {VLMBriselSwiftFont::tondalGrek()}, VLMBriselSwiftFontWeight::black(), 20);
  EXPECT_TRUE(general(std::nullopt)->isEqual(*base));
  EXPECT_NE(general(std::nullopt), base);
  EXPECT_NE(general(std::nullopt), general(std::nullopt));
  EXPECT_TRUE(general(List())->isEqual(*base));
}

TEST_F(ObjectFonts, AreNotLoadedAhead) {
  Loader::loadTypeStyleFonts();
  EXPECT_THAT(Brisel::recordingEngine().record().registeredFiles, IsEmpty());
  EXPECT_THAT(Brisel::recordingEngine().record().typefaces, IsEmpty());
}

}  // namespace
