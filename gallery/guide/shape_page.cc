#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>
#include <utility>

#include "brisel/icons/icon_image.h"
#include "brisel/infrastructure/image_enlarging.h"
#include "brisel/infrastructure/shape_images.h"
#include "brisel/platform/views/image_renderer.h"
#include "brisel/platform/views/text_drawing.h"
#include "brisel/themes/theme.h"
#include "brisel/tokens/color.h"
#include "brisel/typography/type_style.h"

#include "gallery/commands/compare_command.h"
#include "gallery/guide/artwork.h"
#include "gallery/guide/html.h"
#include "gallery/guide/pages.h"
#include "gallery/guide/site_files.h"
#include "gallery/guide/specimens.h"

namespace Brisel::Gallery {
namespace {

using Platform::CGFloat, Platform::ImagePtr;
using Make = std::function<ImagePtr()>;

constexpr CGFloat kSide = 144;  // points, of the pictures that shapes are put round
constexpr std::uint64_t kEnlarged = 8;

Platform::ColorPtr text() { return Theme::dark().base().text().base(); }
Platform::ColorPtr accent() { return Theme::dark().base().essential().brightAccent(); }
Platform::ColorPtr announcement() { return Theme::dark().base().essential().announcement(); }

ImagePtr icon(const Icon& icon, CGFloat side, std::optional<Icon::GlyphSize> design = std::nullopt) {
  return image(icon, {side, side}, design, text(), Platform::UIColor::clearColor());
}

ImagePtr enlarged(const ImagePtr& picture) {
  return imageByScaling(*picture, kEnlarged, Platform::CGInterpolationQuality::none, Color::gray50().value());
}

// The same icon in both designs, and where they differ.
ImagePtr designs() {
  return difference(*icon(Icon::heart(), 16, Icon::GlyphSize::x16), icon(Icon::heart(), 16, Icon::GlyphSize::x24), 0.1)
      .picture;
}

// Images beside one another, eight points apart, on one line at their feet.
ImagePtr inARow(const std::vector<ImagePtr>& images) {
  constexpr CGFloat kGap = 8;
  Platform::CGSize size{-kGap, 0};
  for (const ImagePtr& image : images) {
    size.width += kGap + image->size().width;
    size.height = std::max(size.height, image->size().height);
  }
  return Platform::UIGraphicsImageRenderer(size).image([&](Platform::Canvas& canvas) {
    CGFloat left = 0;
    for (const ImagePtr& image : images) {
      drawAtPoint(*image, canvas, {left, size.height - image->size().height});
      left += image->size().width + kGap;
    }
  });
}

ImagePtr badge(CGFloat side, const Platform::ColorPtr& color) { return verifiedIndicator({side, side}, color); }

ImagePtr badgeSizes() {
  std::vector<ImagePtr> badges;
  for (const CGFloat side : {16, 24, 32, 48, 64}) badges.push_back(badge(side, announcement()));
  return inARow(badges);
}

ImagePtr badgeColors() {
  return inARow({badge(48, accent()), badge(48, Color::pink115().value()), badge(48, Color::violet84().value()),
                 badge(48, Color::tangerine120().value())});
}

ImagePtr badgeBesideName() {
  const Platform::TextDrawing name(
      *specimenText("The Quiet Hours", TypeStyle::celloCanon(), ContentSizeCategory::large));
  constexpr CGFloat kBadge = 20;
  const Platform::CGSize size{name.size().width + 6 + kBadge, name.size().height};
  return Platform::UIGraphicsImageRenderer(size).image([&](Platform::Canvas& canvas) {
    name.draw(canvas, {0, 0});
    drawAtPoint(*badge(kBadge, announcement()), canvas, {size.width - kBadge, std::round((size.height - kBadge) / 2)});
  });
}

ImagePtr badgeOnPortrait() {
  const ImagePtr round = withCircle(*portrait(kSide), kSide, 0, text(), Color::kleinBlue61().value(), false);
  return Platform::UIGraphicsImageRenderer({kSide, kSide}).image([&](Platform::Canvas& canvas) {
    drawAtPoint(*withDot(*round, 0, 46, {121, 121}, text()), canvas, {0, 0});
    drawAtPoint(*badge(40, announcement()), canvas, {101, 101});
  });
}

class ShapePage {
 public:
  explicit ShapePage(PictureBook& pictures) : pictures_(pictures) {
    page_.file = "shapes.html";
    page_.name = "Shapes";
  }

  Page make() && {
    sources();
    circles();
    stars();
    dots();
    badges();
    looks();
    page_.markup = fillTemplate(siteFile("shapes.html"), {{"sections", sections_}});
    return std::move(page_);
  }

