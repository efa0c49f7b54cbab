#include "brisel/platform/views/internal/view_layout.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Brisel::Platform::internal {
namespace {

// What a side of the content comes to: a length, or that there is none.
CGFloat contentLength(CGFloat length) {
  if (!std::isfinite(length) || length < 0) return UIViewNoIntrinsicMetric;
  return std::min(length, ConstraintSolver::kLargestConstant);
}

float cutPriority(UILayoutPriority priority) { return std::min(priority, ConstraintSolver::kRequired); }

CGFloat cutLength(CGFloat length) {
  return std::clamp(length, -ConstraintSolver::kLargestConstant, ConstraintSolver::kLargestConstant);
}

// The order of variables and of required constraints: eight numbers for each view or guide, as they were made; then
// constraints, as they were activated.
ConstraintSolver::Order orderOf(std::uint64_t item, std::size_t part) { return item * 8 + part; }
ConstraintSolver::Order orderOf(std::uint64_t constraint) { return (1ULL << 60U) + constraint; }

template <class Item>
void removeFrom(std::vector<Item*>& list, Item* item) {
  if (const auto at = std::find(list.rbegin(), list.rend(), item); at != list.rend()) {
    *at = list.back();
    list.pop_back();
  }
}

// Takes the last of a list, which user code might free; null where it is going already.
template <class Item>
std::shared_ptr<Item> takeLast(std::vector<Item*>& list) {
  const auto last = std::static_pointer_cast<Item>(list.back()->weak_from_this().lock());
  list.pop_back();
  return last;
}

// Asks views. Where they throw, what was to be asked is put back.
template <class Ask, class PutBack>
void askOrPutBack(const Ask& ask, const PutBack& putBack) {
  try {
    ask();
  } catch (...) {
    putBack();
    throw;
  }
}

}  // namespace

ViewLayout::ViewLayout(UIView& top) : top_(&top) { addTree(top); }

ViewLayout::~ViewLayout() { end(); }

void ViewLayout::end() {
  for (LayoutItem* const item : items_) item->place_->layout = nullptr;
  for (const Row& row : rows_) {
    countRow(*row.constraint, false);
    row.constraint->layout_ = nullptr;
  }
  items_.clear();
  rows_.clear();
  markedContents_.clear();
  markedRows_.clear();
  top_ = nullptr;
}

std::shared_ptr<ViewLayout> ViewLayout::of(UIView& top) {
  if (!top.layout_ && top.isConstrained_) top.layout_ = std::make_shared<ViewLayout>(top);
  return top.layout_;
}

UIView* ViewLayout::asView(LayoutItem& item) { return dynamic_cast<UIView*>(&item); }

const LayoutPlace* ViewLayout::placeInHere(const LayoutItem& item) const {
  return item.place_ && item.place_->layout == this ? item.place_.get() : nullptr;
}

// What there is in the tree

void ViewLayout::addTree(UIView& view) {
  std::vector<UIView*> waiting = {&view};
  std::vector<UIView*> found;
  while (!waiting.empty()) {
    UIView* const next = waiting.back();
    waiting.pop_back();
    if (!next->isConstrained_) continue;
    found.push_back(next);
    for (const auto& below : next->subviews_) waiting.push_back(below.get());
  }
  for (UIView* const at : found) {
    if (!at->translatesAutoresizingMask_) enter(*at);
    for (const auto& guide : at->layoutGuides_) enter(*guide);
  }
  for (UIView* const at : found)
    for (const auto& constraint : at->constraints_) add(*constraint);
}

void ViewLayout::removeTree(UIView& view) {
  std::vector<UIView*> waiting = {&view};
  while (!waiting.empty()) {
    UIView* const next = waiting.back();
    waiting.pop_back();
    if (!next->isConstrained_) continue;
    for (const auto& constraint : next->constraints_) remove(*constraint);
    for (const auto& guide : next->layoutGuides_) leave(*guide);
    leave(*next);
    for (const auto& below : next->subviews_) waiting.push_back(below.get());
  }
}

