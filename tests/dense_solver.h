// What a constraint solver must find, by the plainest means: a dense simplex tableau that minimises level after level.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <vector>

namespace Brisel::Tests {

/// Sums of coefficient × variable + constant, what they miss zero by on either side, and what that costs.
struct DenseConstraint {
  std::vector<double> coefficients;  // one a variable
  double constant = 0;
  bool costsAbove = true;  // a sum above zero
  bool costsBelow = true;
  std::size_t level = 0;  // level 0 first; those of a level are added up
};

/// The values with the least sum of violations at the first level, of these the ones with the least at the second, and
/// so on. Every variable needs a constraint that keeps it from running away. Cubic: for small systems.
class DenseSolver {
 public:
  static std::vector<double> solve(std::size_t variables, const std::vector<DenseConstraint>& constraints) {
    return DenseSolver(variables, constraints).values();
  }

 private:
  // Row i: Σ coefficients × (x⁺ - x⁻) - above + below = -constant, with all columns at least zero. The errors above and
  // below are the first basis, so that there always is one.
  DenseSolver(std::size_t variables, const std::vector<DenseConstraint>& constraints)
      : variables_(variables), columns_(2 * variables + 2 * constraints.size()), isBanned_(columns_, false) {
    std::map<std::size_t, std::vector<double>> levels;
    for (std::size_t i = 0; i < constraints.size(); ++i) {
      const DenseConstraint& constraint = constraints[i];
      const std::size_t above = 2 * variables + 2 * i;
      const double sign = constraint.constant > 0 ? -1 : 1;  // so that the right side is not negative
      std::vector<double> row(columns_ + 1, 0.0);
      for (std::size_t v = 0; v < variables; ++v) {
        row[2 * v] = sign * constraint.coefficients[v];
        row[2 * v + 1] = -row[2 * v];
      }
      row[above] = -sign;
      row[above + 1] = sign;
      row[columns_] = -sign * constraint.constant;
      rows_.push_back(std::move(row));
      basis_.push_back(sign > 0 ? above + 1 : above);
      auto& cost = levels[constraint.level];
      cost.resize(columns_, 0.0);
      cost[above] = constraint.costsAbove ? 1 : 0;
      cost[above + 1] = constraint.costsBelow ? 1 : 0;
    }
    for (const auto& [level, cost] : levels) minimise(cost);
  }

  // Bland's rule throughout. What would make this level dearer is not moved again.
  void minimise(const std::vector<double>& cost) {
    std::vector<double> reduced(columns_);
    for (;;) {
      std::size_t entering = columns_;
      for (std::size_t j = 0; j < columns_; ++j) {
        reduced[j] = cost[j];
        for (std::size_t i = 0; i < rows_.size(); ++i) reduced[j] -= cost[basis_[i]] * rows_[i][j];
        if (entering == columns_ && !isBanned_[j] && reduced[j] < -kNoise) entering = j;
      }
      if (entering == columns_) break;
      pivot(entering);
    }
    for (std::size_t j = 0; j < columns_; ++j)
      if (reduced[j] > kNoise) isBanned_[j] = true;
  }

  void pivot(std::size_t entering) {
    std::size_t leaving = rows_.size();
    double least = 0;
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      if (rows_[i][entering] <= kNoise) continue;
      const double ratio = rows_[i][columns_] / rows_[i][entering];
      const bool isTie = leaving < rows_.size() && std::fabs(ratio - least) <= kNoise;
      if (leaving == rows_.size() || (isTie ? basis_[i] < basis_[leaving] : ratio < least)) {
        leaving = i;
        least = ratio;
      }
    }
    auto& row = rows_.at(leaving);  // throws where the system runs away
    const double divisor = row[entering];
    for (double& cell : row) cell /= divisor;
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      const double factor = rows_[i][entering];
      if (i == leaving || factor == 0) continue;
      for (std::size_t j = 0; j <= columns_; ++j) {
        rows_[i][j] -= factor * row[j];
        if (std::fabs(rows_[i][j]) < kNothing) rows_[i][j] = 0;
      }
    }
    basis_[leaving] = entering;
  }

  std::vector<double> values() const {
    std::vector<double> values(variables_, 0.0);
    for (std::size_t i = 0; i < rows_.size(); ++i)
      if (basis_[i] < 2 * variables_) values[basis_[i] / 2] += (basis_[i] % 2 == 0 ? 1 : -1) * rows_[i][columns_];
    return values;
  }

  static constexpr double kNoise = 1e-9;
  static constexpr double kNothing = 1e-12;

  std::size_t variables_;
  std::size_t columns_;
  std::vector<bool> isBanned_;
  std::vector<std::vector<double>> rows_;
  std::vector<std::size_t> basis_;
};

}  // namespace Brisel::Tests
