#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "brisel/platform/internal/hash.h"

namespace Brisel {

namespace internal {
struct IconRow;
struct IconSlots;
}  // namespace internal

/// An icon of the design system, such as `Icon::addCalendar()`: a name, the glyphs of the font "halvicon" that draw it,
/// and whether it is to be mirrored. It is no picture. An immutable value.
class Icon {
 public:
  class GlyphSize;
  class Prefixes;

  /// A glyph of the icon font, by its character. It has no equality: icons that share their glyphs are still two.
  class Glyph {
   public:
    /// What is no Unicode scalar, such as a surrogate, is read as U+FFFD.
    constexpr explicit Glyph(char32_t unichar) noexcept
        : unichar_(unichar > 0x10FFFF || (unichar >= 0xD800 && unichar <= 0xDFFF) ? U'\uFFFD' : unichar) {}

    /// The character.
    constexpr char32_t unichar() const noexcept { return unichar_; }

    /// The character in hexadecimal, in braces.
    std::string debugDescription() const;

   private:
    char32_t unichar_;
  };

  /// An icon's glyphs by the grid that they are drawn for, of 16 or of 24 points. Every catalogue icon has both.
  class Glyphs {
   public:
    /// Glyphs for both grids, one or none.
    constexpr explicit Glyphs(std::optional<Glyph> x16, std::optional<Glyph> x24) noexcept : x16_(x16), x24_(x24) {}

    constexpr const std::optional<Glyph>& x16() const noexcept { return x16_; }  ///< for the grid of 16 points
    constexpr const std::optional<Glyph>& x24() const noexcept { return x24_; }  ///< for the grid of 24 points

    /// Both glyphs, in braces, one a line.
    std::string debugDescription() const;

   private:
    std::optional<Glyph> x16_;
    std::optional<Glyph> x24_;
  };

  /// An icon that is not of the catalogue; for tests and hosts.
  explicit Icon(std::string name, bool autoMirror, const Glyphs& glyphs);

  /// `init(name:)`: the catalogue icon of this name. Both prefixes of object-interface constants, "VLMBriselIcon" and
  /// then "VLMIcon", are first removed wherever they occur in the name. Throws `Error::Icon` (icon_error.h) where no
  /// name is left that an icon bears; case counts.
  explicit Icon(std::string_view name);

  // Copied where others are moved: a moved-from icon would still refer to the text that it gave away.
  Icon(const Icon&) = default;
  Icon& operator=(const Icon&) = default;

  // One accessor an icon. Each icon is built on its first use, alone, from any thread, and can be read until the
  // process ends.
#define BRISEL_ICON(accessor, name, x16, x24, autoMirror) static const Icon& accessor() noexcept;
#include "brisel/icons/icons.def"

  /// All icons of the catalogue, in published order. Copied together on first use.
  static const std::vector<Icon>& allCases() noexcept;

  /// The identifier, such as "AddCalendar". Lives as long as this icon or a copy; for catalogue icons, always.
  std::string_view name() const noexcept { return name_; }
  /// Whether whoever lays the icon out from right to left is to mirror it. Nothing in this library does.
  bool autoMirror() const noexcept { return autoMirror_; }
  /// The glyphs that draw it.
  const Glyphs& glyphs() const noexcept { return glyphs_; }

  /// `rightToLeft()`: what to show in a right-to-left layout. `chevronLeft` and `chevronRight`, `pageLeft` and
  /// `pageRight` take each other's place; all others stay, the mirroring ones too; this is deliberate.
  Icon rightToLeft() const;

  /// "name: AddCalendar"
  std::string description() const;
  /// Name and glyphs, in braces, one a line.
  std::string debugDescription() const;

  friend bool operator==(const Icon& a, const Icon& b) noexcept;
  friend void hashInto(Platform::internal::Hasher& hasher, const Icon& icon);

 private:
  friend struct internal::IconSlots;
  explicit Icon(const internal::IconRow& row) noexcept;

