#include "brisel/object_interface/dynamic_type.h"

#include "brisel/object_interface/internal/shared_instances.h"
#include "brisel/platform/fatal_error.h"
#include "brisel/typography/content_size_category.h"

using Brisel::ContentSizeCategory;
using Brisel::DynamicTypeMonitor;
using Brisel::Platform::UIContentSizeCategory;
using VLMBrisel::internal::SharedInstances;

// --- VLMBriselSwiftDynamicTypeMonitor ---

void VLMBriselSwiftDynamicTypeMonitor::init() {
  Brisel::Platform::fatalError("VLMBriselSwiftDynamicTypeMonitor has no initializer init(); use sharedInstance()");
}

std::shared_ptr<VLMBriselSwiftDynamicTypeMonitor> VLMBriselSwiftDynamicTypeMonitor::make(std::size_t) {
  return std::shared_ptr<VLMBriselSwiftDynamicTypeMonitor>(
      new VLMBriselSwiftDynamicTypeMonitor(DynamicTypeMonitor::shared()));
}

const std::shared_ptr<VLMBriselSwiftDynamicTypeMonitor>& VLMBriselSwiftDynamicTypeMonitor::sharedInstance() noexcept {
  static constinit SharedInstances<VLMBriselSwiftDynamicTypeMonitor, 1, make> instances;
  return instances[0];
}

UIContentSizeCategory VLMBriselSwiftDynamicTypeMonitor::preferredContentSizeCategory() const {
  return dynamicTypeMonitor_->preferredContentSizeCategory();
}

void VLMBriselSwiftDynamicTypeMonitor::setupWithPreferredContentSizeCategory(const UIContentSizeCategory& category) {
  dynamicTypeMonitor_->setup(category);
}

UIContentSizeCategory VLMBriselSwiftDynamicTypeMonitor::contentSizeCategoryFromAccessibilityScale(
    double scale) const noexcept {
  return Brisel::nearestContentSizeCategory(scale).platformCategory();
}

double VLMBriselSwiftDynamicTypeMonitor::accessibilityScaleFromContentSizeCategory(
    const UIContentSizeCategory& category) const noexcept {
  return ContentSizeCategory(category).rawValue();
}

// --- VLMBriselDynamicTypeMonitor ---

std::shared_ptr<VLMBriselDynamicTypeMonitor> VLMBriselDynamicTypeMonitor::init() {
  return std::shared_ptr<VLMBriselDynamicTypeMonitor>(new VLMBriselDynamicTypeMonitor);
}

std::shared_ptr<VLMBriselDynamicTypeMonitor> VLMBriselDynamicTypeMonitor::make(std::size_t) { return init(); }

const std::shared_ptr<VLMBriselDynamicTypeMonitor>& VLMBriselDynamicTypeMonitor::defaultMonitor() noexcept {
  static constinit SharedInstances<VLMBriselDynamicTypeMonitor, 1, make> instances;
  return instances[0];
}

UIContentSizeCategory VLMBriselDynamicTypeMonitor::contentSizeCategory() const {
  return VLMBriselSwiftDynamicTypeMonitor::sharedInstance()->preferredContentSizeCategory();
}

double VLMBriselDynamicTypeMonitor::accessibilityScale() const {
  return accessibilityScaleFromContentSizeCategory(contentSizeCategory());
}

DynamicTypeMonitor::Update VLMBriselDynamicTypeMonitor::update(std::function<void(double)> block) {
  if (!block) return nullptr;
  return [block = std::move(block)](const UIContentSizeCategory& category) {
    block(accessibilityScaleFromContentSizeCategory(category));
  };
}

void VLMBriselDynamicTypeMonitor::forceSetContentSizeCategory(const UIContentSizeCategory& category) {
  VLMBriselSwiftDynamicTypeMonitor::sharedInstance()->setupWithPreferredContentSizeCategory(category);
}

double VLMBriselDynamicTypeMonitor::accessibilityScaleFromContentSizeCategory(const UIContentSizeCategory& category) {
  return VLMBriselSwiftDynamicTypeMonitor::sharedInstance()->accessibilityScaleFromContentSizeCategory(category);
}

UIContentSizeCategory VLMBriselDynamicTypeMonitor::contentSizeCategoryFromAccessibilityScale(double scale) {
  return VLMBriselSwiftDynamicTypeMonitor::sharedInstance()->contentSizeCategoryFromAccessibilityScale(scale);
}
