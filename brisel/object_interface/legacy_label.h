#pragma once

#include <memory>
#include <optional>
#include <string>

#include "brisel/object_interface/base_legacy_label.h"
#include "brisel/object_interface/type_styles.h"
#include "brisel/platform/content_size_category.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/trait_collection.h"
#include "brisel/platform/views/label.h"
#include "brisel/platform/views/layout_anchor.h"
#include "brisel/platform/views/layout_guide.h"

/// A label of older screens. It holds a style, and applies it anew whenever its text, size, traits or the style change.
/// It follows its own traits, up to a largest category, and not the dynamic-type monitor. For the main thread only.
class VLMBriselLegacyLabel : public Brisel::Platform::UILabel, public VLMBriselBaseLegacyLabel {
 public:
  /// A style as the label holds it.
  using Style = std::shared_ptr<const VLMBriselTypeStyle>;

  /// `initWithFrame:`: a label without a style.
  static std::shared_ptr<VLMBriselLegacyLabel> initWithFrame(const Brisel::Platform::CGRect& frame = {});
  /// `initWithFrame:andStyle:`: a label in a style.
  static std::shared_ptr<VLMBriselLegacyLabel> initWithFrame(const Brisel::Platform::CGRect& frame, const Style& style);
  /// `initWithStyle:`: 100 points wide and 40 high, at the origin.
  static std::shared_ptr<VLMBriselLegacyLabel> initWithStyle(const Style& style);

  /// The style that it holds; null at first. Another object, even an equal one, is applied; the same one does nothing.
  const Style& style() const noexcept { return style_; }
  virtual void setStyle(const Style& style);
  /// `setSwiftStyle:`: keeps a style that is not equal to the present one. Deliberately unlike `setStyle`: it compares
  /// by equality and applies nothing.
  void setSwiftStyle(const Style& style) override;

  /// Whether the text follows the preferred size; so at first. If not, it is that of `large`, whatever the largest
  /// category. A change applies the style.
  bool isUsingDynamicType() const noexcept { return usingDynamicType_; }
  virtual void setUsingDynamicType(bool usingDynamicType);
  /// The category beyond which the text does not grow; none at first. Counts from the next application on.
  const Brisel::Platform::UIContentSizeCategory& maxContentSizeCategory() const noexcept {
    return maxContentSizeCategory_;
  }
  virtual void setMaxContentSizeCategory(const Brisel::Platform::UIContentSizeCategory& category);

  /// A text other than the present one applies the style.
  void setText(const std::optional<std::string>& text) override;

  /// The scale of the category in which the style is applied.
  virtual double accessibilityScale() const;
  /// Applies the style, if there is one.
  virtual void updateStyle();

  // Three guides as wide as the label that end at its first baseline. How high they are is for whoever uses them to
  // constrain, so that their tops, which the anchors are, mark the lines they are named after.

  /// The guide whose top is for the font's ascender.
  const std::shared_ptr<Brisel::Platform::UILayoutGuide>& firstAscenderLayoutGuide() const noexcept {
    return firstAscenderLayoutGuide_;
  }
  /// The guide whose top is for the top of the first line.
  const std::shared_ptr<Brisel::Platform::UILayoutGuide>& firstLineHeightLayoutGuide() const noexcept {
    return firstLineHeightLayoutGuide_;
  }
  /// The guide whose top is for the top of capitals.
  const std::shared_ptr<Brisel::Platform::UILayoutGuide>& firstCapHeightLayoutGuide() const noexcept {
    return firstCapHeightLayoutGuide_;
  }
  /// The top of `firstAscenderLayoutGuide`.
  Brisel::Platform::NSLayoutYAxisAnchor firstAscenderAnchor() const noexcept;
  /// The top of `firstLineHeightLayoutGuide`.
  Brisel::Platform::NSLayoutYAxisAnchor firstLineHeightAnchor() const noexcept;
  /// The top of `firstCapHeightLayoutGuide`.
  Brisel::Platform::NSLayoutYAxisAnchor firstCapHeightAnchor() const noexcept;

  /// Adds and constrains the guides; part of every `init…`.
  virtual void setup();

  /// The size for which layout last applied the style; zero at first.
  Brisel::Platform::CGSize lastSize() const noexcept { return lastSize_; }
  /// Whether layout is applying the style right now.
  bool isReapplyingStyle() const noexcept { return isReapplyingStyle_; }

  void layoutSubviews() override;
  void traitCollectionDidChange(const std::shared_ptr<const Brisel::Platform::UITraitCollection>& previous) override;

 protected:
  /// For subclasses' factories.
  VLMBriselLegacyLabel();
  void didInitWithFrame() override;

 private:
  Style style_;
  bool usingDynamicType_ = true;
  Brisel::Platform::UIContentSizeCategory maxContentSizeCategory_ =
      Brisel::Platform::UIContentSizeCategoryAccessibilityExtraExtraExtraLarge;
  std::shared_ptr<Brisel::Platform::UILayoutGuide> firstAscenderLayoutGuide_;
  std::shared_ptr<Brisel::Platform::UILayoutGuide> firstLineHeightLayoutGuide_;
  std::shared_ptr<Brisel::Platform::UILayoutGuide> firstCapHeightLayoutGuide_;
  Brisel::Platform::CGSize lastSize_;
  bool isReapplyingStyle_ = false;
};
