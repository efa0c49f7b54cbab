#pragma once

#include <string>

#include "gallery/arguments.h"

namespace Brisel::Gallery {

struct ContrastReport {
  std::string text;       // to be printed: a table for each set and role, or JSON
  std::string shortfall;  // names the pairs that are below the minimum, each on a line; empty where none is
};

/// Throws UsageError where no colour set bears the command's name.
ContrastReport contrastReport(const ContrastCommand& command);

}  // namespace Brisel::Gallery
