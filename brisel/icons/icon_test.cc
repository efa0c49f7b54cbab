#include "brisel/icons/icon.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "brisel/icons/catalogue.h"
#include "brisel/icons/icon_error.h"
#include "brisel/icons/internal/icon_lookup.h"

#include "tests/icon_model.h"
#include "tests/icon_texts.h"

namespace Brisel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Glyph = Icon::Glyph;
using Glyphs = Icon::Glyphs;
using GlyphSize = Icon::GlyphSize;
using Prefixes = Icon::Prefixes;

constexpr Glyph kA{U'\uF100'}, kB{U'\uF69E'};

char32_t x16(const Icon& icon) { return icon.glyphs().x16()->unichar(); }
char32_t x24(const Icon& icon) { return icon.glyphs().x24()->unichar(); }

// --- The catalogue ---

std::string hexadecimal(char32_t character) {
  char digits[9];
  std::snprintf(digits, sizeof(digits), "%04X", static_cast<unsigned>(character));
  return digits;
}

// FNV-1a of all that the design says: one line an icon.
TEST(Icons, AreExactlyThoseOfTheDesign) {
  std::uint64_t sum = 0xCBF29CE484222325;
  for (const Catalogue::IconEntry& entry : Catalogue::icons()) {
    const Icon& icon = entry.get();
    const std::string line = std::string(entry.name) + ' ' + std::string(icon.name()) + ' ' + hexadecimal(x16(icon)) +
                             '/' + hexadecimal(x24(icon)) + (icon.autoMirror() ? " mirrored\n" : " plain\n");
    for (const char c : line) sum = (sum ^ static_cast<unsigned char>(c)) * 0x100000001B3;
  }
  EXPECT_EQ(sum, 0xCC731D4DC298A75FU);
}

TEST(Icons, AreListedInPublishedOrder) {
  const auto& all = Icon::allCases();
  ASSERT_THAT(all, SizeIs(328));
  EXPECT_EQ(all[0], Icon::ad());
  EXPECT_EQ(all[1], Icon::addCalendar());
  EXPECT_EQ(all[2], Icon::addFollow());
  EXPECT_EQ(all[326], Icon::x());
  EXPECT_EQ(all[327], Icon::xAlt());
  EXPECT_EQ(&Icon::allCases(), &all);
}

// Sorting them would give other numbers to their constants.
TEST(Icons, AreDeliberatelyOutOfOrderInSevenPlaces) {
  std::vector<std::string> outOfOrder;
  const auto entries = Catalogue::icons();
  const auto lower = [](std::string_view text) {
    std::string result(text);
    for (char& c : result) c = static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
    return result;
  };
  for (std::size_t i = 1; i < entries.size(); ++i)
    if (lower(entries[i].name) < lower(entries[i - 1].name))
      outOfOrder.push_back(std::string(entries[i - 1].name) + ' ' + std::string(entries[i].name));
  EXPECT_THAT(outOfOrder,
              ElementsAre("pageRight arrowTopRight", "audioFile audiobook", "deviceTv devices", "shareAndroid share",
                          "vexaura soundwave", "speechBubble halvornConnect", "tShirt tag"));
}

TEST(Icons, AreNamedLikeTheirAccessorsButForEleven) {
  std::vector<std::string> exceptions;
  for (const Catalogue::IconEntry& entry : Catalogue::icons()) {
    std::string expected(entry.name);
    expected[0] = static_cast<char>(expected[0] - 'a' + 'A');
    if (entry.get().name() != expected) exceptions.emplace_back(entry.get().name());
  }
  EXPECT_THAT(exceptions,
              ElementsAre("PlaybackSpeed0point5x", "PlaybackSpeed0point8x", "PlaybackSpeed1point2x",
                          "PlaybackSpeed1point5x", "PlaybackSpeed1point8x", "PlaybackSpeed1x", "PlaybackSpeed2point5x",
                          "PlaybackSpeed2x", "PlaybackSpeed3point5x", "PlaybackSpeed3x", "Plus2px"));
  EXPECT_EQ(Icon::tShirt().name(), "TShirt");
  EXPECT_EQ(Icon::delete_().name(), "Delete");
  EXPECT_EQ(Icon::public_().name(), "Public");
}