void ViewLayout::forget(LayoutItem& item) {
  if (!item.place_) return;
  while (!item.place_->constraints.empty()) item.place_->constraints.back()->deactivate();
  if (ViewLayout* const layout = item.place_->layout) layout->leave(item);
}

void ViewLayout::enter(LayoutItem& item) {
  LayoutPlace& place = item.place();
  if (place.layout) return;
  place.layout = this;
  place.index = items_.size();
  items_.push_back(&item);
  // The size first: where both cannot stay, the item moves.
  place.width = solver_.addVariable(cutLength(place.rest.size.width), orderOf(item.number_, 0));
  place.height = solver_.addVariable(cutLength(place.rest.size.height), orderOf(item.number_, 1));
  if (&item != top_) {
    place.x = solver_.addVariable(cutLength(place.rest.origin.x), orderOf(item.number_, 2));
    place.y = solver_.addVariable(cutLength(place.rest.origin.y), orderOf(item.number_, 3));
  }
  if (&item == top_) place.x = place.y = {};
  place.contents = {};
  place.measuredWidth = std::numeric_limits<CGFloat>::quiet_NaN();
  place.isContentMarked = place.isContentReported = false;
  place.view = asView(item);
  if (place.view) markContent(*place.view);
  markConstraints(place);
  isStale_ = true;
}

void ViewLayout::leave(LayoutItem& item) {
  if (!placeInHere(item)) return;
  LayoutPlace& place = *item.place_;
  markConstraints(place);
  // First what mentions the variables, of which the solver would have to go in search.
  for (const LayoutPlace::Content& content : place.contents) {
    solver_.removeConstraint(content.hugging);
    solver_.removeConstraint(content.compression);
  }
  for (const NSLayoutConstraint* const constraint : place.constraints)
    if (constraint->layout_ == this) solver_.removeConstraint(rows_[constraint->row_].handle);
  for (const Solver::Variable variable : {place.width, place.height, place.x, place.y})
    solver_.removeVariable(variable);
  place.x = place.y = {};
  if (place.isContentMarked) removeFrom(markedContents_, static_cast<UIView*>(&item));
  place.isContentMarked = false;
  items_[place.index] = items_.back();
  items_[place.index]->place_->index = place.index;
  items_.pop_back();
  place.layout = nullptr;
  isStale_ = true;
}

void ViewLayout::add(NSLayoutConstraint& constraint) {
  constraint.layout_ = this;
  constraint.row_ = rows_.size();
  rows_.emplace_back().constraint = &constraint;
  countRow(constraint, true);
  markRow(constraint);
}

void ViewLayout::remove(NSLayoutConstraint& constraint) {
  if (constraint.layout_ != this) return;
  Row& row = rows_[constraint.row_];
  solver_.removeConstraint(row.handle);
  if (row.isMarked) removeFrom(markedRows_, &constraint);
  if (&row != &rows_.back()) {
    row = std::move(rows_.back());
    row.constraint->row_ = constraint.row_;
  }
  rows_.pop_back();
  countRow(constraint, false);
  constraint.layout_ = nullptr;
  isStale_ = true;
}

void ViewLayout::countRow(const NSLayoutConstraint& constraint, bool isThere) {
  const auto count = [isThere](std::size_t& rows) { isThere ? ++rows : --rows; };
  if (constraint.firstAttribute_ == NSLayoutAttribute::firstBaseline) count(baselineRows_);
  if (constraint.secondAttribute_ == NSLayoutAttribute::firstBaseline) count(baselineRows_);
  if (!isDirected(constraint)) return;
  UIView& holder = *constraint.holder_;
  LayoutPlace& place = holder.place();
  if (isThere && place.directedRows == 0) {
    place.direction = holder.effectiveUserInterfaceLayoutDirection();
    place.holderIndex = holders_.size();
    holders_.push_back(&holder);
  }
  count(place.directedRows);
  if (place.directedRows == 0) {
    holders_[place.holderIndex] = holders_.back();
    holders_[place.holderIndex]->place_->holderIndex = place.holderIndex;
    holders_.pop_back();
  }
}

