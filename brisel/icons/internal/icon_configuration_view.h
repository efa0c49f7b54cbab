#pragma once

#include <optional>

#include "brisel/icons/icon.h"
#include "brisel/icons/icon_configuration.h"
#include "brisel/platform/color.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/internal/hash.h"

namespace Brisel::internal {

/// A configuration in its caller's memory, so that looking one up copies nothing. Its hash is that of a configuration;
/// its equality asks the colours for their values alone, so that, deliberately, one that holds not-a-number is never
/// found, not even by the object that was kept.
struct IconConfigurationView {
  const Icon& icon;
  Platform::CGSize iconSize;
  Platform::CGSize imageSize;
  std::optional<Icon::GlyphSize> glyphSize;
  const Platform::UIColor& color;
  const Platform::UIColor& backgroundColor;
  Platform::CGPoint offset;

  IconConfigurationView(const Icon& i, Platform::CGSize iSize, Platform::CGSize mSize,
                        std::optional<Icon::GlyphSize> gSize, const Platform::UIColor& c, const Platform::UIColor& b,
                        Platform::CGPoint o) noexcept
      : icon(i), iconSize(iSize), imageSize(mSize), glyphSize(gSize), color(c), backgroundColor(b), offset(o) {}
  IconConfigurationView(const IconConfiguration& c) noexcept
      : IconConfigurationView(c.icon(), c.iconSize(), c.imageSize(), c.glyphSize(), *c.color(), *c.backgroundColor(),
                              c.offset()) {}

  friend bool operator==(const IconConfigurationView& a, const IconConfigurationView& b) noexcept {
    return a.icon == b.icon && a.iconSize == b.iconSize && a.imageSize == b.imageSize && a.glyphSize == b.glyphSize &&
           a.color.isEqual(b.color) && a.backgroundColor.isEqual(b.backgroundColor) && a.offset == b.offset;
  }
  friend void hashInto(Platform::internal::Hasher& hasher, const IconConfigurationView& view) {
    hasher(view.icon, view.iconSize.width, view.iconSize.height, view.imageSize.width, view.imageSize.height,
           view.glyphSize.has_value());
    if (view.glyphSize) hasher(*view.glyphSize);
    hasher(view.color.objectHash(), view.backgroundColor.objectHash(), view.offset.x, view.offset.y);
  }
};

/// Hash and equality of a table of configurations in which views are looked up.
struct IconConfigurationHash : Platform::internal::FieldHash<IconConfigurationView> {
  using is_transparent = void;
};
struct IconConfigurationEqual {
  using is_transparent = void;
  bool operator()(const IconConfigurationView& a, const IconConfigurationView& b) const noexcept { return a == b; }
};

}  // namespace Brisel::internal
