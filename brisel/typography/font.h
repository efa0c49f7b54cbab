#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "brisel/platform/font.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/internal/hash.h"

namespace Brisel {

/// A typeface of the design system: a family of fonts, such as `Font::tondal`. `tondalArab` to `tondalDeva` draw other
/// scripts behind a primary family; `tondalTitle` and `tondalTitleTall` are cut for titles.
class Font {
 public:
  class Weight;
  class Feature;

  /// The typefaces, for `switch`.
  enum class Case : std::uint8_t {
#define BRISEL_TYPEFACE(name, familyName) name,
#include "brisel/typography/typefaces.def"
  };

#define BRISEL_TYPEFACE(name, familyName) static const Font name;
#include "brisel/typography/typefaces.def"

  /// `font(primaryFont:fallbackFonts:weight:size:fontFeatures:)`: the font of a family that takes what the family lacks
  /// from the fallbacks, in order. `size` is in points; one that is negative or not finite counts as 0. Never null;
  /// asking again returns the same object as long as it is among the fonts used last.
  ///
  /// May be called on any thread. The first call registers the library's font files; it ends the process where the
  /// resource bundle cannot be read. Where that has no font file, because it is missing, say, one line goes to
  /// `Platform::setLogHandler`'s handler, and the port's substitute stands in for every font.
  static std::shared_ptr<const Platform::UIFont> font(Font primaryFont, std::span<const Font> fallbackFonts,
                                                      Weight weight, Platform::CGFloat size,
                                                      std::span<const Feature> fontFeatures);
  static std::shared_ptr<const Platform::UIFont> font(Font primaryFont, std::initializer_list<Font> fallbackFonts,
                                                      Weight weight, Platform::CGFloat size,
                                                      std::initializer_list<Feature> fontFeatures);

  /// The family name, such as "TondalArab".
  std::string_view description() const noexcept;
  /// `font name: "TondalArab"`
  std::string debugDescription() const;

  constexpr operator Case() const noexcept { return case_; }  ///< for `switch`
  friend constexpr bool operator==(Font, Font) noexcept = default;
  friend void operator<=>(Font, Font) = delete;  // the conversion would order fonts
  friend void hashInto(Platform::internal::Hasher& hasher, Font font) { hasher(font.case_); }

 private:
  constexpr explicit Font(Case value) noexcept : case_(value) {}

  Case case_;
};

/// The weight of a font: book, bold or black.
class Font::Weight {
 public:
  /// The weights, for `switch`.
  enum class Case : std::uint8_t {
#define BRISEL_FONT_WEIGHT(name, suffix) name,
#include "brisel/typography/typefaces.def"
  };

#define BRISEL_FONT_WEIGHT(name, suffix) static const Weight name;
#include "brisel/typography/typefaces.def"

  /// Book, bold and black.
  static constexpr std::span<const Weight, 3> allCases() noexcept;

  /// What stands behind the hyphen in the names of fonts: "Book", "Bold" or "Black".
  std::string_view nameSuffix() const noexcept;

  constexpr operator Case() const noexcept { return case_; }  ///< for `switch`
  friend constexpr bool operator==(Weight, Weight) noexcept = default;
  friend void operator<=>(Weight, Weight) = delete;
  friend void hashInto(Platform::internal::Hasher& hasher, Weight weight) { hasher(weight.case_); }

 private:
  constexpr explicit Weight(Case value) noexcept : case_(value) {}

  Case case_;
};

/// What a font may be asked for beside its shapes. There is one feature, the spacing of digits.
class Font::Feature {
 public:
  class NumberSpacingOption;

  /// The feature that spaces digits so.
  static constexpr Feature numberSpacing(NumberSpacingOption option) noexcept;

  /// How it spaces digits.
  constexpr NumberSpacingOption numberSpacingOption() const noexcept;

  /// "numberSpacing: Default" or "numberSpacing: Monospaced"
  std::string description() const;

  friend constexpr bool operator==(Feature, Feature) noexcept = default;
  friend void hashInto(Platform::internal::Hasher& hasher, Feature feature) { hasher(feature.option_); }

 private:
  constexpr explicit Feature(std::uint8_t option) noexcept : option_(option) {}

  std::uint8_t option_;  // the number of the option, which is not complete here
};

/// `default_` asks for nothing; `monospaced` gives all digits the same width.
class Font::Feature::NumberSpacingOption {
 public:
  /// The spacings, for `switch`.
  enum class Case : std::uint8_t {
#define BRISEL_NUMBER_SPACING(name, description) name,
#include "brisel/typography/typefaces.def"
  };

#define BRISEL_NUMBER_SPACING(name, description) static const NumberSpacingOption name;
#include "brisel/typography/typefaces.def"

  /// "Default" or "Monospaced"
  std::string_view description() const noexcept;

  constexpr operator Case() const noexcept { return case_; }  ///< for `switch`
  friend constexpr bool operator==(NumberSpacingOption, NumberSpacingOption) noexcept = default;
  friend void operator<=>(NumberSpacingOption, NumberSpacingOption) = delete;
  friend void hashInto(Platform::internal::Hasher& hasher, NumberSpacingOption option) { hasher(option.case_); }

 private:
  friend class Feature;
  constexpr explicit NumberSpacingOption(Case value) noexcept : case_(value) {}

  Case case_;
};

#define BRISEL_TYPEFACE(name, familyName) inline constexpr Font Font::name{Font::Case::name};
#define BRISEL_FONT_WEIGHT(name, suffix) inline constexpr Font::Weight Font::Weight::name{Font::Weight::Case::name};
#define BRISEL_NUMBER_SPACING(name, description)                                                \
  inline constexpr Font::Feature::NumberSpacingOption Font::Feature::NumberSpacingOption::name{ \
      Font::Feature::NumberSpacingOption::Case::name};
#include "brisel/typography/typefaces.def"

namespace internal {
inline constexpr Font::Weight kFontWeights[] = {
#define BRISEL_FONT_WEIGHT(name, suffix) Font::Weight::name,
#include "brisel/typography/typefaces.def"
};
}  // namespace internal

constexpr std::span<const Font::Weight, 3> Font::Weight::allCases() noexcept { return internal::kFontWeights; }

constexpr Font::Feature Font::Feature::numberSpacing(NumberSpacingOption option) noexcept {
  return Feature(static_cast<std::uint8_t>(option.case_));
}

constexpr Font::Feature::NumberSpacingOption Font::Feature::numberSpacingOption() const noexcept {
  return NumberSpacingOption(static_cast<NumberSpacingOption::Case>(option_));
}

}  // namespace Brisel

template <>
struct std::hash<Brisel::Font> : Brisel::Platform::internal::FieldHash<Brisel::Font> {};
template <>
struct std::hash<Brisel::Font::Feature> : Brisel::Platform::internal::FieldHash<Brisel::Font::Feature> {};
template <>
struct std::hash<Brisel::Font::Feature::NumberSpacingOption>
    : Brisel::Platform::internal::FieldHash<Brisel::Font::Feature::NumberSpacingOption> {};