// What has changed

void ViewLayout::markRow(NSLayoutConstraint& constraint) {
  isStale_ = true;
  if (std::exchange(rows_[constraint.row_].isMarked, true)) return;
  markedRows_.push_back(&constraint);
}

void ViewLayout::markConstraints(const LayoutPlace& place) {
  for (NSLayoutConstraint* const constraint : place.constraints)
    if (constraint->layout_) constraint->layout_->markRow(*constraint);
}

void ViewLayout::markContent(UIView& view) {
  isStale_ = true;
  if (std::exchange(view.place_->isContentMarked, true)) return;
  markedContents_.push_back(&view);
}

void ViewLayout::frameWasSet(UIView& view) {
  LayoutPlace& place = *view.place_;
  place.rest = view.frame_;
  ViewLayout* const layout = place.layout;
  if (!layout) return markConstraints(place);
  layout->isStale_ = true;
  layout->solver_.setRest(place.width, cutLength(place.rest.size.width));
  layout->solver_.setRest(place.height, cutLength(place.rest.size.height));
  layout->solver_.setRest(place.x, cutLength(place.rest.origin.x));
  layout->solver_.setRest(place.y, cutLength(place.rest.origin.y));
}

void ViewLayout::contentHasChanged(UIView& view) {
  // Of a view that stands where it was set, only the baseline counts.
  view.place_->layout ? view.place_->layout->markContent(view) : markConstraints(*view.place_);
}

// Layout

void ViewLayout::layOut(UIView& top) {
  const auto layout = of(top);
  if (!layout) return;
  layout->takeInDirections();
  if (!layout->isStale_) return;
  for (int round = 0; round < kMostRounds; ++round) {
    layout->takeIn();
    layout->solve();
    layout->placeItems();
    layout->measureHeights();
    if (!layout->isStale_) break;
  }
  layout->report();
}

// A view that is asked for its size, weakly for this one. If it stands where it was set, it is free for as long.
class ViewLayout::FreeForOnce {
 public:
  FreeForOnce(ViewLayout& layout, UIView& view, CGSize size)
      : layout_(layout), view_(view), wasFree_(layout.placeInHere(view) != nullptr) {
    if (!wasFree_) {
      view.place().rest = view.frame_;
      layout.enter(view);
    }
    layout.isStale_ = true;
    width_ = ask(view.place_->width, size.width);
    height_ = ask(view.place_->height, size.height);
  }
  FreeForOnce(const FreeForOnce&) = delete;
  FreeForOnce& operator=(const FreeForOnce&) = delete;
  ~FreeForOnce() {
    layout_.solver_.removeConstraint(width_);
    layout_.solver_.removeConstraint(height_);
    if (!wasFree_) layout_.leave(view_);
  }

 private:
  Solver::Constraint ask(Solver::Variable variable, CGFloat length) {
    const Solver::Term term{variable, 1};
    return layout_.solver_
        .addConstraint({&term, 1}, -cutLength(std::isnan(length) ? 0 : length), Solver::Relation::equal,
                       UILayoutPriorityFittingSizeLevel)
        .value_or(Solver::Constraint{});
  }

  ViewLayout& layout_;
  UIView& view_;
  bool wasFree_;
  Solver::Constraint width_, height_;
};

CGSize ViewLayout::fit(UIView& view, CGSize size) {
  UIView& top = view.top();
  top.isConstrained_ = true;
  const auto layout = of(top);
  layout->takeInDirections();
  const FreeForOnce free(*layout, view, size);
  CGSize found = view.frame_.size;
  for (int round = 0; round < kMostRounds && layout->placeInHere(view); ++round) {
    layout->takeIn();
    layout->solve();
    if (!layout->placeInHere(view)) break;
    found = {std::max(0.0, layout->solver_.value(view.place_->width)),
             std::max(0.0, layout->solver_.value(view.place_->height))};
    if (!layout->measureHeights()) break;
  }
  return found;
}

