// The eased value of an animation's progress: 65,536 values of x in random order, and the frames of an animation.
#include <QEasingCurve>
#include <QPointF>
#include <cstddef>
#include <memory>
#include <random>
#include <vector>

#include "brisel/object_interface/cubic_bezier_curve.h"

#include "benchmarks/job.h"

namespace {

constexpr std::size_t kMask = 0xFFFF;
constexpr std::size_t kFrames = 240;

std::vector<double> randomProgress() {
  std::mt19937 random(53);
  std::uniform_real_distribution<double> between(0, 1);
  std::vector<double> made(kMask + 1);
  for (double& x : made) x = between(random);
  return made;
}

std::vector<double> frames() {
  std::vector<double> made(kMask + 1);
  for (std::size_t i = 0; i < made.size(); ++i)
    made[i] = static_cast<double>(i % (kFrames + 1)) / static_cast<double>(kFrames);
  return made;
}

template <class Ease>
void ease(benchmark::State& state, const std::vector<double>& progress, Ease ease) {
  std::size_t i = 0;
  for (auto _ : state) {
    double y = ease(progress[i++ & kMask]);
    benchmark::DoNotOptimize(y);
  }
}

void ours(benchmark::State& state, const std::vector<double>& progress) {
  std::shared_ptr<const VLMBriselCurve> curve = VLMBriselCubicBezierCurve::initWithStartHandle({0.25, 0.1}, {0.25, 1});
  benchmark::DoNotOptimize(curve);
  ease(state, progress, [&curve](double x) { return curve->yForGivenX(x); });
}

void qEasingCurve(benchmark::State& state, const std::vector<double>& progress) {
  QEasingCurve curve(QEasingCurve::BezierSpline);
  curve.addCubicBezierSegment({0.25, 0.1}, {0.25, 1}, {1, 1});
  ease(state, progress, [&curve](double x) { return curve.valueForProgress(x); });
}

BRISEL_JOB("timing_curve_random/ours", [](benchmark::State& state) { ours(state, randomProgress()); });
BRISEL_JOB("timing_curve_random/QEasingCurve", [](benchmark::State& state) { qEasingCurve(state, randomProgress()); });
BRISEL_JOB("timing_curve_frames/ours", [](benchmark::State& state) { ours(state, frames()); });
BRISEL_JOB("timing_curve_frames/QEasingCurve", [](benchmark::State& state) { qEasingCurve(state, frames()); });

}  // namespace
