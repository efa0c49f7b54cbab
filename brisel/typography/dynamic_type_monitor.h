#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>

#include "brisel/platform/content_size_category.h"
#include "brisel/platform/map_table.h"
#include "brisel/platform/notification_center.h"
#include "brisel/platform/object.h"
#include "brisel/typography/internal/text_size_listener.h"

namespace Brisel {

/// Remembers the preferred text size and tells its subscribers when it changes.
///
///     auto& monitor = *Brisel::DynamicTypeMonitor::shared();
///     monitor.subscribe(view, [](const UIContentSizeCategory& category) { … });
///     monitor.setup(UIContentSizeCategoryAccessibilityLarge);
///
/// It learns of changes by the platform's notification, posted to the default centre, and from `setup`. For one thread
/// at a time: subscribers are called on the thread that posts the notification or calls `setup`, before that returns,
/// in the order in which they subscribed.
class DynamicTypeMonitor final : public Platform::NSObject {
 public:
  /// What to call with the new category.
  using Update = std::function<void(const Platform::UIContentSizeCategory&)>;

  /// The one monitor, made on first use and never torn down.
  static const std::shared_ptr<DynamicTypeMonitor>& shared() noexcept;

  /// The category as it was told last, an unknown one too; `UIContentSizeCategoryLarge` until one has been told.
  Platform::UIContentSizeCategory preferredContentSizeCategory() const;

  /// `subscribe(_:onUpdate:)`: calls `onUpdate` at each notification from the next one on, even where the category is
  /// the same as before. The subscriber is held weakly; once it is freed, nothing is called. Subscribing again replaces
  /// the closure. An object that no `shared_ptr` holds is a programming error; an empty closure is never called.
  template <class T>
  void subscribe(const std::shared_ptr<T>& subscriber, Update onUpdate) {
    listeners_.setObject(std::make_shared<const Closure>(std::move(onUpdate)), subscriber);
  }
  template <class T>
  requires requires(T& object) { object.weak_from_this(); }
  void subscribe(T& subscriber, Update onUpdate) { subscribe(subscriber.weak_from_this().lock(), std::move(onUpdate)); }

  /// Ends a subscription; harmless where there is none. During a notification it takes effect at once.
  template <class T>
  void unsubscribe(const std::shared_ptr<T>& subscriber) {
    listeners_.removeObjectForKey(subscriber);
  }
  template <class T>
  requires requires(T& object) { object.weak_from_this(); }
  void unsubscribe(T& subscriber) { unsubscribe(subscriber.weak_from_this().lock()); }

  /// Tells of the user's preferred category, and notifies all subscribers. The host seeds the monitor so.
  void setup(const Platform::UIContentSizeCategory& preferredContentSizeCategory);

  /// The handler of `UIContentSizeCategoryDidChangeNotification`. One that holds no category is ignored.
  void contentSizeCategoryDidChange(const Platform::NSNotification& notification);

 private:
  friend class internal::TextSizeListener;

  struct Closure final : internal::TextSizeListener {
    explicit Closure(Update update) : onUpdate(std::move(update)) {}
    void update(const void*, const Platform::UIContentSizeCategory& category) const override {
      if (onUpdate) onUpdate(category);
    }
    Update onUpdate;
  };

  DynamicTypeMonitor() = default;
  static std::shared_ptr<DynamicTypeMonitor> make();
  static void buildShared(void* place, std::size_t) noexcept;
  void notifySubscribers(Platform::UIContentSizeCategory category);

  Platform::NSMapTable<const internal::TextSizeListener> listeners_;
  std::optional<Platform::UIContentSizeCategory> currentContentSizeCategory_;
};

}  // namespace Brisel
