#include "benchmarks/node_process.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <string>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Brisel::Benchmarks {

NodeProcess::NodeProcess(std::vector<std::string> arguments) {
  std::array<int, 2> in{};
  std::array<int, 2> out{};
  if (pipe2(in.data(), O_CLOEXEC) != 0 || pipe2(out.data(), O_CLOEXEC) != 0) return;
  arguments.insert(arguments.begin(), "node");
  std::vector<char*> argv;
  for (std::string& argument : arguments) argv.push_back(argument.data());
  argv.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, in[0], STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
  if (posix_spawnp(&process_, "node", &actions, nullptr, argv.data(), environ) != 0) process_ = 0;
  posix_spawn_file_actions_destroy(&actions);
  close(in[0]);
  close(out[1]);
  input_ = fdopen(in[1], "w");
  answers_ = fdopen(out[0], "r");
  std::signal(SIGPIPE, SIG_IGN);  // A script that has failed is found by its missing answer.
}

NodeProcess::~NodeProcess() {
  if (input_) std::fclose(input_);
  if (answers_) std::fclose(answers_);
  if (process_ != 0) waitpid(process_, nullptr, 0);
}

double NodeProcess::seconds() {
  std::array<char, 64> answer{};
  if (!input_ || !answers_ || std::fputs("\n", input_) < 0 || std::fflush(input_) != 0 ||
      !std::fgets(answer.data(), answer.size(), answers_)) {
    return 0;
  }
  return std::strtod(answer.data(), nullptr);
}

}  // namespace Brisel::Benchmarks
