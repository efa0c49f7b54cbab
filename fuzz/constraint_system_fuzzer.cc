// Systems of constraints that are changed and solved over and over, against a solver that is told all at once; and one
// that is told any numbers at all.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "brisel/platform/internal/constraint_solver.h"

#include "fuzz/input.h"
#include "tests/constraint_model.h"

namespace {

using Brisel::Fuzz::require;
using Brisel::Fuzz::Source;
using Brisel::Tests::ConstraintModel;
using Solver = ConstraintModel::Solver;

void changeAndCompare(Source& source) {
  ConstraintModel model;
  while (!source.isEmpty()) {
    for (int changes = 1 + source.below(8); changes > 0; --changes)
      model.change([&source](int end) { return source.below(end); });
    require(!model.isRefused());
    require(model.areGivingWay(model.solver().solve()));
    const std::vector<double> values = model.values();
    require(ConstraintModel::areNear(values, model.freshValues()));
    require(ConstraintModel::areNear(model.violations(values), model.violations(model.freshValues())));
    require(model.knowsViolations());
    model.solver().solve();
    require(model.values() == values);
  }
}

// Any numbers, and handles that may be unknown: refused, or solved in the end.
void takeAnything(Source& source) {
  Solver solver;
  std::vector<Solver::Variable> variables(1);
  std::vector<Solver::Constraint> constraints(1);
  const auto any = [&source](const auto& list) { return list[source.take<std::uint8_t>() % list.size()]; };
  while (!source.isEmpty() && variables.size() < 40 && constraints.size() < 80) {
    const int kind = source.below(16);
    if (kind < 3) {
      variables.push_back(solver.addVariable(source.take<double>()));
    } else if (kind < 9) {
      std::vector<Solver::Term> terms;
      for (int count = source.below(4); count > 0; --count) terms.push_back({any(variables), source.take<double>()});
      const auto constant = source.take<double>();
      const auto relation = static_cast<Solver::Relation>(source.below(3));
      const auto added = solver.addConstraint(terms, constant, relation, source.take<float>());
      if (added) constraints.push_back(*added);
    } else if (kind < 11) {
      solver.setConstant(any(constraints), source.take<double>());
    } else if (kind < 12) {
      solver.setRest(any(variables), source.take<double>());
    } else if (kind < 13) {
      solver.removeConstraint(any(constraints));
    } else if (kind < 14) {
      solver.removeVariable(any(variables));
    } else {
      solver.solve();
      for (const Solver::Variable variable : variables) require(std::isfinite(solver.value(variable)));
      for (const Solver::Constraint constraint : constraints) require(solver.violation(constraint) >= 0);
    }
  }
  solver.solve();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Source source(data, size);
  if (source.below(4) == 0) {
    takeAnything(source);
  } else {
    changeAndCompare(source);
  }
  return 0;
}
