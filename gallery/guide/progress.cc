#include "gallery/guide/progress.h"

#include <cstdio>
#include <utility>

#include <unistd.h>

namespace Brisel::Gallery {
namespace {
constexpr std::size_t kCells = 32;
}

Progress::Progress(std::string subject, std::size_t total)
    : subject_(std::move(subject)), total_(total), isShown_(total > 0 && ::isatty(STDERR_FILENO) == 1) {
  if (isShown_) show();
}

Progress::~Progress() {
  if (isShown_) std::fputc('\n', stderr);
}

void Progress::step() {
  const std::lock_guard lock(mutex_);
  ++done_;
  // Redrawn only when a digit of the percentage changes: a terminal is slower than a picture.
  if (isShown_ && done_ * 100 / total_ != (done_ - 1) * 100 / total_) show();
}

void Progress::show() const {
  const std::size_t filled = done_ * kCells / total_;
  std::string line = "\r[" + std::string(filled, '#') + std::string(kCells - filled, ' ') + "] " +
                     std::to_string(done_) + " of " + std::to_string(total_) + " " + subject_;
  std::fputs(line.c_str(), stderr);
  std::fflush(stderr);
}

}  // namespace Brisel::Gallery
