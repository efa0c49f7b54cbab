// The cache against the plain model: each pair of bytes is an operation and its key.
#include <cstddef>
#include <cstdint>
#include <optional>

#include "brisel/infrastructure/cache.h"

#include "fuzz/input.h"
#include "tests/cache_model.h"
#include "tests/manual_pressure.h"

namespace {

using Brisel::Fuzz::require;

// Few values, so that keys collide in the table.
struct CoarseHash {
  std::size_t operator()(int key) const { return static_cast<std::size_t>(key % 7); }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const std::int64_t capacity = static_cast<std::int8_t>(data[0]) / 2;
  const std::int64_t memoryLimit = static_cast<std::int8_t>(data[1]) * 4;
  Brisel::Tests::ManualPressure pressure;
  Brisel::Cache<int, int, CoarseHash> cache(capacity, memoryLimit, pressure.source());
  Brisel::Tests::CacheModel<int, int> model(capacity, memoryLimit);
  int value = 0;
  for (std::size_t i = 2; i + 1 < size; i += 2) {
    const int operation = data[i] >> 5U;            // 0…7
    const std::int64_t usage = (data[i] & 31) - 4;  // -4…27
    const int key = data[i + 1] & 63;
    if (operation < 4) {
      ++value;
      cache.setValue(value, key, usage);
      model.setValue(value, key, usage);
    } else if (operation == 4) {
      cache.setValue(std::nullopt, key, usage);
      model.setValue(std::nullopt, key, usage);
    } else if (operation < 7) {
      require(cache.getValue(key) == model.getValue(key));
    } else if (usage > 24) {
      pressure.fire();
      model.purge();
    }
    require(cache.count() == model.count());
  }
  for (int key = 0; key < 64; ++key) require(cache.getValue(key) == model.getValue(key));
  return 0;
}
