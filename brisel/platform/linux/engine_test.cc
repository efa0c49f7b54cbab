// The Linux port against the bundle's real faces, by its public interface. The host's fonts are off.
#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "brisel/platform/bundle.h"
#include "brisel/platform/port.h"
#include "brisel/platform/text_layout.h"

namespace Brisel::Platform {
namespace {

namespace fs = std::filesystem;
using Registration = Engine::Registration;

const fs::path kBundle = BRISEL_TEST_BUNDLE;

const std::vector<std::string> kCompanions{"TondalArab-Book", "TondalHebr-Book", "TondalCyrl-Book", "TondalGrek-Book",
                                           "TondalDeva-Book"};

class LinuxEngineTest : public testing::Test {
 protected:
  LinuxEngineTest() { engine().setUsesHostFonts(false); }

  static void registerBundle() {
    const auto bundle = NSBundle::bundleWithPath(kBundle);
    const auto files = bundle->URLsForResourcesWithExtension("otf");
    for (const fs::path& file : *files) engine().registerFontFile(file);
  }

  static std::shared_ptr<const Typeface> textFace(std::vector<FontFeatureSetting> features = {}) {
    return engine().typeface({"Tondal-Book", kCompanions, std::move(features)});
  }

  static std::shared_ptr<const ShapedText> shape(std::u16string_view text,
                                                 std::shared_ptr<const Typeface> typeface = textFace()) {
    const TypefaceSpan span{static_cast<std::uint32_t>(text.size()), std::move(typeface), 16, true};
    return engine().shape({text, {&span, 1}, WritingDirection::natural, false});
  }

  static CGFloat width(std::u16string_view text, std::shared_ptr<const Typeface> typeface = textFace()) {
    const TextSizeSpan size{static_cast<std::uint32_t>(text.size()), 16, 0, 0, typeface->metrics()};
    return TextLayout(shape(text, typeface), {&size, 1}, {}, {}).size().width;
  }

  // The names of the faces that draw a text, in the order of the text.
  static std::vector<std::string> facesOf(std::u16string_view text) {
    const std::vector<std::string> names = [] {
      std::vector<std::string> all{"Tondal-Book"};
      all.insert(all.end(), kCompanions.begin(), kCompanions.end());
      return all;
    }();
    std::vector<std::string> result;
    const auto shaped = shape(text);
    for (const ShapedRun& run : shaped->runs) {
      for (const std::string& name : names) {
        const auto alone = shape(u"a", engine().typeface({name, {}, {}}));
        if (run.face == alone->runs[0].face && (result.empty() || result.back() != name)) result.push_back(name);
      }
    }
    return result;
  }

  static fs::path temporary(const std::string& name) {
    const fs::path directory = fs::path(testing::TempDir()) / ("brisel_fonts_" + std::to_string(::getpid()));
    fs::create_directories(directory);
    return directory / name;
  }