TEST(Icons, HaveNamesOfTheirOwn) {
  std::set<std::string_view> names;
  for (const Icon& icon : Icon::allCases()) names.insert(icon.name());
  EXPECT_THAT(names, SizeIs(328));
}

TEST(Icons, MirrorInNineCases) {
  std::vector<std::string_view> mirrored;
  for (const Icon& icon : Icon::allCases())
    if (icon.autoMirror()) mirrored.push_back(icon.name());
  EXPECT_THAT(mirrored, ElementsAre("PageLeft", "PageRight", "ArrowTopRight", "ChevronLeft", "ChevronLeftAlt",
                                    "ChevronRight", "ChevronRightAlt", "ListView", "HalvornConnect"));
}

TEST(Icons, HaveGlyphsInOneRangeThatNoOtherIconHasButForTwoPairs) {
  std::map<char32_t, int> uses;
  for (const Icon& icon : Icon::allCases()) {
    ++uses[x16(icon)];
    ++uses[x24(icon)];
  }
  EXPECT_THAT(uses, SizeIs(652));
  EXPECT_EQ(uses.begin()->first, U'\uF100');
  EXPECT_EQ(uses.rbegin()->first, U'\uF69E');
  std::vector<char32_t> shared;
  for (const auto& [character, count] : uses)
    if (count > 1) shared.push_back(character);
  EXPECT_THAT(shared, ElementsAre(U'\uF31E', U'\uF324', U'\uF3D9', U'\uF3DA'));
}

TEST(Icons, ThatDrawTheSameAreStillTwo) {
  EXPECT_EQ(x16(Icon::ban()), x16(Icon::skip()));
  EXPECT_EQ(x24(Icon::ban()), x24(Icon::skip()));
  EXPECT_NE(Icon::ban(), Icon::skip());
  EXPECT_NE(Icon::banActive(), Icon::skipActive());
  EXPECT_EQ(Icon("Ban"), Icon::ban());
  EXPECT_EQ(Icon("Skip"), Icon::skip());
}

// --- Names ---

TEST(IconName, IsTakenBareAndBehindEitherPrefix) {
  for (const char* name : {"AddCalendar", "VLMBriselIconAddCalendar", "VLMIconAddCalendar"})
    EXPECT_EQ(Icon(name), Icon::addCalendar()) << name;
  EXPECT_EQ(Icon("VLMBriselIconPlaybackSpeed0point5x"), Icon::playbackSpeed0Point5X());
  EXPECT_EQ(Icon("X"), Icon::x());
}

TEST(IconName, FindsEveryIcon) {
  for (const Catalogue::IconEntry& entry : Catalogue::icons()) {
    EXPECT_EQ(Icon(entry.get().name()), entry.get());
    EXPECT_EQ(Icon(entry.objectName), entry.get());
    EXPECT_EQ(Icon("VLMIcon" + std::string(entry.get().name())), entry.get());
  }
}

