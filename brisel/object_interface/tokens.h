// The object interface of the design tokens: colours, opacities, spacers, the screen's scale, and the operations that
// read and compare colours.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

#include "brisel/platform/color.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/object.h"

/// The palette, and 60 older names that exist here alone. Each member returns one instance for the whole process; that
/// of a palette name is `Brisel::Color`'s very own.
class VLMBriselColors final : public Brisel::Platform::NSObject {
 public:
  /// A new object, though all members are static.
  static std::shared_ptr<VLMBriselColors> init();

#define BRISEL_GREY(name, white, alpha) static const Brisel::Platform::ColorPtr& name() noexcept;
#define BRISEL_RGB(name, red, green, blue, hex) static const Brisel::Platform::ColorPtr& name() noexcept;
#include "brisel/tokens/palette.def"

#define BRISEL_GREY(name, white, alpha) static const Brisel::Platform::ColorPtr& name() noexcept;
#define BRISEL_RGB(name, red, green, blue, hex) static const Brisel::Platform::ColorPtr& name() noexcept;
#include "brisel/tokens/legacy_colors.def"

 private:
  VLMBriselColors() = default;
};

/// The values of `Brisel::Opacity`, 0…1: `opacity0()` … `opacity90()`.
class VLMBriselOpacities final : public Brisel::Platform::NSObject {
 public:
  /// A new object, though all members are static.
  static std::shared_ptr<VLMBriselOpacities> init();

#define BRISEL_OPACITY(name, number, objectName) static Brisel::Platform::CGFloat objectName() noexcept;
#include "brisel/tokens/opacities.def"

 private:
  VLMBriselOpacities() = default;
};

/// The values of `Brisel::Spacer`, in points: `spacer4()` … `spacer80()`.
class VLMBriselSpacers final : public Brisel::Platform::NSObject {
 public:
  /// A new object, though all members are static.
  static std::shared_ptr<VLMBriselSpacers> init();

#define BRISEL_SPACER(name, number, objectName) static Brisel::Platform::CGFloat objectName() noexcept;
#include "brisel/tokens/spacers.def"

 private:
  VLMBriselSpacers() = default;
};

/// `Brisel::Screen` on this interface.
class VLMBriselSwiftScreenScale final : public Brisel::Platform::NSObject {
 public:
  /// A new object, though all members are static.
  static std::shared_ptr<VLMBriselSwiftScreenScale> init();

  /// Device pixels per point, read afresh each time. For the main thread.
  static Brisel::Platform::CGFloat scale() noexcept;

 private:
  VLMBriselSwiftScreenScale() = default;
};

/// `VLMBriselSwiftScreenScale` under its older name.
class VLMBriselScreenScale final : public Brisel::Platform::NSObject {
 public:
  /// A new object, though all members are static.
  static std::shared_ptr<VLMBriselScreenScale> init();

  /// Device pixels per point, read afresh each time. For the main thread.
  static Brisel::Platform::CGFloat scale() noexcept;

 private:
  VLMBriselScreenScale() = default;
};

// Colours from text (see brisel/tokens/color_parsing.h): a new colour in RGB form, or null where the text is absent or
// has another number of digits. `nullptr` is an absent text too, which would else be read as a pointer to characters.

/// `brisel_colorFromRGBHexString:`, of six digits.
Brisel::Platform::ColorPtr brisel_colorFromRGBHexString(std::optional<std::string_view> string);
inline Brisel::Platform::ColorPtr brisel_colorFromRGBHexString(std::nullptr_t) { return nullptr; }
/// `brisel_colorFromRGBAHexString:`, of eight digits, alpha last.
Brisel::Platform::ColorPtr brisel_colorFromRGBAHexString(std::optional<std::string_view> string);
inline Brisel::Platform::ColorPtr brisel_colorFromRGBAHexString(std::nullptr_t) { return nullptr; }
/// `brisel_colorFromARGBHexString:`, of eight digits, alpha first.
Brisel::Platform::ColorPtr brisel_colorFromARGBHexString(std::optional<std::string_view> string);
inline Brisel::Platform::ColorPtr brisel_colorFromARGBHexString(std::nullptr_t) { return nullptr; }

/// `brisel_equalToColor:withPrecision:`: whether no component differs by more than the precision.
bool brisel_equalToColor(const Brisel::Platform::UIColor& color, const Brisel::Platform::UIColor& other,
                         Brisel::Platform::CGFloat precision) noexcept;
