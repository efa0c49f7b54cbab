// From nothing to the first colour and to the first styled label, as processes: what loading the library costs a
// program that links it, and what the first text costs.
#include <chrono>
#include <optional>
#include <string>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "benchmarks/job.h"

namespace {

using Seconds = std::chrono::duration<double>;

// How long a program takes from its start until it says that it is ready, or ends without a word; nothing if it fails.
// What the kernel takes to end a process is not in it.
std::optional<Seconds> secondsUntilReady(const std::string& program) {
  std::string path = std::string(BRISEL_PROGRAM_DIR "/") + program;
  char* arguments[] = {path.data(), nullptr};
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) return std::nullopt;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  pid_t child = 0;
  const auto begin = std::chrono::steady_clock::now();
  const bool isStarted = posix_spawn(&child, path.c_str(), &actions, nullptr, arguments, environ) == 0;
  close(ends[1]);
  char word = 0;
  const bool isHeard = isStarted && read(ends[0], &word, 1) >= 0;
  const Seconds elapsed = std::chrono::steady_clock::now() - begin;
  close(ends[0]);
  posix_spawn_file_actions_destroy(&actions);
  int status = 0;
  const bool hasSucceeded = isStarted && waitpid(child, &status, 0) == child && status == 0;
  return isHeard && hasSucceeded ? std::optional(elapsed) : std::nullopt;
}

void start(benchmark::State& state, const char* program) {
  for (auto _ : state) {
    const auto elapsed = secondsUntilReady(program);
    if (!elapsed) return state.SkipWithError(program);
    state.SetIterationTime(elapsed->count());
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
