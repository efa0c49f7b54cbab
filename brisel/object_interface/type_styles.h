// The object interface of the type styles: each class wraps one value and is immutable.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "brisel/object_interface/fonts.h"
#include "brisel/platform/attributed_string.h"
#include "brisel/platform/content_size_category.h"
#include "brisel/platform/font.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/object.h"
#include "brisel/platform/value.h"
#include "brisel/typography/type_style.h"

/// `Brisel::TypeStyle::AccessibilityRange` as an object.
class VLMBriselTypeStyleAccessibilityRange final : public Brisel::Platform::NSObject {
 public:
  /// `createAccessibilityRangeWithMin:mid:max:axMax:`: a range of these values; nothing is checked.
  static std::shared_ptr<const VLMBriselTypeStyleAccessibilityRange> createAccessibilityRangeWithMin(
      Brisel::Platform::CGFloat min, Brisel::Platform::CGFloat mid, Brisel::Platform::CGFloat max,
      Brisel::Platform::CGFloat axMax);
  /// A new object around a value.
  static std::shared_ptr<const VLMBriselTypeStyleAccessibilityRange> wrapping(
      const Brisel::TypeStyle::AccessibilityRange& range);

  /// The value that it wraps.
  const Brisel::TypeStyle::AccessibilityRange& accessibilityRange() const noexcept { return range_; }
  Brisel::Platform::CGFloat min() const noexcept { return range_.min(); }  ///< at the smallest category
  Brisel::Platform::CGFloat mid() const noexcept { return range_.mid(); }  ///< at the default category
  Brisel::Platform::CGFloat max() const noexcept { return range_.max(); }  ///< at the largest plain category
  /// What the accessibility categories move towards. None reaches it.
  Brisel::Platform::CGFloat axMax() const noexcept { return range_.axMax(); }

  /// `valueForScale:`: the value at an accessibility scale (see `Brisel::TypeStyle::AccessibilityRange::value`).
  Brisel::Platform::CGFloat valueForScale(double scale) const noexcept { return range_.value(scale); }

 private:
  explicit VLMBriselTypeStyleAccessibilityRange(const Brisel::TypeStyle::AccessibilityRange& range) noexcept
      : range_(range) {}

  Brisel::TypeStyle::AccessibilityRange range_;
};

/// `Brisel::TypeStyle::Configuration` as an object.
class VLMBriselTypeStyleConfiguration final : public Brisel::Platform::NSObject {
 public:
  /// `createConfigurationWithFontSize:minimumScaleFactor:usesUpperCaseLayout:fontFeatures:`. A null pointer is a
  /// programming error.
  static std::shared_ptr<const VLMBriselTypeStyleConfiguration> createConfigurationWithFontSize(
      const std::shared_ptr<const VLMBriselTypeStyleAccessibilityRange>& fontSize,
      const std::shared_ptr<const VLMBriselTypeStyleAccessibilityRange>& minimumScaleFactor, bool usesUpperCaseLayout,
      const std::shared_ptr<const VLMBriselSwiftFontFeatures>& fontFeatures);
  /// A new object around a value.
  static std::shared_ptr<const VLMBriselTypeStyleConfiguration> wrapping(
      Brisel::TypeStyle::Configuration configuration);

  /// The value that it wraps.
  const Brisel::TypeStyle::Configuration& configuration() const noexcept { return configuration_; }
  /// The sizes, in points. A new object.
  std::shared_ptr<const VLMBriselTypeStyleAccessibilityRange> fontSize() const;
  /// The smallest factors, 0…1, by which a view may shrink the text to make it fit. A new object.
  std::shared_ptr<const VLMBriselTypeStyleAccessibilityRange> minimumScaleFactor() const;
  /// Whether text is laid out in capitals.
  bool usesUpperCaseLayout() const noexcept { return configuration_.usesUpperCaseLayout(); }

 private:
  explicit VLMBriselTypeStyleConfiguration(Brisel::TypeStyle::Configuration configuration) noexcept
      : configuration_(std::move(configuration)) {}

  Brisel::TypeStyle::Configuration configuration_;
};

/// `Brisel::TypeStyle` as an object. Each style of the catalogue has one instance; derived and created ones are new.
class VLMBriselTypeStyle final : public Brisel::Platform::NSObject {
 public:
#define BRISEL_TYPE_STYLE(name, title, stack, weight, size, fontSizes, scaleFactors, upperCase, group) \
  static const std::shared_ptr<const VLMBriselTypeStyle>& name() noexcept;
#include "brisel/typography/type_styles.def"

  /// The instances of all styles of the catalogue, in published order.
  static const std::vector<std::shared_ptr<const VLMBriselTypeStyle>>& allCases() noexcept;

