#include "gallery/guide/icon_sheets.h"

#include "brisel/icons/catalogue.h"
#include "brisel/icons/icon_constants.h"
#include "brisel/icons/icon_image.h"
#include "brisel/platform/views/image_renderer.h"
#include "brisel/themes/theme.h"

#include "gallery/guide/html.h"
#include "gallery/guide/site_files.h"
#include "gallery/guide/specimens.h"

namespace Brisel::Gallery {
namespace {

constexpr int kColumns = 24;
constexpr int kRows = (static_cast<int>(kIconNumberCount) - 1 + kColumns - 1) / kColumns;  // of each design
constexpr int kGutter = 2;  // points, so that no neighbour shows through where a browser rounds

// On each sheet the 16-point designs are above, the 24-point ones below, in the order of their numbers.
struct Place {
  int column, row;
};
Place placeOn(const Icon& icon, Icon::GlyphSize design) {
  const int index = static_cast<int>(iconNumber(icon.name())) - 1;
  return {index % kColumns, index / kColumns + design.rank() * kRows};
}

Platform::CGSize sheetSize(int size) {
  const double pitch = size + kGutter;
  return {kColumns * pitch, 2 * kRows * pitch};
}

std::string sheetPath(int size) { return "pictures/icons/" + std::to_string(size); }

void paint(Platform::Canvas& canvas, int size) {
  const double side = size, pitch = size + kGutter;
  canvas.fillRect({{}, sheetSize(size)}, specimenGround());
  for (const Catalogue::IconEntry& entry : Catalogue::icons()) {
    for (const Icon::GlyphSize design : Icon::GlyphSize::allCases()) {
      const Place place = placeOn(entry.get(), design);
      const auto picture =
          image(entry.get(), {side, side}, design, Theme::dark().base().text().base(), Platform::UIColor::clearColor());
      drawAtPoint(*picture, canvas, {place.column * pitch, place.row * pitch});
    }
  }
}

}  // namespace

IconSheets::IconSheets(PictureBook& pictures) {
  for (const int size : kSizes) {
    const Picture picture =
        pictures.add(sheetPath(size), sheetSize(size), [size](Platform::Canvas& canvas) { paint(canvas, size); });
    if (size == kFirstShown) firstShown_ = picture.path + ".png";
  }
}

std::string IconSheets::placeOf(const Icon& icon) {
  const Place small = placeOn(icon, Icon::GlyphSize::x16), medium = placeOn(icon, Icon::GlyphSize::x24);
  return "--x:" + std::to_string(small.column) + ";--y:" + std::to_string(small.row) +
         ";--z:" + std::to_string(medium.row);
}

std::string IconSheets::pictureOf(const Icon& icon) const {
  const Place place = placeOn(icon, Icon::GlyphSize::x24);
  constexpr int kPitch = kFirstShown + kGutter;
  return firstShown_ + " " + std::to_string(place.column * kPitch) + " " + std::to_string(place.row * kPitch);
}

std::string IconSheets::styleSheet() {
  std::string rules = "/* The sheets that show all icons. */\n";
  for (const int size : kSizes) {
    rules += fillTemplate(siteFile("icon_sheet.css"), {{"size", std::to_string(size)},
                                                       {"pitch", std::to_string(size + kGutter)},
                                                       {"sheet", "../" + sheetPath(size)}});
  }
  return rules;
}

}  // namespace Brisel::Gallery
