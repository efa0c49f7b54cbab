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

constexpr double kGivesWay = 1e-6;  // points
constexpr std::uint64_t kStay = 1ULL << 63U;

// Written so that what is not a number is refused.
bool isWithin(double number, double largest) { return std::fabs(number) <= largest; }

// Layouts live on halves, quarters and whole points, and should come out as such.
double cleaned(double value) {
  const double near = std::round(value * 1024) / 1024;
  return std::fabs(near - value) < ConstraintSolver::kNoise ? near + 0.0 : value;
}

// The place of an element that is free, or of a new one.
template <class Element>
std::uint32_t takeFree(std::vector<Element>& elements, std::vector<std::uint32_t>& free) {
  if (free.empty()) {
    elements.emplace_back();
    return static_cast<std::uint32_t>(elements.size() - 1);
  }
  const std::uint32_t last = free.back();
  free.pop_back();
  return last;
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
  makeParametric(stay);
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
  const Slot slot = takeFree(residuals_, freeSlots_);
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
    if (residual.place != Place::basic) continue;
    for (const Slot column : rows_[residual.line].mentions) wrongCosts_.push(dueOf(column));
  }
  bool isWhole = primalSimplex();
  for (const Slot slot : removed_) {
    Residual& residual = residuals_[slot];
    if (residual.isStay) continue;
    isWhole = isWhole && residual.place != Place::parametric;
    if (residual.place != Place::basic) continue;
    Row& row = rows_[residual.line];
    for (const Slot column : row.mentions) columns_[column].shares.erase(residual.line);
    row.mentions.clear();
    freeRows_.push_back(residual.line);
  }
  for (const Slot slot : removed_) {
    // With the constraints on it gone, a variable stands alone: its stay is parametric, and moves nothing else.
    Residual& residual = residuals_[slot];
    if (residual.isStay) {
      isWhole = isWhole && residual.place == Place::parametric && columns_[residual.line].shares.isEmpty();
      freeColumns_.push_back(residual.line);
    }
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
    if (residual.place != Place::parametric) continue;
    // It stays zero, so all else moves.
    for (const auto& [row, factor] : columns_[residual.line].shares) {
      const Slot basic = rows_[row].owner;
      residuals_[basic].value -= factor * change;
      checkSign(basic);
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

// Gives a stay a column of its own.
void ConstraintSolver::makeParametric(Residual& stay) {
  stay.place = Place::parametric;
  stay.line = takeFree(columns_, freeColumns_);
  columns_[stay.line].owner = static_cast<Slot>(&stay - residuals_.data());
}

// Makes a residual basic: its terms over variables become terms over parametric residuals. It starts with a slope of
// zero, which upsets no costs; the dual simplex finds the right one.
void ConstraintSolver::insertRow(Slot slot) {
  Residual& residual = residuals_[slot];
  residual.constant = residual.nextConstant;
  residual.line = takeFree(rows_, freeRows_);
  Row& row = rows_[residual.line];
  row.owner = slot;
  SparseVector sum;  // over columns
  for (const auto& [stay, coefficient] : residual.terms) {
    const Slot line = residuals_[stay].line;
    if (residuals_[stay].place == Place::parametric) {
      sum.append(line, coefficient);
      continue;
    }
    for (const Slot column : rows_[line].mentions) sum.append(column, coefficient * columns_[column].shares[line]);
  }
  sum.addUp();
  for (const auto& [column, factor] : sum) {
    columns_[column].shares.insert(residual.line, factor);
    row.mentions.push_back(static_cast<Slot>(column));
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
  columns_.clear();
  rows_.clear();
  freeColumns_.clear();
  freeRows_.clear();
  for (Residual& residual : residuals_) {
    residual.place = Place::absent;
    residual.value = residual.slope = 0;
    if (residual.isStay) makeParametric(residual);
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
    for (const auto& [row, factor] : columns_[residual.line].shares)
      residuals_[rows_[row].owner].value -= factor * lost;
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

}  // namespace Brisel::Platform::internal
