#include "brisel/object_interface/tokens.h"

#include "brisel/tokens/color.h"
#include "brisel/tokens/color_parsing.h"
#include "brisel/tokens/legacy_color.h"
#include "brisel/tokens/opacity.h"
#include "brisel/tokens/screen_scale.h"
#include "brisel/tokens/spacer.h"

using Brisel::Platform::CGFloat;
using Brisel::Platform::ColorPtr;
using Brisel::Platform::UIColor;

// --- Colours ---

std::shared_ptr<VLMBriselColors> VLMBriselColors::init() {
  return std::shared_ptr<VLMBriselColors>(new VLMBriselColors);
}

#define BRISEL_COLOR(name) \
  const ColorPtr& VLMBriselColors::name() noexcept { return Brisel::Color::name().value(); }
#define BRISEL_GREY(name, white, alpha) BRISEL_COLOR(name)
#define BRISEL_RGB(name, red, green, blue, hex) BRISEL_COLOR(name)
#include "brisel/tokens/palette.def"
#undef BRISEL_COLOR

#define BRISEL_COLOR(name) \
  const ColorPtr& VLMBriselColors::name() noexcept { return Brisel::LegacyColor::name(); }
#define BRISEL_GREY(name, white, alpha) BRISEL_COLOR(name)
#define BRISEL_RGB(name, red, green, blue, hex) BRISEL_COLOR(name)
#include "brisel/tokens/legacy_colors.def"
#undef BRISEL_COLOR

// --- Opacities, spacers and the screen's scale ---

std::shared_ptr<VLMBriselOpacities> VLMBriselOpacities::init() {
  return std::shared_ptr<VLMBriselOpacities>(new VLMBriselOpacities);
}

#define BRISEL_OPACITY(name, number, objectName) \
  CGFloat VLMBriselOpacities::objectName() noexcept { return Brisel::Opacity::name().value(); }
#include "brisel/tokens/opacities.def"

std::shared_ptr<VLMBriselSpacers> VLMBriselSpacers::init() {
  return std::shared_ptr<VLMBriselSpacers>(new VLMBriselSpacers);
}

#define BRISEL_SPACER(name, number, objectName) \
  CGFloat VLMBriselSpacers::objectName() noexcept { return Brisel::Spacer::name().value(); }
#include "brisel/tokens/spacers.def"

std::shared_ptr<VLMBriselSwiftScreenScale> VLMBriselSwiftScreenScale::init() {
  return std::shared_ptr<VLMBriselSwiftScreenScale>(new VLMBriselSwiftScreenScale);
}

CGFloat VLMBriselSwiftScreenScale::scale() noexcept { return Brisel::Screen::scale(); }

std::shared_ptr<VLMBriselScreenScale> VLMBriselScreenScale::init() {
  return std::shared_ptr<VLMBriselScreenScale>(new VLMBriselScreenScale);
}

CGFloat VLMBriselScreenScale::scale() noexcept { return VLMBriselSwiftScreenScale::scale(); }

// --- Parsing and comparison ---

namespace {

ColorPtr object(const std::optional<UIColor>& color) {
  return color ? std::make_shared<const UIColor>(*color) : nullptr;
}

}  // namespace

ColorPtr brisel_colorFromRGBHexString(std::optional<std::string_view> string) {
  return object(Brisel::colorFromRGBHexString(string.value_or(std::string_view())));
}

ColorPtr brisel_colorFromRGBAHexString(std::optional<std::string_view> string) {
  return object(Brisel::colorFromRGBAHexString(string.value_or(std::string_view())));
}

ColorPtr brisel_colorFromARGBHexString(std::optional<std::string_view> string) {
  return object(Brisel::colorFromARGBHexString(string.value_or(std::string_view())));
}

bool brisel_equalToColor(const UIColor& color, const UIColor& other, CGFloat precision) noexcept {
  return Brisel::colorsAreEqual(color, other, precision);
}
