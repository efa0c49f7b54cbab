#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "brisel/platform/font_descriptor.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/object.h"

namespace Brisel::Platform {

class Typeface;

/// An immutable font: a typeface with its cascade and features at one size. May be made and used on any thread. Equal
/// when the descriptors (their sizes aside) and the sizes are equal.
class UIFont final : public NSObject {
 public:
  /// `fontWithDescriptor:size:`: the given size always counts, 0 included; the descriptor's own size never does.
  /// Negative and non-finite sizes become 0. A null descriptor is a programming error. Needs a port.
  static std::shared_ptr<const UIFont> fontWithDescriptor(std::shared_ptr<const UIFontDescriptor> descriptor,
                                                          CGFloat size);
  /// `fontWithSize:`: the same font at another size, by the same rules. Needs a port.
  std::shared_ptr<const UIFont> fontWithSize(CGFloat size) const;

  /// The PostScript name that was asked for; that of a substitute's face is `typeface()->name()`.
  std::string fontName() const { return descriptor_->postscriptName(); }
  /// The description that it was made from, with the font's own size.
  const std::shared_ptr<const UIFontDescriptor>& fontDescriptor() const noexcept { return descriptor_; }
  /// The size, in points.
  CGFloat pointSize() const noexcept { return pointSize_; }

  // Measures of the primary face at this size, in points.
  /// Above the baseline.
  CGFloat ascender() const noexcept;
  /// Below the baseline, negative.
  CGFloat descender() const noexcept;
  /// Between one line's descent and the next one's ascent.
  CGFloat leading() const noexcept;
  /// ascender - descender + leading
  CGFloat lineHeight() const noexcept;
  /// How high capitals are.
  CGFloat capHeight() const noexcept;
  /// How high small letters without ascenders are.
  CGFloat xHeight() const noexcept;

  /// What draws it; never null.
  const std::shared_ptr<const Typeface>& typeface() const noexcept { return typeface_; }
  /// Whether the font or its cascade has a glyph for the character.
  bool hasCharacter(char32_t character) const;

  bool isEqual(const NSObject& other) const override;
  std::size_t objectHash() const override;

 private:
  UIFont(std::shared_ptr<const UIFontDescriptor> descriptor, CGFloat pointSize,
         std::shared_ptr<const Typeface> typeface) noexcept;

  std::shared_ptr<const UIFontDescriptor> descriptor_;
  CGFloat pointSize_;
  std::shared_ptr<const Typeface> typeface_;
};

}  // namespace Brisel::Platform
