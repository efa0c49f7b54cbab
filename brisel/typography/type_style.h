#pragma once

#include <concepts>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "brisel/platform/font.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/internal/hash.h"
#include "brisel/platform/value.h"
#include "brisel/typography/font.h"

namespace Brisel::Platform {
class UIContentSizeCategory;
}

namespace Brisel {

/// The design system's unit of typography, such as `TypeStyle::ballad()`: a stack of typefaces, a weight, and how the
/// size follows the user's content-size category. An immutable value.
class TypeStyle {
 public:
  /// Sizes of styles, from captions to the titles that fill a screen.
  enum class Group : int {
    smallText = 0,      ///< captions and labels
    body = 1,           ///< running text
    titles = 2,         ///< headings
    displayTitles = 3,  ///< titles that fill a screen
  };

  /// A quantity that grows with the content size, by its values at four points of the scale.
  class AccessibilityRange {
   public:
    /// A quantity by its four values; nothing is checked.
    constexpr explicit AccessibilityRange(double min, double mid, double max, double axMax) noexcept
        : min_(min), mid_(mid), max_(max), axMax_(axMax) {}

    /// At the smallest category.
    constexpr double min() const noexcept { return min_; }
    /// At the default category.
    constexpr double mid() const noexcept { return mid_; }
    /// At the largest category that is not one of accessibility.
    constexpr double max() const noexcept { return max_; }
    /// What the accessibility categories move towards. None reaches it.
    constexpr double axMax() const noexcept { return axMax_; }

    /// `value(forScale:)`: the value at an accessibility scale. Below -1.0 it is that at -1.0, above 1.6 that at 1.6,
    /// as for not-a-number.
    double value(double scale) const noexcept;
    /// `value(for:)`: the value at a category.
    double value(const Platform::UIContentSizeCategory& category) const noexcept;

    /// "min: 13.0 mid: 16.0 max: 22.0 axMax: 50.0"
    std::string description() const;

    friend constexpr bool operator==(const AccessibilityRange&, const AccessibilityRange&) noexcept = default;
    friend void hashInto(Platform::internal::Hasher& hasher, const AccessibilityRange& range) {
      hasher(range.min_, range.mid_, range.max_, range.axMax_);
    }

   private:
    double min_, mid_, max_, axMax_;
  };

  /// How a style scales, and what it asks of its fonts.
  class Configuration {
   public:
    /// A configuration of these four fields.
    explicit Configuration(const AccessibilityRange& fontSize, const AccessibilityRange& minimumScaleFactor,
                           bool usesUpperCaseLayout, std::vector<Font::Feature> fontFeatures)
        : fontSize_(fontSize),
          minimumScaleFactor_(minimumScaleFactor),
          usesUpperCaseLayout_(usesUpperCaseLayout),
          fontFeatures_(std::move(fontFeatures)) {}

    /// The sizes, in points.
    const AccessibilityRange& fontSize() const noexcept { return fontSize_; }
    /// The smallest factor, 0…1, by which a view may shrink the text to make it fit.
    const AccessibilityRange& minimumScaleFactor() const noexcept { return minimumScaleFactor_; }
    /// Whether text is laid out in capitals.
    bool usesUpperCaseLayout() const noexcept { return usesUpperCaseLayout_; }
    /// What is asked of the fonts beside their shapes; nothing for styles of the catalogue.
    const std::vector<Font::Feature>& fontFeatures() const noexcept { return fontFeatures_; }

    /// All fields, in braces, one a line.
    std::string description() const;
    /// The same as `description`.
    std::string debugDescription() const;

    friend bool operator==(const Configuration&, const Configuration&) = default;
    friend void hashInto(Platform::internal::Hasher& hasher, const Configuration& value) {
      hasher(value.fontSize_, value.minimumScaleFactor_, value.usesUpperCaseLayout_, value.fontFeatures_);
    }

   private:
    AccessibilityRange fontSize_;
    AccessibilityRange minimumScaleFactor_;
    bool usesUpperCaseLayout_;
    std::vector<Font::Feature> fontFeatures_;
  };

  /// A style that is not of the catalogue.
  explicit TypeStyle(std::string name, Font primaryFont, std::vector<Font> fallbackFonts, Font::Weight fontWeight,
                     Platform::CGFloat fontSize, Group group, Configuration configuration)
      : name_(std::move(name)),
        primaryFont_(primaryFont),
        fallbackFonts_(std::move(fallbackFonts)),
        fontWeight_(fontWeight),
        fontSize_(fontSize),
        group_(group),
        configuration_(std::move(configuration)) {}

  // One accessor a style of the catalogue. Each style is built on its first use, alone, from any thread, and can be
  // read until the process ends.
#define BRISEL_TYPE_STYLE(name, title, stack, weight, size, fontSizes, scaleFactors, upperCase, group) \
  static const TypeStyle& name() noexcept;
#include "brisel/typography/type_styles.def"