  /// `createTypeStyleWithName:primaryFont:fallbackFonts:fontWeight:fontSize:configuration:`. The group is the one whose
  /// identifier the name is (see VLMBriselTypeStyleGroup), hence `body` for nearly all. A null pointer is a programming
  /// error.
  static std::shared_ptr<const VLMBriselTypeStyle> createTypeStyleWithName(
      std::string_view name, const std::shared_ptr<const VLMBriselSwiftFont>& primaryFont,
      const std::vector<std::shared_ptr<const VLMBriselSwiftFont>>& fallbackFonts,
      const std::shared_ptr<const VLMBriselSwiftFontWeight>& fontWeight, Brisel::Platform::CGFloat fontSize,
      const std::shared_ptr<const VLMBriselTypeStyleConfiguration>& configuration);
  /// A new object around a value, even one of the catalogue.
  static std::shared_ptr<const VLMBriselTypeStyle> wrapping(Brisel::TypeStyle typeStyle);

  /// The value that it wraps.
  const Brisel::TypeStyle& typeStyle() const noexcept { return typeStyle_; }
  /// As people call it, such as "Ballad Bold".
  const std::string& name() const noexcept { return typeStyle_.name(); }
  /// The typeface that most characters are drawn in.
  const std::shared_ptr<const VLMBriselSwiftFont>& primaryFont() const noexcept;
  /// The typefaces tried after the primary one, in order.
  std::vector<std::shared_ptr<const VLMBriselSwiftFont>> fallbackFonts() const;
  /// The weight, of the fallbacks too where they have it.
  const std::shared_ptr<const VLMBriselSwiftFontWeight>& fontWeight() const noexcept;
  /// The nominal size in points.
  Brisel::Platform::CGFloat fontSize() const noexcept { return typeStyle_.fontSize(); }
  /// How it scales, and what it asks of its fonts. A new object.
  std::shared_ptr<const VLMBriselTypeStyleConfiguration> configuration() const;

  /// The style's font at its nominal size: unlike `fontWithContentSizeCategory`, it knows neither category nor font
  /// features; this is deliberate.
  std::shared_ptr<const Brisel::Platform::UIFont> font() const;
  /// `fontWithContentSizeCategory:`: the style's font at the size for a category, never null.
  std::shared_ptr<const Brisel::Platform::UIFont> fontWithContentSizeCategory(
      const Brisel::Platform::UIContentSizeCategory& category) const;
  /// `stringAttributesWithContentSizeCategory:`: that font under `NSFontAttributeName`, and nothing else.
  Brisel::Platform::Dictionary stringAttributesWithContentSizeCategory(
      const Brisel::Platform::UIContentSizeCategory& category) const;

  /// `withFontSize:`: this size at every scale; drops the font features.
  std::shared_ptr<const VLMBriselTypeStyle> withFontSize(Brisel::Platform::CGFloat fontSize) const;
  /// Digits of one width, in the place of whatever font features the style has.
  std::shared_ptr<const VLMBriselTypeStyle> withMonospacedNumbers() const;

  /// `copyWithZone:`: a new object around the same value. The zone counts for nothing.
  std::shared_ptr<const VLMBriselTypeStyle> copyWithZone(const void* zone = nullptr) const;

  /// Equal to another type style whose value is equal, field by field.
  bool isEqual(const Brisel::Platform::NSObject& other) const override;
  std::size_t objectHash() const override;

 private:
  explicit VLMBriselTypeStyle(Brisel::TypeStyle typeStyle) noexcept : typeStyle_(std::move(typeStyle)) {}
  static std::shared_ptr<const VLMBriselTypeStyle> make(std::size_t index);
  static const std::shared_ptr<const VLMBriselTypeStyle>& instance(std::size_t index) noexcept;

  Brisel::TypeStyle typeStyle_;
};

/// The groups of styles on this interface.
class VLMBriselTypeStyleGroup final {
 public:
  VLMBriselTypeStyleGroup() = delete;

  /// `convert`: the group of the style with this identifier, such as "balladBold"; `body` for any other text.
  static Brisel::TypeStyle::Group convert(std::string_view identifier) noexcept;
};

/// `briselSwift_attributedStringWithString:typeStyle:contentSizeCategory:baseAttributes:`: see
/// `Brisel::attributedString`. A null style is a programming error.
std::shared_ptr<Brisel::Platform::NSMutableAttributedString> briselSwift_attributedStringWithString(
    std::string_view string, const std::shared_ptr<const VLMBriselTypeStyle>& typeStyle,
    const Brisel::Platform::UIContentSizeCategory& contentSizeCategory,
    const Brisel::Platform::Dictionary& baseAttributes);
