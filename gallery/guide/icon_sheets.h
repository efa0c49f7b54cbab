// All icons in both designs as one picture for each size, of which pages show the part that they need.
#pragma once

#include <string>

#include "brisel/icons/icon.h"

#include "gallery/guide/picture_book.h"

namespace Brisel::Gallery {

class IconSheets {
 public:
  static constexpr int kSizes[] = {12, 16, 20, 24, 32, 48, 64};  // points
  static constexpr int kFirstShown = 24;

  /// Plans the sheets.
  explicit IconSheets(PictureBook& pictures);

  /// Where an icon of the catalogue stands on every sheet, as custom properties: columns from the left as --x, rows of
  /// its 16-point design as --y and of its 24-point design as --z.
  static std::string placeOf(const Icon& icon);

  /// An icon's picture for search: a file, and the place of the 24-point design in it.
  std::string pictureOf(const Icon& icon) const;

  /// The rules that show, within an element of class "icons" whose data-size is the size, elements of the classes "x16"
  /// and "x24" as an icon whose place is known.
  static std::string styleSheet();

 private:
  std::string firstShown_;
};

}  // namespace Brisel::Gallery
