// What is asked of the port, and what is kept. Its pictures: see icon_image_linux_test.cc.
#include "brisel/icons/icon_image.h"

#include <atomic>
#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "brisel/icons/icon_font.h"
#include "brisel/icons/internal/icon_rendering.h"
#include "brisel/platform/font.h"
#include "brisel/platform/screen.h"
#include "brisel/platform/value.h"
#include "brisel/tokens/color.h"

#include "tests/recording_ports.h"

// Each test runs in a process of its own, and so begins with an empty cache.
namespace Brisel {
namespace {

using namespace Platform;
using GlyphSize = Icon::GlyphSize;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kLargest = std::numeric_limits<double>::max();

class IconImage : public testing::Test {
 protected:
  void SetUp() override {
    recordingEngine();
    red_ = UIColor::initWithRed(1, 0, 0, 1);
    clear_ = UIColor::clearColor();
  }

  static void setScale(double scale) { UIScreen::mainScreen().setScale(scale); }
  static std::int64_t cached() { return Brisel::internal::iconImageCache().count(); }
  static RecordingEngine::Record record() { return recordingEngine().record(); }

  ImagePtr heart(CGSize iconSize, CGSize imageSize, std::optional<GlyphSize> glyphSize = {}, CGPoint offset = {}) {
    return image(Icon::heart(), iconSize, imageSize, glyphSize, red_, clear_, offset);
  }
  ImagePtr heart(double side, std::optional<GlyphSize> glyphSize = {}) {
    return heart({side, side}, {side, side}, glyphSize);
  }

  // The character and the font size of the last glyph that was drawn.
  struct Drawn {
    char32_t character = 0;
    double fontSize = 0;
    friend bool operator==(const Drawn&, const Drawn&) = default;
    friend void PrintTo(const Drawn& d, std::ostream* out) {
      *out << std::hex << static_cast<std::uint32_t>(d.character) << " at " << d.fontSize;
    }
  };
  static Drawn drawn() {
    const auto drawings = record().drawings;
    if (drawings.empty() || drawings.back().glyphs.size() != 1) return {};
    return {static_cast<char32_t>(drawings.back().glyphs[0].id), drawings.back().pointSize};
  }

  static constexpr char32_t kHeart16 = 0xF320;
  static constexpr char32_t kHeart24 = 0xF3DB;