 private:
  // `calls` are code on the value-type interface and on the object interface.
  void specimen(std::string_view title, const Make& make, const std::vector<std::string>& calls) {
    std::string code;
    for (const std::string& call : calls) code += fillTemplate(siteFile("shape_code.html"), {{"code", call}});
    const std::string path = "pictures/shapes/" + fragment_ + "-" + std::to_string(++count_);
    const Picture picture = pictures_.addImage(path, make, specimenGround());
    specimens_ += fillTemplate(siteFile("shape_specimen.html"),
                               {{"title", title}, {"image", picture.attributes()}, {"code", code}});
  }

  void begin(std::string fragment) {
    fragment_ = std::move(fragment);
    specimens_.clear();
    count_ = 0;
  }

  void end(std::string_view title, std::string_view lead, std::vector<std::string> names) {
    sections_ += fillTemplate(siteFile("shape_section.html"),
                              {{"id", fragment_}, {"title", title}, {"lead", lead}, {"specimens", specimens_}});
    page_.contents.emplace_back(fragment_, title);
    if (!names.empty()) page_.items.push_back({fragment_, "image", {}, std::move(names)});
  }

  void sources() {
    begin("pictures");
    specimen("Cover, opaque", [] { return albumCover(kSide); }, {});
    specimen("Portrait, transparent round her", [] { return portrait(kSide); }, {});
    specimen("Heart, transparent round the glyph", [] { return icon(Icon::heartActive(), kSide); },
             {"Brisel::image(Brisel::Icon::heartActive(), {144, 144}, std::nullopt, color, UIColor::clearColor())",
              "brisel_imageForIcon(VLMBriselIconHeartActive, {144, 144}, color)"});
    end("The pictures", "All that follows is made of these three, each 144 points wide and high.", {});
  }

  void circles() {
    begin("circle");
    specimen("The picture within a circle",
             [] { return withCircle(*albumCover(kSide), 144, 4, text(), nullptr, false); },
             {"Brisel::withCircle(*cover, 144, 4, line, nullptr, false)",
              "brisel_withCircleOfDiameter(*cover, 144, line, 4, nullptr)"});
    specimen("A fill shows behind what is transparent",
             [] { return withCircle(*portrait(kSide), 144, 4, accent(), Color::kleinBlue61().value(), false); },
             {"Brisel::withCircle(*portrait, 144, 4, line, fill, false)",
              "brisel_withCircleOfDiameter(*portrait, 144, line, 4, fill)"});
    specimen("Cut out of the portrait",
             [] { return withCircle(*portrait(kSide), 144, 10, accent(), Color::kleinBlue61().value(), true); },
             {"Brisel::withCircle(*portrait, 144, 10, line, fill, true)",
              "brisel_withCircleOfDiameter(*portrait, 144, line, 10, fill, true)"});
    specimen(
        "Cut out of the heart",
        [] { return withCircle(*icon(Icon::heartActive(), kSide), 104, 8, text(), Color::pink115().value(), true); },
        {"Brisel::withCircle(*heart, 104, 8, line, fill, true)",
         "brisel_withCircleOfDiameter(*heart, 104, line, 8, fill, true)"});
    end("Circle", "The canvas has room for the picture and the circle. The line lies within the diameter.",
        {"Brisel::withCircle", "brisel_withCircleOfDiameter", "briselSwift_withCircleOfDiameter"});
  }

  void stars() {
    begin("star");
    specimen("The picture within a star of 12 points",
             [] { return withStar(*albumCover(kSide), 144, 116, 12, text(), false); },
             {"Brisel::withStar(*cover, 144, 116, 12, fill, false)",
              "brisel_withStarOfDiameter(*cover, 144, 116, 12, fill)"});
    specimen("The star shows behind what is transparent",
             [] { return withStar(*portrait(kSide), 160, 132, 16, Color::violet84().value(), false); },
             {"Brisel::withStar(*portrait, 160, 132, 16, fill, false)",
              "brisel_withStarOfDiameter(*portrait, 160, 132, 16, fill)"});
    specimen(
        "Five points round an icon",
        [] { return withStar(*icon(Icon::heartActive(), 40), 144, 72, 5, Color::pink115().value(), false); },
        {"Brisel::withStar(*icon, 144, 72, 5, fill, false)", "brisel_withStarOfDiameter(*icon, 144, 72, 5, fill)"});
    specimen("Cut out of the portrait",
             [] { return withStar(*portrait(kSide), 144, 116, 16, Color::sunflower172().value(), true); },
             {"Brisel::withStar(*portrait, 144, 116, 16, fill, true)",
              "brisel_withStarOfDiameter(*portrait, 144, 116, 16, fill, true)"});
    end("Star", "One of its points is on top; its notches lie on a circle of their own.",
        {"Brisel::withStar", "brisel_withStarOfDiameter", "briselSwift_withStarOfDiameter"});
  }

