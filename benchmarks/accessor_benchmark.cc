// Constants by name.
#include "brisel/object_interface/themes.h"
#include "brisel/themes/theme.h"
#include "brisel/tokens/color.h"
#include "brisel/typography/type_style.h"

#include "benchmarks/accessor_peers.h"
#include "benchmarks/allocations.h"
#include "benchmarks/job.h"

namespace {

using namespace Brisel;
using namespace Brisel::Benchmarks;

// Once a constant has been built, reading it allocates nothing.
template <auto access>
void read(benchmark::State& state) {
  access();
  const auto before = allocations();
  for (auto _ : state) benchmark::DoNotOptimize(&access());
  if (allocations() != before) state.SkipWithError("reading a constant allocates");
}

BRISEL_JOB("color_accessor/ours", read<Color::gray7>);
BRISEL_JOB("color_accessor/static", read<staticColor>);
BRISEL_JOB("color_accessor/map", [](benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(&mappedColor("gray7"));
});

BRISEL_JOB("style_accessor/ours", read<TypeStyle::ballad>);
BRISEL_JOB("style_accessor/static", read<staticStyle>);
BRISEL_JOB("style_accessor/map", [](benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(&mappedStyle("ballad"));
});

template <auto theme>
const Platform::ColorPtr& slot() noexcept {
  return theme().negative().text().subdued();
}

BRISEL_JOB("theme_slot/ours", read<slot<Theme::dark>>);
BRISEL_JOB("theme_slot/static", read<slot<staticTheme>>);

// The objects on the way are made for each reading.
BRISEL_JOB("theme_slot_object/ours", [](benchmark::State& state) {
  VLMBriselColorTheme::dark();
  const auto before = allocations();
  for (auto _ : state) benchmark::DoNotOptimize(VLMBriselColorTheme::dark()->negative()->text()->subdued());
  state.counters["allocations"] =
      benchmark::Counter(static_cast<double>(allocations() - before), benchmark::Counter::kAvgIterations);
});

}  // namespace