void ViewLayout::takeInDirections() {
  for (UIView* const holder : holders_) {
    const auto direction = holder->effectiveUserInterfaceLayoutDirection();
    if (std::exchange(holder->place_->direction, direction) != direction) markConstraints(*holder->place_);
  }
}

// What views mark while they are asked waits for the next round, lest one that always marks something keeps all
// waiting.
void ViewLayout::takeIn() {
  for (auto left = markedContents_.size(); left > 0 && !markedContents_.empty(); --left) {
    markedContents_.back()->place_->isContentMarked = false;
    if (const auto view = takeLast(markedContents_))
      askOrPutBack([&] { takeInContent(*view); },
                   [&] {
                     if (placeInHere(*view)) markContent(*view);
                   });
  }
  for (auto left = markedRows_.size(); left > 0 && !markedRows_.empty(); --left) {
    rows_[markedRows_.back()->row_].isMarked = false;
    if (const auto constraint = takeLast(markedRows_))
      askOrPutBack([&] { takeInRow(*constraint); },
                   [&] {
                     if (constraint->layout_ == this) markRow(*constraint);
                   });
  }
}

void ViewLayout::takeInContent(UIView& view) {
  CGSize size = view.intrinsicContentSize();
  const bool isWrapping = view.hasHeightForWidth();
  if (!placeInHere(view)) return;
  view.place_->isWrapping = isWrapping;
  if (const CGFloat width = view.place_->measuredWidth; isWrapping && !std::isnan(width)) {
    size.height = view.sizeThatFits({width, Solver::kLargestConstant}).height;
    if (!placeInHere(view)) return;
  }
  setContent(view, 0, contentLength(size.width));
  setContent(view, 1, contentLength(size.height));
  if (baselineRows_ > 0) markConstraints(*view.place_);
}

void ViewLayout::setContent(UIView& view, std::size_t axis, CGFloat size) {
  LayoutPlace::Content& content = view.place_->contents[axis];
  const float hugging = cutPriority(view.hugging_[axis]);
  const float compression = cutPriority(view.compressionResistance_[axis]);
  const Solver::Term term{axis == 0 ? view.place_->width : view.place_->height, 1};
  const auto hold = [&](Solver::Constraint& handle, float& known, float priority, Solver::Relation relation,
                        std::size_t part) {
    if (size >= 0 && known == priority && solver_.setConstant(handle, -size)) return;
    solver_.removeConstraint(handle);
    handle = {};
    known = priority;
    // Refused where the priority is not above 0: then it asks for nothing.
    if (size >= 0)
      handle = solver_.addConstraint({&term, 1}, -size, relation, priority, orderOf(view.number_, part))
                   .value_or(Solver::Constraint{});
  };
  hold(content.hugging, content.huggingPriority, hugging, Solver::Relation::atMost, 4 + axis);
  hold(content.compression, content.compressionPriority, compression, Solver::Relation::atLeast, 6 + axis);
  content.size = size;
}

