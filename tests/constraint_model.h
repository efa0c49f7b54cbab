// A system of constraints that is changed at random, and what must hold of its solution.
#pragma once

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <utility>
#include <vector>

#include "brisel/platform/internal/constraint_solver.h"

#include "tests/dense_solver.h"

namespace Brisel::Tests {

/// A solver, and a plain list of what it has been told. Numbers are small and often equal, so that constraints
/// conflict, repeat each other and meet in one point.
class ConstraintModel {
 public:
  using Solver = Platform::internal::ConstraintSolver;

  /// One change. `below(n)` gives numbers from 0 to n - 1.
  template <class Below>
  void change(Below&& below) {
    const int kind = below(16);
    if (kind < 2 || variables_.empty()) {
      if (variables_.size() < kMostVariables) addVariable(below(12));
    } else if (kind < 8 && constraints_.size() < kMostConstraints) {
      Constraint constraint;
      for (int terms = below(4); terms > 0; --terms) {
        const std::size_t variable = index(below, variables_.size());
        constraint.terms.emplace_back(variables_[variable].age, kCoefficients[index(below, kCoefficients.size())]);
      }
      constraint.constant = half(below);
      constraint.relation = static_cast<Solver::Relation>(below(3));
      constraint.priority = kPriorities[index(below, kPriorities.size())];
      constraint.handle = addTo(solver_, variables_, constraint);
      constraints_.push_back(std::move(constraint));
    } else if (kind < 9) {
      const std::size_t i = index(below, variables_.size());
      variables_[i].rest = half(below);
      isRefused_ |= !solver_.setRest(variables_[i].handle, variables_[i].rest);
    } else if (kind < 10) {
      removeVariable(index(below, variables_.size()));
    } else if (!constraints_.empty()) {
      const std::size_t i = index(below, constraints_.size());
      if (kind < 14) {
        constraints_[i].constant = half(below);
        isRefused_ |= !solver_.setConstant(constraints_[i].handle, constraints_[i].constant);
      } else {
        isRefused_ |= !solver_.removeConstraint(constraints_[i].handle);
        constraints_.erase(constraints_.begin() + static_cast<std::ptrdiff_t>(i));
      }
    }
  }

  Solver& solver() { return solver_; }
  /// Whether the solver refused a change that it should have taken.
  bool isRefused() const { return isRefused_; }

  /// What the solver found, one a variable.
  std::vector<double> values() const { return valuesOf(solver_, variables_); }

  /// What a solver finds that was told all at once.
  std::vector<double> freshValues() const {
    Solver solver;
    std::vector<Variable> variables = variables_;
    for (Variable& variable : variables) variable.handle = solver.addVariable(variable.rest);
    for (const Constraint& constraint : constraints_) addTo(solver, variables, constraint);
    solver.solve();
    return valuesOf(solver, variables);
  }

  std::vector<double> denseValues() const {
    std::vector<DenseConstraint> dense;
    for (std::size_t i = 0; i < constraints_.size(); ++i) {
      const Constraint& constraint = constraints_[i];
      DenseConstraint& row = dense.emplace_back();
      row.coefficients.resize(variables_.size());
      for (const auto& [age, coefficient] : constraint.terms) row.coefficients[position(age)] += coefficient;
      row.constant = constraint.constant;
      row.costsAbove = constraint.relation != Solver::Relation::atLeast;
      row.costsBelow = constraint.relation != Solver::Relation::atMost;
      row.level = level(i);
    }
    for (std::size_t i = 0; i < variables_.size(); ++i) {
      DenseConstraint& stay = dense.emplace_back();
      stay.coefficients.resize(variables_.size());
      stay.coefficients[i] = 1;
      stay.constant = -variables_[i].rest;
      stay.level = kStays + i;
    }
    return DenseSolver::solve(variables_.size(), dense);
  }

  /// The sums of violations, the most important level first, with the distances from rest last.
  std::vector<double> violations(const std::vector<double>& values) const {
    std::map<std::size_t, double> sums;
    for (std::size_t i = 0; i < constraints_.size(); ++i) sums[level(i)] += violation(constraints_[i], values);
    for (std::size_t i = 0; i < variables_.size(); ++i) sums[kStays + i] = std::fabs(values[i] - variables_[i].rest);
    std::vector<double> list;
    for (const auto& [level, sum] : sums) list.push_back(sum);
    return list;
  }

  /// Whether the solver says of each constraint by how much it is missed.
  bool knowsViolations() const {
    const std::vector<double> all = values();
    for (const Constraint& constraint : constraints_)
      if (!isNear(solver_.violation(constraint.handle), violation(constraint, all))) return false;
    return true;
  }

