#include "brisel/platform/trait_collection.h"

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace Brisel::Platform {
namespace {

using Traits = std::shared_ptr<const UITraitCollection>;
using Direction = UITraitEnvironmentLayoutDirection;

Traits withCategory(const UIContentSizeCategory& category) {
  return UITraitCollection::traitCollectionWithPreferredContentSizeCategory(category);
}

Traits withDirection(Direction direction) { return UITraitCollection::traitCollectionWithLayoutDirection(direction); }

Traits merged(std::initializer_list<Traits> collections) {
  return UITraitCollection::traitCollectionWithTraitsFromCollections(collections);
}

// Any of the twelve ways to specify a category (or not, or an unknown one) and a direction (or not).
Traits anyTraits() {
  const auto category = *rc::gen::element(UIContentSizeCategoryUnspecified, UIContentSizeCategorySmall,
                                          UIContentSizeCategoryLarge, UIContentSizeCategory("Huge"));
  const auto direction = *rc::gen::element(Direction::unspecified, Direction::leftToRight, Direction::rightToLeft);
  return merged({withCategory(category), withDirection(direction)});
}

TEST(TraitCollection, SpecifiesNothingAtFirst) {
  EXPECT_EQ(UITraitCollection::init()->preferredContentSizeCategory(), UIContentSizeCategoryUnspecified);
  EXPECT_EQ(UITraitCollection::init()->layoutDirection(), Direction::unspecified);
}

TEST(TraitCollection, SpecifiesTheOneTraitThatItIsMadeOf) {
  EXPECT_EQ(withCategory(UIContentSizeCategorySmall)->preferredContentSizeCategory(), UIContentSizeCategorySmall);
  EXPECT_EQ(withCategory(UIContentSizeCategorySmall)->layoutDirection(), Direction::unspecified);
  EXPECT_EQ(withDirection(Direction::rightToLeft)->layoutDirection(), Direction::rightToLeft);
  EXPECT_EQ(withDirection(Direction::rightToLeft)->preferredContentSizeCategory(), UIContentSizeCategoryUnspecified);
}

TEST(TraitCollection, KeepsAnUnknownCategory) {
  EXPECT_EQ(withCategory(UIContentSizeCategory("Huge"))->preferredContentSizeCategory().string(), "Huge");
}

TEST(TraitCollection, TakesTheLastThatIsSpecifiedOfEachTrait) {
  const auto traits = merged({withCategory(UIContentSizeCategorySmall), withDirection(Direction::rightToLeft),
                              withCategory(UIContentSizeCategoryLarge), UITraitCollection::init(), nullptr});
  EXPECT_EQ(traits->preferredContentSizeCategory(), UIContentSizeCategoryLarge);
  EXPECT_EQ(traits->layoutDirection(), Direction::rightToLeft);
}

TEST(TraitCollection, OfNoCollectionsSpecifiesNothing) {
  EXPECT_TRUE(merged({})->isEqual(*UITraitCollection::init()));
  EXPECT_TRUE(merged({nullptr, nullptr})->isEqual(*UITraitCollection::init()));
}

TEST(TraitCollection, IsEqualToOneWithTheSameTraits) {
  const auto small = withCategory(UIContentSizeCategorySmall);
  EXPECT_TRUE(small->isEqual(*withCategory(UIContentSizeCategory("UIContentSizeCategorySmall"))));
  EXPECT_EQ(small->objectHash(), withCategory(UIContentSizeCategorySmall)->objectHash());
  EXPECT_FALSE(small->isEqual(*withCategory(UIContentSizeCategoryLarge)));
  EXPECT_FALSE(small->isEqual(*merged({small, withDirection(Direction::leftToRight)})));
  EXPECT_FALSE(withDirection(Direction::leftToRight)->isEqual(*UITraitCollection::init()));
}

TEST(TraitCollection, ThatSpecifiesNothingChangesNothingItIsMergedWith) {
  EXPECT_TRUE(rc::check([] {
    const Traits traits = anyTraits();
    RC_ASSERT(merged({traits, UITraitCollection::init()})->isEqual(*traits));
    RC_ASSERT(merged({UITraitCollection::init(), traits})->isEqual(*traits));
    RC_ASSERT(merged({traits, nullptr, traits})->isEqual(*traits));
  }));
}

TEST(TraitCollection, MayBeMergedInPartsFirst) {
  EXPECT_TRUE(rc::check([] {
    const Traits a = anyTraits(), b = anyTraits(), c = anyTraits();
    const Traits all = merged({a, b, c});
    RC_ASSERT(merged({merged({a, b}), c})->isEqual(*all));
    RC_ASSERT(merged({a, merged({b, c})})->isEqual(*all));
    RC_ASSERT(merged({merged({a, b}), c})->objectHash() == all->objectHash());
  }));
}

}  // namespace
}  // namespace Brisel::Platform
