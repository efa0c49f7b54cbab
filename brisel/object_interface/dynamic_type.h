// The object interface of the content-size categories: their scales, and the monitors that tell of changes.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>

#include "brisel/platform/content_size_category.h"
#include "brisel/platform/object.h"
#include "brisel/typography/dynamic_type_monitor.h"

/// `Brisel::DynamicTypeMonitor` on this interface, and the conversions between categories and their scales.
class VLMBriselSwiftDynamicTypeMonitor final : public Brisel::Platform::NSObject {
 public:
  /// Not available; ends the process.
  [[noreturn]] static void init();

  /// The one monitor, around `Brisel::DynamicTypeMonitor::shared()`. Made on first use and never torn down.
  static const std::shared_ptr<VLMBriselSwiftDynamicTypeMonitor>& sharedInstance() noexcept;

  /// The category as it was told last; `UIContentSizeCategoryLarge` until one has been told.
  Brisel::Platform::UIContentSizeCategory preferredContentSizeCategory() const;

  /// `subscribe:onUpdate:`, of an object held by a `shared_ptr`. The subscriber is held weakly.
  template <class Subscriber>
  void subscribe(Subscriber&& subscriber, Brisel::DynamicTypeMonitor::Update onUpdate) {
    dynamicTypeMonitor_->subscribe(subscriber, std::move(onUpdate));
  }
  /// `unsubscribe:`: ends a subscription; harmless where there is none.
  template <class Subscriber>
  void unsubscribe(Subscriber&& subscriber) {
    dynamicTypeMonitor_->unsubscribe(subscriber);
  }

  /// `setupWithPreferredContentSizeCategory:`: tells of the user's preferred category, and notifies all subscribers.
  void setupWithPreferredContentSizeCategory(const Brisel::Platform::UIContentSizeCategory& category);

  /// `contentSizeCategoryFromAccessibilityScale:`: the category with the nearest scale.
  Brisel::Platform::UIContentSizeCategory contentSizeCategoryFromAccessibilityScale(double scale) const noexcept;
  /// `accessibilityScaleFromContentSizeCategory:`: -1.0 to 2.0; 0.0 for unknown categories.
  double accessibilityScaleFromContentSizeCategory(
      const Brisel::Platform::UIContentSizeCategory& category) const noexcept;

 private:
  explicit VLMBriselSwiftDynamicTypeMonitor(std::shared_ptr<Brisel::DynamicTypeMonitor> monitor) noexcept
      : dynamicTypeMonitor_(std::move(monitor)) {}
  static std::shared_ptr<VLMBriselSwiftDynamicTypeMonitor> make(std::size_t);

  std::shared_ptr<Brisel::DynamicTypeMonitor> dynamicTypeMonitor_;
};

/// The older monitor, which speaks in scales. It has no state of its own, and shares its subscribers with the newer
/// one: an object that subscribes through both is called by the later subscription alone.
class VLMBriselDynamicTypeMonitor final : public Brisel::Platform::NSObject {
 public:
  /// A monitor of its own, though all share what they know.
  static std::shared_ptr<VLMBriselDynamicTypeMonitor> init();
  /// The one that is shared. Made on first use and never torn down.
  static const std::shared_ptr<VLMBriselDynamicTypeMonitor>& defaultMonitor() noexcept;

  /// The category as it was told last; `UIContentSizeCategoryLarge` until one has been told.
  Brisel::Platform::UIContentSizeCategory contentSizeCategory() const;
  /// The scale of that category.
  double accessibilityScale() const;

  /// `subscribe:block:`: the block gets the scale of the new category.
  template <class Subscriber>
  void subscribe(Subscriber&& subscriber, std::function<void(double)> block) {
    VLMBriselSwiftDynamicTypeMonitor::sharedInstance()->subscribe(subscriber, update(std::move(block)));
  }
  /// `unsubscribe:`: ends a subscription, also one made through the newer monitor.
  template <class Subscriber>
  void unsubscribe(Subscriber&& subscriber) {
    VLMBriselSwiftDynamicTypeMonitor::sharedInstance()->unsubscribe(subscriber);
  }

  /// `forceSetContentSizeCategory:`: tells of the user's preferred category, and notifies all subscribers.
  void forceSetContentSizeCategory(const Brisel::Platform::UIContentSizeCategory& category);

  /// `accessibilityScaleFromContentSizeCategory:`: -1.0 to 2.0; 0.0 for unknown categories.
  static double accessibilityScaleFromContentSizeCategory(const Brisel::Platform::UIContentSizeCategory& category);
  /// `contentSizeCategoryFromAccessibilityScale:`: the category with the nearest scale.
  static Brisel::Platform::UIContentSizeCategory contentSizeCategoryFromAccessibilityScale(double scale);

 private:
  VLMBriselDynamicTypeMonitor() = default;
  static std::shared_ptr<VLMBriselDynamicTypeMonitor> make(std::size_t);
  static Brisel::DynamicTypeMonitor::Update update(std::function<void(double)> block);
};
