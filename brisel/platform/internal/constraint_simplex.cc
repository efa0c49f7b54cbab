// The steps of the simplex method, dual and primal, over the tableau of a constraint solver.
#include <algorithm>
#include <cmath>
#include <utility>

#include "brisel/platform/internal/constraint_solver.h"

namespace Brisel::Platform::internal {

// Whether a basic residual is on a side of zero other than that whose cost is counted.
bool ConstraintSolver::hasWrongSign(const Residual& residual) {
  return residual.place == Place::basic && ((residual.value > kNoise && residual.slope < residual.up) ||
                                            (residual.value < -kNoise && residual.slope > -residual.down));
}

void ConstraintSolver::checkSign(Slot slot) {
  if (hasWrongSign(residuals_[slot])) wrongSigns_.push(due(slot));
}

// What it costs at each level to move a parametric residual by one point.
void ConstraintSolver::findCost(Slot parametric, bool rises, SparseVector& cost) const {
  const Residual& residual = residuals_[parametric];
  cost.clear();
  if (const double own = rises ? residual.up : residual.down; own != 0) cost.append(residual.rank, own);
  for (const auto& [row, factor] : columns_[residual.line].shares) {
    const Residual& basic = residuals_[rows_[row].owner];
    if (basic.slope != 0) cost.append(basic.rank, rises ? basic.slope * factor : -basic.slope * factor);
  }
  cost.addUp();
}

// Whether moving a parametric residual costs more than `cost`, as far as one sees it without adding up: it does where
// its own cost is more important than all of `cost`, and no slope of its level may cancel it; stays and required
// constraints have levels of their own. What the slopes of more important levels add can only be more, as no cost is
// below zero.
bool ConstraintSolver::isDearer(Slot parametric, bool rises, const SparseVector& cost) const {
  const Residual& residual = residuals_[parametric];
  return (rises ? residual.up : residual.down) != 0 && (cost.isEmpty() || residual.rank < cost.begin()->key) &&
         (residual.isStay || residual.rank < kOptional || !slopes_.contains(residual.rank));
}

void ConstraintSolver::setSlope(Residual& residual, double slope) {
  if (residual.slope == 0 && slope != 0) ++slopes_[residual.rank];
  if (residual.slope != 0 && slope == 0)
    if (const auto at = slopes_.find(residual.rank); --at->second == 0) slopes_.erase(at);
  residual.slope = slope;
}

// Brings all signs into order while no cost is ever below zero. The least row goes first, by a fixed order, as Bland's
// rule wants it. The number of steps is finite by the lexicographic rule, and is bounded in case rounding errors break
// it.
bool ConstraintSolver::dualSimplex() {
  while (!wrongSigns_.empty()) {
    const Slot slot = wrongSigns_.top().slot;
    if (!hasWrongSign(residuals_[slot])) {
      wrongSigns_.pop();
      continue;
    }
    if (stepsLeft_ == 0) return false;
    --stepsLeft_;
    dualStep(slot, stepsLeft_ < stepLimit() / 2);
  }
  return true;
}

// Shifts the slope of a residual towards the side it is on, until it is right or a cost becomes zero: then that column
// takes its place in the basis, and it becomes zero itself.
void ConstraintSolver::dualStep(Slot leaving, bool isCautious) {
  Residual& residual = residuals_[leaving];
  const bool isAbove = residual.value > 0;
  const double target = isAbove ? residual.up : -residual.down;
  least_.clear();
  least_.insert(residual.rank, std::fabs(target - residual.slope));
  double leastScale = 1;
  Slot entering = leaving;
  bool rises = false;
  // The least important comes first: of most others one sees then that they are dearer.
  std::vector<Slot>& mentions = rows_[residual.line].mentions;
  const auto last =
      std::max_element(mentions.begin(), mentions.end(), [this](Slot a, Slot b) { return dueOf(a) < dueOf(b); });
  if (last != mentions.end()) std::iter_swap(mentions.begin(), last);
  for (const Slot mentioned : mentions) {
    const Slot column = columns_[mentioned].owner;
    const double factor = columns_[mentioned].shares[residual.line];
    const double scale = std::fabs(factor);
    const bool wouldRise = (factor < 0) == isAbove;
    if (scale < kNoise || isDearer(column, wouldRise, least_)) continue;
    findCost(column, wouldRise, candidate_);
    const int order = SparseVector::compare(candidate_, scale, least_, leastScale, kNoise);
    // Of ratios that rounding errors make equal, the largest pivot keeps the errors small.
    const bool isBetter = entering != leaving && (isCautious ? due(column) < due(entering) : scale > leastScale);
    if (order > 0 || (order == 0 && !isBetter)) continue;
    std::swap(least_, candidate_);
    leastScale = scale;
    entering = column;
    rises = wouldRise;
  }
  if (entering == leaving) {
    setSlope(residual, target);
  } else {
    pivot(leaving, entering, rises);
  }
}

// Brings all costs to zero or above while all signs stay right; needed only where something was removed.
bool ConstraintSolver::primalSimplex() {
  while (!wrongCosts_.empty()) {
    const Slot slot = wrongCosts_.top().slot;
    wrongCosts_.pop();
    for (const bool rises : {true, false}) {
      if (residuals_[slot].place != Place::parametric) break;
      findCost(slot, rises, least_);
      if (!least_.isNegative()) continue;
      if (stepsLeft_ == 0 || !primalStep(slot, rises)) return false;
      --stepsLeft_;
    }
  }
  return true;
}

// Moves a parametric residual while this saves costs: past zeros of basic residuals, whose costs then bend upwards, to
// the one where it would begin to cost. False where there is none, which only rounding errors can bring about.
bool ConstraintSolver::primalStep(Slot entering, bool rises) {
  struct Bend {
    double distance;
    Due due;
    double slope;   // beyond it
    double change;  // of the cost, at the residual's rank
  };
  std::vector<Bend> bends;
  for (const auto& [row, factor] : columns_[residuals_[entering].line].shares) {
    const Slot slot = rows_[row].owner;
    const Residual& residual = residuals_[slot];
    const bool climbs = (factor > 0) == rises;
    const double slope = climbs ? residual.up : -residual.down;
    const double scale = std::fabs(factor);
    if (slope == residual.slope || scale < kNoise) continue;
    const double distance = (climbs ? -residual.value : residual.value) / scale;
    bends.push_back({std::max(0.0, distance), due(slot), slope, scale * std::fabs(slope - residual.slope)});
  }
  std::sort(bends.begin(), bends.end(), [](const Bend& a, const Bend& b) {
    return a.distance != b.distance ? a.distance < b.distance : a.due < b.due;
  });
  for (const Bend& bend : bends) {
    Residual& residual = residuals_[bend.due.slot];
    for (const Slot column : rows_[residual.line].mentions) wrongCosts_.push(dueOf(column));
    least_.add(bend.due.rank, bend.change);
    if (!least_.isNegative()) {
      pivot(bend.due.slot, entering, rises);
      return true;
    }
    setSlope(residual, bend.slope);
  }
  return false;
}

// Exchanges a basic residual, which becomes zero, for a parametric one, which then counts the cost of the given side.
void ConstraintSolver::pivot(Slot leaving, Slot entering, bool rises) {
  Residual& out = residuals_[leaving];
  Residual& in = residuals_[entering];
  const Slot row = out.line, column = in.line;
  SparseVector shares = std::move(columns_[column].shares);
  const double factor = shares[row];
  shares.erase(row);
  in.place = Place::basic;
  in.value = -out.value / factor;
  setSlope(in, rises ? in.up : -in.down);
  for (const auto& [at, share] : shares) {
    const Slot basic = rows_[at].owner;
    residuals_[basic].value += share * in.value;
    checkSign(basic);
  }
  checkSign(entering);
  shares.divide(factor);
  for (const Slot other : rows_[row].mentions) {
    if (other == column) continue;
    SparseVector& target = columns_[other].shares;
    const double share = target[row];
    target.set(row, -share / factor);
    target.addMultiple(-share, shares, scratch_, [this, other](std::uint64_t at, bool isThere) {
      std::vector<Slot>& mentions = rows_[at].mentions;
      if (!isThere) *std::find(mentions.begin(), mentions.end(), other) = mentions.back();
      isThere ? mentions.push_back(other) : mentions.pop_back();
    });
  }
  shares.insert(row, 1 / factor);
  columns_[column] = {leaving, std::move(shares)};
  rows_[row].owner = entering;
  std::swap(in.line, out.line);
  out.place = Place::parametric;
  out.value = 0;
  setSlope(out, 0);
}

}  // namespace Brisel::Platform::internal
