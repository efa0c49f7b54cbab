// A system of layout constraints solved by a dense simplex tableau, as one would write it in an afternoon.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace Brisel::Benchmarks {

/// Variables of at least zero, each as small as the constraints allow; constraints are levels of importance.
class DenseLayout {
 public:
  enum class Relation { equal, atLeast, atMost };
  using Terms = std::vector<std::pair<std::size_t, double>>;  // variable, coefficient

  /// The sum of the terms is to be equal to, at least or at most the value. Level 0 is the most important.
  void add(const Terms& terms, Relation relation, double value, std::size_t level = 0);
  std::size_t addVariable() { return variables_++; }

  /// One number a variable.
  std::vector<double> solve() const;

 private:
  struct Constraint {
    Terms terms;
    Relation relation;
    double value;
    std::size_t level;
  };

  std::size_t variables_ = 0;
  std::size_t levels_ = 1;
  std::vector<Constraint> constraints_;
};

}  // namespace Brisel::Benchmarks