  static std::string contents(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  static fs::path write(const std::string& name, const std::string& bytes) {
    const fs::path file = temporary(name);
    std::ofstream(file, std::ios::binary) << bytes;
    return file;
  }
};

TEST_F(LinuxEngineTest, ReportsWhyAFileIsRefused) {
  EXPECT_EQ(engine().registerFontFile("/nowhere/at/all.otf"), Registration::fileNotFound);
  EXPECT_EQ(engine().registerFontFile(""), Registration::fileNotFound);
  EXPECT_EQ(engine().registerFontFile(kBundle), Registration::unrecognizedFormat);  // a directory
  EXPECT_EQ(engine().registerFontFile(write("empty.otf", "")), Registration::unrecognizedFormat);
  EXPECT_EQ(engine().registerFontFile(write("text.otf", "This is no font.")), Registration::unrecognizedFormat);
  const std::string sound = contents(kBundle / "Tondal-Book.otf");
  EXPECT_EQ(engine().registerFontFile(write("cut.otf", sound.substr(0, sound.size() / 2))),
            Registration::invalidFontData);
  EXPECT_EQ(engine().registerFontFile(write("head.otf", sound.substr(0, 40))), Registration::invalidFontData);

  EXPECT_EQ(engine().registerFontFile(kBundle / "Tondal-Book.otf"), Registration::registered);
  EXPECT_EQ(engine().registerFontFile(kBundle / "Tondal-Book.otf"), Registration::alreadyRegistered);
  EXPECT_EQ(engine().registerFontFile(kBundle / "." / "Tondal-Book.otf"), Registration::alreadyRegistered);
  EXPECT_EQ(engine().registerFontFile(write("copy.otf", sound)), Registration::alreadyRegistered);
}

TEST_F(LinuxEngineTest, FindsEachOfTheBundlesFacesByItsName) {
  registerBundle();
  for (const char* family : {"Tondal", "TondalArab", "TondalHebr", "TondalCyrl", "TondalGrek", "TondalDeva",
                             "TondalTitle", "TondalTitleTall"}) {
    for (const char* weight : {"Book", "Bold", "Black"}) {
      const std::string name = std::string(family) + "-" + weight;
      EXPECT_EQ(engine().typeface({name, {}, {}})->name(), name);
    }
  }
}

TEST_F(LinuxEngineTest, AMissingNameGetsTheTextFaceInTheNearestWeight) {
  registerBundle();
  EXPECT_EQ(engine().typeface({"Nope-Book", {}, {}})->name(), "Tondal-Book");
  EXPECT_EQ(engine().typeface({"Nope-Bold", {}, {}})->name(), "Tondal-Bold");
  EXPECT_EQ(engine().typeface({"Nope-Black", {}, {}})->name(), "Tondal-Black");
  EXPECT_EQ(engine().typeface({"Nope-SemiBold", {}, {}})->name(), "Tondal-Bold");
  EXPECT_EQ(engine().typeface({"", {}, {}})->name(), "Tondal-Book");
}

TEST_F(LinuxEngineTest, TheNamedFamilyStandsInForMissingNames) {
  registerBundle();
  engine().setSubstituteFamily("TondalTitle");
  EXPECT_EQ(engine().typeface({"Nope-Black", {}, {}})->name(), "TondalTitle-Black");
  engine().setSubstituteFamily("Unknown");
  EXPECT_EQ(engine().typeface({"Nope-Black", {}, {}})->name(), "Tondal-Black");
}

TEST_F(LinuxEngineTest, ASubstituteNeverOutlivesTheRegistrationOfTheName) {
  engine().registerFontFile(kBundle / "Tondal-Book.otf");
  std::atomic<bool> isDone{false};
  std::thread asker([&isDone] {
    while (!isDone) engine().typeface({"TondalTitle-Bold", {}, {}});
  });
  engine().registerFontFile(kBundle / "TondalTitle-Bold.otf");
  isDone = true;
  asker.join();
  EXPECT_EQ(engine().typeface({"TondalTitle-Bold", {}, {}})->name(), "TondalTitle-Bold");
}

TEST_F(LinuxEngineTest, WithoutAnyFontTextStillHasAMeasureAndDrawsNothing) {
  const auto typeface = engine().typeface({"Nope", {}, {}});
  EXPECT_FALSE(typeface->hasCharacter(U'a'));
  const auto text = shape(u"abc", typeface);
  EXPECT_EQ(text->length, 3U);
  const TextSizeSpan size{3, 16, 0, 0, typeface->metrics()};
  const auto canvas = engine().makeCanvas({50, 50}, 1);
  TextLayout(text, {&size, 1}, {}, {}).draw(*canvas, {0, 20}, {});
  const Bitmap bitmap = canvas->bitmap();
  EXPECT_TRUE(std::all_of(bitmap.rgba.begin(), bitmap.rgba.end(), [](std::uint8_t byte) { return byte == 0; }));
}

TEST_F(LinuxEngineTest, ANameRegisteredLaterReplacesItsSubstitute) {
  engine().registerFontFile(kBundle / "Tondal-Book.otf");
  EXPECT_EQ(engine().typeface({"TondalTitle-Bold", {}, {}})->name(), "Tondal-Book");
  engine().registerFontFile(kBundle / "TondalTitle-Bold.otf");
  EXPECT_EQ(engine().typeface({"TondalTitle-Bold", {}, {}})->name(), "TondalTitle-Bold");
}

TEST_F(LinuxEngineTest, AnswersTheFacesOwnMetrics) {
  registerBundle();
  const FontMetrics& metrics = textFace()->metrics();
  EXPECT_EQ(metrics.ascender, 0.95);
  EXPECT_EQ(metrics.descender, -0.25);
  EXPECT_EQ(metrics.leading, 0);
  EXPECT_GT(metrics.capHeight, metrics.xHeight);
  EXPECT_GT(metrics.xHeight, 0.4);
}

TEST_F(LinuxEngineTest, EachCharacterTakesTheFirstOfTheCascadeThatHasIt) {
  registerBundle();
  EXPECT_THAT(facesOf(u"Hello"), testing::ElementsAre("Tondal-Book"));
  EXPECT_THAT(facesOf(u"שלום"), testing::ElementsAre("TondalHebr-Book"));
  EXPECT_THAT(facesOf(u"سلام"), testing::ElementsAre("TondalArab-Book"));
  EXPECT_THAT(facesOf(u"Привет"), testing::ElementsAre("TondalCyrl-Book"));
  EXPECT_THAT(facesOf(u"Ελλάδα"), testing::ElementsAre("TondalGrek-Book"));
  EXPECT_THAT(facesOf(u"हिन्दी"), testing::ElementsAre("TondalDeva-Book"));
  EXPECT_THAT(facesOf(u"a я"), testing::ElementsAre("Tondal-Book", "TondalCyrl-Book"));
  EXPECT_TRUE(textFace()->hasCharacter(U'ש'));
  EXPECT_FALSE(textFace()->hasCharacter(U'漢'));
  EXPECT_FALSE(engine().typeface({"Tondal-Book", {}, {}})->hasCharacter(U'ש'));
}

TEST_F(LinuxEngineTest, ACharacterThatNobodyHasIsDrawnByThePrimaryFace) {
  registerBundle();
  const auto text = shape(u"漢");
  ASSERT_EQ(text->runs.size(), 1U);
  EXPECT_EQ(text->runs[0].face, shape(u"a")->runs[0].face);
  ASSERT_EQ(text->runs[0].glyphs.size(), 1U);
  EXPECT_EQ(text->runs[0].glyphs[0].id, 0U);
  EXPECT_GT(text->clusters[0].advance, 0);
}

TEST_F(LinuxEngineTest, TheMonospacedNumberFeatureGivesDigitsOfOneWidth) {
  registerBundle();
  const auto monospaced = textFace({{6, 0}});
  EXPECT_NE(width(u"1111"), width(u"0000"));
  EXPECT_EQ(width(u"1111", monospaced), width(u"0000", monospaced));
  EXPECT_EQ(width(u"1111", textFace({{99, 0}})), width(u"1111"));
}

TEST_F(LinuxEngineTest, RightToLeftTextHasOddLevelsAndReversedGlyphs) {
  registerBundle();
  const auto text = shape(u"אבג");
  ASSERT_EQ(text->runs.size(), 1U);
  EXPECT_EQ(text->runs[0].level, 1);
  EXPECT_TRUE(text->clusters[0].paragraphIsRightToLeft);
  ASSERT_EQ(text->runs[0].glyphs.size(), 3U);
  EXPECT_EQ(text->runs[0].glyphs.front().cluster, 2U);
}

TEST_F(LinuxEngineTest, AParagraphWithoutAStrongCharacterTakesTheFallbackDirection) {
  registerBundle();
  const TypefaceSpan span{3, textFace(), 16, true};
  for (const bool isRightToLeft : {false, true}) {
    const auto text = engine().shape({u"123", {&span, 1}, WritingDirection::natural, isRightToLeft});
    EXPECT_EQ(text->clusters[0].paragraphIsRightToLeft, isRightToLeft);
    const auto latin = engine().shape({u"abc", {&span, 1}, WritingDirection::natural, isRightToLeft});
    EXPECT_FALSE(latin->clusters[0].paragraphIsRightToLeft);
  }
  const auto forced = engine().shape({u"abc", {&span, 1}, WritingDirection::rightToLeft, false});
  EXPECT_TRUE(forced->clusters[0].paragraphIsRightToLeft);
  EXPECT_EQ(forced->runs[0].level, 2);
}

TEST_F(LinuxEngineTest, LinesMayBreakWhereUnicodeSaysSo) {
  registerBundle();
  const auto text = shape(u"a-b c\u00A0d\ne\u2028f");
  const auto breakAt = [&](std::uint32_t unit) {
    const auto found = std::find_if(text->clusters.begin(), text->clusters.end(),
                                    [unit](const ShapedCluster& c) { return c.begin == unit; });
    return found->breakBefore;
  };
  using Break = ShapedCluster::Break;
  EXPECT_EQ(breakAt(1), Break::none);
  EXPECT_EQ(breakAt(2), Break::allowed);   // behind the hyphen
  EXPECT_EQ(breakAt(4), Break::allowed);   // behind the space
  EXPECT_EQ(breakAt(6), Break::none);      // behind the space that does not break
  EXPECT_EQ(breakAt(8), Break::required);  // behind the line feed
  EXPECT_TRUE(text->clusters[8].isParagraphStart);
  EXPECT_EQ(breakAt(10), Break::required);  // behind the line separator, in the same paragraph
  EXPECT_FALSE(text->clusters[10].isParagraphStart);
  EXPECT_FALSE(text->endsWithLineBreak);
  EXPECT_TRUE(shape(u"a\n")->endsWithLineBreak);
}

TEST_F(LinuxEngineTest, AUserPerceivedCharacterIsOneCluster) {
  registerBundle();
  EXPECT_EQ(shape(u"e\u0301x")->clusters.size(), 2U);
  EXPECT_EQ(shape(u"a\r\nb")->clusters.size(), 3U);
}

TEST_F(LinuxEngineTest, LigaturesGiveWayWhereLettersAreSpacedOut) {
  registerBundle();
  // A small font of our own that joins "f" and "1"; the bundle's faces join nothing.
  ASSERT_EQ(engine().registerFontFile(BRISEL_TEST_SOURCES "/fuzz/corpus/font_file/glyf"), Registration::registered);
  const auto typeface = engine().typeface({"Seed-Book", {}, {}});
  const TypefaceSpan joined{2, typeface, 16, true};
  const TypefaceSpan spaced{2, typeface, 16, false};
  const auto clusters = [](const TypefaceSpan& span) {
    return engine().shape({u"f1", {&span, 1}, WritingDirection::natural, false})->clusters.size();
  };
  EXPECT_EQ(clusters(joined), 1U);
  EXPECT_EQ(clusters(spaced), 2U);
}

TEST_F(LinuxEngineTest, ControlsTakeNoRoomAndATabThatOfFourSpaces) {
  registerBundle();
  EXPECT_EQ(width(u"a\u0007b"), width(u"a") + width(u"b"));
  EXPECT_NEAR(width(u"a\tb"), width(u"a    b"), 1e-9);
  EXPECT_EQ(shape(u"\n\n")->clusters[0].advance, 0);
}

TEST_F(LinuxEngineTest, UpperCasesByTheFullUnicodeMapping) {
  EXPECT_EQ(engine().upperCase("straße"), "STRASSE");
  EXPECT_EQ(engine().upperCase("i ı"), "I I");
  EXPECT_EQ(engine().upperCase("ŉ ﬁ"), "ʼN FI");
  EXPECT_EQ(engine().upperCase("ς"), "Σ");
  EXPECT_EQ(engine().upperCase("և"), "ԵՒ");
  EXPECT_EQ(engine().upperCase(""), "");
  EXPECT_EQ(engine().upperCase(std::string(100, 'x') + std::string("ΐ")).size(), 106U);
}

TEST_F(LinuxEngineTest, FillsARectangleInPremultipliedBytes) {
  const auto canvas = engine().makeCanvas({4, 4}, 1);
  canvas->fillRect({{1, 1}, {2, 2}}, UIColor::rgb(1, 0.5, 0, 0.5));
  const Bitmap bitmap = canvas->bitmap();
  const std::vector<std::uint8_t> inside(bitmap.pixel(1, 1), bitmap.pixel(1, 1) + 4);
  EXPECT_THAT(inside, testing::ElementsAre(128, 64, 0, 128));
  EXPECT_EQ(bitmap.pixel(0, 0)[3], 0);
  EXPECT_EQ(bitmap.pixel(3, 3)[3], 0);
}

TEST_F(LinuxEngineTest, DrawsInkInTheColourAndInsideTheLine) {
  registerBundle();
  const auto typeface = textFace();
  const TextSizeSpan size{1, 40, 0, 0, typeface->metrics()};
  const auto canvas = engine().makeCanvas({60, 60}, 2);
  const PaintSpan paint{1, UIColor::initWithRed(1, 0, 0, 1), nullptr};
  TextLayout(shape(u"H", typeface), {&size, 1}, {}, {}).draw(*canvas, {10, 5}, {&paint, 1});
  const Bitmap bitmap = canvas->bitmap();
  int top = bitmap.height;
  int bottom = 0;
  for (int y = 0; y < bitmap.height; ++y) {
    for (int x = 0; x < bitmap.width; ++x) {
      const std::uint8_t* pixel = bitmap.pixel(x, y);
      EXPECT_EQ(pixel[0], pixel[3]);
      EXPECT_EQ(pixel[1], 0);
      if (pixel[3] > 128) top = std::min(top, y), bottom = std::max(bottom, y + 1);
    }
  }
  // The baseline is at 5 + 0.95 × 40 = 43 points; an H stands on it, as high as the capitals are.
  EXPECT_EQ(bottom, 86);
  EXPECT_NEAR(top, 86 - typeface->metrics().capHeight * 80, 1);
}

TEST_F(LinuxEngineTest, DrawsOfAGlyphWhatLiesOnTheCanvas) {
  registerBundle();
  const auto typeface = textFace();
  const auto text = shape(u"W", typeface);
  const TextSizeSpan size{1, 60, 0, 0, typeface->metrics()};
  const TextLayout layout(text, {&size, 1}, {}, {});
  const auto whole = engine().makeCanvas({100, 100}, 1);
  layout.draw(*whole, {20, 20}, {});
  const auto part = engine().makeCanvas({30, 30}, 1);
  layout.draw(*part, {20 - 30, 20 - 40}, {});
  const Bitmap expected = whole->bitmap();
  const Bitmap found = part->bitmap();
  for (int y = 0; y < 30; ++y) {
    for (int x = 0; x < 30; ++x) ASSERT_EQ(found.pixel(x, y)[3], expected.pixel(x + 30, y + 40)[3]) << x << ' ' << y;
  }
  layout.draw(*part, {-500, 0}, {});
  EXPECT_EQ(part->bitmap(), found);
}

TEST_F(LinuxEngineTest, WritesAPngThatBeginsLikeOne) {
  const auto canvas = engine().makeCanvas({3, 2}, 1);
  const auto png = engine().encodePng(canvas->bitmap());
  ASSERT_GT(png.size(), 24U);
  EXPECT_EQ(std::string(png.begin() + 1, png.begin() + 4), "PNG");
  EXPECT_EQ(png[19], 3);
  EXPECT_EQ(png[23], 2);
}

TEST_F(LinuxEngineTest, SurvivesHostileSizesAndTexts) {
  registerBundle();
  const std::u16string texts[] = {u"\uFEFF",       u"\u202E abc", u"\u0301",       std::u16string(3000, u'\u0301'),
                                  u"\u200D\u200D", u"\uFFFF",     u"\u2029\u2029", std::u16string(1, u'\0')};
  for (const auto& text : texts) {
    const auto shaped = shape(text);
    EXPECT_EQ(shaped->length, text.size());
    for (const CGFloat points : {0.0, 1e-300, 1e6, 1e300}) {
      const TextSizeSpan size{static_cast<std::uint32_t>(text.size()), points, 0, 0, {}};
      const auto canvas = engine().makeCanvas({20, 20}, 1);
      TextLayout(shaped, {&size, 1}, {}, {}).draw(*canvas, {0, 10}, {});
    }
  }
}

// The host's fonts of this test are one file: the bundle's Devanagari face, in a configuration of our own.
class HostFontsTest : public LinuxEngineTest {
 protected:
  HostFontsTest() {
    fs::create_directories(temporary("host"));
    fs::copy_file(kBundle / "TondalDeva-Book.otf", temporary("host") / "Host.otf",
                  fs::copy_options::overwrite_existing);
    const std::string directory = temporary("host").string();
    const fs::path configuration = write("fonts.conf", "<fontconfig><dir>" + directory + "</dir><cachedir>" +
                                                           directory + "/cache</cachedir></fontconfig>");
    ::setenv("FONTCONFIG_FILE", configuration.c_str(), 1);
    engine().registerFontFile(kBundle / "Tondal-Book.otf");
    engine().setUsesHostFonts(true);
  }

