// What of a dictionary of 10,000 keys differs from another: every tenth value.
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "brisel/infrastructure/dictionary_difference.h"

#include "benchmarks/job.h"

namespace {

using Brisel::Platform::Dictionary;
using Brisel::Platform::Value;
using Map = std::unordered_map<std::string, Value>;

std::vector<std::pair<std::string, int>> entries(int changed) {
  std::vector<std::pair<std::string, int>> made;
  for (int i = 0; i < 10'000; ++i) made.emplace_back("key." + std::to_string(i), i % 10 == 0 ? changed : i);
  return made;
}

Dictionary dictionary(int changed) {
  std::vector<Dictionary::Entry> made;
  for (const auto& [key, value] : entries(changed)) made.push_back({key, value});
  return Dictionary(std::move(made));
}

Map map(int changed) {
  Map made;
  for (const auto& [key, value] : entries(changed)) made.emplace(key, value);
  return made;
}

BRISEL_JOB("dictionary_difference/ours", [](benchmark::State& state) {
  const Dictionary first = dictionary(-1);
  const std::optional<Dictionary> second = dictionary(-2);
  for (auto _ : state) benchmark::DoNotOptimize(Brisel::difference(first, second));
});
BRISEL_JOB("dictionary_difference/unordered_map", [](benchmark::State& state) {
  const Map first = map(-1);
  const Map second = map(-2);
  for (auto _ : state) {
    Map differences;
    for (const auto& entry : first) {
      const auto found = second.find(entry.first);
      if (found == second.end() || found->second != entry.second) differences.insert(entry);
    }
    benchmark::DoNotOptimize(differences);
  }
});

}  // namespace
