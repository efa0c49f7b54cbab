#include "brisel/platform/object.h"

#include <functional>

namespace Brisel::Platform {

NSObject::~NSObject() = default;

bool NSObject::isEqual(const NSObject& other) const { return this == &other; }

std::size_t NSObject::objectHash() const { return std::hash<const NSObject*>{}(this); }

bool objectsAreEqual(const std::shared_ptr<const NSObject>& a, const std::shared_ptr<const NSObject>& b) {
  return a == b || (a && b && a->isEqual(*b));
}

}  // namespace Brisel::Platform
