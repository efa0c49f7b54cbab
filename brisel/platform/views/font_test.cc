#include "brisel/platform/font.h"

#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "brisel/platform/font_manager.h"
#include "brisel/platform/port.h"

namespace Brisel::Platform {
namespace {

// An engine with one face under every name, which remembers what it was asked.
class OneFaceEngine final : public Engine {
 public:
  struct Face final : Typeface {
    Face(const Engine& maker, const std::string& name)
        : Typeface(maker, name,
                   {.ascender = 0.9, .descender = -0.3, .leading = 0.1, .capHeight = 0.7, .xHeight = 0.5}) {}
    bool onHasCharacter(char32_t character) const override { return character == U'a'; }
  };

  TypefaceRequest requested;
  Registration registration = Registration::registered;

 private:
  Registration onRegisterFontFile(const std::filesystem::path&) override { return registration; }
  void onSetUsesHostFonts(bool) override {}
  void onSetSubstituteFamily(const std::string& /*family*/) override {}
  std::shared_ptr<const Typeface> onTypeface(const TypefaceRequest& request) override {
    requested = request;
    return std::make_shared<const Face>(*this, "Substitute");
  }
  std::shared_ptr<const ShapedText> onShape(const ShapeRequest&) override {
    return std::make_shared<const ShapedText>();
  }
  std::unique_ptr<Canvas> onMakeCanvas(int, int, CGFloat, bool) override { return nullptr; }
  PngPicture onDecodePng(std::span<const std::uint8_t>) override { return {}; }
  std::vector<std::uint8_t> onEncodePng(const Bitmap&) override { return {}; }
  std::string onUpperCase(const std::string& text) override { return text; }
};

class Font : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    engine_ = std::make_shared<OneFaceEngine>();
    setEngine(engine_);
  }

  inline static std::shared_ptr<OneFaceEngine> engine_;
  std::shared_ptr<const UIFontDescriptor> descriptor_ = UIFontDescriptor::fontDescriptorWithName("Face-Book", 16);
};

TEST_F(Font, AnswersItsNameAndTheGivenSize) {
  const auto font = UIFont::fontWithDescriptor(descriptor_, 20);
  EXPECT_EQ(font->fontName(), "Face-Book");
  EXPECT_EQ(font->pointSize(), 20);
  EXPECT_EQ(font->fontDescriptor()->pointSize(), 20);
  EXPECT_EQ(engine_->requested.name, "Face-Book");
  EXPECT_EQ(font->typeface()->name(), "Substitute");
}

TEST_F(Font, MeasuresItsFaceInPoints) {
  const auto font = UIFont::fontWithDescriptor(descriptor_, 10);
  EXPECT_EQ(font->ascender(), 0.9 * 10);
  EXPECT_EQ(font->descender(), -0.3 * 10);
  EXPECT_EQ(font->leading(), 0.1 * 10);
  EXPECT_EQ(font->lineHeight(), 0.9 * 10 - -0.3 * 10 + 0.1 * 10);
  EXPECT_EQ(font->capHeight(), 0.7 * 10);
  EXPECT_EQ(font->xHeight(), 0.5 * 10);
  EXPECT_TRUE(font->hasCharacter(U'a'));
  EXPECT_FALSE(font->hasCharacter(U'b'));
}

TEST_F(Font, MayHaveTheSizeZero) {
  EXPECT_EQ(UIFont::fontWithDescriptor(descriptor_, 0)->pointSize(), 0);
  EXPECT_EQ(UIFont::fontWithDescriptor(descriptor_, -1)->pointSize(), 0);
  EXPECT_EQ(UIFont::fontWithDescriptor(descriptor_, std::numeric_limits<double>::quiet_NaN())->pointSize(), 0);
  EXPECT_EQ(UIFont::fontWithDescriptor(descriptor_, std::numeric_limits<double>::infinity())->lineHeight(), 0);
}

TEST_F(Font, KeepsEverythingButItsSizeAtAnotherSize) {
  const auto settings =
      List{Dictionary{{UIFontFeatureTypeIdentifierKey, 6}, {UIFontFeatureSelectorIdentifierKey, 0}}, Dictionary()};
  const auto font = UIFont::fontWithDescriptor(
      descriptor_->fontDescriptorByAddingAttributes({{UIFontDescriptorFeatureSettingsAttribute, settings}}), 16);
  const auto large = font->fontWithSize(32);
  EXPECT_EQ(large->pointSize(), 32);
  EXPECT_EQ(*large->fontDescriptor()->objectForKey(UIFontDescriptorFeatureSettingsAttribute), Value(settings));
  EXPECT_EQ(engine_->requested.features, (std::vector<FontFeatureSetting>{{6, 0}}));
}

TEST_F(Font, IsEqualByDescriptorAndSize) {
  const auto font = UIFont::fontWithDescriptor(descriptor_, 20);
  const auto other = UIFont::fontWithDescriptor(UIFontDescriptor::fontDescriptorWithName("Face-Book", 99), 20);
  EXPECT_TRUE(font->isEqual(*other));  // The descriptor's own size does not count.
  EXPECT_EQ(font->objectHash(), other->objectHash());
  EXPECT_FALSE(font->isEqual(*font->fontWithSize(21)));
  EXPECT_FALSE(font->isEqual(*UIFont::fontWithDescriptor(UIFontDescriptor::fontDescriptorWithName("B", 20), 20)));
}

TEST_F(Font, NeedsADescriptor) { EXPECT_DEATH(UIFont::fontWithDescriptor(nullptr, 16), "descriptor"); }

TEST_F(Font, RegistrationAnswersThePublishedErrors) {
  auto error = CTFontManagerError{};
  EXPECT_TRUE(CTFontManagerRegisterFontsForURL("a.otf", kCTFontManagerScopeProcess, &error));
  EXPECT_EQ(error, CTFontManagerError{});
  for (const auto& [registration, expected] :
       {std::pair{Engine::Registration::fileNotFound, 101}, std::pair{Engine::Registration::unrecognizedFormat, 103},
        std::pair{Engine::Registration::invalidFontData, 104},
        std::pair{Engine::Registration::alreadyRegistered, 105}}) {
    engine_->registration = registration;
    EXPECT_FALSE(CTFontManagerRegisterFontsForURL("a.otf", kCTFontManagerScopeProcess, &error));
    EXPECT_EQ(error, expected);
    EXPECT_FALSE(CTFontManagerRegisterFontsForURL("a.otf", kCTFontManagerScopeProcess));
  }
}

}  // namespace
}  // namespace Brisel::Platform
