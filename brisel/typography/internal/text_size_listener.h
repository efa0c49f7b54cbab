#pragma once

#include <cstddef>
#include <memory>
#include <utility>

#include "brisel/platform/content_size_category.h"
#include "brisel/platform/internal/weak_key.h"

namespace Brisel::internal {

/// What the dynamic-type monitor calls for a subscriber. Subscribers for which the same is to be done may share one, so
/// that thousands of them are told quickly.
class TextSizeListener {
 public:
  virtual ~TextSizeListener() = default;
  TextSizeListener(const TextSizeListener&) = delete;
  TextSizeListener& operator=(const TextSizeListener&) = delete;

  /// `subscriber` is the pointer that was subscribed, alive while this is called.
  virtual void update(const void* subscriber, const Platform::UIContentSizeCategory& category) const = 0;
  /// Called two subscribers ahead of `update`, and again one ahead, where there are so many: a place to prefetch what
  /// that will read. The subscriber may be gone.
  virtual void approach([[maybe_unused]] std::size_t steps,
                        [[maybe_unused]] const Platform::internal::WeakKey& subscriber) const {}

 protected:
  TextSizeListener() = default;

  /// `DynamicTypeMonitor::subscribe`, with a listener that is not null.
  template <class Monitor, class T>
  static void subscribe(Monitor& monitor, const std::shared_ptr<T>& subscriber,
                        std::shared_ptr<const TextSizeListener> listener) {
    monitor.listeners_.setObject(std::move(listener), subscriber);
  }
};

}  // namespace Brisel::internal
