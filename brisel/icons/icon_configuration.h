#pragma once

#include <functional>
#include <optional>
#include <string>

#include "brisel/icons/icon.h"
#include "brisel/platform/color.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/internal/hash.h"
#include "brisel/tokens/internal/swatch.h"

namespace Brisel {

/// All that an icon's image is asked for with: the key of the image cache. An immutable value; colours are compared as
/// objects, so that a grey and an RGB white are two.
class IconConfiguration {
 public:
  /// Sizes and offset in points. A null colour is a programming error.
  explicit IconConfiguration(const Icon& icon, Platform::CGSize iconSize, Platform::CGSize imageSize,
                             std::optional<Icon::GlyphSize> glyphSize, const Platform::ColorPtr& color,
                             const Platform::ColorPtr& backgroundColor, Platform::CGPoint offset);

  /// What is drawn.
  const Icon& icon() const noexcept { return icon_; }
  /// The box that the glyph is drawn in.
  Platform::CGSize iconSize() const noexcept { return iconSize_; }
  /// The size of the whole image.
  Platform::CGSize imageSize() const noexcept { return imageSize_; }
  /// Absent: chosen by the font size.
  std::optional<Icon::GlyphSize> glyphSize() const noexcept { return glyphSize_; }
  /// The glyph's colour.
  const Platform::ColorPtr& color() const noexcept { return color_.color(); }
  /// The colour behind it, all over the image.
  const Platform::ColorPtr& backgroundColor() const noexcept { return backgroundColor_.color(); }
  /// How far the glyph's box is from the middle of the image.
  Platform::CGPoint offset() const noexcept { return offset_; }

  /// "Icon: name: Heart, iconSize: (24.0, 24.0), imageSize: (32.0, 32.0)"
  std::string description() const;
  /// All fields, in braces, one a line. A colour is printed by its form: "white 1.0 alpha 1.0" or "red 0.1 green 0.2
  /// blue 0.3 alpha 1.0".
  std::string debugDescription() const;

  friend bool operator==(const IconConfiguration&, const IconConfiguration&) = default;
  friend void hashInto(Platform::internal::Hasher& hasher, const IconConfiguration& configuration);

 private:
  Icon icon_;
  Platform::CGSize iconSize_;
  Platform::CGSize imageSize_;
  std::optional<Icon::GlyphSize> glyphSize_;
  internal::Swatch color_;
  internal::Swatch backgroundColor_;
  Platform::CGPoint offset_;
};

}  // namespace Brisel

template <>
struct std::hash<Brisel::IconConfiguration> : Brisel::Platform::internal::FieldHash<Brisel::IconConfiguration> {};
