#include "brisel/typography/content_size_category.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

namespace Brisel {
namespace {

constexpr ContentSizeCategory kCases[] = {
#define BRISEL_CONTENT_SIZE(name, scale, platformCategory) ContentSizeCategory::name,
#include "brisel/typography/content_sizes.def"
};

constexpr double kScales[] = {
#define BRISEL_CONTENT_SIZE(name, scale, platformCategory) scale,
#include "brisel/typography/content_sizes.def"
};

// Categories are compared by their numbers, which must say the same as their scales.
static_assert(std::ranges::is_sorted(kScales, std::ranges::less_equal()));

// By address: the constants themselves are needed, as they are handed out by reference.
constexpr const Platform::UIContentSizeCategory* kPlatformCategories[] = {
#define BRISEL_CONTENT_SIZE(name, scale, platformCategory) &Platform::platformCategory,
#include "brisel/typography/content_sizes.def"
};

ContentSizeCategory::Case caseOf(const Platform::UIContentSizeCategory& category) noexcept {
  for (std::size_t i = 0; i < std::size(kCases); ++i)
    if (category == *kPlatformCategories[i]) return kCases[i];
  return ContentSizeCategory::Case::large;
}

}  // namespace

ContentSizeCategory::ContentSizeCategory(const Platform::UIContentSizeCategory& category) noexcept
    : case_(caseOf(category)) {}

std::optional<ContentSizeCategory> ContentSizeCategory::fromRawValue(double accessibilityScale) noexcept {
  for (const ContentSizeCategory category : kCases)
    if (category.rawValue() == accessibilityScale) return category;
  return std::nullopt;
}

std::span<const ContentSizeCategory, 12> ContentSizeCategory::allCases() noexcept { return kCases; }

double ContentSizeCategory::rawValue() const noexcept { return kScales[static_cast<std::size_t>(case_)]; }

const Platform::UIContentSizeCategory& ContentSizeCategory::platformCategory() const noexcept {
  return *kPlatformCategories[static_cast<std::size_t>(case_)];
}

ContentSizeCategory nearestContentSizeCategory(double accessibilityScale) noexcept {
  // Far outside, all distances round to the same number.
  if (accessibilityScale > 2.0) return ContentSizeCategory::accessibilityExtraExtraExtraLarge;
  // Of an exact match the distance is 0, so that it needs no case of its own.
  const auto distance = [=](ContentSizeCategory category) {
    return std::fabs(category.rawValue() - accessibilityScale);
  };
  ContentSizeCategory nearest = ContentSizeCategory::extraSmall;
  for (const ContentSizeCategory category : kCases)
    if (distance(category) < distance(nearest)) nearest = category;
  return nearest;
}

}  // namespace Brisel