  static std::uint32_t glyphOf(std::u16string_view text) {
    return shape(text, engine().typeface({"Tondal-Book", {}, {}}))->runs[0].glyphs[0].id;
  }
};

TEST_F(HostFontsTest, DrawWhatNoFaceOfTheCascadeHas) {
  EXPECT_NE(glyphOf(u"क"), 0U);
  EXPECT_EQ(glyphOf(u"漢"), 0U);  // the host has none either
  const auto mixed = shape(u"aक", engine().typeface({"Tondal-Book", {}, {}}));
  EXPECT_EQ(mixed->runs.size(), 2U);
  EXPECT_FALSE(engine().typeface({"Tondal-Book", {}, {}})->hasCharacter(U'क'));
}

TEST_F(HostFontsTest, AreNotAskedOnceTurnedOff) {
  engine().setUsesHostFonts(false);
  EXPECT_EQ(glyphOf(u"क"), 0U);
  engine().setUsesHostFonts(true);
  EXPECT_NE(glyphOf(u"क"), 0U);
}

TEST_F(HostFontsTest, MayBeAskedByManyThreads) {
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([] {
      for (const auto* text : {u"क", u"ख", u"ग", u"漢"}) EXPECT_EQ(glyphOf(text) == 0, text[0] == u'漢');
    });
  }
  for (auto& thread : threads) thread.join();
}

TEST_F(LinuxEngineTest, ServesAnExitHandler) {
  registerBundle();
  EXPECT_EXIT(
      {
        width(u"before");
        std::atexit([] {
          const auto canvas = engine().makeCanvas({20, 20}, 1);
          canvas->fillRect({{0, 0}, {5, 5}}, UIColor::grey(0, 1));
          std::_Exit(width(u"after שלום") > 0 ? 7 : 8);
        });
        std::exit(0);
      },
      testing::ExitedWithCode(7), "");
}

TEST_F(LinuxEngineTest, ShapesAndDrawsTheSameOnManyThreads) {
  registerBundle();
  const std::u16string text = u"Hello שלום سلام Привет हिन्दी 123";
  const auto draw = [&text] {
    const auto typeface = textFace();
    const TextSizeSpan size{static_cast<std::uint32_t>(text.size()), 20, 0, 0, typeface->metrics()};
    const auto canvas = engine().makeCanvas({200, 80}, 1);
    TextLayout(shape(text, typeface), {&size, 1}, {}, {.width = 200}).draw(*canvas, {0, 0}, {});
    return canvas->bitmap();
  };
  const Bitmap expected = draw();
  std::vector<std::thread> threads;
  std::vector<int> matches(4, 0);
  for (std::size_t i = 0; i < matches.size(); ++i) {
    threads.emplace_back([&, i] {
      for (int turn = 0; turn < 10; ++turn) matches[i] += draw() == expected ? 1 : 0;
    });
  }
  for (auto& thread : threads) thread.join();
  EXPECT_THAT(matches, testing::Each(10));
}

TEST_F(LinuxEngineTest, RegistersFontsWhileOthersShape) {
  engine().registerFontFile(kBundle / "Tondal-Book.otf");
  std::thread reader([] {
    for (int i = 0; i < 50; ++i) EXPECT_EQ(shape(u"Hello سلام")->length, 10U);
  });
  registerBundle();
  reader.join();
  EXPECT_EQ(engine().typeface({"TondalTitle-Bold", {}, {}})->name(), "TondalTitle-Bold");
}

}  // namespace
}  // namespace Brisel::Platform
