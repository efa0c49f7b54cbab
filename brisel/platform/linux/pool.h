#pragma once

#include <cstddef>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace Brisel::Platform::Linux {

/// Working objects that are dear to make and for one thread at a time. They belong to the engine and not to threads, so
/// that they serve exit handlers too and no thread leaves any behind.
template <class T>
class Pool {
 public:
  /// An object for as long as the lease lives.
  class Lease {
   public:
    explicit Lease(Pool& pool) : pool_(pool), object_(pool.take()) {}
    ~Lease() { pool_.giveBack(std::move(object_)); }
    Lease(const Lease&) = delete;
    Lease& operator=(const Lease&) = delete;
    T& operator*() const noexcept { return *object_; }

   private:
    Pool& pool_;
    std::unique_ptr<T> object_;
  };

 private:
  static constexpr std::size_t kMostIdle = 8;

  std::unique_ptr<T> take() {
    {
      const std::lock_guard lock(mutex_);
      if (!idle_.empty()) {
        auto object = std::move(idle_.back());
        idle_.pop_back();
        return object;
      }
    }
    return std::make_unique<T>();
  }

  void giveBack(std::unique_ptr<T> object) {
    if (!object->isWorthKeeping()) return;
    const std::lock_guard lock(mutex_);
    if (idle_.size() < kMostIdle) idle_.push_back(std::move(object));
  }

  std::mutex mutex_;
  std::vector<std::unique_ptr<T>> idle_;
};

}  // namespace Brisel::Platform::Linux
