#include "gallery/guide/name_chart.h"

#include <cmath>
#include <string_view>

#include "brisel/themes/theme.h"
#include "brisel/typography/type_style.h"

#include "gallery/drawing.h"
#include "gallery/guide/published_names.h"
#include "gallery/guide/specimens.h"

namespace Brisel::Gallery {
namespace {

constexpr int kLines = 14;
constexpr Platform::CGFloat kLine = 28;  // points
constexpr std::string_view kNamespace = "Brisel::";

// Types within types are left out: lines for the ones that a reader looks for first.
bool isShown(const PublishedEntry& entry) {
  return entry.kind == PublishedEntry::Kind::type && entry.value.name.starts_with(kNamespace) &&
         entry.value.name.rfind("::") + 2 == kNamespace.size() && !entry.object.name.empty();
}

}  // namespace

Platform::CGSize NameChart::size() const { return {width_, kLines * kLine}; }

void NameChart::paint(Platform::Canvas& canvas) const {
  canvas.fillRect({{}, size()}, specimenGround());
  const auto& text = Theme::dark().base().text();
  int line = 0;
  for (const PublishedSubsystem& subsystem : publishedNames()) {
    for (const PublishedGroup& group : subsystem.groups) {
      for (const PublishedEntry& entry : group.entries) {
        if (line == kLines || !isShown(entry)) continue;
        const Platform::CGFloat top = line * kLine, half = std::round(width_ * 0.46);
        drawLine(canvas, entry.value.name.substr(kNamespace.size()), TypeStyle::balladBold(), text.base(),
                 {{0, top}, {half, kLine}});
        drawLine(canvas, entry.object.name, TypeStyle::viola(), text.subdued(), {{half, top}, {width_ - half, kLine}});
        ++line;
      }
    }
  }
}

}  // namespace Brisel::Gallery
