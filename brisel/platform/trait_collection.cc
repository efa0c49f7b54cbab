#include "brisel/platform/trait_collection.h"

#include "brisel/platform/internal/hash.h"

namespace Brisel::Platform {

std::shared_ptr<const UITraitCollection> UITraitCollection::init() {
  static const auto* const nothing = new std::shared_ptr<const UITraitCollection>(new UITraitCollection);
  return *nothing;
}

std::shared_ptr<const UITraitCollection> UITraitCollection::traitCollectionWithPreferredContentSizeCategory(
    const UIContentSizeCategory& category) {
  const std::shared_ptr<UITraitCollection> traits(new UITraitCollection);
  traits->preferredContentSizeCategory_ = category;
  return traits;
}

std::shared_ptr<const UITraitCollection> UITraitCollection::traitCollectionWithLayoutDirection(
    UITraitEnvironmentLayoutDirection direction) {
  const std::shared_ptr<UITraitCollection> traits(new UITraitCollection);
  traits->layoutDirection_ = direction;
  return traits;
}

std::shared_ptr<const UITraitCollection> UITraitCollection::traitCollectionWithTraitsFromCollections(
    std::span<const std::shared_ptr<const UITraitCollection>> collections) {
  const std::shared_ptr<UITraitCollection> merged(new UITraitCollection);
  for (const auto& traits : collections) {
    if (!traits) continue;
    if (traits->preferredContentSizeCategory_ != UIContentSizeCategoryUnspecified)
      merged->preferredContentSizeCategory_ = traits->preferredContentSizeCategory_;
    if (traits->layoutDirection_ != UITraitEnvironmentLayoutDirection::unspecified)
      merged->layoutDirection_ = traits->layoutDirection_;
  }
  return merged;
}

std::shared_ptr<const UITraitCollection> UITraitCollection::traitCollectionWithTraitsFromCollections(
    std::initializer_list<std::shared_ptr<const UITraitCollection>> collections) {
  return traitCollectionWithTraitsFromCollections(std::span(collections.begin(), collections.size()));
}

bool UITraitCollection::isEqual(const NSObject& other) const {
  const auto* traits = dynamic_cast<const UITraitCollection*>(&other);
  return traits && traits->preferredContentSizeCategory_ == preferredContentSizeCategory_ &&
         traits->layoutDirection_ == layoutDirection_;
}

std::size_t UITraitCollection::objectHash() const {
  internal::Hasher hasher;
  hasher(preferredContentSizeCategory_, layoutDirection_);
  return hasher.finish();
}

}  // namespace Brisel::Platform
