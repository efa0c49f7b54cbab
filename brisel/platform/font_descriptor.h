#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "brisel/platform/geometry.h"
#include "brisel/platform/object.h"
#include "brisel/platform/value.h"

namespace Brisel::Platform {

struct TypefaceRequest;

/// A PostScript name.
inline constexpr std::string_view UIFontDescriptorNameAttribute = "UIFontDescriptorNameAttribute";
/// A number of points.
inline constexpr std::string_view UIFontDescriptorSizeAttribute = "UIFontDescriptorSizeAttribute";
/// A list of UIFontDescriptor, whose fonts draw what the named one has no glyph for.
inline constexpr std::string_view UIFontDescriptorCascadeListAttribute = "UIFontDescriptorCascadeListAttribute";
/// A list of dictionaries, each of which has an integer under the two keys below, or asks for nothing.
inline constexpr std::string_view UIFontDescriptorFeatureSettingsAttribute = "UIFontDescriptorFeatureSettingsAttribute";
/// The number of a feature.
inline constexpr std::string_view UIFontFeatureTypeIdentifierKey = "UIFontFeatureTypeIdentifierKey";
/// The number that a feature is set to.
inline constexpr std::string_view UIFontFeatureSelectorIdentifierKey = "UIFontFeatureSelectorIdentifierKey";

/// An immutable description of a font: attributes, of which the name and the size are always there. Whether there is
/// such a font is another matter. Equal when all attributes are equal.
class UIFontDescriptor final : public NSObject {
 public:
  /// `fontDescriptorWithName:size:`: a description of these two attributes; the size is in points.
  static std::shared_ptr<const UIFontDescriptor> fontDescriptorWithName(std::string_view name, CGFloat size);

  /// `fontDescriptorByAddingAttributes:`: a description with these attributes as well; they replace its own of the same
  /// keys.
  std::shared_ptr<const UIFontDescriptor> fontDescriptorByAddingAttributes(const Dictionary& attributes) const;

  /// The name attribute; empty where that is no text.
  std::string postscriptName() const;
  /// The size attribute, in points; 0 where that is no number.
  CGFloat pointSize() const;
  /// All attributes, the name first.
  Dictionary fontAttributes() const;
  /// An attribute, or null; lives as long as the descriptor.
  const Value* objectForKey(std::string_view key) const noexcept;

  /// What an engine is asked for: name, cascade and features. What is malformed in the lists is passed over.
  TypefaceRequest typefaceRequest() const;

  bool isEqual(const NSObject& other) const override;
  std::size_t objectHash() const override;

 private:
  UIFontDescriptor(Value name, Value size, Dictionary others) noexcept
      : name_(std::move(name)), size_(std::move(size)), others_(std::move(others)) {}

  // Every font is made from several descriptors, most of which have these two attributes and no other.
  Value name_;
  Value size_;
  Dictionary others_;
};

}  // namespace Brisel::Platform
