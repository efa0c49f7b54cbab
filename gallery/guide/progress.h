#pragma once

#include <cstddef>
#include <mutex>
#include <string>

namespace Brisel::Gallery {

/// A progress bar on standard error, where that is a terminal; else nothing. Steps may come from several threads.
class Progress {
 public:
  /// `subject` says what is counted, such as "pictures".
  Progress(std::string subject, std::size_t total);
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  /// Ends the line, complete or not.
  ~Progress();

  void step();

 private:
  void show() const;

  const std::string subject_;
  const std::size_t total_;
  const bool isShown_;
  std::mutex mutex_;
  std::size_t done_ = 0;
};

}  // namespace Brisel::Gallery