  ColorPtr red_;
  ColorPtr clear_;
};

// --- As a text ---

TEST_F(IconImage, AsATextIsOneCharacterInTheIconFont) {
  const auto text = attributedString(Icon::heart(), 24);
  EXPECT_EQ(text->utf16(), std::u16string(1, static_cast<char16_t>(kHeart24)));
  const auto font = text->attribute(NSFontAttributeName, 0)->as<UIFont>();
  EXPECT_EQ(font->fontName(), "halvicon");
  EXPECT_EQ(font->pointSize(), 24.0);
}

TEST_F(IconImage, AsATextChoosesItsDesignByTheFontSize) {
  const auto character = [](double size, std::optional<GlyphSize> glyphSize = {}) {
    return attributedString(Icon::heart(), size, glyphSize)->utf16()[0];
  };
  EXPECT_EQ(character(16.0), kHeart16);
  EXPECT_EQ(character(16.01), kHeart24);
  EXPECT_EQ(character(kNaN), kHeart24);
  EXPECT_EQ(character(40, GlyphSize::x16), kHeart16);
  EXPECT_EQ(character(8, GlyphSize::x24), kHeart24);
}

TEST_F(IconImage, AsATextTakesTheCallersAttributesAndTheirFontFirst) {
  const auto other = UIFont::fontWithDescriptor(UIFontDescriptor::fontDescriptorWithName("Other", 3), 3);
  const auto text = attributedString(Icon::heart(), 24, {}, {{NSKernAttributeName, 2}, {NSFontAttributeName, other}});
  EXPECT_EQ(*text->attribute(NSKernAttributeName, 0), Value(2));
  EXPECT_EQ(text->attribute(NSFontAttributeName, 0)->as<UIFont>(), other);
}

// --- Font size and design ---

TEST_F(IconImage, SetsTheGlyphAtTheHeightOfItsBox) {
  setScale(3);
  heart(24);
  EXPECT_EQ(drawn(), (Drawn{kHeart24, 24.0}));
  heart(16);
  EXPECT_EQ(drawn(), (Drawn{kHeart16, 16.0}));
  heart(16, GlyphSize::x24);
  EXPECT_EQ(drawn(), (Drawn{kHeart24, 16.0}));
  heart(24, GlyphSize::x16);
  EXPECT_EQ(drawn(), (Drawn{kHeart16, 24.0}));
}

TEST_F(IconImage, CutsTheFontSizeToATenth) {
  setScale(3);
  heart(16.7);  // 50 pixels are 16.666… points
  EXPECT_EQ(drawn(), (Drawn{kHeart24, 16.6}));
  setScale(1);
  heart(16.05);
  EXPECT_EQ(drawn(), (Drawn{kHeart16, 16.0}));
}

TEST_F(IconImage, TakesTheFontSizeFromTheHeightAlone) {
  heart({100, 12}, {100, 12});
  EXPECT_EQ(drawn(), (Drawn{kHeart16, 12.0}));
}

TEST_F(IconImage, OfAnIconWithOneDesignUsesThatOne) {
  const Icon icon("Own", false, Icon::Glyphs(Icon::Glyph(0xE000), std::nullopt));
  image(icon, {48, 48}, {}, red_, clear_);
  EXPECT_EQ(drawn(), (Drawn{0xE000, 48.0}));
}

TEST_F(IconImage, OfAnIconWithoutGlyphsIsAProgrammingError) {
  const Icon icon("Own", false, Icon::Glyphs(std::nullopt, std::nullopt));
  EXPECT_DEATH(image(icon, {48, 48}, {}, red_, clear_), "glyph");
}

// --- Sizes ---

TEST_F(IconImage, IsCutDownToWholePixelsOnce) {
  setScale(2.625);
  const double snapped = 51 / 2.625;  // 19.428571428571427; cut a second time it would lose a pixel
  const ImagePtr picture = heart(19.5);
  EXPECT_EQ(picture->bitmap()->width, 51);
  EXPECT_EQ(picture->bitmap()->height, 51);
  EXPECT_EQ(picture->size().height, snapped);
  EXPECT_EQ(drawn().fontSize, 19.4);
}

TEST_F(IconImage, OfABadSizeIsEmptyAndNotKept) {
  setScale(3);
  for (const double bad : {0.0, -0.0, -24.0, kInfinity, -kInfinity, kNaN, kLargest, 0.33, 5e-324}) {
    for (const auto& [iconSize, imageSize] :
         {std::pair(CGSize{bad, 24}, CGSize{24, 24}), std::pair(CGSize{24, bad}, CGSize{24, 24}),
          std::pair(CGSize{24, 24}, CGSize{bad, 24}), std::pair(CGSize{24, 24}, CGSize{24, bad})}) {
      const ImagePtr picture = heart(iconSize, imageSize);
      ASSERT_NE(picture, nullptr);
      EXPECT_EQ(picture->bitmap(), nullptr) << bad;
    }
  }
  EXPECT_EQ(cached(), 0);
  EXPECT_THAT(record().canvases, testing::IsEmpty());
}

TEST_F(IconImage, OfTheLargestDoubleIsEmptyAtAnyScale) {
  for (const double scale : {0.5, 1.0, 3.0}) {
    setScale(scale);
    EXPECT_EQ(heart({kLargest, kLargest}, {kLargest, kLargest})->bitmap(), nullptr);
  }
}

TEST_F(IconImage, TooLargeToDrawIsEmptyAndNotKept) {
  EXPECT_EQ(heart({24, 24}, {1e18, 24})->bitmap(), nullptr);
  EXPECT_EQ(heart({1e300, 24}, {1e300, 24})->bitmap(), nullptr);
  EXPECT_EQ(cached(), 0);
}

TEST_F(IconImage, OfABoxOfAnyWidthIsDrawn) { EXPECT_NE(heart({1e300, 24}, {24, 24})->bitmap(), nullptr); }

TEST_F(IconImage, TooHighForAFontSizeIsAProgrammingError) {
  EXPECT_DEATH(heart({24, 1e18}, {24, 1e18}), "too high") << "though too large to draw";
  EXPECT_DEATH(heart({24, 1e18}, {24, 24}), "too high");
  EXPECT_DEATH(heart({24, 1e300}, {24, 24}), "too high");
  EXPECT_NE(heart({24, 9e17}, {24, 24})->bitmap(), nullptr);
}

TEST_F(IconImage, HasAsManyPixelsAsFitItsSize) {
  EXPECT_TRUE(rc::check([] {
    const double scale = *rc::gen::element(1.0, 1.5, 2.0, 2.625, 3.0);
    setScale(scale);
    const double side = *rc::gen::inRange(1, 9000) / 100.0;
    // At an offset of its own, as what is kept was drawn at the scale of its time.
    const CGSize size{side, side};
    const ImagePtr picture =
        image(Icon::star(), size, size, {}, UIColor::clearColor(), UIColor::clearColor(), {scale, 0});
    const auto pixels = static_cast<int>(std::floor(side * scale));
    RC_ASSERT((picture->bitmap() ? picture->bitmap()->height : 0) == pixels);
    if (pixels > 0) RC_ASSERT(picture->size().height == pixels / scale);
  }));
}

// Where the screen changes while memory is first watched, which is while the first image is being made.
class ChangingScreen final : public SystemEvents {
 protected:
  void onPost(Work) override {}
  std::size_t onRunPending() override { return 0; }
  void onWatchMemoryPressure(PressureHandler) override { UIScreen::mainScreen().setScale(3); }
  void onStopWatchingMemoryPressure() override {}
};

// What is cut at one scale and drawn at another has too many pixels or too few.
TEST(IconImageOnAChangingScreen, IsCutAndDrawnAtTheScaleThatWasFirst) {
  setSystemEvents(std::make_shared<ChangingScreen>());
  setEngine(std::make_shared<RecordingEngine>());
  const ImagePtr picture = image(Icon::heart(), {24.5, 24.5}, {}, UIColor::clearColor(), UIColor::clearColor());
  EXPECT_EQ(UIScreen::mainScreen().scale(), 3.0);
  EXPECT_EQ(picture->scale(), 1.0);
  EXPECT_EQ(picture->bitmap()->width, 24);
  EXPECT_EQ(picture->bitmap()->height, 24);
}

TEST_F(IconImage, HasThePixelsOfItsOwnScaleWhileAnotherThreadChangesTheScreens) {
  std::atomic<bool> isRunning{false};
  std::atomic<bool> isDone{false};
  std::thread host([&] {
    for (double scale = 1; !isDone; scale = 4 - scale) {
      setScale(scale);
      isRunning = true;
    }
  });
  while (!isRunning) std::this_thread::yield();
  for (int i = 0; i < 2000; ++i) {
    const ImagePtr picture = heart({24.5, 24.5}, {24.5, 24.5}, {}, {static_cast<double>(i), 0});
    EXPECT_EQ(picture->bitmap()->width, std::floor(24.5 * picture->scale()));
    EXPECT_EQ(picture->bitmap()->height, std::floor(24.5 * picture->scale()));
  }
  isDone = true;
  host.join();
}

// --- Place ---

TEST_F(IconImage, CentresTheBoxAndMovesItByTheOffset) {
  heart({20, 20}, {40, 60}, {}, {3, -4});
  const auto drawing = record().drawings.at(0);
  // A glyph of half an em is centred in its box; its baseline lies three quarters of an em below the box's top.
  EXPECT_EQ(drawing.glyphs.at(0).origin, (CGPoint{10 + 3 + 5, 20 - 4 + 15}));
}

TEST_F(IconImage, MayBeSmallerThanItsBox) {
  heart({40, 40}, {20, 20});
  EXPECT_EQ(record().drawings.at(0).glyphs.at(0).origin, (CGPoint{-10 + 10, -10 + 30}));
}

// --- Ground ---

TEST_F(IconImage, FillsTheGroundUnlessItIsClear) {
  image(Icon::heart(), {24, 24}, {}, red_, clear_);
  EXPECT_THAT(record().fills, testing::IsEmpty());
  const auto faint = UIColor::initWithRed(0, 0, 1, 0.001);
  image(Icon::heart(), {24, 24}, {30, 20}, {}, red_, faint, {});
  ASSERT_EQ(record().fills.size(), 1U);
  EXPECT_EQ(record().fills[0].rect, (CGRect{{0, 0}, {30, 20}}));
  EXPECT_EQ(record().fills[0].color, *faint);
}

TEST_F(IconImage, IsOpaqueOnlyOnAGroundOfFullAlpha) {
  for (const double alpha : {0.0, 0.999999999, 1.0, 1.5}) {
    const ImagePtr picture = image(Icon::heart(), {24, 24}, {}, red_, UIColor::initWithWhite(0, alpha));
    EXPECT_EQ(record().canvases.back().isOpaque, alpha == 1.0);
    EXPECT_EQ(picture->alphaInfo(),
              alpha == 1.0 ? CGImageAlphaInfo::noneSkipLast : CGImageAlphaInfo::premultipliedLast);
  }
}

TEST_F(IconImage, IsDrawnInItsColourAndNeverTinted) {
  const ImagePtr picture = heart(24);
  EXPECT_EQ(record().drawings.at(0).color, *red_);
  EXPECT_EQ(picture->renderingMode(), UIImageRenderingMode::alwaysOriginal);
}

TEST_F(IconImage, WithoutAColourIsAProgrammingError) {
  EXPECT_DEATH(image(Icon::heart(), {24, 24}, {}, nullptr, clear_), "null colour");
  EXPECT_DEATH(image(Icon::heart(), {24, 24}, {}, red_, nullptr), "null colour");
}

// --- The cache ---

TEST_F(IconImage, IsTheSameObjectWhenAskedForAgain) {
  const ImagePtr once = heart(24);
  EXPECT_EQ(heart(24), once);
  EXPECT_EQ(image(Icon::heart(), {24, 24}, {}, UIColor::initWithRed(1, 0, 0, 1), UIColor::initWithWhite(0, 0)), once);
  EXPECT_EQ(cached(), 1);
  EXPECT_EQ(record().drawings.size(), 1U);
}

TEST_F(IconImage, StaysAsItWasDrawnWhenTheScreensScaleChanges) {
  const ImagePtr once = heart(24);
  setScale(2);
  EXPECT_EQ(heart(24), once);
  EXPECT_EQ(heart(25)->scale(), 2.0);
}

TEST_F(IconImage, IsKeptForEachRequestOfItsOwn) {
  const auto grey = UIColor::initWithWhite(1, 1);
  const auto white = UIColor::initWithRed(1, 1, 1, 1);
  heart({24, 24}, {24, 24});
  heart({24, 24}, {24, 24}, {}, {0, 1});      // another offset
  heart({24.1, 24.1}, {24.1, 24.1});          // cut to the same pixels
  heart({24, 24}, {24, 24}, GlyphSize::x24);  // the design that is taken anyway
  image(Icon::heart(), {24, 24}, {}, grey, clear_);
  image(Icon::heart(), {24, 24}, {}, white, clear_);  // grey white and RGB white are two
  image(Icon::heart(), {24, 24}, {}, white, red_);
  image(Icon::star(), {24, 24}, {}, red_, clear_);
  image(Icon::ban(), {24, 24}, {}, red_, clear_);
  image(Icon::skip(), {24, 24}, {}, red_, clear_);  // draws the same as ban
  EXPECT_EQ(cached(), 10);
}

TEST_F(IconImage, CacheHoldsTwoDesignsOfEachIconAndTenMebibytes) {
  EXPECT_EQ(Brisel::internal::iconImageCache().capacity(), 656);
  EXPECT_EQ(Brisel::internal::iconImageCache().memoryLimit(), 10'485'760);
}

TEST_F(IconImage, CacheIsEmptiedWhenTheSystemRunsShortOfMemory) {
  auto& events = dynamic_cast<RecordingSystemEvents&>(systemEvents());
  const ImagePtr before = heart(24);
  ASSERT_EQ(cached(), 1);
  ASSERT_TRUE(events.deliverMemoryPressure(MemoryPressureLevel::warning));
  events.runPending();
  EXPECT_EQ(cached(), 0);
  EXPECT_NE(heart(24), before);
}

TEST_F(IconImage, OfTheWholeBudgetIsNotKept) {
  const ImagePtr whole = heart({24, 24}, {2048, 1280});  // 10 MiB exactly
  EXPECT_EQ(whole->bitmap()->rgba.size(), 10'485'760U);
  EXPECT_EQ(cached(), 0);
  EXPECT_NE(heart({24, 24}, {2048, 1280}), whole);
  const ImagePtr less = heart({24, 24}, {2048, 1279});
  EXPECT_EQ(cached(), 1);
  EXPECT_EQ(heart({24, 24}, {2048, 1279}), less);
}

TEST_F(IconImage, CountsTheBytesOfItsBitmap) {
  heart({24, 24}, {1024, 1280});  // 5 MiB
  heart({24, 24}, {1280, 1024});
  EXPECT_EQ(cached(), 2);  // the limit, not above it
  heart(24);
  EXPECT_EQ(cached(), 2);  // the first one went
}

TEST_F(IconImage, ThatNobodyCouldFindAgainIsNotKept) {
  EXPECT_NE(heart({24, 24}, {24, 24}, {}, {kNaN, 0})->bitmap(), nullptr);
  image(Icon::heart(), {24, 24}, {}, UIColor::initWithWhite(kNaN, 1), clear_);
  EXPECT_EQ(cached(), 0);
}

// --- The key ---

class IconConfigurationTest : public testing::Test {
 protected:
  static IconConfiguration make(std::optional<GlyphSize> glyphSize, double x) {
    return IconConfiguration(Icon::heart(), {24, 16.5}, {32, 32}, glyphSize, UIColor::initWithWhite(1, 0.5),
                             UIColor::initWithRed(0.071, 0.2, 0.3, 1), {x, 2});
  }
};

TEST_F(IconConfigurationTest, IsEqualAndHashesAlikeWithEqualFields) {
  EXPECT_EQ(make(GlyphSize::x16, 0.0), make(GlyphSize::x16, -0.0));
  const std::hash<IconConfiguration> hash;
  EXPECT_EQ(hash(make(GlyphSize::x16, 0.0)), hash(make(GlyphSize::x16, -0.0)));
  EXPECT_NE(make(GlyphSize::x16, 0), make(GlyphSize::x24, 0));
  EXPECT_NE(make(std::nullopt, 0), make(GlyphSize::x16, 0));
  EXPECT_NE(make(std::nullopt, 0), make(std::nullopt, 1));
  EXPECT_NE(hash(make(std::nullopt, 0)), hash(make(GlyphSize::x16, 0)));
}

TEST_F(IconConfigurationTest, DescribesItself) {
  EXPECT_EQ(make({}, 0).description(), "Icon: name: Heart, iconSize: (24.0, 16.5), imageSize: (32.0, 32.0)");
  EXPECT_EQ(make(GlyphSize::x24, -1.5).debugDescription(),
            "{\n    icon: " + Icon::heart().debugDescription() +
                "\n    iconSize: (24.0, 16.5)\n    imageSize: (32.0, 32.0)\n    glyphSize: x24 - rank: 1"
                "\n    color: white 1.0 alpha 0.5\n    backgroundColor: red 0.071 green 0.2 blue 0.3 alpha 1.0"
                "\n    offset: (-1.5, 2.0)\n}");
  EXPECT_NE(make({}, 0).debugDescription().find("\n    glyphSize: nil\n"), std::string::npos);
}

TEST_F(IconConfigurationTest, WithoutAColourIsAProgrammingError) {
  EXPECT_DEATH(IconConfiguration(Icon::heart(), {1, 1}, {1, 1}, {}, nullptr, UIColor::clearColor(), {}), "null colour");
}

}  // namespace
}  // namespace Brisel
