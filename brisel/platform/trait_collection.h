#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>

#include "brisel/platform/content_size_category.h"
#include "brisel/platform/object.h"

namespace Brisel::Platform {

/// The direction of a part of the user interface; the published numbers.
enum class UITraitEnvironmentLayoutDirection : std::int8_t {
  unspecified = -1,  ///< not said
  leftToRight = 0,   ///< text begins at the left
  rightToLeft = 1,   ///< text begins at the right
};

/// What a part of the user interface is told of its surroundings: the preferred text size and the direction. Each trait
/// may be unspecified. Immutable; equal when all traits are.
class UITraitCollection final : public NSObject {
 public:
  /// One in which nothing is specified.
  static std::shared_ptr<const UITraitCollection> init();
  /// `traitCollectionWithPreferredContentSizeCategory:`: this trait alone.
  static std::shared_ptr<const UITraitCollection> traitCollectionWithPreferredContentSizeCategory(
      const UIContentSizeCategory& category);
  /// `traitCollectionWithLayoutDirection:`: this trait alone.
  static std::shared_ptr<const UITraitCollection> traitCollectionWithLayoutDirection(
      UITraitEnvironmentLayoutDirection direction);
  /// `traitCollectionWithTraitsFromCollections:`: of each trait, the last one that is specified. Null collections count
  /// as empty.
  static std::shared_ptr<const UITraitCollection> traitCollectionWithTraitsFromCollections(
      std::span<const std::shared_ptr<const UITraitCollection>> collections);
  static std::shared_ptr<const UITraitCollection> traitCollectionWithTraitsFromCollections(
      std::initializer_list<std::shared_ptr<const UITraitCollection>> collections);

  /// `UIContentSizeCategoryUnspecified` where it is not; names that are unknown are kept.
  const UIContentSizeCategory& preferredContentSizeCategory() const noexcept { return preferredContentSizeCategory_; }
  /// The direction; `unspecified` where it is not.
  UITraitEnvironmentLayoutDirection layoutDirection() const noexcept { return layoutDirection_; }

  bool isEqual(const NSObject& other) const override;
  std::size_t objectHash() const override;

 private:
  UITraitCollection() = default;

  UIContentSizeCategory preferredContentSizeCategory_ = UIContentSizeCategoryUnspecified;
  UITraitEnvironmentLayoutDirection layoutDirection_ = UITraitEnvironmentLayoutDirection::unspecified;
};

}  // namespace Brisel::Platform
