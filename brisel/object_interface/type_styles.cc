#include "brisel/object_interface/type_styles.h"

#include <functional>

#include "brisel/object_interface/internal/shared_instances.h"
#include "brisel/object_interface/internal/unwrap.h"
#include "brisel/tokens/internal/lazy_table.h"
#include "brisel/typography/styled_string.h"

using Brisel::Font;
using Brisel::TypeStyle;
using Brisel::Platform::CGFloat;
using Brisel::Platform::Dictionary;
using Brisel::Platform::NSMutableAttributedString;
using Brisel::Platform::UIContentSizeCategory;
using Brisel::Platform::UIFont;
using VLMBrisel::internal::SharedInstances;
using VLMBrisel::internal::unwrap;
using VLMBrisel::internal::unwrapFonts;

using TypeStylePtr = std::shared_ptr<const VLMBriselTypeStyle>;
using ConfigurationPtr = std::shared_ptr<const VLMBriselTypeStyleConfiguration>;
using RangePtr = std::shared_ptr<const VLMBriselTypeStyleAccessibilityRange>;

// --- Ranges and configurations ---

RangePtr VLMBriselTypeStyleAccessibilityRange::createAccessibilityRangeWithMin(CGFloat min, CGFloat mid, CGFloat max,
                                                                               CGFloat axMax) {
  return wrapping(TypeStyle::AccessibilityRange(min, mid, max, axMax));
}

RangePtr VLMBriselTypeStyleAccessibilityRange::wrapping(const TypeStyle::AccessibilityRange& range) {
  return RangePtr(new VLMBriselTypeStyleAccessibilityRange(range));
}

ConfigurationPtr VLMBriselTypeStyleConfiguration::createConfigurationWithFontSize(
    const RangePtr& fontSize, const RangePtr& minimumScaleFactor, bool usesUpperCaseLayout,
    const std::shared_ptr<const VLMBriselSwiftFontFeatures>& fontFeatures) {
  return wrapping(TypeStyle::Configuration(unwrap(fontSize).accessibilityRange(),
                                           unwrap(minimumScaleFactor).accessibilityRange(), usesUpperCaseLayout,
                                           unwrap(fontFeatures).value()));
}

ConfigurationPtr VLMBriselTypeStyleConfiguration::wrapping(TypeStyle::Configuration configuration) {
  return ConfigurationPtr(new VLMBriselTypeStyleConfiguration(std::move(configuration)));
}

RangePtr VLMBriselTypeStyleConfiguration::fontSize() const {
  return VLMBriselTypeStyleAccessibilityRange::wrapping(configuration_.fontSize());
}

RangePtr VLMBriselTypeStyleConfiguration::minimumScaleFactor() const {
  return VLMBriselTypeStyleAccessibilityRange::wrapping(configuration_.minimumScaleFactor());
}

// --- Styles ---

namespace {

enum class Index : std::size_t {
#define BRISEL_TYPE_STYLE(name, title, stack, weight, size, fontSizes, scaleFactors, upperCase, group) name,
#include "brisel/typography/type_styles.def"
};

using Accessor = const TypeStyle& (*)() noexcept;
constexpr Accessor kAccessors[] = {
#define BRISEL_TYPE_STYLE(name, title, stack, weight, size, fontSizes, scaleFactors, upperCase, group) &TypeStyle::name,
#include "brisel/typography/type_styles.def"
};

void buildAllCases(void* place, std::size_t) noexcept {
  ::new (place) std::vector<TypeStylePtr>{
#define BRISEL_TYPE_STYLE(name, title, stack, weight, size, fontSizes, scaleFactors, upperCase, group) \
  VLMBriselTypeStyle::name(),
#include "brisel/typography/type_styles.def"
  };
}

}  // namespace

TypeStylePtr VLMBriselTypeStyle::make(std::size_t index) { return wrapping(kAccessors[index]()); }

const TypeStylePtr& VLMBriselTypeStyle::instance(std::size_t index) noexcept {
  static constinit SharedInstances<const VLMBriselTypeStyle, std::size(kAccessors), make> instances;
  return instances[index];
}

#define BRISEL_TYPE_STYLE(name, title, stack, weight, size, fontSizes, scaleFactors, upperCase, group) \
  const TypeStylePtr& VLMBriselTypeStyle::name() noexcept { return instance(static_cast<std::size_t>(Index::name)); }
