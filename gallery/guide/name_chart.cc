#include "gallery/guide/name_chart.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string_view>
#include <vector>

#include "brisel/themes/theme.h"
#include "brisel/typography/type_style.h"

#include "gallery/drawing.h"
#include "gallery/guide/published_names.h"
#include "gallery/guide/specimens.h"

namespace Brisel::Gallery {
namespace {

constexpr Platform::CGFloat kLine = 40;  // points
constexpr std::string_view kNamespace = "Brisel::";

// Types within types are left out: lines for the ones that a reader looks for first.
bool isShown(const PublishedEntry& entry) {
  return entry.kind == PublishedEntry::Kind::type && entry.value.name.rfind("::") + 2 == kNamespace.size() &&
         !entry.object.name.empty();
}

std::vector<PublishedEntry> shownEntries() {
  std::vector<PublishedEntry> shown;
  for (const PublishedSubsystem& subsystem : publishedNames()) {
    for (const PublishedGroup& group : subsystem.groups) {
      std::copy_if(group.entries.begin(), group.entries.end(), std::back_inserter(shown), isShown);
    }
  }
  return shown;
}

}  // namespace

Platform::CGSize NameChart::size() const { return {width_, static_cast<double>(shownEntries().size()) * kLine}; }

void NameChart::paint(Platform::Canvas& canvas) const {
  canvas.fillRect({{}, size()}, specimenGround());
  const auto& text = Theme::dark().base().text();
  const Platform::CGFloat half = std::round(width_ * 0.46);
  Platform::CGFloat top = 0;
  for (const PublishedEntry& entry : shownEntries()) {
    drawLine(canvas, entry.value.name.substr(kNamespace.size()), TypeStyle::balladBold(), text.base(),
             {{0, top}, {half, kLine}});
    drawLine(canvas, entry.object.name, TypeStyle::viola(), text.subdued(), {{half, top}, {width_ - half, kLine}});
    top += kLine;
  }
}

}  // namespace Brisel::Gallery
