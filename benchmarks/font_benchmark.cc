// A font by name and size: one that was asked for before, and a new size of a family that is known.
#include <cstddef>
#include <iterator>

#include "benchmarks/bundle_fonts.h"
#include "benchmarks/job.h"

namespace {

using namespace Brisel::Benchmarks;

// As many sizes in turn as no cache of fonts holds.
double nextSize() {
  static int turn = 0;
  return 10 + 0.125 * (turn++ % 400);
}

BRISEL_JOB("font_cached/ours", [](benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(font(16));
});

BRISEL_JOB("font_cached/Pango", [](benchmark::State& state) {
  PangoFontMap* const fonts = pango_context_get_font_map(pangoContext());
  const DescriptionPtr description = pangoDescription(16);
  for (auto _ : state) {
    const GPtr<PangoFont> font(pango_font_map_load_font(fonts, pangoContext(), description.get()));
    benchmark::DoNotOptimize(font.get());
  }
});

void oursNewSize(benchmark::State& state, std::size_t families) {
  for (auto _ : state) benchmark::DoNotOptimize(font(nextSize(), families - 1));
}

void fcFontMatch(benchmark::State& state, std::size_t families) {
  FcConfig* const config = fontConfig();
  for (auto _ : state) {
    FcPattern* pattern = FcPatternCreate();
    for (std::size_t i = 0; i < families; ++i)
      FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(kFamilies[i]));
    FcPatternAddInteger(pattern, FC_WEIGHT, FC_WEIGHT_REGULAR);
    FcPatternAddDouble(pattern, FC_PIXEL_SIZE, nextSize());
    FcConfigSubstitute(config, pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    FcResult result = FcResultMatch;
    FcPattern* match = FcFontMatch(config, pattern, &result);
    benchmark::DoNotOptimize(match);
    FcPatternDestroy(match);
    FcPatternDestroy(pattern);
  }
}

BRISEL_JOB("font_new_size/ours", [](auto& state) { oursNewSize(state, 2); });
BRISEL_JOB("font_new_size/FcFontMatch", [](auto& state) { fcFontMatch(state, 2); });
BRISEL_JOB("font_new_size_stack/ours", [](auto& state) { oursNewSize(state, std::size(kFamilies)); });
BRISEL_JOB("font_new_size_stack/FcFontMatch", [](auto& state) { fcFontMatch(state, std::size(kFamilies)); });

}  // namespace
