#include "gallery/guide/specimens.h"

#include "brisel/themes/theme.h"
#include "brisel/typography/styled_string.h"

#include "gallery/catalogue_names.h"
#include "gallery/guide/html.h"
#include "gallery/guide/site_files.h"

namespace Brisel::Gallery {
namespace {

constexpr auto kDefault = ContentSizeCategory::large;

double pointSize(const TypeStyle& style, ContentSizeCategory category) {
  return style.configuration().fontSize().value(category.rawValue());
}

}  // namespace

const Platform::UIColor& specimenGround() { return *Theme::dark().base().background().elevated().base(); }

std::shared_ptr<const Platform::NSAttributedString> specimenText(std::string_view text, const TypeStyle& style,
                                                                 ContentSizeCategory category) {
  return attributedString(text, style, category.platformCategory(),
                          {{Platform::NSForegroundColorAttributeName, Theme::dark().base().text().base()}});
}

std::string textSizeControl() {
  std::size_t value = 0;
  while (categories()[value].category != kDefault) ++value;
  return fillTemplate(siteFile("text_size.html"), {{"last", std::to_string(categories().size() - 1)},
                                                   {"value", std::to_string(value)},
                                                   {"category", categories()[value].name},
                                                   {"points", pointSizes(TypeStyle::ballad())},
                                                   {"point", defaultPointSize(TypeStyle::ballad())}});
}

std::string followingPicture(
    const std::string& path,
    const std::function<Picture(const std::string& path, ContentSizeCategory category)>& plan) {
  std::string attributes, sizes;
  for (const NamedCategory& entry : categories()) {
    const Picture picture = plan(path + "-" + std::string(entry.name), entry.category);
    if (entry.category == kDefault) attributes = picture.attributes();
    if (!sizes.empty()) sizes += ' ';
    sizes += std::to_string(picture.width) + "x" + std::to_string(picture.height);
  }
  return attributes + " data-picture=\"" + path + "\" data-sizes=\"" + sizes + "\"";
}

std::string pointSizes(const TypeStyle& style) {
  std::string points;
  for (const NamedCategory& entry : categories()) {
    if (!points.empty()) points += ' ';
    points += decimal(pointSize(style, entry.category));
  }
  return points;
}

std::string defaultPointSize(const TypeStyle& style) { return decimal(pointSize(style, kDefault)); }

}  // namespace Brisel::Gallery