void ViewLayout::takeInRow(NSLayoutConstraint& constraint) {
  const auto baselineOf = [](LayoutItem* item, NSLayoutAttribute attribute) {
    UIView* const view = item && attribute == NSLayoutAttribute::firstBaseline ? asView(*item) : nullptr;
    if (!view) return FirstBaseline{};
    view->place_->baselineSize = view->frame_.size;
    const auto strong = view->shared_from_this();
    return view->firstBaseline();
  };
  const FirstBaseline ofFirst = baselineOf(constraint.first_, constraint.firstAttribute_);
  if (constraint.layout_ != this) return;
  const FirstBaseline ofSecond = baselineOf(constraint.second_, constraint.secondAttribute_);
  if (constraint.layout_ != this) return;
  formOf(constraint, ofFirst, ofSecond);
  Row& row = rows_[constraint.row_];
  const float priority = cutPriority(constraint.priority_);
  const bool isSame =
      row.priority == priority && std::equal(row.terms.begin(), row.terms.end(), form_.terms.begin(), form_.terms.end(),
                                             [](const Solver::Term& a, const Solver::Term& b) {
                                               return a.variable == b.variable && a.coefficient == b.coefficient;
                                             });
  if (isSame && solver_.setConstant(row.handle, form_.constant)) return;
  solver_.removeConstraint(row.handle);
  row.priority = priority;
  row.terms = form_.terms;
  const auto relation = constraint.relation_ == NSLayoutRelation::equal             ? Solver::Relation::equal
                        : constraint.relation_ == NSLayoutRelation::lessThanOrEqual ? Solver::Relation::atMost
                                                                                    : Solver::Relation::atLeast;
  // Refused where the priority is not above 0: then it asks for nothing.
  row.handle = solver_.addConstraint(row.terms, form_.constant, relation, priority, orderOf(constraint.number_))
                   .value_or(Solver::Constraint{});
}

void ViewLayout::solve() {
  if (!solver_.solve().empty()) findGivingWay();
}

// Where a view's size has changed, its text may have moved within it: its baseline is asked for again.
void ViewLayout::placeItems() {
  isStale_ = !markedContents_.empty() || !markedRows_.empty();
  for (LayoutItem* const item : items_) {
    const LayoutPlace& place = *item->place_;
    const CGSize size{std::max(0.0, solver_.value(place.width)), std::max(0.0, solver_.value(place.height))};
    const CGRect frame{{solver_.value(place.x), solver_.value(place.y)}, size};
    if (UIView* const view = place.view) {
      view->takePlace(view == top_ ? CGRect{view->frame_.origin, size} : frame);
    } else {
      static_cast<UILayoutGuide*>(item)->layoutFrame_ = frame;
    }
  }
  if (baselineRows_ == 0) return;
  for (const Row& row : rows_) {
    const NSLayoutConstraint& constraint = *row.constraint;
    for (const auto& [item, attribute] : {std::pair(constraint.first_, constraint.firstAttribute_),
                                          std::pair(constraint.second_, constraint.secondAttribute_)}) {
      if (attribute != NSLayoutAttribute::firstBaseline) continue;
      const UIView* const view = asView(*item);
      if (view && view->place_->baselineSize != view->frame_.size) markRow(*row.constraint);
    }
  }
}

// Asks views whose height depends on their width for the height at the width that was found. Whether one has changed.
bool ViewLayout::measureHeights() {
  const auto widthOf = [this](const UIView& view) { return std::max(0.0, solver_.value(view.place_->width)); };
  std::vector<std::shared_ptr<UIView>> views;
  for (LayoutItem* const item : items_) {
    if (!item->place_->isWrapping || item->place_->measuredWidth == widthOf(static_cast<UIView&>(*item))) continue;
    if (auto view = std::static_pointer_cast<UIView>(item->weak_from_this().lock())) views.push_back(std::move(view));
  }
  bool hasChanged = false;
  for (const auto& view : views) {
    if (!placeInHere(*view)) continue;
    const CGFloat width = widthOf(*view);
    view->place_->measuredWidth = width;
    CGFloat height = UIViewNoIntrinsicMetric;
    askOrPutBack(
        [&] {
          height = contentLength(view->sizeThatFits({width, Solver::kLargestConstant}).height);
        },
        [&] {
          view->place_->measuredWidth = std::numeric_limits<CGFloat>::quiet_NaN();
          isStale_ = true;
        });
    if (!placeInHere(*view) || view->place_->contents[1].size == height) continue;
    setContent(*view, 1, height);
    isStale_ = hasChanged = true;
  }
  return hasChanged;
}

}  // namespace Brisel::Platform::internal
