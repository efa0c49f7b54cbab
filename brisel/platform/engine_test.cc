#include "brisel/platform/engine.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "brisel/platform/recording/engine.h"

namespace Brisel::Platform {
namespace {

constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();
constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();

TEST(Engine, ShapesNothingWhereTheSpansDoNotCoverTheText) {
  RecordingEngine engine;
  const auto typeface = engine.typeface({});
  const TypefaceSpan half{1, typeface, 12, true};
  const TypefaceSpan none{2, nullptr, 12, true};
  const TypefaceSpan backwards[] = {{2, typeface, 12, true}, {1, typeface, 12, true}};
  EXPECT_EQ(engine.shape({u"ab", {}, {}, false})->length, 0U);
  EXPECT_EQ(engine.shape({u"ab", {&half, 1}, {}, false})->length, 0U);
  EXPECT_EQ(engine.shape({u"ab", {&none, 1}, {}, false})->length, 0U);
  EXPECT_EQ(engine.shape({u"ab", backwards, {}, false})->length, 0U);
  EXPECT_TRUE(engine.record().shapedTexts.empty());
}

TEST(Engine, RefusesTheHandlesOfAnotherEngine) {
  RecordingEngine engine;
  RecordingEngine other;
  const TypefaceSpan foreign{1, other.typeface({}), 12, true};
  EXPECT_EQ(engine.shape({u"a", {&foreign, 1}, {}, false})->length, 0U);

  const auto canvas = engine.makeCanvas({10, 10}, 1);
  const PositionedGlyph glyph{1, {0, 0}};
  const auto foreignText = other.shape({u"a", {&foreign, 1}, {}, false});
  canvas->drawGlyphs(*foreignText->runs[0].face, 12, {&glyph, 1}, UIColor::grey(0, 1));
  EXPECT_TRUE(engine.record().drawings.empty());
}

TEST(Engine, ShapesNothingThatIsIllFormedOrOfNoSize) {
  RecordingEngine engine;
  const auto typeface = engine.typeface({});
  const TypefaceSpan span{2, typeface, 12, true};
  EXPECT_EQ(engine.shape({u"\xD83Cx", {&span, 1}, {}, false})->length, 0U);
  EXPECT_EQ(engine.shape({u"x\xDFB5", {&span, 1}, {}, false})->length, 0U);
  EXPECT_EQ(engine.shape({u"\xD83C\xDFB5", {&span, 1}, {}, false})->length, 2U);
  const TypefaceSpan odd{2, typeface, kNaN, true};
  EXPECT_EQ(engine.shape({u"ab", {&odd, 1}, {}, false})->length, 0U);
}

// A port that answers nothing where it must, and a typeface only when told.
class EmptyEngine final : public Engine {
 public:
  bool answersTypefaces = false;

 private:
  class EmptyTypeface final : public Typeface {
   public:
    explicit EmptyTypeface(const Engine& maker) : Typeface(maker, "", {}) {}

   private:
    bool onHasCharacter(char32_t /*character*/) const override { return false; }
  };

