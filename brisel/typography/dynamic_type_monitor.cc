#include "brisel/typography/dynamic_type_monitor.h"

#include <new>
#include <utility>

#include "brisel/tokens/internal/lazy_table.h"

namespace Brisel {

using Platform::NSNotification;
using Platform::NSNotificationCenter;
using Platform::UIContentSizeCategory;

const std::shared_ptr<DynamicTypeMonitor>& DynamicTypeMonitor::shared() noexcept {
  static constinit internal::LazyTable<std::shared_ptr<DynamicTypeMonitor>, 1, buildShared> monitor;
  return monitor[0];
}

void DynamicTypeMonitor::buildShared(void* place, std::size_t) noexcept {
  ::new (place) std::shared_ptr<DynamicTypeMonitor>(make());
}

std::shared_ptr<DynamicTypeMonitor> DynamicTypeMonitor::make() {
  std::shared_ptr<DynamicTypeMonitor> monitor(new DynamicTypeMonitor);
  NSNotificationCenter::defaultCenter().addObserver(monitor, Platform::UIContentSizeCategoryDidChangeNotification,
                                                    [observer = monitor.get()](const NSNotification& notification) {
                                                      observer->contentSizeCategoryDidChange(notification);
                                                    });
  return monitor;
}

UIContentSizeCategory DynamicTypeMonitor::preferredContentSizeCategory() const {
  return currentContentSizeCategory_.value_or(Platform::UIContentSizeCategoryLarge);
}

void DynamicTypeMonitor::setup(const UIContentSizeCategory& preferredContentSizeCategory) {
  notifySubscribers(preferredContentSizeCategory);
}

void DynamicTypeMonitor::contentSizeCategoryDidChange(const NSNotification& notification) {
  const Platform::Value* value = notification.userInfo.find(Platform::UIContentSizeCategoryNewValueKey);
  if (!value) return;
  if (auto category = UIContentSizeCategory::fromValue(*value)) notifySubscribers(*std::move(category));
}

// By value: what the caller refers to may change while closures run.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void DynamicTypeMonitor::notifySubscribers(UIContentSizeCategory category) {
  currentContentSizeCategory_ = category;
  // Closures may free, subscribe and unsubscribe whom they like.
  listeners_.enumerate(
      [&category](const std::shared_ptr<const void>& subscriber,
                  const std::shared_ptr<const internal::TextSizeListener>& listener) {
        listener->update(subscriber.get(), category);
      },
      [](std::size_t steps, const Platform::internal::WeakKey& subscriber,
         const std::shared_ptr<const internal::TextSizeListener>& listener) {
        if (listener) listener->approach(steps, subscriber);
      });
}

}  // namespace Brisel
