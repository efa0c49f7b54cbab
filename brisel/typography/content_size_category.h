#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <span>

#include "brisel/platform/content_size_category.h"

namespace Brisel {

/// A step of the scale of text sizes among which users choose, such as `ContentSizeCategory::large`, the default.
/// Ordered from the smallest to the largest.
class ContentSizeCategory {
 public:
  /// The categories, for `switch`.
  enum class Case : std::uint8_t {
#define BRISEL_CONTENT_SIZE(name, scale, platformCategory) name,
#include "brisel/typography/content_sizes.def"
  };

#define BRISEL_CONTENT_SIZE(name, scale, platformCategory) static const ContentSizeCategory name;
#include "brisel/typography/content_sizes.def"

  /// The platform's category of the same name; `large` for `UIContentSizeCategoryUnspecified` and unknown names.
  explicit ContentSizeCategory(const Platform::UIContentSizeCategory& category) noexcept;

  /// The category whose scale is exactly this one.
  static std::optional<ContentSizeCategory> fromRawValue(double accessibilityScale) noexcept;

  /// All categories, from the smallest to the largest.
  static std::span<const ContentSizeCategory, 12> allCases() noexcept;

  /// The accessibility scale: -1.0 for `extraSmall`, 0.0 for `large`, 1.0 for `extraExtraExtraLarge`, 2.0 at most.
  double rawValue() const noexcept;

  /// The platform's category of the same name.
  const Platform::UIContentSizeCategory& platformCategory() const noexcept;

  constexpr operator Case() const noexcept { return case_; }  ///< for `switch`
  friend constexpr auto operator<=>(ContentSizeCategory, ContentSizeCategory) noexcept = default;

 private:
  constexpr explicit ContentSizeCategory(Case value) noexcept : case_(value) {}

  Case case_;
};

#define BRISEL_CONTENT_SIZE(name, scale, platformCategory) \
  inline constexpr ContentSizeCategory ContentSizeCategory::name{ContentSizeCategory::Case::name};
#include "brisel/typography/content_sizes.def"

/// The category whose scale is nearest to this one; the smaller one where two are equally near, and `extraSmall` for
/// not-a-number.
ContentSizeCategory nearestContentSizeCategory(double accessibilityScale) noexcept;

}  // namespace Brisel
