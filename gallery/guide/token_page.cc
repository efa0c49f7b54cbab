#include "brisel/tokens/catalogue.h"

#include "gallery/catalogue_names.h"
#include "gallery/code_names.h"
#include "gallery/guide/html.h"
#include "gallery/guide/pages.h"
#include "gallery/guide/site_files.h"
#include "gallery/guide/token_drawing.h"

namespace Brisel::Gallery {
namespace {

class TokenPage {
 public:
  explicit TokenPage(PictureBook& pictures) : pictures_(pictures) {
    page_.file = "tokens.html";
    page_.name = "Tokens";
    page_.contents = {{"spacers", "Spacers"}, {"opacities", "Opacities"}, {"other-tools", "In other tools"}};
  }

  Page make() && {
    std::string spacers, opacities;
    for (const auto& entry : Catalogue::spacers()) {
      const Spacer spacer = entry.get();
      spacers += row(entry.objectName, codeNames(entry), spacer.value(), "points", kSpacerPicture,
                     [spacer](Platform::Canvas& canvas) { paintSpacer(canvas, spacer); });
    }
    for (const auto& entry : Catalogue::opacities()) {
      const Opacity opacity = entry.get();
      opacities += row(entry.objectName, codeNames(entry), opacity.value(), "", kOpacityPicture,
                       [opacity](Platform::Canvas& canvas) { paintOpacity(canvas, opacity); });
    }
    page_.markup =
        fillTemplate(siteFile("tokens.html"), {{"spacerCount", std::to_string(Catalogue::spacers().size())},
                                               {"opacityCount", std::to_string(Catalogue::opacities().size())},
                                               {"spacers", spacers},
                                               {"opacities", opacities}});
    return std::move(page_);
  }

 private:
  std::string row(std::string_view name, const CodeNames& code, double number, std::string_view unit,
                  Platform::CGSize size, PictureBook::Paint paint) {
    const std::string id(name), value = decimal(number);
    const Picture picture = pictures_.add("pictures/tokens/" + id, size, std::move(paint));
    page_.items.push_back({id, value, picture.path + ".png", {code.valueInterface, code.objectInterface}});
    return fillTemplate(siteFile("token_row.html"), {{"id", id},
                                                     {"image", picture.attributes()},
                                                     {"code", code.valueInterface},
                                                     {"objectCode", code.objectInterface},
                                                     {"value", value},
                                                     {"unit", unit}});
  }

  PictureBook& pictures_;
  Page page_;
};

}  // namespace

Page makeTokenPage(PictureBook& pictures) { return TokenPage(pictures).make(); }

}  // namespace Brisel::Gallery
