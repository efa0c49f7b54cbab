// The object interface of the icons: their numbers and constants, and the class that wraps one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "brisel/icons/icon.h"
#include "brisel/platform/font.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/object.h"
#include "brisel/platform/value.h"

/// An icon by number: `VLMBriselIconAd` is 1, and so on in published order. Other numbers may occur.
enum VLMBriselIcon : std::uint64_t {
  VLMBriselIconNone = 0,  ///< no icon
#define BRISEL_ICON(accessor, name, x16, x24, autoMirror) VLMBriselIcon##name,
#include "brisel/icons/icons.def"
  VLMBriselIconCount,                         ///< no icon: the one behind the last
  VLMBriselIconInvalid = 9223372036854775807  ///< the largest signed number; deliberately not the largest unsigned one
};

/// `Brisel::Icon::GlyphSize` by number: small is `x16`, medium `x24`. Other numbers may occur.
enum VLMBriselIconGlyphSize : std::int64_t {
  VLMBriselIconGlyphSizeSmall = 0,   ///< the design for 16 points
  VLMBriselIconGlyphSizeMedium = 1,  ///< the design for 24 points
};

/// `Brisel::Icon` as an object.
class VLMBriselSwiftIcons final : public Brisel::Platform::NSObject {
 public:
  class GlyphSize;

  // A new object for an icon of the catalogue.
#define BRISEL_ICON(accessor, name, x16, x24, autoMirror) static std::shared_ptr<const VLMBriselSwiftIcons> accessor();
#include "brisel/icons/icons.def"

  /// A new object around a value.
  static std::shared_ptr<const VLMBriselSwiftIcons> wrapping(const Brisel::Icon& icon);

  /// `getSwiftIconWithName:`: a new object for the icon of a name, by the rules of `Brisel::Icon(name)`; null where
  /// that throws.
  static std::shared_ptr<const VLMBriselSwiftIcons> getSwiftIconWithName(std::string_view name);

  /// `fontWithSize:`: `Brisel::iconFont`.
  static std::shared_ptr<const Brisel::Platform::UIFont> fontWithSize(Brisel::Platform::CGFloat size);

  /// The icon that it wraps.
  const Brisel::Icon& icon() const noexcept { return icon_; }

 private:
  explicit VLMBriselSwiftIcons(const Brisel::Icon& icon) : icon_(icon) {}

  Brisel::Icon icon_;
};

/// `VLMBriselIconGlyphSize` without other numbers.
class VLMBriselSwiftIcons::GlyphSize {
 public:
  /// The sizes, for `switch`.
  enum class Case : std::uint8_t {
    small,   ///< the design for 16 points
    medium,  ///< the design for 24 points
  };
  static const GlyphSize small;   ///< the design for 16 points
  static const GlyphSize medium;  ///< the design for 24 points

  /// `init(rawValue:)`: nothing for other numbers than 0 and 1.
  static constexpr std::optional<GlyphSize> fromRawValue(std::int64_t rawValue) noexcept;
  /// 0 or 1
  constexpr std::int64_t rawValue() const noexcept { return static_cast<std::int64_t>(case_); }
  /// `x16` for small, `x24` for medium.
  constexpr Brisel::Icon::GlyphSize glyphSize() const noexcept {
    return case_ == Case::small ? Brisel::Icon::GlyphSize::x16 : Brisel::Icon::GlyphSize::x24;
  }

  constexpr operator Case() const noexcept { return case_; }  ///< for `switch`
  friend constexpr bool operator==(GlyphSize, GlyphSize) noexcept = default;
  friend void operator<=>(GlyphSize, GlyphSize) = delete;  // the conversion would order sizes

 private:
  constexpr explicit GlyphSize(Case value) noexcept : case_(value) {}

  Case case_;
};

inline constexpr VLMBriselSwiftIcons::GlyphSize VLMBriselSwiftIcons::GlyphSize::small{Case::small};
inline constexpr VLMBriselSwiftIcons::GlyphSize VLMBriselSwiftIcons::GlyphSize::medium{Case::medium};

constexpr std::optional<VLMBriselSwiftIcons::GlyphSize> VLMBriselSwiftIcons::GlyphSize::fromRawValue(
    std::int64_t rawValue) noexcept {
  if (rawValue == VLMBriselIconGlyphSizeSmall) return small;
  if (rawValue == VLMBriselIconGlyphSizeMedium) return medium;
  return std::nullopt;
}

/// The constant of an icon, such as "VLMBriselIconAddCalendar" (see brisel/icons/icon_constants.h); lives until the
/// process ends.
std::string_view NSStringFromVLMBriselIcon(VLMBriselIcon icon) noexcept;

/// The icon of a constant or a name; `VLMBriselIconInvalid` for any other text, and for an empty or absent one.
VLMBriselIcon VLMBriselIconFromNSString(std::optional<std::string_view> string) noexcept;
/// An absent text too, which would else be read as a pointer to characters.
constexpr VLMBriselIcon VLMBriselIconFromNSString(std::nullptr_t) noexcept { return VLMBriselIconInvalid; }

/// The icon with "Active" behind its name, or `VLMBriselIconInvalid`; none for none.
VLMBriselIcon VLMBriselIconActiveFromVLMBriselIcon(VLMBriselIcon icon) noexcept;

/// The icon to show in the host's layout direction.
VLMBriselIcon VLMBriselIconRTLFromVLMBriselIcon(VLMBriselIcon icon) noexcept;

/// "VLMBriselIconGlyphSizeSmall", "VLMBriselIconGlyphSizeMedium", or "UNKNOWN" for other numbers.
std::string_view NSStringFromVLMBriselIconGlyphSize(VLMBriselIconGlyphSize size) noexcept;

/// Medium for more than 20.0 points. The rule of `Brisel::Icon` is another one (by font size, above 16.0); that is
/// deliberate.
VLMBriselIconGlyphSize VLMBriselIconGlyphSizeFromHeight(Brisel::Platform::CGFloat height) noexcept;
/// The same by a size's height alone.
VLMBriselIconGlyphSize VLMBriselIconGlyphSizeFromCGSize(Brisel::Platform::CGSize size) noexcept;

namespace VLMBrisel {

/// A new object for an icon; null for none and for invalid numbers.
std::shared_ptr<const VLMBriselSwiftIcons> convertIcon(VLMBriselIcon icon);

/// Small for 0, medium for any other number.
VLMBriselSwiftIcons::GlyphSize convertGlyphSize(VLMBriselIconGlyphSize size) noexcept;

/// The constants of all icons, of none and of the invalid one, by their numbers: 330 entries. Made on first use.
const Brisel::Platform::Dictionary& iconNames() noexcept;

}  // namespace VLMBrisel
