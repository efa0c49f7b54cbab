// The method is that of Cassowary: a simplex tableau that is kept between solutions, symbolic weights, and the dual
// simplex for what is edited.
//   G. J. Badros, A. Borning, P. J. Stuckey: The Cassowary Linear Arithmetic Constraint Solving Algorithm.
//   ACM Transactions on Computer-Human Interaction 8 (4), 2001.
// Three things differ.
//   - A constraint has one residual of either sign in the place of the papers' slack and two error variables; what it
//     costs has a bend at zero. Required constraints have residuals too, so that there is always a first vertex.
//   - A stay belongs to every variable and never goes. So as many residuals as there are variables are parametric, that
//     is zero at the vertex, and the basic ones are linear forms in them.
//   - Each stay is a level of its own. This makes the solution unique, and it is the lexicographic rule that keeps the
//     dual simplex from cycling (Dantzig, Orden, Wolfe 1955): no two ratios are the same down to the last level.
#include "brisel/platform/internal/constraint_solver.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <utility>

namespace Brisel::Platform::internal {
namespace {

constexpr double kNoise = 1e-9;     // of values, in points, and of ratios, relatively
constexpr double kGivesWay = 1e-6;  // points
constexpr std::uint64_t kOptional = 1ULL << 62U;
constexpr std::uint64_t kStay = 1ULL << 63U;

// Written so that what is not a number is refused.
bool isWithin(double number, double largest) { return std::fabs(number) <= largest; }

// Layouts live on halves, quarters and whole points, and should come out as such.
double cleaned(double value) {
  const double near = std::round(value * 1024) / 1024;
  return std::fabs(near - value) < kNoise ? near + 0.0 : value;
}

}  // namespace

// Variables and constraints

ConstraintSolver::Variable ConstraintSolver::addVariable(double rest, Order order) {
  if (!isWithin(rest, kLargestConstant)) rest = 0;
  const Slot slot = newSlot();
  Residual& stay = residuals_[slot];
  stay.terms.insert(slot, 1);
  stay.constant = stay.nextConstant = -rest;
  stay.rank = kStay + (order == kAsAdded ? stay.age : order);
  stay.up = stay.down = 1;
  stay.isStay = true;
  stay.place = Place::parametric;
  stay.solution = rest;
  return {slot, stay.age};
}

bool ConstraintSolver::removeVariable(Variable variable) {
  if (!isKnown(variable.slot, variable.age, true)) return false;
  for (Slot slot = 0; residuals_[variable.slot].uses > 0; ++slot) {
    const Residual& residual = residuals_[slot];
    if (residual.age != 0 && !residual.isStay && residual.terms[variable.slot] != 0) forget(slot);
  }
  forget(variable.slot);
  return true;
}

bool ConstraintSolver::setRest(Variable variable, double rest) {
  if (!isKnown(variable.slot, variable.age, true) || !isWithin(rest, kLargestConstant)) return false;
  edit(variable.slot, -rest);
  return true;
}

std::optional<ConstraintSolver::Constraint> ConstraintSolver::addConstraint(std::span<const Term> terms,
                                                                            double constant, Relation relation,
                                                                            float priority, Order order) {
  if (!(priority > 0 && priority <= kRequired) || !isWithin(constant, kLargestConstant)) return std::nullopt;
  SparseVector sum;
  for (const auto& [variable, coefficient] : terms) {
    if (!isKnown(variable.slot, variable.age, true) || !isWithin(coefficient, kLargestCoefficient)) return std::nullopt;
    sum.append(variable.slot, coefficient);
  }
  sum.addUp();
  for (const auto& [stay, coefficient] : sum)
    if (!isWithin(coefficient, kLargestCoefficient) || std::fabs(coefficient) < kSmallestCoefficient)
      return std::nullopt;

  const Slot slot = newSlot();
  Residual& residual = residuals_[slot];
  for (const auto& [stay, coefficient] : sum) ++residuals_[stay].uses;
  residual.terms = std::move(sum);
  residual.constant = residual.nextConstant = constant;
  // Floats above zero are in the order of their bits.
  residual.rank = priority != kRequired ? kOptional + (~std::bit_cast<std::uint32_t>(priority))
                  : order == kAsAdded   ? residual.age
                                        : order;
  residual.up = relation == Relation::atLeast ? 0 : 1;
  residual.down = relation == Relation::atMost ? 0 : 1;
  added_.push_back(slot);
  return Constraint{slot, residual.age};
}

bool ConstraintSolver::removeConstraint(Constraint constraint) {
  if (!isKnown(constraint.slot, constraint.age, false)) return false;
  forget(constraint.slot);
  return true;
}

void ConstraintSolver::forget(Slot slot) {
  Residual& residual = residuals_[slot];
  if (!residual.isStay)
    for (const auto& [stay, coefficient] : residual.terms) --residuals_[stay].uses;
  residual.age = 0;
  removed_.push_back(slot);
}

bool ConstraintSolver::setConstant(Constraint constraint, double constant) {
  if (!isKnown(constraint.slot, constraint.age, false) || !isWithin(constant, kLargestConstant)) return false;
  edit(constraint.slot, constant);
  return true;
}

double ConstraintSolver::value(Variable variable) const {
  return isKnown(variable.slot, variable.age, true) ? residuals_[variable.slot].solution : 0;
}

double ConstraintSolver::violation(Constraint constraint) const {
  if (!isKnown(constraint.slot, constraint.age, false)) return 0;
  const Residual& residual = residuals_[constraint.slot];
  double sum = residual.constant;
  for (const auto& [stay, coefficient] : residual.terms) sum += coefficient * residuals_[stay].solution;
  const double missing = sum > 0 ? residual.up * sum : residual.down * -sum;
  return missing > kNoise ? missing : 0;
}

void ConstraintSolver::edit(Slot slot, double constant) {
  Residual& residual = residuals_[slot];
  if (residual.nextConstant == constant) return;
  if (residual.nextConstant == residual.constant) edited_.push_back(slot);
  residual.nextConstant = constant;
}

ConstraintSolver::Slot ConstraintSolver::newSlot() {
  Slot slot = static_cast<Slot>(residuals_.size());
  if (freeSlots_.empty()) {
    residuals_.emplace_back();
  } else {
    slot = freeSlots_.back();
    freeSlots_.pop_back();
  }
  residuals_[slot].age = ++lastAge_;
  return slot;
}

bool ConstraintSolver::isKnown(std::uint32_t slot, std::uint64_t age, bool isStay) const {
  return age != 0 && slot < residuals_.size() && residuals_[slot].age == age && residuals_[slot].isStay == isStay;
}

// Solving

const std::vector<ConstraintSolver::Constraint>& ConstraintSolver::solve() {
  if (removed_.empty() && added_.empty() && edited_.empty()) return givingWay_;
  stepsLeft_ = stepLimit();
  takeOutRemoved();
  takeInEdited();
  const bool isSolved = takeInAdded() && refine();
  if (!isSolved) {
    rebuild();
    takeInAdded();
    refine();
  }
  givingWay_.clear();
  for (Slot slot = 0; slot < residuals_.size(); ++slot) {
    const Residual& residual = residuals_[slot];
    // What is parametric is zero.
    if (residual.place != Place::basic || residual.rank >= kOptional) continue;
    const Constraint constraint{slot, residual.age};
    if (violation(constraint) > kGivesWay) givingWay_.push_back(constraint);
  }
  std::sort(givingWay_.begin(), givingWay_.end(),
            [this](const auto& a, const auto& b) { return due(a.slot) < due(b.slot); });
  return givingWay_;
}

// What is removed costs nothing any more, so the primal simplex makes it basic, and then its row may go. This comes
// before all other changes, because the primal simplex wants to start from a vertex whose signs are right.
void ConstraintSolver::takeOutRemoved() {
  if (removed_.empty()) return;
  for (const Slot slot : removed_) {
    Residual& residual = residuals_[slot];
    if (residual.isStay) continue;
    residual.up = residual.down = 0;
    setSlope(residual, 0);
    if (residual.place == Place::parametric) wrongCosts_.push(due(slot));
    for (const Slot column : residual.mentions) wrongCosts_.push(due(column));
  }
  bool isWhole = primalSimplex();
  for (const Slot slot : removed_) {
    Residual& residual = residuals_[slot];
    if (residual.isStay) continue;
    isWhole = isWhole && residual.place != Place::parametric;
    for (const Slot column : residual.mentions) residuals_[column].column.erase(slot);
    residual.mentions.clear();
  }
  for (const Slot slot : removed_) {
    // With the constraints on it gone, a variable stands alone: its stay is parametric, and moves nothing else.
    Residual& residual = residuals_[slot];
    if (residual.isStay) isWhole = isWhole && residual.place == Place::parametric && residual.column.isEmpty();
    residual = Residual{};
    freeSlots_.push_back(slot);
  }
  removed_.clear();
  if (!isWhole) rebuild();
}

void ConstraintSolver::takeInEdited() {
  for (const Slot slot : edited_) {
    Residual& residual = residuals_[slot];
    const double change = residual.nextConstant - residual.constant;
    residual.constant = residual.nextConstant;
    if (residual.place == Place::basic) {
      residual.value += change;
      checkSign(slot);
    }
    // It stays zero, so all else moves.
    for (const auto& [row, factor] : residual.column) {
      residuals_[row].value -= factor * change;
      checkSign(static_cast<Slot>(row));
    }
  }
  edited_.clear();
}

// Each is solved before the next comes, the most important first: so the tableau is small while most of the work is
// done.
bool ConstraintSolver::takeInAdded() {
  bool isSolved = dualSimplex();
  std::sort(added_.begin(), added_.end(), [this](Slot a, Slot b) { return due(a) < due(b); });
  for (const Slot slot : added_) {
    if (residuals_[slot].age == 0 || residuals_[slot].place != Place::absent) continue;
    insertRow(slot);
    isSolved = isSolved && dualSimplex();
  }
  added_.clear();
  return isSolved;
}

// Makes a residual basic: its terms over variables become terms over parametric residuals. It starts with a slope of
// zero, which upsets no costs; the dual simplex finds the right one.
void ConstraintSolver::insertRow(Slot slot) {
  Residual& residual = residuals_[slot];
  residual.constant = residual.nextConstant;
  SparseVector row;
  for (const auto& [stay, coefficient] : residual.terms) {
    if (residuals_[stay].place == Place::parametric) row.append(stay, coefficient);
    for (const Slot column : residuals_[stay].mentions)
      row.append(column, coefficient * residuals_[column].column[stay]);
  }
  row.addUp();
  for (const auto& [column, factor] : row) {
    residuals_[column].column.insert(slot, factor);
    residual.mentions.push_back(static_cast<Slot>(column));
  }
  residual.place = Place::basic;
  residual.slope = 0;
  residual.value = evaluate(residual);
  checkSign(slot);
}

// Starts again from the first vertex, where every variable is at rest: all constraints are to be added.
void ConstraintSolver::rebuild() {
  wrongSigns_ = {};
  wrongCosts_ = {};
  slopes_.clear();
  for (Residual& residual : residuals_) {
    residual.place = residual.isStay ? Place::parametric : Place::absent;
    residual.value = residual.slope = 0;
    residual.mentions.clear();
    residual.column.clear();
  }
  stepsLeft_ = stepLimit();
  added_.clear();
  for (Slot slot = 0; slot < residuals_.size(); ++slot)
    if (residuals_[slot].age != 0 && !residuals_[slot].isStay) added_.push_back(slot);
}

// Takes from the tableau what the arithmetic has lost: parametric residuals are zero by definition, but it is from the
// constraints that one sees it. Returns false where more has been lost than this can repair.
bool ConstraintSolver::refine() {
  bool isExact = true;
  for (const Residual& residual : residuals_) {
    if (residual.place != Place::parametric || residual.isStay) continue;
    const double lost = evaluate(residual);
    if (lost == 0) continue;
    isExact = isExact && isWithin(lost, kGivesWay * (1 + std::fabs(residual.constant)));
    for (const auto& [row, factor] : residual.column) residuals_[row].value -= factor * lost;
  }
  for (Residual& residual : residuals_) {
    if (residual.place == Place::basic && !residual.isStay) residual.value = evaluate(residual);
    if (!residual.isStay) continue;
    const double value = residual.value - residual.constant;
    residual.solution = std::isfinite(value) ? cleaned(value) : -residual.constant;
  }
  return isExact;
}

// The sum that a constraint is about, at this vertex.
double ConstraintSolver::evaluate(const Residual& residual) const {
  double sum = residual.constant;
  for (const auto& [stay, coefficient] : residual.terms)
    sum += coefficient * (residuals_[stay].value - residuals_[stay].constant);
  return sum;
}

// The tableau

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
  for (const auto& [slot, factor] : residual.column)
    if (const double slope = residuals_[slot].slope; slope != 0)
      cost.append(residuals_[slot].rank, rises ? slope * factor : -slope * factor);
  cost.addUp();
}

