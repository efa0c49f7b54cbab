#include "brisel/typography/internal/font_building.h"

#include <atomic>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <new>
#include <utility>
#include <vector>

#include "brisel/infrastructure/cache.h"
#include "brisel/platform/log.h"
#include "brisel/platform/value.h"
#include "brisel/tokens/internal/lazy_table.h"
#include "brisel/typography/internal/font_registration.h"
#include "brisel/typography/resource_bundle.h"

namespace Brisel {

using internal::FontConfigurationView;
using Platform::Dictionary;
using Platform::List;
using Platform::UIFont;
using Platform::UIFontDescriptor;
using Platform::Value;

namespace {

// The numbers of the platform's feature registry.
constexpr std::int64_t kNumberSpacingType = 6;
constexpr std::int64_t kMonospacedNumbersSelector = 0;

// The fonts of the cache can only be made from registered files, so the one is not reached without the other.
class Fonts {
 public:
  using FontCache = Cache<FontConfiguration, std::shared_ptr<const UIFont>, internal::FontConfigurationHash,
                          internal::FontConfigurationEqual>;

  Fonts()
      : cache_(internal::kFontCacheCapacity, std::numeric_limits<std::int64_t>::max()),
        lacksFiles_(internal::registerFontFiles(*resourceBundle()) == 0) {}

  FontCache& cache() const noexcept { return cache_; }

  // Not said while files are registered: other threads wait for the end of that, and a log's handler is user code.
  void complainOnceAboutLackOfFiles() const {
    if (lacksFiles_.exchange(false))
      Platform::log("No font files in the resource bundle: " + resourceBundle()->bundlePath().native());
  }

 private:
  // Both may be changed by any thread.
  mutable FontCache cache_;
  mutable std::atomic<bool> lacksFiles_;
};

void buildFonts(void* place, std::size_t) noexcept { ::new (place) Fonts; }

constinit internal::LazyTable<Fonts, 1, buildFonts> fonts;

Dictionary featureSetting(Font::Feature feature) {
  using NumberSpacing = Font::Feature::NumberSpacingOption;
  switch (feature.numberSpacingOption()) {
    case NumberSpacing::default_:
      return {};  // Kept as an empty entry, which asks for nothing; this is deliberate.
    case NumberSpacing::monospaced:
      return {{Platform::UIFontFeatureTypeIdentifierKey, kNumberSpacingType},
              {Platform::UIFontFeatureSelectorIdentifierKey, kMonospacedNumbersSelector}};
  }
  return {};
}

}  // namespace

std::string internal::fontName(Font family, Font::Weight weight) {
  std::string name(family.description());
  name += '-';
  name += weight.nameSuffix();
  return name;
}

std::shared_ptr<const UIFontDescriptor> internal::fontDescriptor(const FontConfigurationView& configuration) {
  const auto named = [&](Font family) {
    return UIFontDescriptor::fontDescriptorWithName(fontName(family, configuration.weight), configuration.size);
  };
  std::vector<Value> cascade;
  cascade.reserve(configuration.fallbackFonts.size());
  for (const Font fallback : configuration.fallbackFonts) cascade.emplace_back(named(fallback));
  std::vector<Value> features;
  for (const Font::Feature feature : configuration.fontFeatures) features.emplace_back(featureSetting(feature));
  return named(configuration.primaryFont)
      ->fontDescriptorByAddingAttributes(
          {{Platform::UIFontDescriptorCascadeListAttribute, List(std::move(cascade))},
           {Platform::UIFontDescriptorFeatureSettingsAttribute, List(std::move(features))}});
}

std::shared_ptr<const UIFont> Font::font(Font primaryFont, std::span<const Font> fallbackFonts, Weight weight,
                                         Platform::CGFloat size, std::span<const Feature> fontFeatures) {
  // Before the cache sees it: not-a-number, which equals nothing, would fill it up.
  if (!std::isfinite(size) || size < 0) size = 0;
  auto& cache = fonts[0].cache();
  const FontConfigurationView configuration(primaryFont, fallbackFonts, weight, size, fontFeatures);
  if (auto cached = cache.getValue(configuration)) return *std::move(cached);
  fonts[0].complainOnceAboutLackOfFiles();
  // Threads that miss at the same time each build the font; the fonts are equal, and the last one stays.
  auto font = UIFont::fontWithDescriptor(internal::fontDescriptor(configuration), size);
  cache.setValue(font, configuration.configuration(), 0);
  return font;
}

std::shared_ptr<const UIFont> Font::font(Font primaryFont, std::initializer_list<Font> fallbackFonts, Weight weight,
                                         Platform::CGFloat size, std::initializer_list<Feature> fontFeatures) {
  return font(primaryFont, std::span(fallbackFonts.begin(), fallbackFonts.size()), weight, size,
              std::span(fontFeatures.begin(), fontFeatures.size()));
}

}  // namespace Brisel
