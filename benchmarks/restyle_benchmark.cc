// Labels that follow the text size: a thousand, and ten thousand, of 16 characters each, at two sizes in turn.
// Everybody is asked for the size of each text afterwards, so that nobody puts the work off.
#include <QFontMetricsF>
#include <QLabel>
#include <QStringList>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include <pango/pangocairo.h>

#include "brisel/platform/views/label.h"
#include "brisel/typography/dynamic_type_monitor.h"
#include "brisel/typography/text_view_styling.h"

#include "benchmarks/bundle_fonts.h"
#include "benchmarks/job.h"
#include "benchmarks/qt_application.h"

namespace {

using namespace Brisel::Benchmarks;
using namespace Brisel::Platform;

constexpr std::size_t kLabels = 1'000;

const UIContentSizeCategory& categoryOf(std::size_t turn) {
  return turn % 2 == 0 ? UIContentSizeCategoryLarge : UIContentSizeCategoryExtraExtraExtraLarge;
}

double sizeOf(std::size_t turn) {
  return Brisel::TypeStyle::ballad().configuration().fontSize().value(categoryOf(turn));
}

std::string textOf(std::size_t label) {
  std::string number = std::to_string(label);
  return "Daily Mix, " + std::string(5 - number.size(), '0') + number;
}

void ours(benchmark::State& state, std::size_t count) {
  auto& monitor = *Brisel::DynamicTypeMonitor::shared();
  std::vector<std::shared_ptr<UILabel>> labels;
  for (std::size_t i = 0; i < count; ++i) {
    const auto& label = labels.emplace_back(UILabel::initWithFrame());
    label->setText(textOf(i));
    Brisel::apply(*label, Brisel::TypeStyle::ballad(), categoryOf(0), true);
  }
  std::size_t turn = 0;
  for (auto _ : state) {
    monitor.setup(categoryOf(++turn));
    for (const auto& label : labels) benchmark::DoNotOptimize(label->intrinsicContentSize());
  }
  for (const auto& label : labels)
    if (label->font()->pointSize() != sizeOf(turn)) return state.SkipWithError("A label has not followed");
}

// The size of a label's text, by ours: the peers must find about the same.
CGSize expectedSize(std::size_t label, std::size_t turn) {
  const auto made = UILabel::initWithFrame();
  made->setText(textOf(label));
  Brisel::apply(*made, Brisel::TypeStyle::ballad(), categoryOf(turn), false);
  return made->intrinsicContentSize();
}

bool isAsOurs(std::size_t label, std::size_t turn, double width, double height) {
  const CGSize ours = expectedSize(label, turn);
  return std::abs(width - ours.width) < 0.06 * ours.width && std::abs(height - ours.height) < 0.1 * ours.height;
}

QFont qtFont(std::size_t turn) {
  QFont font;
  font.setFamilies(QStringList(std::begin(kFamilies), std::end(kFamilies)));
  font.setPixelSize(static_cast<int>(sizeOf(turn)));
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

void qLabel(benchmark::State& state) {
  qtApplication();
  std::vector<std::unique_ptr<QLabel>> labels;
  for (std::size_t i = 0; i < kLabels; ++i)
    labels.push_back(std::make_unique<QLabel>(QString::fromStdString(textOf(i))));
  std::size_t turn = 0;
  QSize size;
  for (auto _ : state) {
    const QFont font = qtFont(++turn);
    for (const auto& label : labels) {
      label->setFont(font);
      benchmark::DoNotOptimize(size = label->sizeHint());
    }
  }
  if (!isAsOurs(kLabels - 1, turn, size.width(), size.height())) state.SkipWithError("Qt measures something else");
}

void pangoLayouts(benchmark::State& state, std::size_t count) {
  std::vector<GPtr<PangoLayout>> layouts;
  for (std::size_t i = 0; i < count; ++i) {
    layouts.emplace_back(pango_layout_new(pangoContext()));
    const std::string text = textOf(i);
    pango_layout_set_text(layouts.back().get(), text.data(), static_cast<int>(text.size()));
  }
  const DescriptionPtr descriptions[] = {pangoDescription(sizeOf(0)), pangoDescription(sizeOf(1))};
  std::size_t turn = 0;
  PangoRectangle extents;
  for (auto _ : state) {
    const PangoFontDescription* const description = descriptions[++turn % 2].get();
    for (const auto& layout : layouts) {
      pango_layout_set_font_description(layout.get(), description);
      pango_layout_get_extents(layout.get(), nullptr, &extents);
      benchmark::DoNotOptimize(extents);
    }
  }
  if (!isAsOurs(count - 1, turn, 1.0 * extents.width / PANGO_SCALE, 1.0 * extents.height / PANGO_SCALE))
    state.SkipWithError("Pango measures something else");
}

BRISEL_JOB("restyle_1000/ours", [](auto& state) { ours(state, kLabels); });
BRISEL_JOB("restyle_1000/QLabel", qLabel);
BRISEL_JOB("restyle_1000/Pango", [](auto& state) { pangoLayouts(state, kLabels); });
BRISEL_JOB("restyle_10000/ours", [](auto& state) { ours(state, 10 * kLabels); });
BRISEL_JOB("restyle_10000/Pango", [](auto& state) { pangoLayouts(state, 10 * kLabels); });
BRISEL_JOB("restyle_10000/1000 labels", [](auto& state) { ours(state, kLabels); });

}  // namespace
