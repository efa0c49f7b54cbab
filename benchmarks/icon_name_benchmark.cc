// An icon's place by its name: 65,536 names in random order.
#include <cstddef>
#include <iterator>
#include <random>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "brisel/icons/icon.h"
#include "brisel/icons/internal/icon_names.h"
#include "brisel/object_interface/icons.h"

#include "benchmarks/job.h"

// gperf's, which it writes in C.
extern "C" const char* briselFindNameByGperf(const char* text, std::size_t length);

namespace {

constexpr std::size_t kMask = 0xFFFF;

const std::vector<std::string_view>& names() {
  static const std::vector<std::string_view> shuffled = [] {
    std::mt19937 random(20);
    std::vector<std::string_view> made(kMask + 1);
    for (std::string_view& name : made)
      name = Brisel::internal::kIconNames[random() % std::size(Brisel::internal::kIconNames)];
    return made;
  }();
  return shuffled;
}

using Places = std::unordered_map<std::string_view, std::size_t>;

template <class Find>
void lookUp(benchmark::State& state, Find find) {
  const auto& all = names();
  std::size_t i = 0;
  for (auto _ : state) {
    auto found = find(all[i++ & kMask]);
    benchmark::DoNotOptimize(found);
  }
}

BRISEL_JOB("icon_name/ours", [](benchmark::State& state) {
  lookUp(state, [](std::string_view name) { return Brisel::internal::indexOfIconName(name); });
});
BRISEL_JOB("icon_name/Icon(name)", [](benchmark::State& state) {
  lookUp(state, [](std::string_view name) { return Brisel::Icon(name).glyphs().x24()->unichar(); });
});
BRISEL_JOB("icon_name/VLMBriselIconFromNSString", [](benchmark::State& state) {
  lookUp(state, [](std::string_view name) { return VLMBriselIconFromNSString(name); });
});
BRISEL_JOB("icon_name/unordered_map", [](benchmark::State& state) {
  Places places;
  for (std::size_t i = 0; i < std::size(Brisel::internal::kIconNames); ++i) places[Brisel::internal::kIconNames[i]] = i;
  lookUp(state, [&places](std::string_view name) { return places.find(name)->second; });
});
BRISEL_JOB("icon_name/gperf", [](benchmark::State& state) {
  lookUp(state, [](std::string_view name) { return briselFindNameByGperf(name.data(), name.size()); });
});

}  // namespace
