// A text at 56 points made to fit its lines, a point at a time down to 14 at the least: 79 Latin characters, and Latin,
// Arabic and Hebrew. At each size everybody measures the text and as many lines as it may take. Where nothing fits,
// all 42 steps are taken.
#include <QFontMetricsF>
#include <QStringList>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>

#include <pango/pangocairo.h>

#include "brisel/platform/attributed_string.h"
#include "brisel/typography/fitting.h"

#include "benchmarks/bundle_fonts.h"
#include "benchmarks/harfbuzz_lines.h"
#include "benchmarks/job.h"
#include "benchmarks/qt_application.h"

namespace {

using namespace Brisel::Benchmarks;
using namespace Brisel::Platform;

constexpr double kLargest = 56;
constexpr double kSmallest = 14;
constexpr double kNoLimit = std::numeric_limits<double>::infinity();

struct Task {
  std::string_view text;
  double width;
  int lines;
};

constexpr std::string_view kLatin = "The quick brown fox jumps over the lazy dogs while five boxing wizards jump now";
constexpr std::string_view kMixed =
    "Music for everyone, for every day and mood الموسيقى للجميع في كل يوم وفي كل مكان מוזיקה לכולם בכל יום ובכל מקום";
static_assert(kLatin.size() == 79);

constexpr Task kLatinAll{kLatin, 300, 1};
constexpr Task kLatinMid{kLatin, 300, 3};
constexpr Task kMixedAll{kMixed, 300, 2};
constexpr Task kMixedMid{kMixed, 300, 4};

std::string probeOf(const Task& task) {
  std::string probe = "Mj";
  for (int i = 1; i < task.lines; ++i) probe += "\nMj";
  return probe;
}

std::shared_ptr<const NSAttributedString> attributed(std::string_view text) {
  return NSAttributedString::initWithString(text, {{NSFontAttributeName, font(kLargest)}});
}

double fitted(const std::shared_ptr<const NSAttributedString>& text, const Task& task) {
  const auto result = Brisel::scaledToFit(text, {task.width, kNoLimit}, task.lines, kSmallest / kLargest);
  return result.attributedString->attribute(NSFontAttributeName, 0)->as<UIFont>()->pointSize();
}

// A peer counts only if it finds about the same size. Peers round line heights.
void check(benchmark::State& state, const Task& task, double size) {
  if (std::abs(size - fitted(attributed(task.text), task)) > 1) state.SkipWithError("it finds another size");
}

void ours(benchmark::State& state, const Task& task) {
  const auto text = attributed(task.text);
  double size = 0;
  for (auto _ : state) benchmark::DoNotOptimize(size = fitted(text, task));
  state.counters["points"] = size;
}

// The same text in the greatest width in which it does not fit at once.
void oursOneStep(benchmark::State& state, const Task& task) {
  Task wide = task;
  const auto text = attributed(task.text);
  for (wide.width = 10'000; fitted(text, wide) == kLargest;) wide.width -= 1;
  if (fitted(text, wide) != kLargest - 1) state.SkipWithError("one step is not enough");
  for (auto _ : state) benchmark::DoNotOptimize(fitted(text, wide));
}

// Sizes from the largest on, until `height(text)` is no more than `height(probe)`.
template <class Heights>
double stepped(Heights heights) {
  double size = kLargest;
  for (;;) {
    const auto [text, probe] = heights(size);
    if (text <= probe || size <= kSmallest) return size;
    size -= 1;
  }
}

template <class Heights>
void peer(benchmark::State& state, const Task& task, Heights heights) {
  double size = 0;
  for (auto _ : state) benchmark::DoNotOptimize(size = stepped(heights));
  check(state, task, size);
}

struct Heights {
  double text;
  double probe;
};

void qt(benchmark::State& state, const Task& task) {
  qtApplication();
  QFont font;
  font.setFamilies(QStringList(std::begin(kFamilies), std::end(kFamilies)));
  font.setHintingPreference(QFont::PreferNoHinting);
  const QString text = QString::fromUtf8(task.text.data(), static_cast<qsizetype>(task.text.size()));
  const QString probe = QString::fromStdString(probeOf(task));
  const QRectF room(0, 0, task.width, 100'000);
  peer(state, task, [&](double size) {
    font.setPixelSize(static_cast<int>(size));
    const QFontMetricsF metrics(font);
    return Heights{metrics.boundingRect(room, Qt::TextWordWrap, text).height(),
                   metrics.boundingRect(room, Qt::TextWordWrap, probe).height()};
  });
}

double pangoHeight(const PangoFontDescription* description, std::string_view text, double width) {
  const GPtr<PangoLayout> layout(pango_layout_new(pangoContext()));
  pango_layout_set_font_description(layout.get(), description);
  pango_layout_set_width(layout.get(), static_cast<int>(width) * PANGO_SCALE);
  pango_layout_set_wrap(layout.get(), PANGO_WRAP_WORD_CHAR);
  pango_layout_set_text(layout.get(), text.data(), static_cast<int>(text.size()));
  PangoRectangle extents;
  pango_layout_get_extents(layout.get(), nullptr, &extents);
  return extents.height;
}

void pango(benchmark::State& state, const Task& task) {
  const std::string probe = probeOf(task);
  peer(state, task, [&](double size) {
    const DescriptionPtr description = pangoDescription(size);
    return Heights{pangoHeight(description.get(), task.text, task.width),
                   pangoHeight(description.get(), probe, task.width)};
  });
}

void harfBuzz(benchmark::State& state, const Task& task) {
  static HarfBuzzLines& lines = *new HarfBuzzLines;
  const auto text = attributed(task.text);
  const auto probe = attributed(probeOf(task));
  peer(state, task, [&](double size) {
    return Heights{lines.measure(text->utf16(), size, task.width).height,
                   lines.measure(probe->utf16(), size, task.width).height};
  });
}

#define BRISEL_FITTING_JOBS(job, task)                                                \
  BRISEL_JOB(job "/ours", [](auto& state) { ours(state, task); });                    \
  BRISEL_JOB(job "/ours in one step", [](auto& state) { oursOneStep(state, task); }); \
  BRISEL_JOB(job "/Qt", [](auto& state) { qt(state, task); });                        \
  BRISEL_JOB(job "/Pango", [](auto& state) { pango(state, task); });                  \
  BRISEL_JOB(job "/HarfBuzz", [](auto& state) { harfBuzz(state, task); })
BRISEL_FITTING_JOBS("fit_latin_all", kLatinAll);
BRISEL_FITTING_JOBS("fit_latin_mid", kLatinMid);
BRISEL_FITTING_JOBS("fit_mixed_all", kMixedAll);
BRISEL_FITTING_JOBS("fit_mixed_mid", kMixedMid);

}  // namespace
