// The object interface of the typefaces, and the font loader of older callers.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "brisel/platform/font.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/object.h"
#include "brisel/platform/value.h"
#include "brisel/typography/font.h"

/// `Brisel::Font::Weight` as an object. Each weight has one instance.
class VLMBriselSwiftFontWeight final : public Brisel::Platform::NSObject {
 public:
#define BRISEL_FONT_WEIGHT(name, suffix) static const std::shared_ptr<const VLMBriselSwiftFontWeight>& name() noexcept;
#include "brisel/typography/typefaces.def"

  /// The instance of a weight.
  static const std::shared_ptr<const VLMBriselSwiftFontWeight>& wrapping(Brisel::Font::Weight fontWeight) noexcept;

  /// The weight that it wraps.
  Brisel::Font::Weight fontWeight() const noexcept { return fontWeight_; }

 private:
  explicit VLMBriselSwiftFontWeight(Brisel::Font::Weight fontWeight) noexcept : fontWeight_(fontWeight) {}
  static std::shared_ptr<const VLMBriselSwiftFontWeight> make(std::size_t index);

  Brisel::Font::Weight fontWeight_;
};

/// `Brisel::Font` as an object. Each typeface has one instance.
class VLMBriselSwiftFont final : public Brisel::Platform::NSObject {
 public:
#define BRISEL_TYPEFACE(name, familyName) static const std::shared_ptr<const VLMBriselSwiftFont>& name() noexcept;
#include "brisel/typography/typefaces.def"

  /// The instance of a typeface.
  static const std::shared_ptr<const VLMBriselSwiftFont>& wrapping(Brisel::Font font) noexcept;

  /// The typeface that it wraps.
  Brisel::Font font() const noexcept { return font_; }

  /// `fontWithPrimaryFont:fallbackFonts:weight:size:`: `Brisel::Font::font` without features. A null pointer among the
  /// arguments is a programming error.
  static std::shared_ptr<const Brisel::Platform::UIFont> fontWithPrimaryFont(
      const std::shared_ptr<const VLMBriselSwiftFont>& primaryFont,
      const std::vector<std::shared_ptr<const VLMBriselSwiftFont>>& fallbackFonts,
      const std::shared_ptr<const VLMBriselSwiftFontWeight>& weight, Brisel::Platform::CGFloat size);

 private:
  explicit VLMBriselSwiftFont(Brisel::Font font) noexcept : font_(font) {}
  static std::shared_ptr<const VLMBriselSwiftFont> make(std::size_t index);

  Brisel::Font font_;
};

/// A list of `Brisel::Font::Feature` as an object.
class VLMBriselSwiftFontFeatures final : public Brisel::Platform::NSObject {
 public:
  /// `createFontFeaturesWithFontFeatures:`: a new object around a list.
  static std::shared_ptr<const VLMBriselSwiftFontFeatures> createFontFeaturesWithFontFeatures(
      std::vector<Brisel::Font::Feature> fontFeatures);

  /// The list that it wraps.
  const std::vector<Brisel::Font::Feature>& value() const noexcept { return fontFeatures_; }

 private:
  explicit VLMBriselSwiftFontFeatures(std::vector<Brisel::Font::Feature> fontFeatures) noexcept
      : fontFeatures_(std::move(fontFeatures)) {}

  std::vector<Brisel::Font::Feature> fontFeatures_;
};

/// Fonts of the library's standard stacks, at sizes in points. None is null, and each call makes a new one.
///
/// Feature settings are dictionaries as `UIFontDescriptorFeatureSettingsAttribute` has them; where they are absent, the
/// font is equal to that of `VLMBriselSwiftFont::fontWithPrimaryFont`. May be called on any thread.
class VLMBriselFontLoader final {
 public:
  /// A font, never null.
  using UIFontPtr = std::shared_ptr<const Brisel::Platform::UIFont>;
  /// Feature settings; absent: none.
  using FeatureSettings = std::optional<Brisel::Platform::List>;

  VLMBriselFontLoader() = delete;

  // With settings, the selector goes on with `fontDescriptorFeatureSettings:`.

  /// `tondalBookStackWithSize:`: running text in the weight book.
  static UIFontPtr tondalBookStackWithSize(Brisel::Platform::CGFloat size);
  static UIFontPtr tondalBookStackWithSize(Brisel::Platform::CGFloat size,
                                           const FeatureSettings& fontDescriptorFeatureSettings);
  /// `tondalBoldStackWithSize:`: running text in the weight bold.
  static UIFontPtr tondalBoldStackWithSize(Brisel::Platform::CGFloat size);
  static UIFontPtr tondalBoldStackWithSize(Brisel::Platform::CGFloat size,
                                           const FeatureSettings& fontDescriptorFeatureSettings);
  /// `tondalTitleBoldStackWithSize:`: titles in the weight bold.
  static UIFontPtr tondalTitleBoldStackWithSize(Brisel::Platform::CGFloat size);
  static UIFontPtr tondalTitleBoldStackWithSize(Brisel::Platform::CGFloat size,
                                                const FeatureSettings& fontDescriptorFeatureSettings);
  /// `tondalTitleBlackStackWithSize:`: titles in the weight black.
  static UIFontPtr tondalTitleBlackStackWithSize(Brisel::Platform::CGFloat size);
  static UIFontPtr tondalTitleBlackStackWithSize(Brisel::Platform::CGFloat size,
                                                 const FeatureSettings& fontDescriptorFeatureSettings);

  /// `tondalFontStackWithPrimaryFont:fallbackFonts:weight:size:fontDescriptorFeatureSettings:`: any other stack. A null
  /// pointer among the arguments is a programming error.
  static UIFontPtr tondalFontStackWithPrimaryFont(
      const std::shared_ptr<const VLMBriselSwiftFont>& primaryFont,
      const std::vector<std::shared_ptr<const VLMBriselSwiftFont>>& fallbackFonts,
      const std::shared_ptr<const VLMBriselSwiftFontWeight>& weight, Brisel::Platform::CGFloat size,
      const FeatureSettings& fontDescriptorFeatureSettings);

  /// The icon font at 26 points: `VLMBriselSwiftIcons::fontWithSize`.
  static UIFontPtr halviconFont();

  /// Does nothing: fonts are registered when the first one is built. Kept for those who call it at start.
  static void loadTypeStyleFonts() noexcept;
};
