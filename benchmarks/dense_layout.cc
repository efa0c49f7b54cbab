#include "benchmarks/dense_layout.h"

#include <algorithm>
#include <cmath>

namespace Brisel::Benchmarks {
namespace {

constexpr double kNoise = 1e-9;

// Rows of Σ coefficient × variable - above + below = value, one after another in memory, the values in the last column.
struct Tableau {
  std::size_t columns = 0;
  std::vector<double> cells;
  std::vector<std::size_t> basis;
  std::vector<char> isBanned;

  double* row(std::size_t i) { return cells.data() + i * (columns + 1); }

  void pivot(std::size_t leaving, std::size_t entering, std::vector<double>& reduced) {
    double* const pivotRow = row(leaving);
    const double divisor = pivotRow[entering];
    for (std::size_t j = 0; j <= columns; ++j) pivotRow[j] /= divisor;
    const auto eliminate = [&](double* target) {
      const double factor = target[entering];
      if (factor == 0) return;
      for (std::size_t j = 0; j <= columns; ++j) target[j] -= factor * pivotRow[j];
      target[entering] = 0;
    };
    for (std::size_t i = 0; i < basis.size(); ++i)
      if (i != leaving) eliminate(row(i));
    eliminate(reduced.data());
    basis[leaving] = entering;
  }

  // The steepest column enters; after many steps the first one, which comes to an end.
  void minimise(const std::vector<double>& cost) {
    std::vector<double> reduced = cost;
    reduced.push_back(0);
    for (std::size_t i = 0; i < basis.size(); ++i) {
      const double share = cost[basis[i]];
      if (share == 0) continue;
      for (std::size_t j = 0; j <= columns; ++j) reduced[j] -= share * row(i)[j];
    }
    for (std::size_t step = 0;; ++step) {
      std::size_t entering = columns;
      double least = -kNoise;
      for (std::size_t j = 0; j < columns; ++j) {
        if (isBanned[j] || reduced[j] >= least) continue;
        entering = j;
        if (step > 4 * columns) break;
        least = reduced[j];
      }
      if (entering == columns) break;
      std::size_t leaving = basis.size();
      double ratio = 0;
      for (std::size_t i = 0; i < basis.size(); ++i) {
        if (row(i)[entering] <= kNoise) continue;
        const double candidate = row(i)[columns] / row(i)[entering];
        if (leaving != basis.size() && candidate >= ratio) continue;
        leaving = i;
        ratio = candidate;
      }
      if (leaving == basis.size()) break;
      pivot(leaving, entering, reduced);
    }
    for (std::size_t j = 0; j < columns; ++j) isBanned[j] = static_cast<char>(isBanned[j] || reduced[j] > kNoise);
  }
};

}  // namespace

void DenseLayout::add(const Terms& terms, Relation relation, double value, std::size_t level) {
  constraints_.push_back({terms, relation, value, level});
  levels_ = std::max(levels_, level + 1);
}

std::vector<double> DenseLayout::solve() const {
  Tableau tableau;
  tableau.columns = variables_ + 2 * constraints_.size();
  tableau.cells.assign(constraints_.size() * (tableau.columns + 1), 0);
  tableau.isBanned.assign(tableau.columns, 0);
  std::vector<std::vector<double>> costs(levels_ + 1, std::vector<double>(tableau.columns, 0));
  for (std::size_t i = 0; i < constraints_.size(); ++i) {
    const Constraint& constraint = constraints_[i];
    const double sign = constraint.value < 0 ? -1 : 1;
    const std::size_t above = variables_ + 2 * i, below = above + 1;
    double* const row = tableau.row(i);
    for (const auto& [variable, coefficient] : constraint.terms) row[variable] += sign * coefficient;
    row[above] = -sign;
    row[below] = sign;
    row[tableau.columns] = sign * constraint.value;
    tableau.basis.push_back(sign > 0 ? below : above);
    costs[constraint.level][above] = constraint.relation == Relation::atLeast ? 0 : 1;
    costs[constraint.level][below] = constraint.relation == Relation::atMost ? 0 : 1;
  }
  std::fill_n(costs.back().begin(), variables_, 1);
  for (const auto& cost : costs) tableau.minimise(cost);
  std::vector<double> values(variables_, 0);
  for (std::size_t i = 0; i < tableau.basis.size(); ++i)
    if (tableau.basis[i] < variables_) values[tableau.basis[i]] = tableau.row(i)[tableau.columns];
  return values;
}

}  // namespace Brisel::Benchmarks
