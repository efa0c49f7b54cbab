#include "brisel/object_interface/legacy_label.h"

#include <algorithm>
#include <vector>

#include "brisel/object_interface/dynamic_type.h"
#include "brisel/object_interface/text_views.h"
#include "brisel/platform/object.h"
#include "brisel/platform/views/layout_constraint.h"

using Brisel::Platform::CGRect;
using Brisel::Platform::CGSize;
using Brisel::Platform::NSLayoutConstraint;
using Brisel::Platform::NSLayoutYAxisAnchor;
using Brisel::Platform::UIContentSizeCategory;
using Brisel::Platform::UILayoutGuide;
using Brisel::Platform::UITraitCollection;

using Monitor = VLMBriselDynamicTypeMonitor;

namespace {

// A flag that is set while this lives.
class SetFlag {
 public:
  explicit SetFlag(bool& flag) : flag_(flag) { flag_ = true; }
  SetFlag(const SetFlag&) = delete;
  SetFlag& operator=(const SetFlag&) = delete;
  ~SetFlag() { flag_ = false; }

 private:
  bool& flag_;
};

}  // namespace

std::shared_ptr<VLMBriselLegacyLabel> VLMBriselLegacyLabel::initWithFrame(const CGRect& frame) {
  return made(std::shared_ptr<VLMBriselLegacyLabel>(new VLMBriselLegacyLabel), frame);
}

std::shared_ptr<VLMBriselLegacyLabel> VLMBriselLegacyLabel::initWithFrame(const CGRect& frame, const Style& style) {
  auto label = initWithFrame(frame);
  label->setStyle(style);
  return label;
}

std::shared_ptr<VLMBriselLegacyLabel> VLMBriselLegacyLabel::initWithStyle(const Style& style) {
  return initWithFrame({{0, 0}, {100, 40}}, style);
}

VLMBriselLegacyLabel::VLMBriselLegacyLabel()
    : firstAscenderLayoutGuide_(UILayoutGuide::init()),
      firstLineHeightLayoutGuide_(UILayoutGuide::init()),
      firstCapHeightLayoutGuide_(UILayoutGuide::init()) {}

void VLMBriselLegacyLabel::didInitWithFrame() {
  UILabel::didInitWithFrame();
  setup();
}

// --- Guides ---

void VLMBriselLegacyLabel::setup() {
  const auto guides = {firstAscenderLayoutGuide_, firstLineHeightLayoutGuide_, firstCapHeightLayoutGuide_};
  for (const auto& guide : guides) addLayoutGuide(guide);
  std::vector<std::shared_ptr<NSLayoutConstraint>> constraints;
  for (const auto& guide : guides) {
    constraints.push_back(guide->leadingAnchor().constraintEqualToAnchor(leadingAnchor()));
    constraints.push_back(guide->trailingAnchor().constraintEqualToAnchor(trailingAnchor()));
    constraints.push_back(guide->bottomAnchor().constraintEqualToAnchor(firstBaselineAnchor()));
  }
  NSLayoutConstraint::activateConstraints(constraints);
}

NSLayoutYAxisAnchor VLMBriselLegacyLabel::firstAscenderAnchor() const noexcept {
  return firstAscenderLayoutGuide_->topAnchor();
}

NSLayoutYAxisAnchor VLMBriselLegacyLabel::firstLineHeightAnchor() const noexcept {
  return firstLineHeightLayoutGuide_->topAnchor();
}

NSLayoutYAxisAnchor VLMBriselLegacyLabel::firstCapHeightAnchor() const noexcept {
  return firstCapHeightLayoutGuide_->topAnchor();
}

// --- The style ---

double VLMBriselLegacyLabel::accessibilityScale() const {
  if (!usingDynamicType_) return 0.0;
  UIContentSizeCategory category = traitCollection()->preferredContentSizeCategory();
  if (category == Brisel::Platform::UIContentSizeCategoryUnspecified)
    category = Monitor::contentSizeCategoryFromAccessibilityScale(Monitor::defaultMonitor()->accessibilityScale());
  return std::min(Monitor::accessibilityScaleFromContentSizeCategory(category),
                  Monitor::accessibilityScaleFromContentSizeCategory(maxContentSizeCategory_));
}

void VLMBriselLegacyLabel::updateStyle() {
  const Style style = style_;  // Held, since applying it may put another object in its place.
  if (!style) return;
  briselSwift_applyStyle(*this, style, Monitor::contentSizeCategoryFromAccessibilityScale(accessibilityScale()), false);
}

void VLMBriselLegacyLabel::setStyle(const Style& style) {
  if (style == style_) return;
  style_ = style;
  updateStyle();
}

void VLMBriselLegacyLabel::setSwiftStyle(const Style& style) {
  if (!Brisel::Platform::objectsAreEqual(style, style_)) style_ = style;
}

void VLMBriselLegacyLabel::setUsingDynamicType(bool usingDynamicType) {
  if (usingDynamicType == usingDynamicType_) return;
  usingDynamicType_ = usingDynamicType;
  updateStyle();
}

void VLMBriselLegacyLabel::setMaxContentSizeCategory(const UIContentSizeCategory& category) {
  maxContentSizeCategory_ = category;
}

void VLMBriselLegacyLabel::setText(const std::optional<std::string>& text) {
  if (text == this->text()) return;
  UILabel::setText(text);
  updateStyle();
}

// --- The surroundings ---

void VLMBriselLegacyLabel::layoutSubviews() {
  UILabel::layoutSubviews();
  const CGSize size = frame().size;
  if (size == lastSize_ || !window() || !style_ || isReapplyingStyle_) return;
  const SetFlag reapplying(isReapplyingStyle_);
  // Before the style is applied, since fitting the text lays the label out again.
  lastSize_ = size;
  updateStyle();
}

void VLMBriselLegacyLabel::traitCollectionDidChange(const std::shared_ptr<const UITraitCollection>& previous) {
  UILabel::traitCollectionDidChange(previous);
  if (usingDynamicType_) updateStyle();
}
