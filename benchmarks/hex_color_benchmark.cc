// "#1ed760" as a colour.
#include <QColor>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>

#include "brisel/tokens/color_parsing.h"

#include "benchmarks/job.h"

namespace {

using Brisel::Platform::UIColor;

// Less than ours does: only this one form, and no colour but its number.
std::optional<std::uint32_t> numberByFromChars(std::string_view text) noexcept {
  if (text.size() != 7 || text.front() != '#') return std::nullopt;
  std::uint32_t number = 0;
  const auto [end, error] = std::from_chars(text.data() + 1, text.data() + 7, number, 16);
  if (error != std::errc() || end != text.data() + 7) return std::nullopt;
  return number;
}

// What is read changes from turn to turn, so that no branch is learnt by heart.
template <class Parse>
void parse(benchmark::State& state, Parse parse) {
  static constexpr std::string_view kTexts[] = {"#1ed760", "#ffffff", "#C57100", "#0d72ea"};
  std::size_t i = 0;
  for (auto _ : state) {
    std::string_view text = kTexts[i++ % 4];
    benchmark::DoNotOptimize(text);
    benchmark::DoNotOptimize(parse(text));
  }
}

void ours(benchmark::State& state) { parse(state, Brisel::colorFromRGBHexString); }

void qColor(benchmark::State& state) {
  parse(state, [](std::string_view text) {
    QColor color;
    color.setNamedColor(QLatin1String(text.data(), static_cast<qsizetype>(text.size())));
    return color;
  });
}

void fromChars(benchmark::State& state) { parse(state, numberByFromChars); }

BRISEL_JOB("hex_color/ours", ours);
BRISEL_JOB("hex_color/QColor", qColor);
BRISEL_JOB("hex_color_instructions/ours", ours);
BRISEL_JOB("hex_color_instructions/QColor", qColor);
BRISEL_JOB("hex_color_instructions/from_chars", fromChars);

}  // namespace