  void dots() {
    begin("dot");
    const auto round = [] { return withCircle(*portrait(kSide), 144, 0, text(), Color::kleinBlue61().value(), false); };
    specimen("A gap is cut out round the dot",
             [round] {
               return withDot(*round(), 30, 44, {123, 123}, accent());
             },
             {"Brisel::withDot(*round, 30, 44, {123, 123}, fill)",
              "brisel_withDotOfDiameter(*round, 30, 44, {123, 123}, fill)"});
    specimen("Without a gap",
             [round] {
               return withDot(*round(), 30, 0, {123, 123}, accent());
             },
             {"Brisel::withDot(*round, 30, 0, {123, 123}, fill)",
              "brisel_withDotOfDiameter(*round, 30, 0, {123, 123}, fill)"});
    specimen("On the cover",
             [] {
               return withDot(*albumCover(kSide), 24, 36, {126, 18}, announcement());
             },
             {"Brisel::withDot(*cover, 24, 36, {126, 18}, fill)",
              "brisel_withDotOfDiameter(*cover, 24, 36, {126, 18}, fill)"});
    specimen(
        "On an icon",
        [] {
          return withDot(*icon(Icon::notifications(), 96), 26, 38, {72, 22}, announcement());
        },
        {"Brisel::withDot(*icon, 26, 38, {72, 22}, fill)", "brisel_withDotOfDiameter(*icon, 26, 38, {72, 22}, fill)"});
    end("Dot", "Its position is that of its middle. The canvas is that of the picture.",
        {"Brisel::withDot", "brisel_withDotOfDiameter", "briselSwift_withDotOfDiameter"});
  }

  void badges() {
    begin("badge");
    specimen("16, 24, 32, 48 and 64 points", [] { return badgeSizes(); },
             {"Brisel::verifiedIndicator({16, 16}, fill)", "brisel_verifiedIndicatorForSize({16, 16}, fill)"});
    specimen("In any colour", [] { return badgeColors(); },
             {"Brisel::verifiedIndicator({48, 48}, fill)", "brisel_verifiedIndicatorForSize({48, 48}, fill)"});
    specimen("Beside a name", [] { return badgeBesideName(); },
             {"Brisel::verifiedIndicator({20, 20}, fill)", "brisel_verifiedIndicatorForSize({20, 20}, fill)"});
    specimen("In the gap of a dot", [] { return badgeOnPortrait(); },
             {"Brisel::verifiedIndicator({40, 40}, fill)", "brisel_verifiedIndicatorForSize({40, 40}, fill)"});
    end("Verified badge", "A rosette with a white check mark of half its size.",
        {"Brisel::verifiedIndicator", "brisel_verifiedIndicatorForSize", "briselSwift_verifiedIndicatorForSize"});
  }

  void looks() {
    begin("close");
    specimen("The heart at 12 points, eight times", [] { return enlarged(icon(Icon::heart(), 12)); },
             {"Brisel::imageByScaling(*heart, 8, CGInterpolationQuality::none, grid)",
              "brisel_imageByScaling(*heart, 8, CGInterpolationQuality::none, grid)"});
    specimen("At 16 points, in the design for 16",
             [] { return enlarged(icon(Icon::heart(), 16, Icon::GlyphSize::x16)); }, {});
    specimen("In the design for 24: no longer equal within a tenth",
             [] { return enlarged(icon(Icon::heart(), 16, Icon::GlyphSize::x24)); },
             {"Brisel::isEqualToPixels(*first, second, 0.1)", "brisel_isEqualToPixelsInImage(*first, second, 0.1)"});
    specimen("Their difference, by more than a tenth", [] { return enlarged(designs()); },
             {"Brisel::imageByBlendingUsingRgbaBlock(*first, second, block)",
              "brisel_imageByBlendingWithImageUsingRgbaBlock(*first, second, block)"});
    end("Pixels",
        "Pictures enlarged under a grid, compared and blended. The pixels are those of the screen that you look at.",
        {"Brisel::imageByScaling", "brisel_imageByScaling", "Brisel::isEqualToPixels", "brisel_isEqualToPixelsInImage",
         "Brisel::imageByBlendingUsingRgbaBlock", "brisel_imageByBlendingWithImageUsingRgbaBlock"});
  }

  PictureBook& pictures_;
  Page page_;
  std::string fragment_, specimens_, sections_;
  int count_ = 0;
};

}  // namespace

Page makeShapePage(PictureBook& pictures) { return ShapePage(pictures).make(); }

}  // namespace Brisel::Gallery
