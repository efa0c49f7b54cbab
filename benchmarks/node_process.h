#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include <sys/types.h>

namespace Brisel::Benchmarks {

/// A peer that runs in node: its script does its job each time it reads a line, and writes how many seconds that took.
class NodeProcess {
 public:
  /// Starts node with a script and its arguments.
  explicit NodeProcess(std::vector<std::string> arguments);
  NodeProcess(const NodeProcess&) = delete;
  NodeProcess& operator=(const NodeProcess&) = delete;
  /// Ends the input and waits for node's end.
  ~NodeProcess();

  /// Has the job done once; 0 where that fails.
  double seconds();

 private:
  pid_t process_ = 0;
  std::FILE* input_ = nullptr;
  std::FILE* answers_ = nullptr;
};

}  // namespace Brisel::Benchmarks