// Whether moving a parametric residual costs more than `cost`, as far as one sees it without adding up: where none of
// the slopes is as important as the residual, its own cost comes first.
bool ConstraintSolver::isDearer(Slot parametric, bool rises, const SparseVector& cost) const {
  const Residual& residual = residuals_[parametric];
  return (rises ? residual.up : residual.down) != 0 && (cost.isEmpty() || residual.rank < cost.begin()->key) &&
         (slopes_.empty() || residual.rank < slopes_.begin()->first);
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
  for (const Slot column : residual.mentions) {
    const double factor = residuals_[column].column[leaving];
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
  for (const auto& [slot, factor] : residuals_[entering].column) {
    const Residual& residual = residuals_[slot];
    const bool climbs = (factor > 0) == rises;
    const double slope = climbs ? residual.up : -residual.down;
    const double scale = std::fabs(factor);
    if (slope == residual.slope || scale < kNoise) continue;
    const double distance = (climbs ? -residual.value : residual.value) / scale;
    bends.push_back(
        {std::max(0.0, distance), due(static_cast<Slot>(slot)), slope, scale * std::fabs(slope - residual.slope)});
  }
  std::sort(bends.begin(), bends.end(), [](const Bend& a, const Bend& b) {
    return a.distance != b.distance ? a.distance < b.distance : a.due < b.due;
  });
  for (const Bend& bend : bends) {
    Residual& residual = residuals_[bend.due.slot];
    for (const Slot column : residual.mentions) wrongCosts_.push(due(column));
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
  SparseVector column = std::move(in.column);
  in.column.clear();
  const double factor = column[leaving];
  column.erase(leaving);
  in.place = Place::basic;
  in.value = -out.value / factor;
  setSlope(in, rises ? in.up : -in.down);
  for (const auto& [row, share] : column) {
    Residual& basic = residuals_[row];
    basic.value += share * in.value;
    std::replace(basic.mentions.begin(), basic.mentions.end(), entering, leaving);
    checkSign(static_cast<Slot>(row));
  }
  checkSign(entering);
  column.insert(entering, 1);
  column.divide(factor);
  in.mentions.assign(1, leaving);
  for (const Slot other : out.mentions) {
    if (other == entering) continue;
    SparseVector& target = residuals_[other].column;
    const double share = target[leaving];
    target.erase(leaving);
    target.addMultiple(-share, column, scratch_, [this, other](std::uint64_t row, bool isThere) {
      std::vector<Slot>& mentions = residuals_[row].mentions;
      if (!isThere) *std::find(mentions.begin(), mentions.end(), other) = mentions.back();
      isThere ? mentions.push_back(other) : mentions.pop_back();
    });
  }
  out.mentions.clear();
  out.column = std::move(column);
  out.place = Place::parametric;
  out.value = 0;
  setSlope(out, 0);
}

}  // namespace Brisel::Platform::internal
