// Which object something is about, without keeping it alive.
#pragma once

#include <memory>
#include <type_traits>

namespace Brisel::Platform::internal {

/// The identity of an object that may be gone. Both the address and the owner count: an address may be used again by
/// another object, and an object shares its owner with its members.
class WeakKey {
 public:
  WeakKey() noexcept = default;
  /// Of an object behind any of its bases: the address is that of the whole object.
  template <class T>
  explicit WeakKey(const std::shared_ptr<T>& object) : address_(wholeAddress(object.get())), object_(object) {}

  /// Of the whole object.
  const void* address() const noexcept { return address_; }
  bool isExpired() const noexcept { return object_.expired(); }
  /// The pointer that the key was made of; null once the object has been freed.
  std::shared_ptr<const void> lock() const noexcept { return object_.lock(); }

  bool operator==(const WeakKey& other) const noexcept {
    return address_ == other.address_ && !object_.owner_before(other.object_) && !other.object_.owner_before(object_);
  }

 private:
  template <class T>
  static const void* wholeAddress(const T* object) noexcept {
    if constexpr (std::is_polymorphic_v<T>)
      return dynamic_cast<const void*>(object);
    else
      return object;
  }

  const void* address_ = nullptr;
  std::weak_ptr<const void> object_;
};

}  // namespace Brisel::Platform::internal
