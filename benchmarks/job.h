// How a benchmark is registered: by the job it does and who does it.
//
//     void hexColor(benchmark::State& state) {
//       for (auto _ : state) benchmark::DoNotOptimize(…);
//     }
//     BRISEL_JOB("hex_colour/ours", hexColor);
//     BRISEL_JOB("cache_hit_2_threads/QCache", hit)->Threads(2)->UseRealTime();
//
// The variant behind the last slash is `ours` or a peer's name; goals.toml says what is demanded of a job. All jobs run
// in one program, interleaved at random. The same code is counted instruction by instruction where goals.toml asks for
// it, so a job sets up before its loop and every turn of the loop does the job once.
#pragma once

#include <cstdlib>

#include <benchmark/benchmark.h>

namespace Brisel::Benchmarks {

/// Registers a job. report.py sets BRISEL_ITERATIONS when it counts instructions: it then takes the difference of two
/// runs with different numbers of turns.
inline benchmark::internal::Benchmark* addJob(const char* name, void (*run)(benchmark::State&)) {
  auto* job = benchmark::RegisterBenchmark(name, run);
  if (const char* turns = std::getenv("BRISEL_ITERATIONS")) job->Iterations(std::atoll(turns));
  return job;
}

}  // namespace Brisel::Benchmarks

#define BRISEL_JOB_VARIABLE_(number) briselJob##number
#define BRISEL_JOB_VARIABLE(number) BRISEL_JOB_VARIABLE_(number)
#define BRISEL_JOB(name, run) \
  [[maybe_unused]] static auto* const BRISEL_JOB_VARIABLE(__COUNTER__) = ::Brisel::Benchmarks::addJob(name, run)
