#include "brisel/object_interface/fonts.h"

#include "brisel/object_interface/icons.h"
#include "brisel/object_interface/internal/shared_instances.h"
#include "brisel/object_interface/internal/unwrap.h"
#include "brisel/platform/font_descriptor.h"
#include "brisel/typography/font_stacks.h"

using Brisel::Font;
using Brisel::FontStack;
using Brisel::Platform::CGFloat;
using Brisel::Platform::UIFont;
using VLMBrisel::internal::SharedInstances;
using VLMBrisel::internal::unwrap;
using VLMBrisel::internal::unwrapFonts;

namespace {

constexpr Font kTypefaces[] = {
#define BRISEL_TYPEFACE(name, familyName) Font::name,
#include "brisel/typography/typefaces.def"
};

}  // namespace

// --- Weights and typefaces ---

std::shared_ptr<const VLMBriselSwiftFontWeight> VLMBriselSwiftFontWeight::make(std::size_t index) {
  return std::shared_ptr<const VLMBriselSwiftFontWeight>(new VLMBriselSwiftFontWeight(Font::Weight::allCases()[index]));
}

const std::shared_ptr<const VLMBriselSwiftFontWeight>& VLMBriselSwiftFontWeight::wrapping(
    Font::Weight fontWeight) noexcept {
  static constinit SharedInstances<const VLMBriselSwiftFontWeight, Font::Weight::allCases().size(), make> instances;
  return instances[static_cast<std::size_t>(Font::Weight::Case(fontWeight))];
}

#define BRISEL_FONT_WEIGHT(name, suffix)                                                             \
  const std::shared_ptr<const VLMBriselSwiftFontWeight>& VLMBriselSwiftFontWeight::name() noexcept { \
    return wrapping(Font::Weight::name);                                                             \
  }
#include "brisel/typography/typefaces.def"

std::shared_ptr<const VLMBriselSwiftFont> VLMBriselSwiftFont::make(std::size_t index) {
  return std::shared_ptr<const VLMBriselSwiftFont>(new VLMBriselSwiftFont(kTypefaces[index]));
}

const std::shared_ptr<const VLMBriselSwiftFont>& VLMBriselSwiftFont::wrapping(Font font) noexcept {
  static constinit SharedInstances<const VLMBriselSwiftFont, std::size(kTypefaces), make> instances;
  return instances[static_cast<std::size_t>(Font::Case(font))];
}

#define BRISEL_TYPEFACE(name, familyName) \
  const std::shared_ptr<const VLMBriselSwiftFont>& VLMBriselSwiftFont::name() noexcept { return wrapping(Font::name); }
#include "brisel/typography/typefaces.def"

std::shared_ptr<const UIFont> VLMBriselSwiftFont::fontWithPrimaryFont(
    const std::shared_ptr<const VLMBriselSwiftFont>& primaryFont,
    const std::vector<std::shared_ptr<const VLMBriselSwiftFont>>& fallbackFonts,
    const std::shared_ptr<const VLMBriselSwiftFontWeight>& weight, CGFloat size) {
  return Font::font(unwrap(primaryFont).font(), unwrapFonts(fallbackFonts), unwrap(weight).fontWeight(), size, {});
}

// --- Features ---

std::shared_ptr<const VLMBriselSwiftFontFeatures> VLMBriselSwiftFontFeatures::createFontFeaturesWithFontFeatures(
    std::vector<Font::Feature> fontFeatures) {
  return std::shared_ptr<const VLMBriselSwiftFontFeatures>(new VLMBriselSwiftFontFeatures(std::move(fontFeatures)));
}

// --- The loader ---

namespace {

VLMBriselFontLoader::UIFontPtr stackFont(const FontStack& stack, Font::Weight weight, CGFloat size,
                                         const VLMBriselFontLoader::FeatureSettings& settings) {
  auto descriptor = Font::font(stack.primaryFont, stack.fallbackFonts, weight, size, {})->fontDescriptor();
  if (settings)
    descriptor = descriptor->fontDescriptorByAddingAttributes(
        {{Brisel::Platform::UIFontDescriptorFeatureSettingsAttribute, *settings}});
  return UIFont::fontWithDescriptor(descriptor, size);
}

}  // namespace

#define BRISEL_STACK_FONT(name, stack, weight)                                                                     \
  VLMBriselFontLoader::UIFontPtr VLMBriselFontLoader::name(CGFloat size) { return name(size, std::nullopt); }      \
  VLMBriselFontLoader::UIFontPtr VLMBriselFontLoader::name(CGFloat size,                                           \
                                                           const FeatureSettings& fontDescriptorFeatureSettings) { \
    return stackFont(FontStack::stack, Font::Weight::weight, size, fontDescriptorFeatureSettings);                 \
  }
BRISEL_STACK_FONT(tondalBookStackWithSize, text, book)
BRISEL_STACK_FONT(tondalBoldStackWithSize, text, bold)
BRISEL_STACK_FONT(tondalTitleBoldStackWithSize, title, bold)
BRISEL_STACK_FONT(tondalTitleBlackStackWithSize, title, black)
#undef BRISEL_STACK_FONT

VLMBriselFontLoader::UIFontPtr VLMBriselFontLoader::tondalFontStackWithPrimaryFont(
    const std::shared_ptr<const VLMBriselSwiftFont>& primaryFont,
    const std::vector<std::shared_ptr<const VLMBriselSwiftFont>>& fallbackFonts,
    const std::shared_ptr<const VLMBriselSwiftFontWeight>& weight, CGFloat size,
    const FeatureSettings& fontDescriptorFeatureSettings) {
  const std::vector<Font> fallbacks = unwrapFonts(fallbackFonts);
  return stackFont({unwrap(primaryFont).font(), fallbacks}, unwrap(weight).fontWeight(), size,
                   fontDescriptorFeatureSettings);
}

VLMBriselFontLoader::UIFontPtr VLMBriselFontLoader::halviconFont() { return VLMBriselSwiftIcons::fontWithSize(26); }

void VLMBriselFontLoader::loadTypeStyleFonts() noexcept {}
