#include "benchmarks/job.h"

namespace {

// A turn of the loop that does nothing; report.py takes its instructions off those of every job.
void nothing(benchmark::State& state) {
  for (auto _ : state) benchmark::ClobberMemory();
}
BRISEL_JOB("loop/nothing", nothing);

}  // namespace

BENCHMARK_MAIN();
