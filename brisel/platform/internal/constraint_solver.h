// The arithmetic behind layout constraints.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <queue>
#include <span>
#include <tuple>
#include <vector>

#include "brisel/platform/internal/sparse_vector.h"

namespace Brisel::Platform::internal {

/// Gives variables the values that linear constraints of different importance ask for.
///
/// A constraint holds a sum of coefficient × variable + constant equal to zero, at least zero or at most zero; what is
/// missing is its violation. The solution is the one that
///   1. holds the required constraints. Where they cannot all hold, the later one gives way, as little as it may;
///   2. then, for each distinct priority from the highest down, has the least sum of violations at that priority: one
///      501 beats any number of 500s;
///   3. then has the first variable nearest to its rest value, then the second, and so on.
/// First and later are as the caller numbers them, else as they were added. The solution always exists and is unique.
/// So it depends on what is there and in which order, and not on what else was there before, nor on how often it was
/// solved.
///
/// Changes take effect at the next `solve`, which starts from the last solution. Differences below 1e-9 are noise;
/// values that close to a multiple of 1/1024 are that multiple. For one thread at a time.
class ConstraintSolver {
 public:
  enum class Relation : std::uint8_t { equal, atLeast, atMost };  // of the sum to zero

  /// Handles. One that is made by default, or whose thing has been removed, is unknown for ever: setters refuse it.
  struct Variable {
    std::uint32_t slot = 0;
    std::uint64_t age = 0;
    friend bool operator==(const Variable&, const Variable&) = default;
  };
  struct Constraint {
    std::uint32_t slot = 0;
    std::uint64_t age = 0;
    friend bool operator==(const Constraint&, const Constraint&) = default;
  };
  struct Term {
    Variable variable;
    double coefficient = 1;
  };

  static constexpr float kRequired = 1000;
  static constexpr double kLargestCoefficient = 1e6;
  static constexpr double kSmallestCoefficient = 1e-6;  // besides 0
  static constexpr double kLargestConstant = 1e9;       // of rest values too
  static constexpr double kNoise = 1e-9;                // of values, in points, and of ratios, relatively

  /// Where a variable stands among the variables, and a required constraint among the required ones: the lower number
  /// is the first. Below 2^61. Those of one system are all numbered by the caller, each number being given once, or
  /// all as they are added.
  using Order = std::uint64_t;
  static constexpr Order kAsAdded = 0;

  /// A variable that takes its rest value where nothing else is asked of it. A rest value that is not finite or too
  /// large counts as 0.
  Variable addVariable(double rest = 0, Order order = kAsAdded);
  /// Removes a variable and the constraints that mention it. False where it is unknown.
  bool removeVariable(Variable variable);
  /// False, and nothing changes, where the variable is unknown, or the value not finite or too large.
  bool setRest(Variable variable, double rest);

  /// Terms of one variable are added up; no terms at all are allowed. Nothing where a variable is unknown, a number not
  /// finite, too large or too small, or the priority not above 0 and at most 1000.
  std::optional<Constraint> addConstraint(std::span<const Term> terms, double constant, Relation relation,
                                          float priority = kRequired, Order order = kAsAdded);
  /// False where it is unknown.
  bool removeConstraint(Constraint constraint);
  /// False, and nothing changes, where the constraint is unknown, or the constant not finite or too large. The frequent
  /// edit: solving costs little more than what moves.
  bool setConstant(Constraint constraint, double constant);

  /// Solves, and returns the required constraints that give way, the first one first; the list is good until the next
  /// call. The number of steps is bounded whatever the numbers are. Where nothing has changed, nothing is done.
  const std::vector<Constraint>& solve();

  /// What the last `solve` found; the rest value before the first; 0 for an unknown variable. Always finite.
  double value(Variable variable) const;
  /// By how much the last solution misses a constraint: never negative, and 0 for an unknown one.
  double violation(Constraint constraint) const;

