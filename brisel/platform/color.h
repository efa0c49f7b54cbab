#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "brisel/platform/geometry.h"

namespace Brisel::Platform {

class UIColor;

/// How colours are passed on. A pointer to a colour that lives for ever (a constant) may have no control block: it
/// copies without counting, its `use_count()` is 0 and a `weak_ptr` of it is expired at once. Compare identity by
/// `get()`.
using ColorPtr = std::shared_ptr<const UIColor>;

/// An immutable colour in one of two forms, kept as it was made: grey (white level and alpha) or RGB (red, green, blue
/// and alpha). Components are fractions of full intensity, 0…1, not premultiplied; values outside are kept as given.
///
/// The RGB form is in extended sRGB, the grey form in extended grey with the same transfer curve, so that a white level
/// w reads back as (w, w, w).
class UIColor {
 public:
  /// The two forms of colours.
  enum class Form : std::uint8_t {
    grey,  ///< white level and alpha
    rgb,   ///< red, green, blue and alpha
  };
  /// The components of the grey form, as fractions.
  struct GreyComponents {
    CGFloat white;  ///< 0 is black, 1 white
    CGFloat alpha;  ///< 0 is clear, 1 opaque
    friend bool operator==(const GreyComponents&, const GreyComponents&) = default;
  };
  /// The components of the RGB form, as fractions.
  struct RgbComponents {
    CGFloat red;    ///< 0…1, as all four
    CGFloat green;  ///< not premultiplied
    CGFloat blue;   ///< likewise
    CGFloat alpha;  ///< 0 is clear, 1 opaque
    friend bool operator==(const RgbComponents&, const RgbComponents&) = default;
  };

  /// The value of a grey-form or RGB-form colour, for tables of constants. Heap colours come from the factories below.
  static constexpr UIColor grey(CGFloat white, CGFloat alpha) noexcept {
    return UIColor(Form::grey, white, white, white, alpha);
  }
  /// The value of an RGB-form colour, likewise.
  static constexpr UIColor rgb(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha = 1.0) noexcept {
    return UIColor(Form::rgb, red, green, blue, alpha);
  }

  /// `initWithWhite:alpha:`: a new colour in grey form.
  static ColorPtr initWithWhite(CGFloat white, CGFloat alpha);
  /// `initWithRed:green:blue:alpha:`: a new colour in RGB form.
  static ColorPtr initWithRed(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);

  /// `clearColor`: black without any alpha, in grey form. One instance.
  static ColorPtr clearColor() noexcept;

  /// The form in which it was made.
  constexpr Form form() const noexcept { return form_; }
  /// How opaque it is: 0 is clear, 1 opaque.
  constexpr CGFloat alpha() const noexcept { return alpha_; }

  /// `getRed:green:blue:alpha:`: the components as RGB; a grey colour's white level stands for all three.
  constexpr RgbComponents getRed() const noexcept { return {red_, green_, blue_, alpha_}; }

  /// `getWhite:alpha:`: of a grey colour its own level; of an RGB colour its luma (ITU-R BT.709 weights on the encoded
  /// components).
  constexpr GreyComponents getWhite() const noexcept {
    if (form_ == Form::grey) return {red_, alpha_};
    return {0.2126 * red_ + 0.7152 * green_ + 0.0722 * blue_, alpha_};
  }

  /// `colorWithAlphaComponent:`: a new colour of the same form and components with another alpha.
  ColorPtr colorWithAlphaComponent(CGFloat alpha) const;

  /// Equal when form and components are equal: a grey never equals an RGB colour. 0.0 and -0.0 are equal.
  constexpr bool isEqual(const UIColor& other) const noexcept { return *this == other; }
  /// A hash that agrees with `isEqual`.
  std::size_t objectHash() const noexcept;
  friend constexpr bool operator==(const UIColor&, const UIColor&) noexcept = default;

 private:
  constexpr UIColor(Form form, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) noexcept
      : red_(red), green_(green), blue_(blue), alpha_(alpha), form_(form) {}

  CGFloat red_, green_, blue_, alpha_;
  Form form_;
};

}  // namespace Brisel::Platform

template <>
struct std::hash<Brisel::Platform::UIColor> {
  std::size_t operator()(const Brisel::Platform::UIColor& color) const noexcept { return color.objectHash(); }
};
