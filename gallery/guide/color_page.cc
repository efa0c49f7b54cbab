#include <cctype>

#include "brisel/tokens/catalogue.h"

#include "gallery/catalogue_names.h"
#include "gallery/guide/html.h"
#include "gallery/guide/pages.h"
#include "gallery/guide/site_files.h"
#include "gallery/guide/swatches.h"

namespace Brisel::Gallery {
namespace {

constexpr Platform::CGSize kSwatch{128, 128};  // room for the tallest row; pages show the part that they need

// "Red orange" as the fragment "red-orange", which no colour is called.
std::string fragmentFor(std::string_view prefix, std::string_view title) {
  std::string fragment(prefix);
  for (const char c : title) {
    if (std::isalnum(static_cast<unsigned char>(c)) != 0) {
      fragment += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    } else if (!fragment.ends_with('-')) {
      fragment += '-';
    }
  }
  return fragment;
}

class ColorPage {
 public:
  explicit ColorPage(PictureBook& pictures) : pictures_(pictures) {
    page_.file = "colours.html";
    page_.name = "Colours";
  }

  Page make() && {
    for (const auto& family : Catalogue::colorFamilies()) {
      if (family.section != section_) endSection();
      section_ = family.section;
      std::string rows;
      for (const auto& entry : family.colors) {
        rows += row(entry.objectName, *entry.get().value(),
                    {"Brisel::Color::" + std::string(entry.name) + "()",
                     "VLMBriselColors::" + std::string(entry.objectName) + "()"});
      }
      addFamily(family.title, rows);
    }
    endSection();
    section_ = "Older names, on the object interface alone";
    std::string rows;
    for (const auto& entry : Catalogue::legacyColors()) {
      rows += row(entry.objectName, *entry.get(), {"VLMBriselColors::" + std::string(entry.objectName) + "()"});
    }
    addFamily("Older names", rows);
    endSection();
    page_.markup = fillTemplate(siteFile("colours.html"), {{"facts", facts()}, {"sections", sections_}});
    return std::move(page_);
  }

 private:
  std::string row(std::string_view name, const Platform::UIColor& color, std::vector<std::string> names) {
    const std::string identifier(name);
    const Picture picture = pictures_.add("pictures/colours/" + identifier, kSwatch, [color](Platform::Canvas& canvas) {
      fillSwatch(canvas, {{}, kSwatch}, color);
    });
    std::string cells;
    for (const std::string& code : names) {
      cells += fillTemplate(siteFile("colour_name.html"),
                            {{"class", names.size() == 1 ? "only name" : "name"}, {"name", code}});
    }
    const std::string hex = hexText(color);
    page_.items.push_back({identifier, hex, picture.path + ".png", names});
    return fillTemplate(siteFile("colour_row.html"), {{"id", identifier},
                                                      {"copy", names.front()},
                                                      {"image", picture.attributes()},
                                                      {"names", cells},
                                                      {"components", componentText(color)},
                                                      {"hex", hex}});
  }

  void addFamily(std::string_view title, std::string_view rows) {
    const std::string fragment = fragmentFor("family-", title);
    ++familiesOfSection_;
    families_ += fillTemplate(siteFile("colour_family.html"), {{"id", fragment}, {"title", title}, {"rows", rows}});
    page_.contents.emplace_back(fragment, title);
  }

  void endSection() {
    if (section_.empty()) return;
    sections_ += fillTemplate(siteFile("colour_section.html"), {{"id", fragmentFor("section-", section_)},
                                                                {"title", section_},
                                                                {"kind", familiesOfSection_ == 1 ? "single" : "ramps"},
                                                                {"families", families_}});
    families_.clear();
    familiesOfSection_ = 0;
  }

  std::string facts() const {
    return std::to_string(Catalogue::colors().size()) + " colours on both interfaces and " +
           std::to_string(Catalogue::legacyColors().size()) +
           " older names on the object interface. A click on a name or a value copies it.";
  }

  PictureBook& pictures_;
  Page page_;
  std::string_view section_;
  std::string sections_, families_;
  int familiesOfSection_ = 0;
};

}  // namespace

Page makeColorPage(PictureBook& pictures) { return ColorPage(pictures).make(); }

}  // namespace Brisel::Gallery