 private:
  using Slot = std::uint32_t;
  using Rank = std::uint64_t;                     // the level of a constraint: the less, the more important
  static constexpr Rank kOptional = 1ULL << 62U;  // less: required
  enum class Place : std::uint8_t { absent, basic, parametric };

  /// What the sum of a constraint comes to, and where that stands in the tableau. Every variable has a constraint of
  /// its own, its stay: variable − rest = 0.
  struct Residual {
    SparseVector terms;       // over the slots of the variables' stays
    double constant = 0;      // as the tableau has it
    double nextConstant = 0;  // as it was set last
    std::uint64_t age = 0;    // counts all that is ever added; 0: removed, or never used
    Rank rank = 0;
    double up = 0;    // what a residual above zero costs per point, at its rank: 0 or 1
    double down = 0;  // below zero
    bool isStay = false;
    std::uint32_t uses = 0;  // of a stay: how many constraints mention its variable

    Place place = Place::absent;
    Slot line = 0;     // basic: its row; parametric: its column
    double value = 0;  // basic: at this vertex; parametric: 0
    double slope = 0;  // basic: the cost per point that is counted, -down … up

    double solution = 0;  // of a stay: its variable's value at the last `solve`
  };
  /// The tableau: of each parametric residual what it adds to the basic ones. A pivot exchanges the owners of a row and
  /// a column, so that what refers to these need not know of it.
  struct Column {
    Slot owner = 0;
    SparseVector shares;  // over rows
  };
  struct Row {
    Slot owner = 0;
    std::vector<Slot> mentions;  // the columns with an entry for it, in no particular order
  };
  struct Due {
    Rank rank = 0;
    std::uint64_t age = 0;
    Slot slot = 0;
    friend bool operator<(const Due& a, const Due& b) { return std::tie(a.rank, a.age) < std::tie(b.rank, b.age); }
    friend bool operator>(const Due& a, const Due& b) { return b < a; }
  };
  using Agenda = std::priority_queue<Due, std::vector<Due>, std::greater<>>;

  bool isKnown(std::uint32_t slot, std::uint64_t age, bool isStay) const;
  Slot newSlot();
  void makeParametric(Residual& stay);
  void edit(Slot slot, double constant);
  void forget(Slot slot);
  Due due(Slot slot) const { return {residuals_[slot].rank, residuals_[slot].age, slot}; }
  Due dueOf(Slot column) const { return due(columns_[column].owner); }

  void takeOutRemoved();
  void takeInEdited();
  bool takeInAdded();
  void insertRow(Slot slot);
  void rebuild();
  bool refine();
  double evaluate(const Residual& residual) const;

  static bool hasWrongSign(const Residual& residual);
  void checkSign(Slot slot);
  void findCost(Slot parametric, bool rises, SparseVector& cost) const;
  bool isDearer(Slot parametric, bool rises, const SparseVector& cost) const;
  void setSlope(Residual& residual, double slope);
  bool dualSimplex();
  void dualStep(Slot leaving, bool isCautious);
  bool primalSimplex();
  bool primalStep(Slot entering, bool rises);
  void pivot(Slot leaving, Slot entering, bool rises);
  // Several times what is ever needed.
  std::size_t stepLimit() const { return 64 + 4 * residuals_.size(); }

  std::vector<Residual> residuals_;
  std::vector<Column> columns_;  // as many in use as there are variables
  std::vector<Row> rows_;
  std::vector<Slot> freeSlots_, freeColumns_, freeRows_;
  std::uint64_t lastAge_ = 0;
  std::vector<Slot> removed_, added_, edited_;  // since the last solve
  std::map<Rank, std::size_t> slopes_;          // how many basic residuals of a level have a slope
  Agenda wrongSigns_;                           // basic residuals to be looked at by the dual simplex
  Agenda wrongCosts_;                           // parametric residuals to be looked at by the primal simplex
  std::size_t stepsLeft_ = 0;                   // of this `solve`
  std::vector<Constraint> givingWay_;
  SparseVector least_, candidate_, scratch_;
};

}  // namespace Brisel::Platform::internal
