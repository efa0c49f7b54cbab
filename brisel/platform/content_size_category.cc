#include "brisel/platform/content_size_category.h"

#include <algorithm>
#include <utility>

#include "brisel/platform/internal/utf.h"

namespace Brisel::Platform {
namespace {

constexpr std::string_view kKnown[] = {
    UIContentSizeCategoryExtraSmall.string(),
    UIContentSizeCategorySmall.string(),
    UIContentSizeCategoryMedium.string(),
    UIContentSizeCategoryLarge.string(),
    UIContentSizeCategoryExtraLarge.string(),
    UIContentSizeCategoryExtraExtraLarge.string(),
    UIContentSizeCategoryExtraExtraExtraLarge.string(),
    UIContentSizeCategoryAccessibilityMedium.string(),
    UIContentSizeCategoryAccessibilityLarge.string(),
    UIContentSizeCategoryAccessibilityExtraLarge.string(),
    UIContentSizeCategoryAccessibilityExtraExtraLarge.string(),
    UIContentSizeCategoryAccessibilityExtraExtraExtraLarge.string(),
    UIContentSizeCategoryUnspecified.string(),
};

}  // namespace

UIContentSizeCategory::UIContentSizeCategory(std::string_view name) {
  const auto* known = std::find(std::begin(kKnown), std::end(kKnown), name);
  if (known != std::end(kKnown)) {
    name_ = *known;
  } else {
    owned_ = new std::string(internal::wellFormed(name));
    name_ = *owned_;
  }
}

UIContentSizeCategory::UIContentSizeCategory(const UIContentSizeCategory& other)
    : name_(other.name_), owned_(other.owned_ ? new std::string(*other.owned_) : nullptr) {
  if (owned_) name_ = *owned_;
}

UIContentSizeCategory::UIContentSizeCategory(UIContentSizeCategory&& other) noexcept
    : name_(other.name_), owned_(other.owned_) {
  if (std::exchange(other.owned_, nullptr)) other.name_ = {};
}

UIContentSizeCategory& UIContentSizeCategory::operator=(UIContentSizeCategory other) noexcept {
  std::swap(name_, other.name_);
  std::swap(owned_, other.owned_);
  return *this;
}

std::optional<UIContentSizeCategory> UIContentSizeCategory::fromValue(const Value& value) {
  if (const std::string* name = value.asString()) return UIContentSizeCategory(*name);
  return std::nullopt;
}

}  // namespace Brisel::Platform
