#include "brisel/platform/font_descriptor.h"

#include <optional>
#include <utility>

#include "brisel/platform/engine.h"

namespace Brisel::Platform {
namespace {

std::optional<int> smallInteger(const Dictionary& setting, std::string_view key) {
  const Value* value = setting.find(key);
  const std::optional<std::int64_t> integer = value ? value->asInteger() : std::nullopt;
  if (!integer || !std::in_range<int>(*integer)) return std::nullopt;
  return static_cast<int>(*integer);
}

List listForKey(const UIFontDescriptor& descriptor, std::string_view key) {
  const Value* value = descriptor.objectForKey(key);
  const List* list = value ? value->asList() : nullptr;
  return list ? *list : List();
}

}  // namespace

std::shared_ptr<const UIFontDescriptor> UIFontDescriptor::fontDescriptorWithName(std::string_view name, CGFloat size) {
  return std::shared_ptr<const UIFontDescriptor>(
      new UIFontDescriptor(Dictionary{{UIFontDescriptorNameAttribute, name}, {UIFontDescriptorSizeAttribute, size}}));
}

std::shared_ptr<const UIFontDescriptor> UIFontDescriptor::fontDescriptorByAddingAttributes(
    const Dictionary& attributes) const {
  return std::shared_ptr<const UIFontDescriptor>(new UIFontDescriptor(attributes_.mergedWith(attributes)));
}

std::string UIFontDescriptor::postscriptName() const {
  const Value* name = objectForKey(UIFontDescriptorNameAttribute);
  return name && name->asString() ? *name->asString() : std::string();
}

CGFloat UIFontDescriptor::pointSize() const {
  const Value* size = objectForKey(UIFontDescriptorSizeAttribute);
  return size ? size->asDouble().value_or(0) : 0;
}

TypefaceRequest UIFontDescriptor::typefaceRequest() const {
  TypefaceRequest request;
  request.name = postscriptName();
  for (const Value& fallback : listForKey(*this, UIFontDescriptorCascadeListAttribute))
    if (const auto descriptor = fallback.as<UIFontDescriptor>())
      request.cascade.push_back(descriptor->postscriptName());
  for (const Value& setting : listForKey(*this, UIFontDescriptorFeatureSettingsAttribute)) {
    if (!setting.asDictionary()) continue;
    const std::optional<int> type = smallInteger(*setting.asDictionary(), UIFontFeatureTypeIdentifierKey);
    const std::optional<int> selector = smallInteger(*setting.asDictionary(), UIFontFeatureSelectorIdentifierKey);
    if (type && selector) request.features.push_back({*type, *selector});
  }
  return request;
}

bool UIFontDescriptor::isEqual(const NSObject& other) const {
  const auto* descriptor = dynamic_cast<const UIFontDescriptor*>(&other);
  return descriptor && attributes_ == descriptor->attributes_;
}

std::size_t UIFontDescriptor::objectHash() const { return Value(attributes_).hash(); }

}  // namespace Brisel::Platform
