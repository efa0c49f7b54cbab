// Styles on labels.
#include "brisel/typography/text_view_styling.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "brisel/typography/fitting.h"
#include "brisel/typography/style_recorder.h"
#include "brisel/typography/styled_string.h"
#include "brisel/typography/styled_views_test.h"

namespace Brisel {
namespace {

using namespace Platform;
using testing::ElementsAre;
using testing::IsEmpty;

// Capitals, so that no style's upper-casing changes them; in the engine of these tests each is half an em wide.
constexpr const char* kTwentyCharacters = "AAAA AAAA AAAA AAAAA";

// Counts how often it is given attributed text.
class CountingLabel : public UILabel {
 public:
  static std::shared_ptr<CountingLabel> initWithFrame(const CGRect& frame = {}) {
    return made(std::shared_ptr<CountingLabel>(new CountingLabel), frame);
  }

  void setAttributedText(const std::shared_ptr<const NSAttributedString>& text) override {
    lengths.push_back(text ? text->length() : 0);
    UILabel::setAttributedText(text);
  }

  std::vector<std::size_t> lengths;
};

// Keeps the styles that are applied to it, each with the size of the font that it had at that time.
class RecordingLabel final : public UILabel, public StyleRecorder {
 public:
  static std::shared_ptr<RecordingLabel> initWithFrame(const CGRect& frame = {}) {
    return made(std::shared_ptr<RecordingLabel>(new RecordingLabel), frame);
  }

  void recordStyle(const TypeStyle& style) override {
    names.push_back(style.name());
    sizes.push_back(fontSize(*this));
    if (onRecord) onRecord();
  }