TEST(IconName, IsRefusedWhereNoIconBearsIt) {
  for (const char* name : {"addCalendar",
                           "",
                           "PlaybackSpeed0Point5X",
                           "ADDCALENDAR",
                           "AddCalendar ",
                           " AddCalendar",
                           "AddCalenda",
                           "AddCalendars",
                           "VLMBriselIcon",
                           "VLMIcon",
                           "VLMBriselIconVLMIcon",
                           "None",
                           "Invalid",
                           "VLMBriselIconNone",
                           "VLMBriselIconInvalid",
                           "delete_",
                           "vlmiconAd",
                           "VlmIconAd",
                           "VLMiconAd",
                           "Plus2Px",
                           "VLMBriselAd",
                           "VLMAd"}) {
    try {
      const Icon icon(name);
      ADD_FAILURE() << name << " is " << icon.name();
    } catch (const Error::Icon& error) {
      EXPECT_EQ(error.code(), Error::Icon::invalidName) << name;
    }
  }
  EXPECT_THROW(Icon(std::string_view("Ad\0", 3)), Error::Icon);
  EXPECT_THROW(Icon(std::string_view("\0", 1)), Error::Icon);
  EXPECT_THROW(Icon(std::string(1'000'000, 'A')), std::runtime_error);
  EXPECT_THROW(Icon(Tests::replaceAll(std::string(100'000, 'A'), "A", "VLMIcon")), Error::Icon);
}

TEST(IconName, LosesItsPrefixesAnywhereAndEachOnce) {
  EXPECT_EQ(Icon("AddVLMIconCalendar"), Icon::addCalendar());
  EXPECT_EQ(Icon("AddCalendarVLMBriselIcon"), Icon::addCalendar());
  EXPECT_EQ(Icon("AVLMIcondVLMBriselIcondCalenVLMIcondar"), Icon::addCalendar());
  EXPECT_EQ(Icon("VLMIconVLMIconAd"), Icon::ad());
  EXPECT_EQ(Icon("VLMBriselIconVLMIconAd"), Icon::ad());
  EXPECT_EQ(Icon("VLMIconVLMBriselIconAd"), Icon::ad());
  // The longer prefix goes first. What it leaves may be the shorter one, but what that leaves is not looked at again.
  EXPECT_EQ(Icon("VLMVLMBriselIconIconAd"), Icon::ad());
  EXPECT_THROW(Icon("VLMVLMIconIconAd"), Error::Icon);
  EXPECT_THROW(Icon("VLMBriselVLMIconIconAd"), Error::Icon);
  EXPECT_THROW(Icon("VLMBriselVLMBriselIconIconAd"), Error::Icon);
}

TEST(IconName, IsFoundAsByThePlainSearch) {
  EXPECT_TRUE(rc::check([] {
    const std::string text = *Tests::iconTexts();
    const Icon* expected = Tests::iconNamed(text);
    const Icon* found = internal::findIcon(text);
    RC_ASSERT((found == nullptr) == (expected == nullptr));
    if (found) RC_ASSERT(*found == *expected);
  }));
}

TEST(IconPrefix, HasARawValue) {
  EXPECT_EQ(Prefixes::brisel.rawValue(), "VLMBriselIcon");
  EXPECT_EQ(Prefixes::moss.rawValue(), "VLMIcon");
  EXPECT_EQ(Prefixes::fromRawValue("VLMBriselIcon"), Prefixes::brisel);
  EXPECT_EQ(Prefixes::fromRawValue("VLMIcon"), Prefixes::moss);
  EXPECT_EQ(Prefixes::fromRawValue("VLM"), std::nullopt);
  EXPECT_EQ(Prefixes::fromRawValue(""), std::nullopt);
  EXPECT_THAT(Prefixes::allCases(), ElementsAre(Prefixes::brisel, Prefixes::moss));
}

// --- Right to left ---

TEST(Icon, ChangesFromRightToLeftInTwoPairsOnly) {
  EXPECT_EQ(Icon::chevronLeft().rightToLeft(), Icon::chevronRight());
  EXPECT_EQ(Icon::chevronRight().rightToLeft(), Icon::chevronLeft());
  EXPECT_EQ(Icon::pageLeft().rightToLeft(), Icon::pageRight());
  EXPECT_EQ(Icon::pageRight().rightToLeft(), Icon::pageLeft());
  std::vector<std::string_view> changed;
  for (const Icon& icon : Icon::allCases())
    if (icon.rightToLeft() != icon) changed.push_back(icon.name());
  EXPECT_THAT(changed, ElementsAre("PageLeft", "PageRight", "ChevronLeft", "ChevronRight"));
}

TEST(Icon, ChangesFromRightToLeftOnlyWhenItIsTheCataloguesOwn) {
  const Icon namesake("ChevronLeft", false, Icon::chevronLeft().glyphs());
  EXPECT_EQ(namesake.rightToLeft(), namesake);
  EXPECT_EQ(Icon("ChevronLeft", true, Icon::chevronLeft().glyphs()).rightToLeft(), Icon::chevronRight());
}

// --- Glyphs ---

TEST(IconGlyph, IsThatOfTheSizeOrElseTheOther) {
  const Icon both("Both", false, Glyphs(kA, kB)), small("Small", false, Glyphs(kA, std::nullopt)),
      large("Large", false, Glyphs(std::nullopt, kB));
  const auto character = [](const Icon& icon, GlyphSize size) { return internal::glyphForSize(icon, size).unichar(); };
  EXPECT_EQ(character(both, GlyphSize::x16), kA.unichar());
  EXPECT_EQ(character(both, GlyphSize::x24), kB.unichar());
  EXPECT_EQ(character(small, GlyphSize::x24), kA.unichar());
  EXPECT_EQ(character(small, GlyphSize::x16), kA.unichar());
  EXPECT_EQ(character(large, GlyphSize::x16), kB.unichar());
  EXPECT_EQ(character(large, GlyphSize::x24), kB.unichar());
}

TEST(IconGlyphDeathTest, MustBeThereInSomeSize) {
  const Icon blank("Blank", false, Glyphs(std::nullopt, std::nullopt));
  EXPECT_DEATH(internal::glyphForSize(blank, GlyphSize::x16), "without glyphs cannot be drawn: Blank");
  EXPECT_DEATH(internal::glyphForSize(blank, GlyphSize::x24), "without glyphs");
}

TEST(IconGlyph, IsAlwaysAScalar) {
  EXPECT_EQ(Glyph(0).unichar(), char32_t{0});
  EXPECT_EQ(Glyph(0xD7FF).unichar(), char32_t{0xD7FF});
  EXPECT_EQ(Glyph(0xD800).unichar(), U'\uFFFD');
  EXPECT_EQ(Glyph(0xDFFF).unichar(), U'\uFFFD');
  EXPECT_EQ(Glyph(0xE000).unichar(), char32_t{0xE000});
  EXPECT_EQ(Glyph(0x10FFFF).unichar(), char32_t{0x10FFFF});
  EXPECT_EQ(Glyph(0x110000).unichar(), U'\uFFFD');
}

TEST(IconGlyphSize, FollowsThePointSize) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  for (const double size : {16.0, 0.0, -1.0, 15.9, -kInfinity})
    EXPECT_EQ(internal::glyphSizeForPointSize(size), GlyphSize::x16) << size;
  for (const double size : {16.01, std::nextafter(16.0, 17.0), 24.0, kInfinity, std::nan("")})
    EXPECT_EQ(internal::glyphSizeForPointSize(size), GlyphSize::x24) << size;
}

TEST(IconGlyphSize, HasARankAndADescription) {
  EXPECT_THAT(GlyphSize::allCases(), ElementsAre(GlyphSize::x16, GlyphSize::x24));
  EXPECT_EQ(GlyphSize::x16.rank(), 0);
  EXPECT_EQ(GlyphSize::x24.rank(), 1);
  EXPECT_EQ(GlyphSize::x16.description(), "x16");
  EXPECT_EQ(GlyphSize::x24.description(), "x24");
  EXPECT_EQ(GlyphSize::x16.debugDescription(), "x16 - rank: 0");
  EXPECT_EQ(GlyphSize::x24.debugDescription(), "x24 - rank: 1");
}

// --- The value ---

TEST(Icon, EqualsWhatHasTheSameFields) {
  const Icon icon("Name", true, Glyphs(kA, kB));
  EXPECT_EQ(icon, Icon("Name", true, Glyphs(kA, kB)));
  EXPECT_EQ(Icon("Ad", false, Glyphs(Glyph(U'\uF61D'), Glyph(U'\uF61E'))), Icon::ad());
  for (const Icon& other :
       {Icon("name", true, Glyphs(kA, kB)), Icon("Name", false, Glyphs(kA, kB)), Icon("Name", true, Glyphs(kB, kB)),
        Icon("Name", true, Glyphs(kA, kA)), Icon("Name", true, Glyphs(std::nullopt, kB)),
        Icon("Name", true, Glyphs(kA, std::nullopt)), Icon("Name", true, Glyphs(std::nullopt, std::nullopt))})
    EXPECT_NE(icon, other) << other.debugDescription();
  EXPECT_EQ(Icon("", false, Glyphs(std::nullopt, std::nullopt)), Icon("", false, Glyphs(std::nullopt, std::nullopt)));
}

TEST(Icon, HashesItsFieldsInPublishedOrder) {
  const auto hash = [](auto... fields) {
    Platform::internal::Hasher hasher;
    hasher(fields...);
    return hasher.finish();
  };
  const std::hash<Icon> hashOf;
  EXPECT_EQ(hashOf(Icon("Name", true, Glyphs(kA, kB))),
            hash(std::string_view("Name"), true, 1, kA.unichar(), 1, kB.unichar()));
  EXPECT_EQ(hashOf(Icon("Name", false, Glyphs(std::nullopt, kB))),
            hash(std::string_view("Name"), false, 0, 1, kB.unichar()));
  EXPECT_EQ(hashOf(Icon("Name", false, Glyphs(kB, std::nullopt))),
            hash(std::string_view("Name"), false, 1, kB.unichar(), 0));
  EXPECT_EQ(hashOf(Icon("Ad", false, Icon::ad().glyphs())), hashOf(Icon::ad()));
  const std::unordered_set<Icon> all(Icon::allCases().begin(), Icon::allCases().end());
  EXPECT_THAT(all, SizeIs(328));
}

TEST(Icon, DescribesItself) {
  EXPECT_EQ(Icon::addCalendar().description(), "name: AddCalendar");
  EXPECT_EQ(Glyph(U'\uF53F').debugDescription(), "{\n    unichar: \\u{F53F}\n}");
  EXPECT_EQ(Glyph(0).debugDescription(), "{\n    unichar: \\u{0}\n}");
  EXPECT_EQ(Glyph(0x10FFFF).debugDescription(), "{\n    unichar: \\u{10FFFF}\n}");
  EXPECT_EQ(Glyphs(std::nullopt, kB).debugDescription(), "{\n    x16: nil\n    x24: {\n    unichar: \\u{F69E}\n}\n}");
  EXPECT_EQ(Glyphs(kA, std::nullopt).debugDescription(), "{\n    x16: {\n    unichar: \\u{F100}\n}\n    x24: nil\n}");
  EXPECT_EQ(Icon::addCalendar().debugDescription(),
            "{\n    name: AddCalendar\n    glyphs: {\n    x16: {\n    unichar: \\u{F53F}\n}\n    x24: {\n    unichar: "
            "\\u{F540}\n}\n}\n}");
}

TEST(Icon, OutlivesWhatItWasCopiedFrom) {
  std::optional<Icon> original(std::in_place, std::string("A name of more than a few letters"), false, Glyphs(kA, kB));
  Icon assigned = Icon::ad();
  assigned = *original;
  const Icon copy = *original, taken = std::move(*original);
  original.reset();
  for (const Icon& icon : {copy, assigned, taken}) EXPECT_EQ(icon.name(), "A name of more than a few letters");
  assigned = Icon::ad();
  EXPECT_EQ(assigned, Icon::ad());
}

TEST(Icon, StaysWholeWhenItIsMovedFrom) {
  Icon source("Source", false, Glyphs(kA, kB));
  { const Icon taken = std::move(source); }
  EXPECT_EQ(source.name(), "Source");  // NOLINT(bugprone-use-after-move): this is the point
}

// --- By name of accessor ---

TEST(IconCatalogue, TellsTheNamesOfAnIcon) {
  const auto icons = Catalogue::icons();
  ASSERT_THAT(icons, SizeIs(328));
  const auto entry = std::ranges::find(icons, "delete", &Catalogue::IconEntry::name);
  ASSERT_NE(entry, icons.end());
  EXPECT_EQ(entry->accessor, "delete_");
  EXPECT_EQ(entry->objectName, "VLMBriselIconDelete");
  EXPECT_EQ(&entry->get(), &Icon::delete_());
  EXPECT_EQ(icons[1].name, "addCalendar");
  EXPECT_EQ(icons[1].accessor, "addCalendar");
  for (std::size_t i = 0; i < icons.size(); ++i) EXPECT_EQ(icons[i].number, i + 1);
}

}  // namespace
}  // namespace Brisel
