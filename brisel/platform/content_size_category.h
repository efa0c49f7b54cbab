// The user's preferred text size, as the platform names it.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "brisel/platform/value.h"

namespace Brisel::Platform {

/// The name of a content-size category. Unknown names are kept as they are; equality is that of the strings.
///
/// In a Value a category is its string, and each string is a category: `fromValue` tells it from other kinds.
class UIContentSizeCategory {
 public:
  /// A category by name; of an unknown one the text is copied, its ill-formed bytes replaced.
  explicit UIContentSizeCategory(std::string_view name);

  UIContentSizeCategory(const UIContentSizeCategory& other);
  UIContentSizeCategory(UIContentSizeCategory&& other) noexcept;
  UIContentSizeCategory& operator=(UIContentSizeCategory other) noexcept;
  constexpr ~UIContentSizeCategory() { delete owned_; }

  /// A category whose name is a literal: it owns nothing, and needs neither construction nor destruction at run time.
  static consteval UIContentSizeCategory constant(std::string_view literal) { return {Literal(), literal}; }

  /// A string value as a category; nothing for other kinds.
  static std::optional<UIContentSizeCategory> fromValue(const Value& value);
  operator Value() const { return Value(name_); }

  constexpr std::string_view string() const noexcept { return name_; }

  friend constexpr bool operator==(const UIContentSizeCategory& a, const UIContentSizeCategory& b) noexcept {
    return a.name_ == b.name_;
  }

 private:
  struct Literal {};
  constexpr UIContentSizeCategory(Literal, std::string_view name) noexcept : name_(name) {}

  std::string_view name_;               // a literal, or *owned_
  const std::string* owned_ = nullptr;  // the name of an unknown category
};

inline constexpr auto UIContentSizeCategoryExtraSmall =
    UIContentSizeCategory::constant("UIContentSizeCategoryExtraSmall");
inline constexpr auto UIContentSizeCategorySmall = UIContentSizeCategory::constant("UIContentSizeCategorySmall");
inline constexpr auto UIContentSizeCategoryMedium = UIContentSizeCategory::constant("UIContentSizeCategoryMedium");
inline constexpr auto UIContentSizeCategoryLarge = UIContentSizeCategory::constant("UIContentSizeCategoryLarge");
inline constexpr auto UIContentSizeCategoryExtraLarge =
    UIContentSizeCategory::constant("UIContentSizeCategoryExtraLarge");
inline constexpr auto UIContentSizeCategoryExtraExtraLarge =
    UIContentSizeCategory::constant("UIContentSizeCategoryExtraExtraLarge");
inline constexpr auto UIContentSizeCategoryExtraExtraExtraLarge =
    UIContentSizeCategory::constant("UIContentSizeCategoryExtraExtraExtraLarge");
inline constexpr auto UIContentSizeCategoryAccessibilityMedium =
    UIContentSizeCategory::constant("UIContentSizeCategoryAccessibilityMedium");
inline constexpr auto UIContentSizeCategoryAccessibilityLarge =
    UIContentSizeCategory::constant("UIContentSizeCategoryAccessibilityLarge");
inline constexpr auto UIContentSizeCategoryAccessibilityExtraLarge =
    UIContentSizeCategory::constant("UIContentSizeCategoryAccessibilityExtraLarge");
inline constexpr auto UIContentSizeCategoryAccessibilityExtraExtraLarge =
    UIContentSizeCategory::constant("UIContentSizeCategoryAccessibilityExtraExtraLarge");
inline constexpr auto UIContentSizeCategoryAccessibilityExtraExtraExtraLarge =
    UIContentSizeCategory::constant("UIContentSizeCategoryAccessibilityExtraExtraExtraLarge");

/// No preference.
inline constexpr auto UIContentSizeCategoryUnspecified =
    UIContentSizeCategory::constant("UIContentSizeCategoryUnspecified");

/// The notification of a new preferred category, which stands in its information under the key below.
inline constexpr std::string_view UIContentSizeCategoryDidChangeNotification =
    "UIContentSizeCategoryDidChangeNotification";
inline constexpr std::string_view UIContentSizeCategoryNewValueKey = "UIContentSizeCategoryNewValueKey";

}  // namespace Brisel::Platform

template <>
struct std::hash<Brisel::Platform::UIContentSizeCategory> {
  std::size_t operator()(const Brisel::Platform::UIContentSizeCategory& category) const noexcept {
    return std::hash<std::string_view>{}(category.string());
  }
};
