#include "brisel/platform/font_descriptor.h"

#include <optional>
#include <utility>

#include "brisel/platform/engine.h"
#include "brisel/platform/internal/hash.h"

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
  return std::shared_ptr<const UIFontDescriptor>(new UIFontDescriptor(name, size, {}));
}

std::shared_ptr<const UIFontDescriptor> UIFontDescriptor::fontDescriptorByAddingAttributes(
    const Dictionary& attributes) const {
  const Value* name = attributes.find(UIFontDescriptorNameAttribute);
  const Value* size = attributes.find(UIFontDescriptorSizeAttribute);
  Dictionary others = attributes;
  if (name) others = others.without(UIFontDescriptorNameAttribute);
  if (size) others = others.without(UIFontDescriptorSizeAttribute);
  return std::shared_ptr<const UIFontDescriptor>(
      new UIFontDescriptor(name ? *name : name_, size ? *size : size_, others_.mergedWith(others)));
}

Dictionary UIFontDescriptor::fontAttributes() const {
  return Dictionary{{UIFontDescriptorNameAttribute, name_}, {UIFontDescriptorSizeAttribute, size_}}.mergedWith(others_);
}

const Value* UIFontDescriptor::objectForKey(std::string_view key) const noexcept {
  if (key == UIFontDescriptorNameAttribute) return &name_;
  if (key == UIFontDescriptorSizeAttribute) return &size_;
  return others_.find(key);
}

std::string UIFontDescriptor::postscriptName() const { return name_.asString() ? *name_.asString() : std::string(); }

CGFloat UIFontDescriptor::pointSize() const { return size_.asDouble().value_or(0); }

TypefaceRequest UIFontDescriptor::typefaceRequest() const {
  TypefaceRequest request;
  request.name = postscriptName();
  const List cascade = listForKey(*this, UIFontDescriptorCascadeListAttribute);
  request.cascade.reserve(cascade.size());
  for (const Value& fallback : cascade)
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
  if (&other == this) return true;
  const auto* descriptor = dynamic_cast<const UIFontDescriptor*>(&other);
  return descriptor && name_ == descriptor->name_ && size_ == descriptor->size_ && others_ == descriptor->others_;
}

std::size_t UIFontDescriptor::objectHash() const {
  internal::Hasher hasher;
  hasher(name_.hash(), size_.hash(), Value(others_).hash());
  return hasher.finish();
}

}  // namespace Brisel::Platform
