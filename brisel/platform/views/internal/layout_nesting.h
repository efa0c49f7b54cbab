// Layouts within each other.
#pragma once

#include "brisel/platform/views/view.h"

namespace Brisel::Platform::internal {

/// A call of layout that is under way. Where one asks for the same again within itself, that is done a few times and
/// then no more, so that callbacks which always ask for more come to an end. Others may nest, as views do whose content
/// is laid out by constraints of its own.
class Nesting {
 public:
  /// The layout of a tree, given its top.
  explicit Nesting(const UIView& top) : Nesting(top, top) {}
  /// The question for the size of a view of the tree.
  Nesting(const UIView& top, const UIView& asked);
  Nesting(const Nesting&) = delete;
  Nesting& operator=(const Nesting&) = delete;
  ~Nesting() { innermost_ = outer_; }

  bool isOutermostOfTree() const { return isOutermostOfTree_; }
  bool isTooDeep() const;

 private:
  static constexpr int kMostRepeats = 3;
  static constexpr int kDeepest = 64;  // of all trees together; what is beyond is logged

  inline static Nesting* innermost_ = nullptr;
  Nesting* outer_ = innermost_;
  const UIView* top_;
  const UIView* asked_;
  int depth_ = 1;
  int repeats_ = 0;  // in its tree, how many of this call and those around it there are from the first repeat on
  bool isOutermostOfTree_ = true;
};

}  // namespace Brisel::Platform::internal
