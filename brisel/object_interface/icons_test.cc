#include "brisel/object_interface/icons.h"

#include <cmath>
#include <iterator>
#include <limits>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/icons/catalogue.h"
#include "brisel/icons/icon_font.h"
#include "brisel/object_interface/fonts.h"
#include "brisel/platform/layout_direction.h"
#include "brisel/platform/log.h"

#include "tests/own_bundle.h"
#include "tests/recording_ports.h"

namespace {

using namespace Brisel::Platform;
using Brisel::Icon;
using testing::ElementsAre;
using testing::IsNull;
using GlyphSize = VLMBriselSwiftIcons::GlyphSize;

VLMBriselIcon icon(std::uint64_t number) { return static_cast<VLMBriselIcon>(number); }
VLMBriselIconGlyphSize glyphSize(std::int64_t number) { return static_cast<VLMBriselIconGlyphSize>(number); }

// --- Numbers ---

TEST(ObjectIcons, HavePublishedNumbers) {
  EXPECT_EQ(VLMBriselIconNone, 0U);
  EXPECT_EQ(VLMBriselIconAd, 1U);
  EXPECT_EQ(VLMBriselIconAddCalendar, 2U);
  EXPECT_EQ(VLMBriselIconAddFollow, 3U);
  EXPECT_EQ(VLMBriselIconPageLeft, 22U);
  EXPECT_EQ(VLMBriselIconPageRight, 23U);
  EXPECT_EQ(VLMBriselIconChevronLeft, 55U);
  EXPECT_EQ(VLMBriselIconChevronRight, 57U);
  EXPECT_EQ(VLMBriselIconX, 327U);
  EXPECT_EQ(VLMBriselIconXAlt, 328U);
  EXPECT_EQ(VLMBriselIconCount, 329U);
  EXPECT_EQ(VLMBriselIconInvalid, 9223372036854775807U);
  EXPECT_EQ(VLMBriselIconInvalid, static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()));
  EXPECT_TRUE((std::is_same_v<std::underlying_type_t<VLMBriselIcon>, std::uint64_t>));
}

