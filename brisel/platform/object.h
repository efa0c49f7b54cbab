#pragma once

#include <cstddef>
#include <memory>

namespace Brisel::Platform {

/// The root of everything with identity. Objects are made by factories and held by `std::shared_ptr`; nil is the null
/// pointer, and identity is equality of pointers.
class NSObject : public std::enable_shared_from_this<NSObject> {
 public:
  NSObject(const NSObject&) = delete;
  NSObject& operator=(const NSObject&) = delete;
  virtual ~NSObject();

  /// Equality as collections use it. An object equals only itself unless its class says otherwise.
  virtual bool isEqual(const NSObject& other) const;

  /// A hash that agrees with `isEqual`.
  virtual std::size_t objectHash() const;

 protected:
  NSObject() = default;
};

/// Equality of references: both null, the same object, or equal objects.
bool objectsAreEqual(const std::shared_ptr<const NSObject>& a, const std::shared_ptr<const NSObject>& b);

}  // namespace Brisel::Platform
