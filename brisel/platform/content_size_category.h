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

  /// Copies; of an unknown category the text too.
  UIContentSizeCategory(const UIContentSizeCategory& other);
  /// Takes over the text of an unknown category.
  UIContentSizeCategory(UIContentSizeCategory&& other) noexcept;
  /// Becomes the other category.
  UIContentSizeCategory& operator=(UIContentSizeCategory other) noexcept;
  /// Frees the text of an unknown category.
  constexpr ~UIContentSizeCategory() { delete owned_; }

  /// A category whose name is a literal: it owns nothing, and needs neither construction nor destruction at run time.
  static consteval UIContentSizeCategory constant(std::string_view literal) { return {Literal(), literal}; }

  /// A string value as a category; nothing for other kinds.
  static std::optional<UIContentSizeCategory> fromValue(const Value& value);
  /// The category's string, as a value.
  operator Value() const { return Value(name_); }

  /// The name, such as "UIContentSizeCategoryLarge"; lives as long as the category.
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

/// The smallest size of text.
inline constexpr auto UIContentSizeCategoryExtraSmall =
    UIContentSizeCategory::constant("UIContentSizeCategoryExtraSmall");
/// The second smallest size.
inline constexpr auto UIContentSizeCategorySmall = UIContentSizeCategory::constant("UIContentSizeCategorySmall");
/// One step below the default.
inline constexpr auto UIContentSizeCategoryMedium = UIContentSizeCategory::constant("UIContentSizeCategoryMedium");
/// The default size.
inline constexpr auto UIContentSizeCategoryLarge = UIContentSizeCategory::constant("UIContentSizeCategoryLarge");
/// One step above the default.
inline constexpr auto UIContentSizeCategoryExtraLarge =
    UIContentSizeCategory::constant("UIContentSizeCategoryExtraLarge");
/// Two steps above the default.
inline constexpr auto UIContentSizeCategoryExtraExtraLarge =
    UIContentSizeCategory::constant("UIContentSizeCategoryExtraExtraLarge");
/// The largest size that is not one of accessibility.
inline constexpr auto UIContentSizeCategoryExtraExtraExtraLarge =
    UIContentSizeCategory::constant("UIContentSizeCategoryExtraExtraExtraLarge");
/// The smallest size of accessibility.
inline constexpr auto UIContentSizeCategoryAccessibilityMedium =
    UIContentSizeCategory::constant("UIContentSizeCategoryAccessibilityMedium");
/// The second size of accessibility.
inline constexpr auto UIContentSizeCategoryAccessibilityLarge =
    UIContentSizeCategory::constant("UIContentSizeCategoryAccessibilityLarge");
/// The third size of accessibility.
inline constexpr auto UIContentSizeCategoryAccessibilityExtraLarge =
    UIContentSizeCategory::constant("UIContentSizeCategoryAccessibilityExtraLarge");
/// The fourth size of accessibility.
inline constexpr auto UIContentSizeCategoryAccessibilityExtraExtraLarge =
    UIContentSizeCategory::constant("UIContentSizeCategoryAccessibilityExtraExtraLarge");
/// The largest size of all.
inline constexpr auto UIContentSizeCategoryAccessibilityExtraExtraExtraLarge =
    UIContentSizeCategory::constant("UIContentSizeCategoryAccessibilityExtraExtraExtraLarge");

/// No preference.
inline constexpr auto UIContentSizeCategoryUnspecified =
    UIContentSizeCategory::constant("UIContentSizeCategoryUnspecified");

/// The notification of a new preferred category, which stands in its information under the key below.
inline constexpr std::string_view UIContentSizeCategoryDidChangeNotification =
    "UIContentSizeCategoryDidChangeNotification";
/// The key of the new category in that notification's information.
inline constexpr std::string_view UIContentSizeCategoryNewValueKey = "UIContentSizeCategoryNewValueKey";

}  // namespace Brisel::Platform

template <>
struct std::hash<Brisel::Platform::UIContentSizeCategory> {
  std::size_t operator()(const Brisel::Platform::UIContentSizeCategory& category) const noexcept {
    return std::hash<std::string_view>{}(category.string());
  }
};
