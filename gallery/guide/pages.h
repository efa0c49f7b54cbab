// The pages of the style guide.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "gallery/guide/picture_book.h"

namespace Brisel::Gallery {

/// Something that search finds.
struct Item {
  std::string identifier;  // also the fragment of its address
  std::string value;
  std::string picture;             // a file, and behind blanks the place in it, x and y; empty where it has none
  std::vector<std::string> names;  // in code; the first is what is copied
};

struct Page {
  std::string file;
  std::string name;                                           // in the navigation
  std::vector<std::pair<std::string, std::string>> contents;  // fragment and title of each of its parts
  std::string markup;
  std::vector<Item> items;
};

// Each plans the pictures that it needs.
Page makeStartPage(PictureBook& pictures);
Page makeColorPage(PictureBook& pictures);
Page makeTypePage(PictureBook& pictures);
Page makeTextViewPage(PictureBook& pictures);
Page makeIconPage(PictureBook& pictures);
Page makeShapePage(PictureBook& pictures);
Page makeThemePage(PictureBook& pictures);
Page makeTokenPage(PictureBook& pictures);
Page makeCurvePage(PictureBook& pictures);

/// Lists every published name; what the other pages show, it links to there. Needs no picture.
Page makeReferencePage(const std::vector<Page>& others);

/// The colour sets and their slots as data of the search, which tells the names of slots from it: there are too many of
/// them to list each with all its names.
std::string slotNamesScript();

}  // namespace Brisel::Gallery