  Registration onRegisterFontFile(const std::filesystem::path& /*file*/) override { return Registration::registered; }
  void onSetSubstituteFamily(const std::string& /*family*/) override {}
  void onSetUsesHostFonts(bool /*uses*/) override {}
  std::shared_ptr<const Typeface> onTypeface(const TypefaceRequest& /*request*/) override {
    return answersTypefaces ? std::make_shared<const EmptyTypeface>(*this) : nullptr;
  }
  std::shared_ptr<const ShapedText> onShape(const ShapeRequest& /*request*/) override { return nullptr; }
  std::unique_ptr<Canvas> onMakeCanvas(int /*width*/, int /*height*/, CGFloat /*scale*/, bool /*isOpaque*/) override {
    return nullptr;
  }
  PngPicture onDecodePng(std::span<const std::uint8_t> /*file*/) override { return {}; }
  std::vector<std::uint8_t> onEncodePng(const Bitmap& /*bitmap*/) override { return {}; }
  std::string onUpperCase(const std::string& text) override { return text; }
};

TEST(EngineDeathTest, APortThatAnswersNothingEndsTheProcess) {
  EmptyEngine engine;
  EXPECT_DEATH(engine.typeface({}), "typeface");
  engine.answersTypefaces = true;
  const TypefaceSpan span{1, engine.typeface({}), 12, true};
  EXPECT_DEATH(engine.shape({u"a", {&span, 1}, WritingDirection::natural, false}), "shaped a text");
}

TEST(Engine, MakesNoCanvasOfAnImpossibleSize) {
  RecordingEngine engine;
  for (const CGSize size : {CGSize{0, 1}, CGSize{-1, 1}, CGSize{kNaN, 1}, CGSize{1, kInfinity}, CGSize{32'768, 1}}) {
    EXPECT_EQ(engine.makeCanvas(size, 1), nullptr);
  }
  for (const CGFloat scale : {0.0, -1.0, kNaN, kInfinity}) EXPECT_EQ(engine.makeCanvas({1, 1}, scale), nullptr);
  EXPECT_EQ(engine.makeCanvas({20'000, 1}, 2), nullptr);
}

TEST(Engine, RoundsACanvasUpToWholePixels) {
  RecordingEngine engine;
  const Bitmap bitmap = engine.makeCanvas({10.1, 3}, 1.5)->bitmap();
  EXPECT_EQ(bitmap.width, 16);
  EXPECT_EQ(bitmap.height, 5);
}

TEST(Canvas, DrawsNothingThatIsNotFinite) {
  RecordingEngine engine;
  const TypefaceSpan span{1, engine.typeface({}), 12, true};
  const auto text = engine.shape({u"a", {&span, 1}, {}, false});
  const Face& face = *text->runs[0].face;
  const auto canvas = engine.makeCanvas({10, 10}, 1);
  const UIColor black = UIColor::grey(0, 1);
  canvas->fillRect({{0, 0}, {0, 5}}, black);
  canvas->fillRect({{0, 0}, {-5, 5}}, black);
  canvas->fillRect({{kNaN, 0}, {5, 5}}, black);
  canvas->fillRect({{0, 0}, {kInfinity, 5}}, black);
  const PositionedGlyph lost{1, {kNaN, 0}};
  const PositionedGlyph sound{1, {0, 0}};
  canvas->drawGlyphs(face, 12, {&lost, 1}, black);
  for (const CGFloat size : {0.0, -1.0, kNaN, kInfinity}) canvas->drawGlyphs(face, size, {&sound, 1}, black);
  EXPECT_TRUE(engine.record().fills.empty());
  EXPECT_TRUE(engine.record().drawings.empty());

  canvas->fillRect({{0, 0}, {5, 5}}, black);
  canvas->drawGlyphs(face, 12, {&sound, 1}, black);
  EXPECT_EQ(engine.record().fills.size(), 1U);
  EXPECT_EQ(engine.record().drawings.size(), 1U);
}

TEST(Engine, EncodesNoBitmapWhosePixelsAreNotWhatItsSizeSays) {
  RecordingEngine engine;
  EXPECT_TRUE(engine.encodePng({}).empty());
  EXPECT_TRUE(engine.encodePng({2, 2, std::vector<std::uint8_t>(15)}).empty());
  EXPECT_TRUE(engine.encodePng({-1, -1, std::vector<std::uint8_t>(4)}).empty());
  EXPECT_EQ(engine.encodePng({2, 2, std::vector<std::uint8_t>(16)}).size(), 16U);
}

TEST(Engine, RepairsIllFormedTextBeforeUpperCasingIt) {
  RecordingEngine engine;
  EXPECT_EQ(engine.upperCase("a\xFFz"), "A\xEF\xBF\xBDZ");
}

TEST(RecordingEngine, KeepsWhatItWasAskedUntilToldToForget) {
  RecordingEngine engine;
  engine.typeface({"Any-Book", {"Other-Book"}, {{6, 0}}});
  engine.setUsesHostFonts(false);
  EXPECT_EQ(engine.registerFontFile("a.otf"), Engine::Registration::registered);
  EXPECT_EQ(engine.registerFontFile("a.otf"), Engine::Registration::alreadyRegistered);
  const auto record = engine.record();
  ASSERT_EQ(record.typefaces.size(), 1U);
  EXPECT_EQ(record.typefaces[0], (TypefaceRequest{"Any-Book", {"Other-Book"}, {{6, 0}}}));
  EXPECT_EQ(record.registeredFiles.size(), 2U);
  EXPECT_FALSE(record.usesHostFonts);
  engine.forget();
  EXPECT_TRUE(engine.record().typefaces.empty());
}

TEST(RecordingEngine, AnswersRegistrationAsItIsTold) {
  RecordingEngine engine;
  engine.setRegistrationResult(Engine::Registration::invalidFontData);
  EXPECT_EQ(engine.registerFontFile("a.otf"), Engine::Registration::invalidFontData);
}

TEST(RecordingEngine, LacksTheCharactersThatItIsToldToLack) {
  RecordingEngine engine;
  const auto typeface = engine.typeface({});
  EXPECT_TRUE(typeface->hasCharacter(U'x'));
  engine.setMissingCharacters(U"x");
  EXPECT_FALSE(typeface->hasCharacter(U'x'));
  EXPECT_TRUE(typeface->hasCharacter(U'y'));
}

}  // namespace
}  // namespace Brisel::Platform
