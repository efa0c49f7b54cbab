#include "gallery/guide/specimens.h"

#include "brisel/themes/theme.h"
#include "brisel/typography/styled_string.h"

#include "gallery/catalogue_names.h"
#include "gallery/guide/html.h"
#include "gallery/guide/site_files.h"

namespace Brisel::Gallery {
namespace {

constexpr auto kDefault = ContentSizeCategory::large;

// In the order of the categories; the last one stands for those behind it too.
std::size_t defaultIndex() {
  std::size_t index = 0;
  while (categories()[index].category != kDefault) ++index;
  return index;
}

// Whether styles are no larger in this category than in the one before.
bool looksLikeTheOneBefore(std::size_t index) {
  const TypeStyle::AccessibilityRange growing(1, 2, 3, 4);
  const auto valueAt = [&](std::size_t i) { return growing.value(categories()[i].category.rawValue()); };
  return index > 0 && valueAt(index) == valueAt(index - 1);
}

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
  return fillTemplate(siteFile("text_size.html"), {{"last", std::to_string(categories().size() - 1)},
                                                   {"value", std::to_string(defaultIndex())},
                                                   {"category", categories()[defaultIndex()].name},
                                                   {"points", pointSizes(TypeStyle::ballad())},
                                                   {"point", defaultPointSize(TypeStyle::ballad())}});
}

std::string followingPicture(
    const std::string& path,
    const std::function<Picture(const std::string& path, ContentSizeCategory category)>& plan) {
  std::string attributes, sizes;
  for (std::size_t i = 0; i < categories().size() && !looksLikeTheOneBefore(i); ++i) {
    const NamedCategory& entry = categories()[i];
    const Picture picture = plan(path + "-" + std::string(entry.name), entry.category);
    if (entry.category == kDefault) attributes = picture.attributes();
    if (!sizes.empty()) sizes += ' ';
    sizes += std::to_string(picture.width) + "x" + std::to_string(picture.height);
  }
  return attributes + " data-picture=\"" + path + "\" data-sizes=\"" + sizes + "\"";
}

std::string followingText(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) joined += (joined.empty() ? "" : "|") + text;
  return fillTemplate(siteFile("following_text.html"), {{"texts", joined}, {"text", texts.at(defaultIndex())}});
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