  std::vector<std::string> names;
  std::vector<CGFloat> sizes;
  std::function<void()> onRecord;
};

using LabelStyling = StyledViews;
using LabelSubscription = StyledViews;

std::shared_ptr<UILabel> labelWithText(const std::optional<std::string>& text, CGFloat width = 1000) {
  auto label = UILabel::initWithFrame({{}, {width, 40}});
  label->setText(text);
  return label;
}

// --- Styles ---

TEST_F(LabelStyling, SetsTheFontAndTheTextInIt) {
  const auto label = labelWithText("Bonjour");
  apply(*label, TypeStyle::ballad(), kSmall, false);
  EXPECT_TRUE(objectsAreEqual(label->font(), TypeStyle::ballad().font(kSmall)));
  EXPECT_EQ(fontSize(*label), 14.001999999999999);
  EXPECT_EQ(label->attributedText()->string(), "Bonjour");
  EXPECT_TRUE(objectsAreEqual(attributeAtStart<UIFont>(*label->attributedText(), NSFontAttributeName),
                              TypeStyle::ballad().font(kSmall)));
}

TEST_F(LabelStyling, TakesUnknownCategoriesForLarge) {
  const auto label = labelWithText("Bonjour");
  apply(*label, TypeStyle::ballad(), UIContentSizeCategory("nonsense"), false);
  EXPECT_EQ(fontSize(*label), 16);
  EXPECT_EQ(textSize(label->attributedText()), 16);
}

TEST_F(LabelStyling, KeepsTheLabelsAlignmentAndLineBreakMode) {
  const auto label = labelWithText("Bonjour");
  label->setTextAlignment(NSTextAlignment::center);
  label->setLineBreakMode(NSLineBreakMode::byTruncatingMiddle);
  apply(*label, TypeStyle::ballad(), kLarge, false);
  const auto paragraph = attributeAtStart<NSParagraphStyle>(*label->attributedText(), NSParagraphStyleAttributeName);
  ASSERT_TRUE(paragraph);
  EXPECT_EQ(paragraph->alignment(), NSTextAlignment::center);
  EXPECT_EQ(paragraph->lineBreakMode(), NSLineBreakMode::byTruncatingMiddle);
}

TEST_F(LabelStyling, SharesAttributesAmongLabelsThatAreStyledAlike) {
  const auto styled = [](NSTextAlignment alignment, const UIContentSizeCategory& category) {
    const auto label = UILabel::initWithFrame();
    label->setText("A");
    label->setTextAlignment(alignment);
    apply(*label, TypeStyle::ballad(), category, false);
    return label->attributedText()->attributesAtIndex(0);
  };
  const Dictionary attributes = styled(NSTextAlignment::left, kSmall);
  EXPECT_EQ(styled(NSTextAlignment::left, kSmall).begin(), attributes.begin());
  EXPECT_FALSE(styled(NSTextAlignment::right, kSmall) == attributes);
  EXPECT_FALSE(styled(NSTextAlignment::left, kHuge) == attributes);
}

TEST_F(LabelStyling, SetsTheFontAloneWhereThereIsNoText) {
  const auto label = CountingLabel::initWithFrame();
  apply(*label, TypeStyle::ballad(), kSmall, false);
  EXPECT_EQ(fontSize(*label), 14.001999999999999);
  EXPECT_THAT(label->lengths, IsEmpty());
  EXPECT_FALSE(label->text());
}

TEST_F(LabelStyling, SetsAnEmptyAttributedTextWhereTheTextIsEmpty) {
  const auto label = CountingLabel::initWithFrame();
  label->setText("");
  label->lengths.clear();
  apply(*label, TypeStyle::ballad(), kSmall, false);
  EXPECT_THAT(label->lengths, ElementsAre(0U));
  EXPECT_EQ(label->text(), "");
}

TEST_F(LabelStyling, ShowsCapitalsWhereTheStyleAsksForThem) {
  const auto label = labelWithText("Bonjour");
  apply(*label, TypeStyle::minuet(), kLarge, false);
  EXPECT_EQ(label->text(), "BONJOUR");
}

TEST_F(LabelStyling, DoesNotFitTheTextOfALabelThatShrinksItItself) {
  const auto label = labelWithText(kTwentyCharacters, 100);
  label->setAdjustsFontSizeToFitWidth(true);
  label->setMinimumScaleFactor(0.5);
  apply(*label, TypeStyle::ballad(), kLarge, false);
  EXPECT_EQ(textSize(label->attributedText()), 16);
}

TEST_F(LabelStyling, FitsTheTextOfALabelThatDoesNotByItsOwnFactor) {
  const auto label = labelWithText(kTwentyCharacters, 100);
  label->setMinimumScaleFactor(0.5);
  apply(*label, TypeStyle::ballad(), kLarge, false);
  // Twenty halves of an em in 100 points.
  EXPECT_EQ(textSize(label->attributedText()), 10);
}

TEST_F(LabelStyling, FitsIntoTheLabelsOwnNumberOfLines) {
  const auto label = labelWithText(kTwentyCharacters, 100);
  label->setMinimumScaleFactor(0.5);
  label->setNumberOfLines(2);
  apply(*label, TypeStyle::ballad(), kLarge, false);
  EXPECT_EQ(textSize(label->attributedText()), 16);
}

TEST_F(LabelStyling, DoesNotFitTheTextOfALabelWithoutAFactor) {
  const auto label = labelWithText(kTwentyCharacters, 100);
  ASSERT_EQ(label->minimumScaleFactor(), 0);
  apply(*label, TypeStyle::ballad(), kLarge, false);
  EXPECT_EQ(textSize(label->attributedText()), 16);
}

TEST_F(LabelStyling, RecordsTheStyleBeforeAnythingElse) {
  const auto label = RecordingLabel::initWithFrame();
  apply(*label, TypeStyle::ballad(), kSmall, false);
  apply(*label, TypeStyle::viola(), kSmall, false);
  EXPECT_THAT(label->names, ElementsAre("Ballad", TypeStyle::viola().name()));
  EXPECT_THAT(label->sizes, ElementsAre(-1, 14.001999999999999));
}

TEST_F(LabelStyling, GivesRandomLabelsTheStringOfTheBuilder) {
  EXPECT_TRUE(rc::check([] {
    const auto text = *rc::gen::string<std::string>();
    const auto& style = TypeStyle::allCases()[*rc::gen::inRange<std::size_t>(0, TypeStyle::allCases().size())];
    const auto category = *rc::gen::element(kSmall, kLarge, kHuge, UIContentSizeCategory("nonsense"));
    const auto alignment = *rc::gen::element(NSTextAlignment::left, NSTextAlignment::center, NSTextAlignment::natural);
    const auto mode = *rc::gen::element(NSLineBreakMode::byWordWrapping, NSLineBreakMode::byTruncatingTail);
    const bool adjusts = *rc::gen::arbitrary<bool>();
    const double factor = *rc::gen::inRange(-1, 12) / 10.0;
    const std::int64_t lines = *rc::gen::inRange(0, 4);
    const double width = *rc::gen::inRange(0, 400);
    const auto label = [&] {
      auto made = labelWithText(text, width);
      made->setTextAlignment(alignment);
      made->setLineBreakMode(mode);
      made->setAdjustsFontSizeToFitWidth(adjusts);
      made->setMinimumScaleFactor(factor);
      made->setNumberOfLines(lines);
      return made;
    };
    const auto styled = label(), twin = label();
    apply(*styled, style, category, *rc::gen::arbitrary<bool>());

    const auto paragraph = NSMutableParagraphStyle::init();
    paragraph->setAlignment(alignment);
    paragraph->setLineBreakMode(mode);
    twin->setFont(style.font(category));
    const auto expected = attributedString(*twin->text(), style, category, adjusts ? -1.0 : twin->minimumScaleFactor(),
                                           lines, *twin, {{NSParagraphStyleAttributeName, paragraph}});
    RC_ASSERT(styled->attributedText()->isEqual(*expected));
  }));
}

// --- Changes of the preferred size ---

TEST_F(LabelSubscription, FollowsChangesWithTheFlag) {
  const auto label = labelWithText("Bonjour");
  apply(*label, TypeStyle::ballad(), kLarge, true);
  EXPECT_EQ(fontSize(*label), 16);
  monitor().setup(kHuge);
  EXPECT_EQ(fontSize(*label), sizeIn(TypeStyle::ballad(), kHuge));
  EXPECT_EQ(textSize(label->attributedText()), sizeIn(TypeStyle::ballad(), kHuge));
  monitor().setup(kSmall);
  EXPECT_EQ(fontSize(*label), 14.001999999999999);
}

TEST_F(LabelSubscription, IsMeasuredWithTheChangeIfItsSizeWasKnown) {
  const auto label = labelWithText("Bonjour");
  apply(*label, TypeStyle::ballad(), kLarge, true);
  monitor().setup(kSmall);
  EXPECT_FALSE(label->isMeasured());
  const CGSize small = label->intrinsicContentSize();
  monitor().setup(kHuge);
  EXPECT_TRUE(label->isMeasured());
  EXPECT_GT(label->intrinsicContentSize().width, small.width);
  const auto twin = labelWithText("Bonjour");
  apply(*twin, TypeStyle::ballad(), kHuge, false);
  EXPECT_EQ(label->intrinsicContentSize(), twin->intrinsicContentSize());
}

TEST_F(LabelSubscription, HoldsForAsManyLabelsAsThereAre) {
  std::vector<std::shared_ptr<UILabel>> labels;
  for (int i = 0; i < 200; ++i) {
    const auto& label = labels.emplace_back(labelWithText(i % 7 == 0 ? std::nullopt : std::optional<std::string>("A")));
    apply(*label, i % 2 == 0 ? TypeStyle::ballad() : TypeStyle::forte(), kLarge, true);
    if (i % 3 == 0) label->intrinsicContentSize();
  }
  for (std::size_t i = 0; i < labels.size(); i += 5) labels[i].reset();
  monitor().setup(kSmall);
  for (std::size_t i = 0; i < labels.size(); ++i) {
    if (!labels[i]) continue;
    EXPECT_EQ(fontSize(*labels[i]), sizeIn(i % 2 == 0 ? TypeStyle::ballad() : TypeStyle::forte(), kSmall));
    EXPECT_EQ(labels[i]->isMeasured(), i % 3 == 0 && i % 7 != 0);
  }
}

TEST_F(LabelSubscription, DoesNotFollowWithoutTheFlag) {
  const auto label = labelWithText("Bonjour");
  apply(*label, TypeStyle::ballad(), kLarge, false);
  monitor().setup(kHuge);
  EXPECT_EQ(fontSize(*label), 16);
}

TEST_F(LabelSubscription, FollowsWithTextThatWasSetLater) {
  const auto label = labelWithText(std::nullopt);
  apply(*label, TypeStyle::ballad(), kLarge, true);
  label->setText("Salut");
  monitor().setup(kSmall);
  EXPECT_EQ(label->attributedText()->string(), "Salut");
  EXPECT_EQ(textSize(label->attributedText()), 14.001999999999999);
}

TEST_F(LabelSubscription, FollowsInTheStyleThatWasAppliedLastWithTheFlag) {
  const auto label = labelWithText("Bonjour");
  apply(*label, TypeStyle::ballad(), kLarge, true);
  apply(*label, TypeStyle::viola(), kLarge, true);
  monitor().setup(kSmall);
  EXPECT_EQ(fontSize(*label), sizeIn(TypeStyle::viola(), kSmall));
}

TEST_F(LabelSubscription, GoesBackToTheOldStyleAfterOneAppliedWithoutTheFlag) {
  const auto label = labelWithText("Bonjour");
  apply(*label, TypeStyle::ballad(), kLarge, true);
  apply(*label, TypeStyle::viola(), kLarge, false);
  EXPECT_EQ(fontSize(*label), sizeIn(TypeStyle::viola(), kLarge));
  monitor().setup(kSmall);
  EXPECT_EQ(fontSize(*label), 14.001999999999999);
}

TEST_F(LabelSubscription, RecordsTheStyleAtEachChange) {
  const auto label = RecordingLabel::initWithFrame();
  apply(*label, TypeStyle::ballad(), kLarge, true);
  monitor().setup(kSmall);
  monitor().setup(kHuge);
  EXPECT_THAT(label->names, ElementsAre("Ballad", "Ballad", "Ballad"));
}

TEST_F(LabelSubscription, FindsTheLabelWithinAnObjectThatBeginsWithAnotherBase) {
  class LateLabel final : public StyleRecorder, public UILabel {
   public:
    static std::shared_ptr<LateLabel> init() { return made(std::shared_ptr<LateLabel>(new LateLabel), {}); }
    void recordStyle(const TypeStyle&) override { ++records; }
    int records = 0;
  };
  const auto first = labelWithText("Salut");  // so that the other is approached, too
  const auto label = LateLabel::init();
  const UILabel& asLabel = *label;
  ASSERT_NE(static_cast<const void*>(&asLabel), dynamic_cast<const void*>(&asLabel));
  label->setText("Bonjour");
  apply(*first, TypeStyle::ballad(), kLarge, true);
  apply(*label, TypeStyle::ballad(), kLarge, true);
  monitor().setup(kSmall);
  EXPECT_EQ(fontSize(*label), 14.001999999999999);
  EXPECT_EQ(label->records, 2);
}

TEST_F(LabelSubscription, IsNotRenewedByAChange) {
  const auto label = RecordingLabel::initWithFrame();
  apply(*label, TypeStyle::ballad(), kLarge, true);
  label->onRecord = [&] { disableDynamicTypeMonitor(*label); };
  monitor().setup(kSmall);
  monitor().setup(kLarge);
  EXPECT_THAT(label->names, ElementsAre("Ballad", "Ballad"));
}

TEST_F(LabelSubscription, UsesTheCategoryThatItIsHandedAndNotTheMonitors) {
  const auto one = RecordingLabel::initWithFrame(), other = RecordingLabel::initWithFrame();
  apply(*one, TypeStyle::ballad(), kLarge, true);
  apply(*other, TypeStyle::ballad(), kLarge, true);
  // Whichever is told first that the size is small tells, before it goes on, both of them that it is huge.
  bool isFirst = true;
  one->onRecord = other->onRecord = [&] {
    if (std::exchange(isFirst, false)) monitor().setup(kHuge);
  };
  monitor().setup(kSmall);
  EXPECT_EQ(monitor().preferredContentSizeCategory(), kHuge);
  EXPECT_EQ(fontSize(*one), 14.001999999999999);
  EXPECT_EQ(fontSize(*other), 14.001999999999999);
}

TEST_F(LabelSubscription, EndsWhenTheLabelIsFreed) {
  auto label = RecordingLabel::initWithFrame();
  int calls = 0;
  label->onRecord = [&] { ++calls; };
  apply(*label, TypeStyle::ballad(), kLarge, true);
  const std::weak_ptr<UILabel> weak = label;
  label.reset();
  EXPECT_TRUE(weak.expired());
  monitor().setup(kSmall);
  EXPECT_EQ(calls, 1);
}

TEST_F(LabelSubscription, EndsByRequestAndLeavesTheStyling) {
  const auto label = labelWithText("Bonjour");
  apply(*label, TypeStyle::ballad(), kSmall, true);
  disableDynamicTypeMonitor(*label);
  monitor().setup(kHuge);
  EXPECT_EQ(fontSize(*label), 14.001999999999999);
  EXPECT_EQ(textSize(label->attributedText()), 14.001999999999999);
  disableDynamicTypeMonitor(*label);
}

class LabelOnTheStack final : public UILabel {};

TEST_F(LabelSubscription, DiesOfALabelThatNobodyOwns) {
  EXPECT_DEATH(
      {
        LabelOnTheStack label;
        apply(label, TypeStyle::ballad(), kLarge, true);
      },
      "held by a shared_ptr");
}

}  // namespace
}  // namespace Brisel
