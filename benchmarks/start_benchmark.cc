// From nothing to the first colour and to the first styled label, as processes: what loading the library costs a
// program that links it, and what the first text costs.
#include <chrono>
#include <string>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "benchmarks/job.h"

namespace {

// Starts a program and waits for its end; false if it did not succeed.
bool runToEnd(const std::string& program) {
  std::string path = std::string(BRISEL_PROGRAM_DIR "/") + program;
  char* arguments[] = {path.data(), nullptr};
  pid_t child = 0;
  int status = 0;
  return posix_spawn(&child, path.c_str(), nullptr, nullptr, arguments, environ) == 0 &&
         waitpid(child, &status, 0) == child && status == 0;
}

void start(benchmark::State& state, const char* program) {
  for (auto _ : state) {
    const auto begin = std::chrono::steady_clock::now();
    const bool succeeded = runToEnd(program);
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - begin;
    if (!succeeded) return state.SkipWithError(program);
    state.SetIterationTime(elapsed.count());
  }
}

BRISEL_JOB("start_tokens/ours", [](auto& state) { start(state, "start_first_color_tokens"); }) -> UseManualTime();
BRISEL_JOB("start_tokens/empty", [](auto& state) { start(state, "start_empty_tokens"); }) -> UseManualTime();
BRISEL_JOB("start_foundation/ours", [](auto& state) { start(state, "start_first_color_foundation"); })
    -> UseManualTime();
BRISEL_JOB("start_foundation/empty", [](auto& state) { start(state, "start_empty_foundation"); }) -> UseManualTime();
BRISEL_JOB("start_label/ours", [](auto& state) { start(state, "start_first_label"); }) -> UseManualTime();
BRISEL_JOB("start_label/Pango", [](auto& state) { start(state, "start_first_layout"); }) -> UseManualTime();

}  // namespace