#include "brisel/typography/type_styles.def"

const std::vector<TypeStylePtr>& VLMBriselTypeStyle::allCases() noexcept {
  static constinit Brisel::internal::LazyTable<std::vector<TypeStylePtr>, 1, buildAllCases> all;
  return all[0];
}

TypeStylePtr VLMBriselTypeStyle::createTypeStyleWithName(
    std::string_view name, const std::shared_ptr<const VLMBriselSwiftFont>& primaryFont,
    const std::vector<std::shared_ptr<const VLMBriselSwiftFont>>& fallbackFonts,
    const std::shared_ptr<const VLMBriselSwiftFontWeight>& fontWeight, CGFloat fontSize,
    const ConfigurationPtr& configuration) {
  return wrapping(TypeStyle(std::string(name), unwrap(primaryFont).font(), unwrapFonts(fallbackFonts),
                            unwrap(fontWeight).fontWeight(), fontSize, VLMBriselTypeStyleGroup::convert(name),
                            unwrap(configuration).configuration()));
}

TypeStylePtr VLMBriselTypeStyle::wrapping(TypeStyle typeStyle) {
  return TypeStylePtr(new VLMBriselTypeStyle(std::move(typeStyle)));
}

const std::shared_ptr<const VLMBriselSwiftFont>& VLMBriselTypeStyle::primaryFont() const noexcept {
  return VLMBriselSwiftFont::wrapping(typeStyle_.primaryFont());
}

std::vector<std::shared_ptr<const VLMBriselSwiftFont>> VLMBriselTypeStyle::fallbackFonts() const {
  std::vector<std::shared_ptr<const VLMBriselSwiftFont>> fonts;
  for (const Font font : typeStyle_.fallbackFonts()) fonts.push_back(VLMBriselSwiftFont::wrapping(font));
  return fonts;
}

const std::shared_ptr<const VLMBriselSwiftFontWeight>& VLMBriselTypeStyle::fontWeight() const noexcept {
  return VLMBriselSwiftFontWeight::wrapping(typeStyle_.fontWeight());
}

ConfigurationPtr VLMBriselTypeStyle::configuration() const {
  return VLMBriselTypeStyleConfiguration::wrapping(typeStyle_.configuration());
}

std::shared_ptr<const UIFont> VLMBriselTypeStyle::font() const {
  return Font::font(typeStyle_.primaryFont(), typeStyle_.fallbackFonts(), typeStyle_.fontWeight(),
                    typeStyle_.fontSize(), {});
}

std::shared_ptr<const UIFont> VLMBriselTypeStyle::fontWithContentSizeCategory(
    const UIContentSizeCategory& category) const {
  return typeStyle_.font(category);
}

Dictionary VLMBriselTypeStyle::stringAttributesWithContentSizeCategory(const UIContentSizeCategory& category) const {
  return typeStyle_.stringAttributes(category);
}

TypeStylePtr VLMBriselTypeStyle::withFontSize(CGFloat fontSize) const {
  return wrapping(typeStyle_.withFontSize(fontSize));
}

TypeStylePtr VLMBriselTypeStyle::withMonospacedNumbers() const {
  return wrapping(
      typeStyle_.withFontFeatures({Font::Feature::numberSpacing(Font::Feature::NumberSpacingOption::monospaced)}));
}

TypeStylePtr VLMBriselTypeStyle::copyWithZone(const void* /*zone*/) const { return wrapping(typeStyle_); }

bool VLMBriselTypeStyle::isEqual(const NSObject& other) const {
  const auto* style = dynamic_cast<const VLMBriselTypeStyle*>(&other);
  return style && style->typeStyle_ == typeStyle_;
}

std::size_t VLMBriselTypeStyle::objectHash() const { return std::hash<TypeStyle>()(typeStyle_); }

// --- Groups and styled strings ---

TypeStyle::Group VLMBriselTypeStyleGroup::convert(std::string_view identifier) noexcept {
  return Brisel::typeStyleGroup(identifier);
}

std::shared_ptr<NSMutableAttributedString> briselSwift_attributedStringWithString(
    std::string_view string, const TypeStylePtr& typeStyle, const UIContentSizeCategory& contentSizeCategory,
    const Dictionary& baseAttributes) {
  return Brisel::attributedString(string, unwrap(typeStyle).typeStyle(), contentSizeCategory, baseAttributes);
}
