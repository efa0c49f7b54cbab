#include "brisel/platform/notification_center.h"

#include <atomic>
#include <iterator>
#include <utility>

namespace Brisel::Platform {
namespace {

class ObserverToken final : public NSObject {};

}  // namespace

struct NSNotificationCenter::Registration {
  bool isDead() const noexcept { return observer.isExpired() || (hasSender && sender.isExpired()); }

  const internal::WeakKey observer;
  const std::shared_ptr<const NSObject> token;  // keeps an observer alive that is nothing but a token
  const std::string name;
  const Handler handler;
  const bool hasSender;
  const internal::WeakKey sender;
  std::atomic<bool> isRemoved{false};
};

NSNotificationCenter& NSNotificationCenter::defaultCenter() {
  static NSNotificationCenter* const center = new NSNotificationCenter;  // Never freed.
  return *center;
}

std::shared_ptr<const NSObject> NSNotificationCenter::addObserverForName(std::string_view name,
                                                                         const std::shared_ptr<const NSObject>& object,
                                                                         Handler handler) {
  auto token = std::make_shared<const ObserverToken>();
  add(internal::WeakKey(token), token, name, std::move(handler), object);
  return token;
}

void NSNotificationCenter::add(internal::WeakKey observer, std::shared_ptr<const NSObject> token, std::string_view name,
                               Handler handler, const std::shared_ptr<const NSObject>& object) {
  if (observer.isExpired() || !handler) return;
  // Made and, where it fails, destroyed outside the lock, as all that belongs to callers.
  std::shared_ptr<Registration> registration(new Registration{std::move(observer), std::move(token), std::string(name),
                                                              std::move(handler), object != nullptr,
                                                              internal::WeakKey(object)});
  const std::lock_guard lock(mutex_);
  registrations_.push_back(std::move(registration));
}

void NSNotificationCenter::remove(const internal::WeakKey& observer, const std::string_view* name) {
  std::vector<std::shared_ptr<Registration>> removed;
  const std::lock_guard lock(mutex_);
  std::erase_if(registrations_, [&](std::shared_ptr<Registration>& registration) {
    if (!(registration->observer == observer) || (name && registration->name != *name)) return false;
    registration->isRemoved.store(true, std::memory_order_relaxed);
    removed.push_back(std::move(registration));
    return true;
  });
}

void NSNotificationCenter::postNotification(std::string_view name, std::shared_ptr<const NSObject> object,
                                            Dictionary userInfo) {
  const NSNotification notification{std::string(name), std::move(object), std::move(userInfo)};
  const internal::WeakKey sender(notification.object);
  std::vector<std::shared_ptr<Registration>> called;
  std::vector<std::shared_ptr<Registration>> dead;
  {
    const std::lock_guard lock(mutex_);
    std::erase_if(registrations_, [&](std::shared_ptr<Registration>& registration) {
      if (registration->isDead()) {
        dead.push_back(std::move(registration));
        return true;
      }
      if (registration->name == notification.name && (!registration->hasSender || registration->sender == sender))
        called.push_back(registration);
      return false;
    });
  }
  dead.clear();
  for (const std::shared_ptr<Registration>& registration : called) {
    if (registration->isRemoved.load(std::memory_order_relaxed)) continue;
    if (const std::shared_ptr<const void> alive = registration->observer.lock()) registration->handler(notification);
  }
}

}  // namespace Brisel::Platform
