// The layout constraints of one tree of views: what they mean to the solver, and what it found.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "brisel/platform/geometry.h"
#include "brisel/platform/internal/constraint_solver.h"
#include "brisel/platform/views/layout_constraint.h"
#include "brisel/platform/views/layout_guide.h"
#include "brisel/platform/views/view.h"

namespace Brisel::Platform::internal {

/// What layout knows of a view or a guide: views that constraints place and guides have variables, while their tree has
/// a `ViewLayout`; other views stand where they were set, and are numbers to the solver.
struct LayoutPlace {
  using Solver = ConstraintSolver;

  /// The pair of constraints that holds one side to the size of the content.
  struct Content {
    Solver::Constraint hugging, compression;
    float huggingPriority = 0, compressionPriority = 0;
    CGFloat size = UIViewNoIntrinsicMetric;
  };

  /// Active ones, whose meaning depends on this place.
  std::vector<NSLayoutConstraint*> constraints;

  ViewLayout* layout = nullptr;  // that has the variables; null: there are none
  std::size_t index = 0;         // among its items
  UIView* view = nullptr;        // the item, unless it is a guide
  Solver::Variable width, height, x, y;
  CGRect rest;                      // where the item is as far as nothing is asked of it: the frame as it was set
  std::array<Content, 2> contents;  // by axis
  CGFloat measuredWidth = std::numeric_limits<CGFloat>::quiet_NaN();  // for which the content's height was measured
  bool isWrapping = false;                                            // the content's height depends on its width
  bool isContentMarked = false;                                       // the content's size is to be asked for
  bool isContentReported = false;                                     // that it gives way

  // Of a view that holds constraints with leading and trailing edges.
  std::size_t directedRows = 0;
  std::size_t holderIndex = 0;
  UIUserInterfaceLayoutDirection direction{};

  CGSize baselineSize;  // for which the baseline was asked
};

/// Kept by the top view of a tree in which there are constraints, from the first layout on. Changes are noted, and are
/// worked in at the next layout. The solver starts from the last solution; besides, a layout after any change looks at
/// every item once, and at every row where there are baselines.
class ViewLayout {
 public:
  using Solver = ConstraintSolver;

  explicit ViewLayout(UIView& top);
  ViewLayout(const ViewLayout&) = delete;
  ViewLayout& operator=(const ViewLayout&) = delete;
  ~ViewLayout();

  /// Solves and places what has changed in the tree; nothing where there are no constraints. Asks views for the size of
  /// their content, and may be called again by them.
  static void layOut(UIView& top);
  /// The size of a view that is asked for one, weakly. Places nothing.
  static CGSize fit(UIView& view, CGSize size);
  /// Deactivates the constraints that mention an item, and takes its variables out.
  static void forget(LayoutItem& item);

  // What has changed.
  void addTree(UIView& view);
  void removeTree(UIView& view);
  void add(NSLayoutConstraint& constraint);
  void remove(NSLayoutConstraint& constraint);
  void enter(LayoutItem& item);
  void leave(LayoutItem& item);
  void markRow(NSLayoutConstraint& constraint);
  static void markConstraints(const LayoutPlace& place);
  static void frameWasSet(UIView& view);
  static void contentHasChanged(UIView& view);
  /// Gives all places free, as when the top comes below another view.
  void end();

 private:
  static constexpr int kMostRounds = 4;  // of solving, until heights suit widths

  // A constraint as the solver knows it.
  struct Row {
    NSLayoutConstraint* constraint = nullptr;
    Solver::Constraint handle;
    std::vector<Solver::Term> terms;
    Solver::Relation relation{};
    float priority = 0;
    bool isMarked = false;
    bool isReported = false;
  };
  // What an item's edges and sizes are, in the coordinates of a constraint's holder.
  struct Form {
    std::vector<Solver::Term> terms;
    double constant = 0;
  };

  static std::shared_ptr<ViewLayout> of(UIView& top);
  static UIView* asView(LayoutItem& item);
  const LayoutPlace* placeInHere(const LayoutItem& item) const;

  // Working changes in: calls views, after which this may be at its end.
  void takeIn();
  void takeInDirections();
  void takeInContent(UIView& view);
  class FreeForOnce;
  void takeInRow(NSLayoutConstraint& constraint);
  bool measureHeights();

  void markContent(UIView& view);
  void setContent(UIView& view, std::size_t axis, CGFloat size);
  void solve();
  void findGivingWay();
  void report();
  void placeItems();
  void countRow(const NSLayoutConstraint& constraint, bool isThere);

  // What a constraint means.
  void formOf(const NSLayoutConstraint& constraint, FirstBaseline ofFirst, FirstBaseline ofSecond);
  void addAttribute(const NSLayoutConstraint& constraint, LayoutItem& item, NSLayoutAttribute attribute,
                    FirstBaseline baseline, double factor);
  void addOrigin(const UIView& holder, LayoutItem& item, bool isX, double factor);
  void addSize(const LayoutItem& item, bool isWidth, double factor);
  static bool isDirected(const NSLayoutConstraint& constraint);

  UIView* top_;  // null at its end
  Solver solver_;
  bool isStale_ = true;  // the solution, or what is placed
  std::vector<LayoutItem*> items_;
  std::vector<Row> rows_;
  std::vector<UIView*> holders_;  // of constraints with leading and trailing edges
  std::size_t baselineRows_ = 0;  // of rows_, with either side
  std::vector<UIView*> markedContents_;
  std::vector<NSLayoutConstraint*> markedRows_;
  std::vector<std::string> news_;  // what gives way, not yet told
  Form form_;
};

}  // namespace Brisel::Platform::internal
