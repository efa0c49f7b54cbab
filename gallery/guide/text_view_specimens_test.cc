#include "gallery/guide/text_view_specimens.h"

#include <memory>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/views/label.h"
#include "brisel/platform/views/text_view.h"
#include "brisel/typography/dynamic_type_monitor.h"

namespace Brisel::Gallery {
namespace {

using testing::Gt;

constexpr auto kLarge = ContentSizeCategory::large;
constexpr auto kLargest = ContentSizeCategory::accessibilityExtraExtraExtraLarge;

template <class View>
const View& only(const ViewPtr& ground) {
  return dynamic_cast<const View&>(*ground->subviews().at(0));
}

double labelSize(const LabelAndTextView& pair) { return only<Platform::UILabel>(pair.label).font()->pointSize(); }
double textViewSize(const LabelAndTextView& pair) {
  return only<Platform::UITextView>(pair.textView).font()->pointSize();
}

double balladIn(ContentSizeCategory category) {
  return TypeStyle::ballad().configuration().fontSize().value(category.rawValue());
}

TEST(TextViewSpecimens, AreAsWideAsSaidAndGrowWithTheTextSize) {
  for (auto* const make :
       {wrappedLabel, truncatedLabel, rightToLeftLabel, filledTextField, emptyTextField, paragraphTextView}) {
    const Platform::CGSize small = make(kLarge)->frame().size, large = make(kLargest)->frame().size;
    EXPECT_EQ(small.width, kSpecimenWidth);
    EXPECT_EQ(large.width, kSpecimenWidth);
    EXPECT_THAT(small.height, Gt(balladIn(kLarge)));
    EXPECT_THAT(large.height, Gt(small.height));
  }
  EXPECT_THAT(followButton(Platform::UIControlStateSelected, kLargest)->frame().size.height,
              Gt(followButton(Platform::UIControlStateSelected, kLarge)->frame().size.height));
}

TEST(TextViewSpecimens, ALegacyLabelFollowsItsTraitsUpToItsLargestCategory) {
  const auto size = [](bool follows, const Platform::UIContentSizeCategory& most, ContentSizeCategory category) {
    return only<Platform::UILabel>(legacyLabel(follows, most, category)).font()->pointSize();
  };
  const auto unlimited = Platform::UIContentSizeCategoryAccessibilityExtraExtraExtraLarge;
  EXPECT_EQ(size(true, unlimited, kLargest), balladIn(kLargest));
  EXPECT_EQ(size(true, Platform::UIContentSizeCategoryExtraExtraExtraLarge, kLargest), 22);
  EXPECT_EQ(size(true, Platform::UIContentSizeCategoryExtraExtraExtraLarge, kLarge), 16);
  EXPECT_EQ(size(false, unlimited, kLargest), 16);
}

TEST(TextViewSpecimens, ATitleIsFittedByWholePointsAsFarAsTheStyleAllows) {
  const FittedTitle fitting = fittedTitle("A very long night on the pier", TypeStyle::bass(), 2, kLarge);
  EXPECT_EQ(fitting.pointsBefore, 56);
  EXPECT_LT(fitting.pointsAfter, 56);
  EXPECT_EQ(fitting.pointsAfter, static_cast<int>(fitting.pointsAfter));
  EXPECT_TRUE(fitting.fits);

  // 56 × 0.3 is 16.8; the last step may end below it.
  const FittedTitle tooLong =
      fittedTitle("A very, very, very, very long night on the pier", TypeStyle::bass(), 1, kLarge);
  EXPECT_EQ(tooLong.pointsAfter, 16);
  EXPECT_FALSE(tooLong.fits);

  const FittedTitle fits = fittedTitle("Pier", TypeStyle::bass(), 1, kLarge);
  EXPECT_EQ(fits.pointsAfter, 56);
  EXPECT_TRUE(fits.fits);
}

TEST(TextViewSpecimens, OnlyWhatIsSubscribedFollowsAChange) {
  const LabelAndTextView subscribed = afterChange(Styling::subscribed, kLargest);
  EXPECT_EQ(labelSize(subscribed), balladIn(kLargest));
  EXPECT_EQ(textViewSize(subscribed), balladIn(kLargest));
  const LabelAndTextView once = afterChange(Styling::once, kLargest);
  EXPECT_EQ(labelSize(once), 16);
  EXPECT_EQ(textViewSize(once), 16);
}

TEST(TextViewSpecimens, TheSubscribedStyleComesBackAtAChange) {
  const auto bold = TypeStyle::balladBold().font(kLarge.platformCategory());
  const auto book = TypeStyle::ballad().font(kLarge.platformCategory());
  const LabelAndTextView before = beforeChange(Styling::restyled);
  EXPECT_EQ(only<Platform::UILabel>(before.label).font()->fontName(), bold->fontName());
  EXPECT_EQ(only<Platform::UITextView>(before.textView).font()->fontName(), bold->fontName());
  const LabelAndTextView after = afterChange(Styling::restyled, kLargest);
  EXPECT_EQ(only<Platform::UILabel>(after.label).font()->fontName(), book->fontName());
  EXPECT_EQ(only<Platform::UITextView>(after.textView).font()->fontName(), book->fontName());
}

TEST(TextViewSpecimens, LeaveTheTextSizeAsItWas) {
  afterChange(Styling::subscribed, kLargest);
  EXPECT_EQ(DynamicTypeMonitor::shared()->preferredContentSizeCategory(), kLarge.platformCategory());
}

}  // namespace
}  // namespace Brisel::Gallery