  /// All styles of the catalogue, in published order.
  static const std::vector<TypeStyle>& allCases() noexcept;

  /// As people call it, such as "Ballad Bold". A derived style keeps it.
  const std::string& name() const noexcept { return name_; }
  /// The typeface that most characters are drawn in.
  Font primaryFont() const noexcept { return primaryFont_; }
  /// The typefaces tried after the primary one, in order.
  const std::vector<Font>& fallbackFonts() const noexcept { return fallbackFonts_; }
  /// The weight, of the fallbacks too where they have it.
  Font::Weight fontWeight() const noexcept { return fontWeight_; }
  /// The nominal size in points. What fonts are made with comes from `configuration().fontSize()`.
  Platform::CGFloat fontSize() const noexcept { return fontSize_; }
  /// The group by which style guides list it.
  Group group() const noexcept { return group_; }
  /// How it scales, and what it asks of its fonts.
  const Configuration& configuration() const noexcept { return configuration_; }

  // Derived styles. All other fields stay as they are, except that those which touch the configuration drop the font
  // features; this is deliberate. A flag passes for no number.

  /// `with(fontSize:)`: this size at every scale and as the nominal one. Drops the font features.
  TypeStyle withFontSize(double fontSize) const;
  /// `with(fontSize:)`: these sizes; their `mid` becomes the nominal one. Drops the font features.
  TypeStyle withFontSize(const AccessibilityRange& fontSize) const;
  template <std::same_as<bool> Flag>
  TypeStyle withFontSize(Flag) const = delete;
  /// `with(minimumScaleFactor:)`: this factor at every scale. Drops the font features.
  TypeStyle withMinimumScaleFactor(double minimumScaleFactor) const;
  /// `with(minimumScaleFactor:)`: these factors. Drops the font features.
  TypeStyle withMinimumScaleFactor(const AccessibilityRange& minimumScaleFactor) const;
  template <std::same_as<bool> Flag>
  TypeStyle withMinimumScaleFactor(Flag) const = delete;
  /// `with(usesUpperCaseLayout:)`: in capitals, or as written. Drops the font features.
  TypeStyle withUsesUpperCaseLayout(bool usesUpperCaseLayout) const;
  /// `with(fontFeatures:)`: these features instead of the style's own.
  TypeStyle withFontFeatures(std::vector<Font::Feature> fontFeatures) const;
  /// `with(primaryFont:)`: this typeface before the fallbacks. Keeps the font features.
  TypeStyle withPrimaryFont(Font primaryFont) const;
  /// `with(fallbackFonts:)`: these typefaces behind the primary one. Keeps the font features.
  TypeStyle withFallbackFonts(std::vector<Font> fallbackFonts) const;

  /// `font(contentSizeCategory:)`: the style's font at the size for a category, never null. See `Font::font`.
  std::shared_ptr<const Platform::UIFont> font(const Platform::UIContentSizeCategory& contentSizeCategory) const;

  /// `stringAttributes(contentSizeCategory:)`: that font under `NSFontAttributeName`, and nothing else.
  Platform::Dictionary stringAttributes(const Platform::UIContentSizeCategory& contentSizeCategory) const;

  /// The name.
  const std::string& description() const noexcept { return name_; }
  /// All fields but the group, one a line.
  std::string debugDescription() const;

  friend bool operator==(const TypeStyle&, const TypeStyle&) = default;
  friend void hashInto(Platform::internal::Hasher& hasher, const TypeStyle& style) {
    hasher(style.name_, style.primaryFont_, style.fallbackFonts_, style.fontWeight_, style.fontSize_, style.group_,
           style.configuration_);
  }

 private:
  std::string name_;
  Font primaryFont_;
  std::vector<Font> fallbackFonts_;
  Font::Weight fontWeight_;
  Platform::CGFloat fontSize_;
  Group group_;
  Configuration configuration_;
};

/// The group of the style with this identifier, the name of its accessor ("balladBold"); `body` for any other text, the
/// human-readable names included.
TypeStyle::Group typeStyleGroup(std::string_view identifier) noexcept;

}  // namespace Brisel

template <>
struct std::hash<Brisel::TypeStyle> : Brisel::Platform::internal::FieldHash<Brisel::TypeStyle> {};
template <>
struct std::hash<Brisel::TypeStyle::Configuration>
    : Brisel::Platform::internal::FieldHash<Brisel::TypeStyle::Configuration> {};
template <>
struct std::hash<Brisel::TypeStyle::AccessibilityRange>
    : Brisel::Platform::internal::FieldHash<Brisel::TypeStyle::AccessibilityRange> {};
