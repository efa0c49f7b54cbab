#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "brisel/platform/internal/weak_key.h"
#include "brisel/platform/object.h"
#include "brisel/platform/value.h"

namespace Brisel::Platform {

/// What an observer is told: the name of what happened, who posted it (or null), and what more there is to know.
struct NSNotification {
  std::string name;                        ///< of what happened
  std::shared_ptr<const NSObject> object;  ///< who posted it; may be null
  Dictionary userInfo;                     ///< what more there is to know
};

/// Passes notifications on to whoever observes their name. May be used from any thread, by handlers too: no lock is
/// held while they run.
class NSNotificationCenter {
 public:
  /// What to call with a notification.
  using Handler = std::function<void(const NSNotification&)>;

  /// The centre of the process, made on first use and never torn down.
  static NSNotificationCenter& defaultCenter();

  NSNotificationCenter() = default;
  NSNotificationCenter(const NSNotificationCenter&) = delete;
  NSNotificationCenter& operator=(const NSNotificationCenter&) = delete;

  /// `addObserver:selector:name:object:`: calls `handler` at each notification of this name, from this sender, or from
  /// any where `object` is null. The observer is held weakly, and kept alive while its handler runs; once it is freed,
  /// the handler is not called again. An observer may be added several times, and is called as often. A handler that
  /// holds its observer strongly keeps it alive for ever. Nothing happens where observer or handler is null.
  template <class Observer>
  void addObserver(const std::shared_ptr<Observer>& observer, std::string_view name, Handler handler,
                   const std::shared_ptr<const NSObject>& object = nullptr) {
    add(internal::WeakKey(observer), nullptr, name, std::move(handler), object);
  }

  /// `addObserverForName:object:usingBlock:`: the same without an observer. The centre holds the token, which serves to
  /// remove the handler again.
  std::shared_ptr<const NSObject> addObserverForName(std::string_view name,
                                                     const std::shared_ptr<const NSObject>& object, Handler handler);

  /// `removeObserver:`: removes an observer (or token) altogether. None of its handlers starts after this returns,
  /// except on other threads where a notification is being posted just now.
  template <class Observer>
  void removeObserver(const std::shared_ptr<Observer>& observer) {
    remove(internal::WeakKey(observer), nullptr);
  }
  /// `removeObserver:name:object:`, for one name and any sender.
  template <class Observer>
  void removeObserver(const std::shared_ptr<Observer>& observer, std::string_view name) {
    remove(internal::WeakKey(observer), &name);
  }

  /// `postNotificationName:object:userInfo:`: calls the observers on this thread, in the order in which they were
  /// added, before it returns. Those that are added meanwhile are not called, those removed or freed are skipped.
  void postNotificationName(std::string_view name, std::shared_ptr<const NSObject> object = nullptr,
                            Dictionary userInfo = {});

 private:
  struct Registration;

  void add(internal::WeakKey observer, std::shared_ptr<const NSObject> token, std::string_view name, Handler handler,
           const std::shared_ptr<const NSObject>& object);
  void remove(const internal::WeakKey& observer, const std::string_view* name);
  // Takes out the registrations of freed observers and senders, for the caller to destroy without the lock.
  std::vector<std::shared_ptr<Registration>> sweep();

  std::mutex mutex_;  // guards what follows
  std::vector<std::shared_ptr<Registration>> registrations_;
  std::size_t sizeAfterSweep_ = 0;
};

}  // namespace Brisel::Platform