  /// Whether these are the required constraints that are missed, in the order of their age.
  bool areGivingWay(const std::vector<Solver::Constraint>& givingWay) const {
    std::vector<Solver::Constraint> missed;
    const std::vector<double> all = values();
    for (const Constraint& constraint : constraints_)
      if (constraint.priority == Solver::kRequired && violation(constraint, all) > 1e-6)
        missed.push_back(constraint.handle);
    return missed == givingWay;
  }

  static bool isNear(double a, double b) { return std::fabs(a - b) <= 1e-7 * (1 + std::fabs(a)); }
  static bool areNear(const std::vector<double>& a, const std::vector<double>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), isNear);
  }

 private:
  static constexpr std::size_t kMostVariables = 6;
  static constexpr std::size_t kMostConstraints = 16;
  static constexpr std::array kCoefficients = {1.0, -1.0, 1.0, -1.0, 0.5, -0.5, 2.0, -2.0, 3.0, 0.75};
  static constexpr std::array kPriorities = {1000.0F, 1000.0F, 999.0F, 750.0F, 750.0F, 501.0F, 500.0F, 250.0F, 0.1F};
  static constexpr std::size_t kOptional = 1U << 20U;
  static constexpr std::size_t kStays = std::size_t{1} << 40U;

  struct Variable {
    int age = 0;
    double rest = 0;
    Solver::Variable handle;
  };
  struct Constraint {
    std::vector<std::pair<int, double>> terms;  // the variable's age, the coefficient
    double constant = 0;
    Solver::Relation relation{};
    float priority = 0;
    Solver::Constraint handle;
  };

  template <class Below>
  static std::size_t index(Below& below, std::size_t size) {
    return static_cast<std::size_t>(below(static_cast<int>(size)));
  }
  template <class Below>
  static double half(Below& below) {
    return (below(81) - 40) * 0.5;
  }

  void addVariable(int rest) {
    Variable& variable = variables_.emplace_back();
    variable.age = ++lastAge_;
    variable.rest = rest;
    variable.handle = solver_.addVariable(rest);
  }

  void removeVariable(std::size_t i) {
    const int age = variables_[i].age;
    isRefused_ |= !solver_.removeVariable(variables_[i].handle);
    variables_.erase(variables_.begin() + static_cast<std::ptrdiff_t>(i));
    std::erase_if(constraints_, [age](const Constraint& constraint) {
      double sum = 0;
      for (const auto& [of, coefficient] : constraint.terms) sum += of == age ? coefficient : 0;
      return sum != 0;
    });
    // Of what is left, terms of this variable had cancelled out.
    for (Constraint& constraint : constraints_)
      std::erase_if(constraint.terms, [age](const auto& term) { return term.first == age; });
  }

  std::size_t position(int age) const {
    std::size_t i = 0;
    while (variables_[i].age != age) ++i;
    return i;
  }

  // Each required constraint is a level of its own, the older the more important.
  std::size_t level(std::size_t i) const {
    const float priority = constraints_[i].priority;
    if (priority == Solver::kRequired) return i;
    return kOptional + (~std::bit_cast<std::uint32_t>(priority));
  }

  double violation(const Constraint& constraint, const std::vector<double>& values) const {
    double sum = constraint.constant;
    for (const auto& [age, coefficient] : constraint.terms) sum += coefficient * values[position(age)];
    if (constraint.relation == Solver::Relation::atLeast) return std::max(0.0, -sum);
    if (constraint.relation == Solver::Relation::atMost) return std::max(0.0, sum);
    return std::fabs(sum);
  }

  static Solver::Constraint addTo(Solver& solver, const std::vector<Variable>& variables,
                                  const Constraint& constraint) {
    std::vector<Solver::Term> terms;
    for (const auto& [age, coefficient] : constraint.terms)
      for (const Variable& variable : variables)
        if (variable.age == age) terms.push_back({variable.handle, coefficient});
    return solver.addConstraint(terms, constraint.constant, constraint.relation, constraint.priority).value();
  }

  static std::vector<double> valuesOf(const Solver& solver, const std::vector<Variable>& variables) {
    std::vector<double> values;
    values.reserve(variables.size());
    for (const Variable& variable : variables) values.push_back(solver.value(variable.handle));
    return values;
  }

  Solver solver_;
  std::vector<Variable> variables_;
  std::vector<Constraint> constraints_;
  int lastAge_ = 0;
  bool isRefused_ = false;
};

}  // namespace Brisel::Tests
