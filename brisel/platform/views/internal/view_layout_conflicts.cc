// What gives way where required constraints cannot all hold, and that it is told.
#include <string>
#include <utility>

#include "brisel/platform/log.h"
#include "brisel/platform/views/internal/constraint_text.h"
#include "brisel/platform/views/internal/view_layout.h"

namespace Brisel::Platform::internal {

// Keeps the news until all is placed: whoever is told may do anything.
void ViewLayout::findGivingWay() {
  const auto isGivingWay = [this](Solver::Constraint handle) { return solver_.violation(handle) > 1e-6; };
  const auto tell = [this](const std::string& what) {
    news_.push_back("Layout: " + what + " cannot hold with older required constraints, and gives way");
  };
  for (Row& row : rows_) {
    if (row.priority < Solver::kRequired || row.isReported || !isGivingWay(row.handle)) continue;
    row.isReported = true;
    tell(constraintText(*row.constraint));
  }
  for (LayoutItem* const item : items_) {
    LayoutPlace& place = *item->place_;
    for (const LayoutPlace::Content& content : place.contents) {
      const bool isLarger = content.huggingPriority == Solver::kRequired && isGivingWay(content.hugging);
      const bool isSmaller = content.compressionPriority == Solver::kRequired && isGivingWay(content.compression);
      if (place.isContentReported || (!isLarger && !isSmaller)) continue;
      place.isContentReported = true;
      tell("the size of the content of a " + className(*item));
    }
  }
}

void ViewLayout::report() {
  for (const std::string& line : std::exchange(news_, {})) log(line);
}

}  // namespace Brisel::Platform::internal
