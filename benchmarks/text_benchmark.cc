// How much room a text takes at 16 pixels in a width of 300: 40 Latin characters, which make two lines, and three lines
// of Latin, Arabic and Hebrew. Everybody sets it in the bundle's book fonts.
#include <QFontMetricsF>
#include <QStringList>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include <pango/pangocairo.h>

#include "brisel/platform/views/text_drawing.h"

#include "benchmarks/bundle_fonts.h"
#include "benchmarks/harfbuzz_lines.h"
#include "benchmarks/job.h"
#include "benchmarks/qt_application.h"

namespace {

using namespace Brisel::Benchmarks;
using namespace Brisel::Platform;

constexpr std::string_view kLatin = "The quick brown fox jumps over lazy dogs";
constexpr std::string_view kMixed =
    "Music for everyone, for every day and mood الموسيقى للجميع في كل يوم وفي كل مكان מוזיקה לכולם בכל יום ובכל מקום";
constexpr double kFontSize = 16;
constexpr double kOtherFontSize = 16.5;
constexpr double kWidth = 300;
constexpr double kNoLimit = std::numeric_limits<double>::infinity();

std::shared_ptr<const NSAttributedString> attributed(std::string_view text) {
  return NSAttributedString::initWithString(text, {{NSFontAttributeName, font(kFontSize)}});
}

CGSize measured(const NSAttributedString& text) {
  return boundingRectWithSize(text, {kWidth, kNoLimit}, NSStringDrawingUsesLineFragmentOrigin).size;
}

// A peer counts only if it does the same: as many lines, about as wide. Peers round line heights.
bool isAsOurs(std::string_view text, double width, double height) {
  const CGSize ours = measured(*attributed(text));
  return std::abs(width - ours.width) < 0.06 * ours.width && std::abs(height - ours.height) < 0.1 * ours.height;
}

void ours(benchmark::State& state, std::string_view text) {
  const auto string = attributed(text);
  for (auto _ : state) benchmark::DoNotOptimize(measured(*string));
}

// A text that is kept shaped, as labels do, set anew.
void oursNewWidth(benchmark::State& state, std::string_view text) {
  const auto string = attributed(text);
  const TextSpans spans(*string);
  const auto shaped = shape(*string, spans);
  double width = kWidth;
  for (auto _ : state) {
    benchmark::DoNotOptimize(TextLayout(shaped, spans.sizes, spans.paragraphs, {.width = width}).size());
    width = kWidth + kWidth + 1 - width;
  }
}

QFont qtFont() {
  qtApplication();
  QFont font;
  font.setFamilies(QStringList(std::begin(kFamilies), std::end(kFamilies)));
  font.setPixelSize(static_cast<int>(kFontSize));
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

void qt(benchmark::State& state, std::string_view text) {
  const QFontMetricsF metrics(qtFont());
  const QString string = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  const QRectF room(0, 0, kWidth, 10'000);
  QRectF result;
  for (auto _ : state) benchmark::DoNotOptimize(result = metrics.boundingRect(room, Qt::TextWordWrap, string));
  if (!isAsOurs(text, result.width(), result.height())) state.SkipWithError("Qt measures something else");
}

PangoRectangle pangoExtents(PangoLayout* layout, const PangoFontDescription* description, std::string_view text) {
  pango_layout_set_font_description(layout, description);
  pango_layout_set_width(layout, static_cast<int>(kWidth) * PANGO_SCALE);
  pango_layout_set_text(layout, text.data(), static_cast<int>(text.size()));
  PangoRectangle extents;
  pango_layout_get_extents(layout, nullptr, &extents);
  return extents;
}

void checkPango(benchmark::State& state, std::string_view text, const PangoRectangle& extents) {
  if (!isAsOurs(text, 1.0 * extents.width / PANGO_SCALE, 1.0 * extents.height / PANGO_SCALE))
    state.SkipWithError("Pango measures something else");
}

void pangoFresh(benchmark::State& state, std::string_view text) {
  const DescriptionPtr description = pangoDescription(kFontSize);
  PangoRectangle extents;
  for (auto _ : state) {
    const GPtr<PangoLayout> layout(pango_layout_new(pangoContext()));
    benchmark::DoNotOptimize(extents = pangoExtents(layout.get(), description.get(), text));
  }
  checkPango(state, text, extents);
}

// Two sizes in turn, since the layout remembers what it has measured last.
void pangoReused(benchmark::State& state, std::string_view text) {
  const DescriptionPtr descriptions[] = {pangoDescription(kFontSize), pangoDescription(kOtherFontSize)};
  const GPtr<PangoLayout> layout(pango_layout_new(pangoContext()));
  PangoRectangle extents;
  std::size_t turn = 0;
  for (auto _ : state)
    benchmark::DoNotOptimize(extents = pangoExtents(layout.get(), descriptions[turn++ % 2].get(), text));
  checkPango(state, text, pangoExtents(layout.get(), descriptions[0].get(), text));
}

void harfBuzz(benchmark::State& state, std::string_view text) {
  static HarfBuzzLines& lines = *new HarfBuzzLines;
  const auto string = attributed(text);
  CGSize size;
  for (auto _ : state) benchmark::DoNotOptimize(size = lines.measure(string->utf16(), kFontSize, kWidth));
  if (!isAsOurs(text, size.width, size.height)) state.SkipWithError("HarfBuzz measures something else");
}

#define BRISEL_TEXT_JOBS(job, text)                                               \
  BRISEL_JOB(job "/ours", [](auto& state) { ours(state, text); });                \
  BRISEL_JOB(job "/Qt", [](auto& state) { qt(state, text); });                    \
  BRISEL_JOB(job "/Pango fresh", [](auto& state) { pangoFresh(state, text); });   \
  BRISEL_JOB(job "/Pango reused", [](auto& state) { pangoReused(state, text); }); \
  BRISEL_JOB(job "/HarfBuzz", [](auto& state) { harfBuzz(state, text); });        \
  BRISEL_JOB(job "_new_width/ours", [](auto& state) { oursNewWidth(state, text); })
BRISEL_TEXT_JOBS("text_latin", kLatin);
BRISEL_TEXT_JOBS("text_mixed", kMixed);

}  // namespace