struct Row {
  VLMBriselIcon icon;
  std::string_view constant;
  const Icon& (*value)() noexcept;
  std::shared_ptr<const VLMBriselSwiftIcons> (*object)();
};
constexpr Row kRows[] = {
#define BRISEL_ICON(accessor, name, x16, x24, autoMirror) \
  {VLMBriselIcon##name, "VLMBriselIcon" #name, &Icon::accessor, &VLMBriselSwiftIcons::accessor},
#include "brisel/icons/icons.def"
};

// The number, the constant, the object and the icon of the value interface, each from each.
TEST(ObjectIcons, AgreeWithTheValueInterfaceOnAll) {
  const auto& all = Icon::allCases();
  ASSERT_EQ(std::size(kRows), all.size());
  for (std::size_t i = 0; i < all.size(); ++i) {
    const auto& [icon, constant, value, object] = kRows[i];
    EXPECT_EQ(icon, i + 1);
    EXPECT_EQ(value(), all[i]);
    EXPECT_EQ(object()->icon(), all[i]);
    EXPECT_EQ(NSStringFromVLMBriselIcon(icon), constant);
    EXPECT_EQ(VLMBriselIconFromNSString(constant), icon);
    EXPECT_EQ(Icon(constant), all[i]);
    EXPECT_EQ(VLMBriselSwiftIcons::getSwiftIconWithName(constant)->icon(), all[i]);
    EXPECT_EQ(VLMBrisel::convertIcon(icon)->icon(), all[i]);
  }
}

TEST(ObjectIcons, HaveConstantsWhateverTheNumber) {
  EXPECT_EQ(NSStringFromVLMBriselIcon(VLMBriselIconNone), "VLMBriselIconNone");
  EXPECT_EQ(NSStringFromVLMBriselIcon(VLMBriselIconPlaybackSpeed0point5x), "VLMBriselIconPlaybackSpeed0point5x");
  EXPECT_EQ(NSStringFromVLMBriselIcon(VLMBriselIconPlus2px), "VLMBriselIconPlus2px");
  for (const VLMBriselIcon unknown :
       {VLMBriselIconCount, icon(330), VLMBriselIconInvalid, icon(std::numeric_limits<std::uint64_t>::max())})
    EXPECT_EQ(NSStringFromVLMBriselIcon(unknown), "VLMBriselIconInvalid");
}

TEST(ObjectIcons, AreFoundByText) {
  static int lines;
  lines = 0;
  setLogHandler([](std::string_view) { ++lines; });
  EXPECT_EQ(VLMBriselIconFromNSString("addCalendar"), VLMBriselIconAddCalendar);
  EXPECT_EQ(VLMBriselIconFromNSString("none"), VLMBriselIconNone);
  EXPECT_EQ(VLMBriselIconFromNSString(std::nullopt), VLMBriselIconInvalid);
  EXPECT_EQ(VLMBriselIconFromNSString(nullptr), VLMBriselIconInvalid);
  EXPECT_EQ(VLMBriselIconFromNSString(""), VLMBriselIconInvalid);
  EXPECT_EQ(VLMBriselIconFromNSString("AddVLMIconCalendar"), VLMBriselIconInvalid);
  EXPECT_EQ(lines, 0);
  EXPECT_EQ(VLMBriselIconFromNSString("VLMIconAddCalendar"), VLMBriselIconAddCalendar);
  EXPECT_EQ(lines, 1);
}

TEST(ObjectIcons, HaveActiveOnes) {
  EXPECT_EQ(VLMBriselIconActiveFromVLMBriselIcon(VLMBriselIconArtist), VLMBriselIconArtistActive);
  EXPECT_EQ(VLMBriselIconActiveFromVLMBriselIcon(VLMBriselIconArtistActive), VLMBriselIconInvalid);
  EXPECT_EQ(VLMBriselIconActiveFromVLMBriselIcon(VLMBriselIconAddCalendar), VLMBriselIconInvalid);
  EXPECT_EQ(VLMBriselIconActiveFromVLMBriselIcon(VLMBriselIconCount), VLMBriselIconInvalid);
  EXPECT_EQ(VLMBriselIconActiveFromVLMBriselIcon(VLMBriselIconNone), VLMBriselIconNone);
}

TEST(ObjectIcons, FollowTheLayoutDirection) {
  const auto shown = VLMBriselIconRTLFromVLMBriselIcon;
  EXPECT_EQ(shown(VLMBriselIconChevronLeft), VLMBriselIconChevronLeft);
  EXPECT_EQ(shown(icon(400)), VLMBriselIconInvalid);
  setUserInterfaceLayoutDirection(UIUserInterfaceLayoutDirection::rightToLeft);
  EXPECT_EQ(shown(VLMBriselIconChevronLeft), VLMBriselIconChevronRight);
  EXPECT_EQ(shown(VLMBriselIconChevronLeftAlt), VLMBriselIconChevronLeftAlt);
  EXPECT_EQ(shown(VLMBriselIconPageRight), VLMBriselIconPageLeft);
  EXPECT_EQ(shown(VLMBriselIconCount), VLMBriselIconInvalid);
  EXPECT_EQ(shown(VLMBriselIconInvalid), VLMBriselIconInvalid);
  EXPECT_EQ(shown(VLMBriselIconNone), VLMBriselIconNone);
}

TEST(ObjectIcons, HaveATableOfNames) {
  const Dictionary& names = VLMBrisel::iconNames();
  EXPECT_EQ(names.size(), 330U);
  EXPECT_EQ(&VLMBrisel::iconNames(), &names);
  const auto name = [&names](std::uint64_t number) -> std::string {
    const Value* value = names.find(Value(number));
    return value ? *value->asString() : "nothing";
  };
  for (std::uint64_t number = 0; number < 329; ++number)
    EXPECT_EQ(name(number), NSStringFromVLMBriselIcon(icon(number)));
  EXPECT_EQ(name(VLMBriselIconInvalid + 0), "VLMBriselIconInvalid");
  EXPECT_EQ(name(329), "nothing");
  std::set<std::string> texts;
  for (const auto& entry : names) texts.insert(*entry.value.asString());
  EXPECT_EQ(texts.size(), 330U);
}

// --- Objects ---

TEST(ObjectIcons, AreNewObjectsEachTime) {
  EXPECT_NE(VLMBriselSwiftIcons::ad(), VLMBriselSwiftIcons::ad());
  EXPECT_NE(VLMBrisel::convertIcon(VLMBriselIconAd), VLMBrisel::convertIcon(VLMBriselIconAd));
  EXPECT_FALSE(VLMBriselSwiftIcons::ad()->isEqual(*VLMBriselSwiftIcons::ad()));
  EXPECT_EQ(VLMBriselSwiftIcons::wrapping(Icon::delete_())->icon(), Icon::delete_());
}

TEST(ObjectIcons, AreNullWhereThereIsNoIcon) {
  for (const VLMBriselIcon none : {VLMBriselIconNone, VLMBriselIconCount, icon(400), VLMBriselIconInvalid})
    EXPECT_THAT(VLMBrisel::convertIcon(none), IsNull());
  for (const char* name : {"", "addCalendar", "VLMBriselIconNone", "Invalid"})
    EXPECT_THAT(VLMBriselSwiftIcons::getSwiftIconWithName(name), IsNull()) << name;
}

// By the rules of the value interface, and not by those of the constants.
TEST(ObjectIcons, LosePrefixesInTheMiddleOfTheirNames) {
  static bool isLogged;
  isLogged = false;
  setLogHandler([](std::string_view) { isLogged = true; });
  const auto found = VLMBriselSwiftIcons::getSwiftIconWithName("AddVLMIconCalendar");
  ASSERT_THAT(found, testing::NotNull());
  EXPECT_EQ(found->icon(), Icon::addCalendar());
  EXPECT_FALSE(isLogged);
}

// --- Glyph sizes ---

TEST(ObjectIconGlyphSize, HasANumberAndAConstant) {
  EXPECT_EQ(VLMBriselIconGlyphSizeSmall, 0);
  EXPECT_EQ(VLMBriselIconGlyphSizeMedium, 1);
  EXPECT_EQ(NSStringFromVLMBriselIconGlyphSize(VLMBriselIconGlyphSizeSmall), "VLMBriselIconGlyphSizeSmall");
  EXPECT_EQ(NSStringFromVLMBriselIconGlyphSize(VLMBriselIconGlyphSizeMedium), "VLMBriselIconGlyphSizeMedium");
  EXPECT_EQ(NSStringFromVLMBriselIconGlyphSize(glyphSize(2)), "UNKNOWN");
  EXPECT_EQ(NSStringFromVLMBriselIconGlyphSize(glyphSize(-1)), "UNKNOWN");
}

TEST(ObjectIconGlyphSize, FollowsTheHeightAlone) {
  for (const double height : {20.0, 16.01, 0.0, -1.0, std::nan("")})
    EXPECT_EQ(VLMBriselIconGlyphSizeFromHeight(height), VLMBriselIconGlyphSizeSmall) << height;
  for (const double height : {20.01, std::nextafter(20.0, 21.0), std::numeric_limits<double>::infinity()})
    EXPECT_EQ(VLMBriselIconGlyphSizeFromHeight(height), VLMBriselIconGlyphSizeMedium) << height;
  EXPECT_EQ(VLMBriselIconGlyphSizeFromCGSize({100, 20}), VLMBriselIconGlyphSizeSmall);
  EXPECT_EQ(VLMBriselIconGlyphSizeFromCGSize({1, 20.01}), VLMBriselIconGlyphSizeMedium);
}

TEST(ObjectIconGlyphSize, IsMediumForAnyOtherNumberWhenItIsConverted) {
  EXPECT_EQ(VLMBrisel::convertGlyphSize(VLMBriselIconGlyphSizeSmall), GlyphSize::small);
  EXPECT_EQ(VLMBrisel::convertGlyphSize(VLMBriselIconGlyphSizeMedium), GlyphSize::medium);
  EXPECT_EQ(VLMBrisel::convertGlyphSize(glyphSize(2)), GlyphSize::medium);
  EXPECT_EQ(VLMBrisel::convertGlyphSize(glyphSize(-1)), GlyphSize::medium);
}

TEST(ObjectIconGlyphSize, OfTheClassIsNothingForAnyOtherNumber) {
  EXPECT_EQ(GlyphSize::fromRawValue(0), GlyphSize::small);
  EXPECT_EQ(GlyphSize::fromRawValue(1), GlyphSize::medium);
  for (const std::int64_t number : {std::int64_t{2}, std::int64_t{-1}, std::numeric_limits<std::int64_t>::max()})
    EXPECT_EQ(GlyphSize::fromRawValue(number), std::nullopt);
  EXPECT_EQ(GlyphSize::small.rawValue(), 0);
  EXPECT_EQ(GlyphSize::medium.rawValue(), 1);
  EXPECT_EQ(GlyphSize::small.glyphSize(), Icon::GlyphSize::x16);
  EXPECT_EQ(GlyphSize::medium.glyphSize(), Icon::GlyphSize::x24);
}

// --- The font ---

TEST(ObjectIconFont, IsThatOfTheValueInterface) {
  Brisel::recordingEngine();
  if (!Brisel::runsWithOwnBundle({"halvicon.ttf"})) return;
  const auto font = VLMBriselSwiftIcons::fontWithSize(24.5);
  EXPECT_EQ(font->fontName(), "halvicon");
  EXPECT_TRUE(font->isEqual(*Brisel::iconFont(24.5)));
  EXPECT_THAT(Brisel::recordingEngine().record().registeredFiles, testing::SizeIs(1));
}

TEST(ObjectIconFont, OfTheFontLoaderHasTwentySixPoints) {
  Brisel::recordingEngine();
  if (!Brisel::runsWithOwnBundle({"halvicon.ttf"})) return;
  EXPECT_TRUE(VLMBriselFontLoader::halviconFont()->isEqual(*VLMBriselSwiftIcons::fontWithSize(26)));
  EXPECT_EQ(VLMBriselFontLoader::halviconFont()->pointSize(), 26.0);
}

}  // namespace