  // Catalogue icons refer to their row, so that copying one allocates nothing; others share the text they were given.
  std::shared_ptr<const std::string> ownName_;
  std::string_view name_;
  Glyphs glyphs_;
  bool autoMirror_;
};

/// The two grids that glyphs are drawn for.
class Icon::GlyphSize {
 public:
  /// The grids, for `switch`.
  enum class Case : std::uint8_t {
    x16,  ///< the grid of 16 points
    x24,  ///< the grid of 24 points
  };
  static const GlyphSize x16;  ///< the grid of 16 points, on which strokes are heavier
  static const GlyphSize x24;  ///< the grid of 24 points

  /// Both grids, the smaller one first.
  static constexpr std::span<const GlyphSize, 2> allCases() noexcept;

  /// The place among all cases: the nearer two ranks, the better one size stands in for the other.
  constexpr int rank() const noexcept { return static_cast<int>(case_); }

  /// "x16" or "x24"
  std::string_view description() const noexcept;
  /// "x16 - rank: 0" or "x24 - rank: 1"
  std::string debugDescription() const;

  constexpr operator Case() const noexcept { return case_; }  ///< for `switch`
  friend constexpr bool operator==(GlyphSize, GlyphSize) noexcept = default;
  friend void operator<=>(GlyphSize, GlyphSize) = delete;  // the conversion would order sizes
  friend void hashInto(Platform::internal::Hasher& hasher, GlyphSize size) { hasher(size.case_); }

 private:
  constexpr explicit GlyphSize(Case value) noexcept : case_(value) {}

  Case case_;
};

/// What the names of object-interface constants begin with.
class Icon::Prefixes {
 public:
  /// The prefixes, for `switch`.
  enum class Case : std::uint8_t {
    brisel,  ///< "VLMBriselIcon"
    moss,    ///< "VLMIcon"
  };
  static const Prefixes brisel;  ///< "VLMBriselIcon"
  static const Prefixes moss;    ///< "VLMIcon"

  /// Both prefixes, the present one first.
  static constexpr std::span<const Prefixes, 2> allCases() noexcept;

  /// Nothing for a text that is neither.
  static std::optional<Prefixes> fromRawValue(std::string_view rawValue) noexcept;
  /// The prefix itself.
  constexpr std::string_view rawValue() const noexcept { return case_ == Case::brisel ? "VLMBriselIcon" : "VLMIcon"; }

  constexpr operator Case() const noexcept { return case_; }  ///< for `switch`
  friend constexpr bool operator==(Prefixes, Prefixes) noexcept = default;
  friend void operator<=>(Prefixes, Prefixes) = delete;

 private:
  constexpr explicit Prefixes(Case value) noexcept : case_(value) {}

  Case case_;
};

inline constexpr Icon::GlyphSize Icon::GlyphSize::x16{Case::x16};
inline constexpr Icon::GlyphSize Icon::GlyphSize::x24{Case::x24};
inline constexpr Icon::Prefixes Icon::Prefixes::brisel{Case::brisel};
inline constexpr Icon::Prefixes Icon::Prefixes::moss{Case::moss};

namespace internal {
inline constexpr Icon::GlyphSize kIconGlyphSizes[] = {Icon::GlyphSize::x16, Icon::GlyphSize::x24};
inline constexpr Icon::Prefixes kIconPrefixes[] = {Icon::Prefixes::brisel, Icon::Prefixes::moss};
}  // namespace internal

constexpr std::span<const Icon::GlyphSize, 2> Icon::GlyphSize::allCases() noexcept { return internal::kIconGlyphSizes; }
constexpr std::span<const Icon::Prefixes, 2> Icon::Prefixes::allCases() noexcept { return internal::kIconPrefixes; }

}  // namespace Brisel

template <>
struct std::hash<Brisel::Icon> : Brisel::Platform::internal::FieldHash<Brisel::Icon> {};
