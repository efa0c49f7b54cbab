#include "brisel/icons/icon_constants.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "brisel/icons/catalogue.h"
#include "brisel/icons/icon.h"
#include "brisel/platform/layout_direction.h"
#include "brisel/platform/log.h"

#include "tests/icon_model.h"
#include "tests/icon_texts.h"

namespace Brisel {
namespace {

using testing::Each;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::uint64_t kInvalid = 9223372036854775807U;
constexpr std::uint64_t kUnknown[] = {329,
                                      330,
                                      400,
                                      std::numeric_limits<std::uint32_t>::max(),
                                      kInvalid - 1,
                                      kInvalid + 1,
                                      std::numeric_limits<std::uint64_t>::max()};

/// Collects what is logged.
class IconNumber : public testing::Test {
 protected:
  void SetUp() override {
    lines().clear();
    Platform::setLogHandler([](std::string_view line) { lines().emplace_back(line); });
  }
  void TearDown() override {
    Platform::setLogHandler(nullptr);
    Platform::setUserInterfaceLayoutDirection(Platform::UIUserInterfaceLayoutDirection::leftToRight);
  }

  static std::vector<std::string>& lines() {
    static std::vector<std::string> all;
    return all;
  }
};

TEST_F(IconNumber, FollowsThePublishedOrder) {
  EXPECT_EQ(iconNumber("VLMBriselIconNone"), 0U);
  EXPECT_EQ(iconNumber("VLMBriselIconAd"), 1U);
  EXPECT_EQ(iconNumber("VLMBriselIconAddCalendar"), 2U);
  EXPECT_EQ(iconNumber("VLMBriselIconAddFollow"), 3U);
  EXPECT_EQ(iconNumber("VLMBriselIconPageLeft"), 22U);
  EXPECT_EQ(iconNumber("VLMBriselIconPageRight"), 23U);
  EXPECT_EQ(iconNumber("VLMBriselIconChevronLeft"), 55U);
  EXPECT_EQ(iconNumber("VLMBriselIconChevronRight"), 57U);
  EXPECT_EQ(iconNumber("VLMBriselIconX"), 327U);
  EXPECT_EQ(iconNumber("VLMBriselIconXAlt"), 328U);
  EXPECT_EQ(iconNumber("VLMBriselIconInvalid"), kInvalid);
  EXPECT_EQ(kIconNumberCount, 329U);
  EXPECT_EQ(kInvalidIconNumber, kInvalid);
  EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(IconNumber, AndConstantBelongTogether) {
  for (const Catalogue::IconEntry& entry : Catalogue::icons()) {
    EXPECT_EQ(iconConstant(entry.number), "VLMBriselIcon" + std::string(entry.get().name()));
    EXPECT_EQ(iconNumber(iconConstant(entry.number)), entry.number);
    EXPECT_EQ(iconNumber(entry.get().name()), entry.number);
  }
}

TEST_F(IconNumber, HasAConstantWhateverItIs) {
  EXPECT_EQ(iconConstant(0), "VLMBriselIconNone");
  EXPECT_EQ(iconConstant(kInvalid), "VLMBriselIconInvalid");
  for (const std::uint64_t number : kUnknown) EXPECT_EQ(iconConstant(number), "VLMBriselIconInvalid") << number;
}

TEST_F(IconNumber, IsInvalidForNoText) {
  EXPECT_EQ(iconNumber(std::nullopt), kInvalid);
  EXPECT_EQ(iconNumber(nullptr), kInvalid);
  EXPECT_EQ(iconNumber(""), kInvalid);
  EXPECT_EQ(iconNumber("VLMBriselIcon"), kInvalid);
  EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(IconNumber, IsThatOfANameWithASmallFirstLetter) {
  EXPECT_EQ(iconNumber("addCalendar"), 2U);
  EXPECT_EQ(iconNumber("AddCalendar"), 2U);
  EXPECT_EQ(iconNumber("x"), 327U);
  EXPECT_EQ(iconNumber("none"), 0U);
  EXPECT_EQ(iconNumber("None"), 0U);
  EXPECT_EQ(iconNumber("invalid"), kInvalid);
  EXPECT_EQ(iconNumber("addcalendar"), kInvalid);
  EXPECT_EQ(iconNumber("aDDCALENDAR"), kInvalid);
  EXPECT_EQ(iconNumber("NONE"), kInvalid);
  EXPECT_EQ(iconNumber("%@Ad"), kInvalid);
  EXPECT_EQ(iconNumber("%s%n%s"), kInvalid);
  EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(IconNumber, CapitalisesLettersOfOtherAlphabetsToo) {
  EXPECT_EQ(iconNumber("\u0131nbox"), iconNumber("inbox"));    // dotless i
  EXPECT_EQ(iconNumber("\u017Fearch"), iconNumber("search"));  // long s
  EXPECT_EQ(iconNumber("\uFB01lter"), iconNumber("filter"));   // a ligature
  EXPECT_EQ(iconNumber("\uFB02ag"), iconNumber("flag"));
  EXPECT_EQ(iconNumber("\uFB05ar"), iconNumber("star"));
  EXPECT_EQ(iconNumber("\uFB06ar"), iconNumber("star"));
  EXPECT_NE(iconNumber("star"), kInvalid);
  EXPECT_EQ(iconNumber("VLMBriselIcon\u0131nbox"), kInvalid);
  EXPECT_EQ(iconNumber("\u00E4d"), kInvalid);
  EXPECT_EQ(iconNumber("\xC4"), kInvalid);
}

TEST_F(IconNumber, IsUnknownToElevenAccessors) {
  EXPECT_EQ(iconNumber("playbackSpeed0Point5X"), kInvalid);
  EXPECT_EQ(iconNumber("plus2Px"), kInvalid);
  EXPECT_NE(iconNumber("playbackSpeed0point5x"), kInvalid);
  EXPECT_NE(iconNumber("plus2px"), kInvalid);
  const auto unknown = [](const Catalogue::IconEntry& entry) { return iconNumber(entry.name) == kInvalid; };
  EXPECT_EQ(std::ranges::count_if(Catalogue::icons(), unknown), 11);
}

TEST_F(IconNumber, CapitalisesNothingBehindAPrefix) {
  EXPECT_EQ(iconNumber("VLMBriselIconaddCalendar"), kInvalid);
  EXPECT_EQ(iconNumber("VLMIconaddCalendar"), kInvalid);
}

TEST_F(IconNumber, TakesTheOldPrefixAndSaysSoEachTime) {
  const std::string line = "Using VLMIcon is deprecated, please use VLMBriselIcon.";
  EXPECT_EQ(iconNumber("VLMIconAddCalendar"), 2U);
  EXPECT_THAT(lines(), testing::ElementsAre(line));
  EXPECT_EQ(iconNumber("VLMIconAddCalendar"), 2U);
  EXPECT_EQ(iconNumber("VLMIconNone"), 0U);
  EXPECT_EQ(iconNumber("VLMIconInvalid"), kInvalid);
  EXPECT_EQ(iconNumber("VLMIcon"), kInvalid);
  EXPECT_EQ(iconNumber("VLMIconVLMIconAd"), kInvalid);
  EXPECT_EQ(iconNumber("VLMIconVLMBriselIconAd"), kInvalid);
  EXPECT_THAT(lines(), SizeIs(7));
  EXPECT_THAT(lines(), Each(line));
}

TEST_F(IconNumber, TakesPrefixesAtTheStartOnly) {
  EXPECT_EQ(iconNumber("AddVLMIconCalendar"), kInvalid);
  EXPECT_EQ(iconNumber("AddVLMBriselIconCalendar"), kInvalid);
  EXPECT_EQ(iconNumber("VLMBriselIconVLMIconAd"), kInvalid);
  EXPECT_EQ(iconNumber("VLMBriselIconVLMBriselIconAd"), kInvalid);
  EXPECT_EQ(iconNumber("vLMIconAd"), kInvalid);
  EXPECT_EQ(iconNumber(" VLMIconAd"), kInvalid);
  EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(IconNumber, IsFoundAsByThePlainSearch) {
  EXPECT_TRUE(rc::check([] {
    lines().clear();
    const std::string text = *Tests::iconTexts();
    const Tests::NumberedIcon expected = Tests::iconNumbered(text);
    RC_ASSERT(iconNumber(text) == expected.number);
    RC_ASSERT(lines().size() == (expected.isLogged ? 1U : 0U));
  }));
}

// --- Active icons ---

TEST_F(IconNumber, OfTheActiveIconIsThatOfTheNameWithActiveBehindIt) {
  EXPECT_EQ(activeIconNumber(iconNumber("artist")), iconNumber("artistActive"));
  EXPECT_EQ(activeIconNumber(iconNumber("addCalendar")), kInvalid);
  EXPECT_EQ(activeIconNumber(iconNumber("artistActive")), kInvalid);
  EXPECT_EQ(activeIconNumber(0), 0U);
  EXPECT_EQ(activeIconNumber(kInvalid), kInvalid);
  for (const std::uint64_t number : kUnknown) EXPECT_EQ(activeIconNumber(number), kInvalid) << number;
  EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(IconNumber, OfTheActiveIconIsThereForFiftyThree) {
  int found = 0;
  for (const Catalogue::IconEntry& entry : Catalogue::icons()) {
    const std::uint64_t active = activeIconNumber(entry.number);
    EXPECT_EQ(active, Tests::iconNumbered(std::string(entry.objectName) + "Active").number) << entry.name;
    if (active != kInvalid) ++found;
  }
  EXPECT_EQ(found, 53);
}

// --- The layout direction ---

TEST_F(IconNumber, StaysFromLeftToRight) {
  for (std::uint64_t number = 0; number < 329; ++number) EXPECT_EQ(iconNumberForLayoutDirection(number), number);
  for (const std::uint64_t number : kUnknown) EXPECT_EQ(iconNumberForLayoutDirection(number), kInvalid) << number;
  EXPECT_EQ(iconNumberForLayoutDirection(kInvalid), kInvalid);
}

TEST_F(IconNumber, ChangesFromRightToLeftInTwoPairs) {
  Platform::setUserInterfaceLayoutDirection(Platform::UIUserInterfaceLayoutDirection::rightToLeft);
  const auto expected = [](std::uint64_t number) -> std::uint64_t {
    switch (number) {
      case 22:
        return 23;
      case 23:
        return 22;
      case 55:
        return 57;
      case 57:
        return 55;
      default:
        return number;
    }
  };
  for (std::uint64_t number = 0; number < 329; ++number)
    EXPECT_EQ(iconNumberForLayoutDirection(number), expected(number));
  for (const std::uint64_t number : kUnknown) EXPECT_EQ(iconNumberForLayoutDirection(number), kInvalid) << number;
  EXPECT_EQ(iconNumberForLayoutDirection(kInvalid), kInvalid);
}

}  // namespace
}  // namespace Brisel
