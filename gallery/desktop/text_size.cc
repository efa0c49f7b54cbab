#include "gallery/desktop/text_size.h"

#include <algorithm>
#include <iterator>

#include "brisel/platform/content_size_category.h"
#include "brisel/platform/notification_center.h"
#include "brisel/typography/dynamic_type_monitor.h"

namespace Brisel::Gallery {
namespace {

constexpr double kLeastFactor = 0.5, kGreatestFactor = 3;  // what desktops offer

// Each midway between two neighbouring sizes of running text, in units of that at `large`:
// 0.82 0.88 0.94 1 1.12 1.24 1.35 1.65 1.94 2.35 2.76 3.12.
struct Step {
  double upTo;
  ContentSizeCategory category;
};
constexpr Step kSteps[] = {
    {0.85, ContentSizeCategory::extraSmall},
    {0.91, ContentSizeCategory::small},
    {0.97, ContentSizeCategory::medium},
    {1.06, ContentSizeCategory::large},
    {1.18, ContentSizeCategory::extraLarge},
    {1.295, ContentSizeCategory::extraExtraLarge},
    {1.5, ContentSizeCategory::extraExtraExtraLarge},
    {1.795, ContentSizeCategory::accessibilityMedium},
    {2.145, ContentSizeCategory::accessibilityLarge},
    {2.555, ContentSizeCategory::accessibilityExtraLarge},
    {2.94, ContentSizeCategory::accessibilityExtraExtraLarge},
    {kGreatestFactor, ContentSizeCategory::accessibilityExtraExtraExtraLarge},
};

// GNOME, and those that share its settings.
constexpr std::string_view kDesktops[] = {"GNOME", "GNOME-Classic", "GNOME-Flashback", "Unity", "Budgie", "Pantheon"};

}  // namespace

std::optional<ContentSizeCategory> categoryForTextScalingFactor(double factor) noexcept {
  if (!(factor >= kLeastFactor)) return std::nullopt;
  for (const Step& step : kSteps) {
    if (factor <= step.upTo) return step.category;
  }
  return std::nullopt;
}

bool hasTextScalingFactor(std::string_view desktops) noexcept {
  while (!desktops.empty()) {
    const auto colon = std::min(desktops.find(':'), desktops.size());
    if (std::find(std::begin(kDesktops), std::end(kDesktops), desktops.substr(0, colon)) != std::end(kDesktops))
      return true;
    desktops.remove_prefix(std::min(colon + 1, desktops.size()));
  }
  return false;
}

void announceTextSize(ContentSizeCategory category) {
  DynamicTypeMonitor::shared();  // which hears of text sizes from its first use on
  Platform::NSNotificationCenter::defaultCenter().postNotificationName(
      Platform::UIContentSizeCategoryDidChangeNotification, nullptr,
      {{Platform::UIContentSizeCategoryNewValueKey, category.platformCategory()}});
}

}  // namespace Brisel::Gallery
