#include "brisel/object_interface/themes.h"

#include <string>

#include "brisel/object_interface/internal/shared_instances.h"
#include "brisel/platform/fatal_error.h"

using Brisel::Theme;
using VLMBrisel::internal::SharedInstances;

using StatePtr = std::shared_ptr<const VLMBriselColorThemeColorState>;
using BackgroundPtr = std::shared_ptr<const VLMBriselColorThemeBackgroundColors>;
using TextPtr = std::shared_ptr<const VLMBriselColorThemeTextColors>;
using EssentialPtr = std::shared_ptr<const VLMBriselColorThemeEssentialColors>;
using DecorativePtr = std::shared_ptr<const VLMBriselColorThemeDecorativeColors>;
using ColorSetPtr = std::shared_ptr<const VLMBriselColorThemeColorSet>;
using CampaignPtr = std::shared_ptr<const VLMBriselCampaignColorSets>;
using ThemePtr = std::shared_ptr<const VLMBriselColorTheme>;

namespace {

[[noreturn]] void refuse(const std::string& className) {
  Brisel::Platform::fatalError(className +
                               " has no initializer init(); start from VLMBriselColorTheme::dark() or campaign()");
}

}  // namespace

// --- The parts of a colour set ---

void VLMBriselColorThemeColorState::init() { refuse("VLMBriselColorThemeColorState"); }
void VLMBriselColorThemeBackgroundColors::init() { refuse("VLMBriselColorThemeBackgroundColors"); }
void VLMBriselColorThemeTextColors::init() { refuse("VLMBriselColorThemeTextColors"); }
void VLMBriselColorThemeEssentialColors::init() { refuse("VLMBriselColorThemeEssentialColors"); }
void VLMBriselColorThemeDecorativeColors::init() { refuse("VLMBriselColorThemeDecorativeColors"); }

StatePtr VLMBriselColorThemeBackgroundColors::elevated() const {
  return StatePtr(new VLMBriselColorThemeColorState(background_.elevated()));
}
StatePtr VLMBriselColorThemeBackgroundColors::tinted() const {
  return StatePtr(new VLMBriselColorThemeColorState(background_.tinted()));
}
StatePtr VLMBriselColorThemeBackgroundColors::unsafeForSmallText() const {
  return StatePtr(new VLMBriselColorThemeColorState(background_.unsafeForSmallText()));
}

// --- Colour sets ---

void VLMBriselColorThemeColorSet::init() { refuse("VLMBriselColorThemeColorSet"); }

BackgroundPtr VLMBriselColorThemeColorSet::background() const {
  return BackgroundPtr(new VLMBriselColorThemeBackgroundColors(colorSet_.background()));
}
TextPtr VLMBriselColorThemeColorSet::text() const {
  return TextPtr(new VLMBriselColorThemeTextColors(colorSet_.text()));
}
EssentialPtr VLMBriselColorThemeColorSet::essential() const {
  return EssentialPtr(new VLMBriselColorThemeEssentialColors(colorSet_.essential()));
}
DecorativePtr VLMBriselColorThemeColorSet::decorative() const {
  return DecorativePtr(new VLMBriselColorThemeDecorativeColors(colorSet_.decorative()));
}

CampaignPtr VLMBriselCampaignColorSets::init() { return CampaignPtr(new VLMBriselCampaignColorSets); }

// --- Themes ---

void VLMBriselColorTheme::init() { refuse("VLMBriselColorTheme"); }

ThemePtr VLMBriselColorTheme::makeDark(std::size_t) { return ThemePtr(new VLMBriselColorTheme(Theme::dark())); }
CampaignPtr VLMBriselColorTheme::makeCampaign(std::size_t) { return VLMBriselCampaignColorSets::init(); }

const ThemePtr& VLMBriselColorTheme::dark() noexcept {
  static constinit SharedInstances<const VLMBriselColorTheme, 1, makeDark> instances;
  return instances[0];
}

const CampaignPtr& VLMBriselColorTheme::campaign() noexcept {
  static constinit SharedInstances<const VLMBriselCampaignColorSets, 1, makeCampaign> instances;
  return instances[0];
}

ColorSetPtr VLMBriselColorTheme::wrapped(const Theme::ColorSet& colorSet) {
  return ColorSetPtr(new VLMBriselColorThemeColorSet(colorSet));
}

ColorSetPtr VLMBriselColorTheme::base() const { return wrapped(theme_.base()); }
ColorSetPtr VLMBriselColorTheme::brightAccent() const { return wrapped(theme_.brightAccent()); }
ColorSetPtr VLMBriselColorTheme::negative() const { return wrapped(theme_.negative()); }
ColorSetPtr VLMBriselColorTheme::warning() const { return wrapped(theme_.warning()); }
ColorSetPtr VLMBriselColorTheme::positive() const { return wrapped(theme_.positive()); }
ColorSetPtr VLMBriselColorTheme::announcement() const { return wrapped(theme_.announcement()); }
ColorSetPtr VLMBriselColorTheme::invertedDark() const { return wrapped(theme_.invertedDark()); }
ColorSetPtr VLMBriselColorTheme::invertedLight() const { return wrapped(theme_.invertedLight()); }
ColorSetPtr VLMBriselColorTheme::mutedAccent() const { return wrapped(theme_.mutedAccent()); }
ColorSetPtr VLMBriselColorTheme::overMedia() const { return wrapped(theme_.overMedia()); }
