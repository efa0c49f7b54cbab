#include "brisel/platform/views/internal/layout_nesting.h"

#include "brisel/platform/log.h"

namespace Brisel::Platform::internal {

Nesting::Nesting(const UIView& top, const UIView& asked) : top_(&top), asked_(&asked) {
  bool isRepeat = false;
  for (const Nesting* at = outer_; at; at = at->outer_) {
    if (at->top_ != top_) continue;
    if (isOutermostOfTree_) repeats_ = at->repeats_;
    isOutermostOfTree_ = false;
    isRepeat = isRepeat || at->asked_ == asked_;
  }
  if (isRepeat || repeats_ > 0) ++repeats_;
  if (outer_) depth_ = outer_->depth_ + 1;
  innermost_ = this;
}

bool Nesting::isTooDeep() const {
  if (depth_ == kDeepest + 1) log("Layout: too many layouts within each other; the innermost is not done");
  return repeats_ > kMostRepeats || depth_ > kDeepest;
}

}  // namespace Brisel::Platform::internal
