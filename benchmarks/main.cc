#include <thread>

#include "benchmarks/job.h"

namespace {

// A turn of the loop that does nothing; report.py takes its instructions off those of every job.
void nothing(benchmark::State& state) {
  for (auto _ : state) benchmark::ClobberMemory();
}
BRISEL_JOB("loop/nothing", nothing);

}  // namespace

int main(int argc, char** argv) {
  // The standard library counts references without atomics until a process has started its first thread.
  std::thread([] {}).join();
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
}
