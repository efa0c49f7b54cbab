#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#include "brisel/platform/views/text_drawing.h"
#include "brisel/tokens/catalogue.h"
#include "brisel/typography/catalogue.h"

#include "gallery/catalogue_names.h"
#include "gallery/html.h"
#include "gallery/pages.h"
#include "gallery/site_files.h"
#include "gallery/specimens.h"
#include "gallery/swatches.h"

namespace Brisel::Gallery {
namespace {

using Colors = std::vector<Platform::UIColor>;

constexpr double kWidth = 525;       // points; each of the 25 ramps has 21
constexpr double kRampHeight = 240;  // points
constexpr double kBandHeight = 32;   // points
constexpr double kGap = 8;           // points
constexpr double kTextsFrom = 270;   // points

// All colours: the ramps as columns beside one another, all others as bands below.
class ColorChart {
 public:
  ColorChart() {
    Colors strays;
    for (const auto& family : Catalogue::colorFamilies()) {
      Colors colors;
      for (const auto& entry : family.colors) colors.push_back(*entry.get().value());
      if (family.section == "Hue ramps") {
        ramps_.push_back(std::move(colors));
      } else if (colors.size() > 1) {
        bands_.push_back(std::move(colors));
      } else {
        strays.insert(strays.end(), colors.begin(), colors.end());
      }
    }
    bands_.back().insert(bands_.back().begin(), strays.begin(), strays.end());
    Colors older;
    for (const auto& entry : Catalogue::legacyColors()) older.push_back(*entry.get());
    const auto half = older.begin() + static_cast<std::ptrdiff_t>(older.size() / 2);
    bands_.emplace_back(older.begin(), half);
    bands_.emplace_back(half, older.end());
  }

  Platform::CGSize size() const {
    return {kWidth, kRampHeight + static_cast<double>(bands_.size()) * (kGap + kBandHeight)};
  }

  void paint(Platform::Canvas& canvas) const {
    canvas.fillRect({{}, size()}, specimenGround());
    for (std::size_t i = 0; i < ramps_.size(); ++i) {
      const auto [left, width] = part(kWidth, i, ramps_.size());
      for (std::size_t step = 0; step < ramps_[i].size(); ++step) {
        const auto [top, height] = part(kRampHeight, step, ramps_[i].size());
        fillSwatch(canvas, {{left, top}, {width, height}}, ramps_[i][step]);
      }
    }
    double top = kRampHeight + kGap;
    for (const Colors& band : bands_) {
      for (std::size_t i = 0; i < band.size(); ++i) {
        const auto [left, width] = part(kWidth, i, band.size());
        fillSwatch(canvas, {{left, top}, {width, kBandHeight}}, band[i]);
      }
      top += kGap + kBandHeight;
    }
  }

 private:
  struct Stretch {
    double start, length;
  };
  // One of `count` equal parts, on whole points so that neighbours leave no seam.
  static Stretch part(double whole, std::size_t index, std::size_t count) {
    const auto edge = [&](std::size_t i) {
      return std::round(whole * static_cast<double>(i) / static_cast<double>(count));
    };
    return {edge(index), edge(index + 1) - edge(index)};
  }

  std::vector<Colors> ramps_, bands_;
};

// All styles' names, each in its own style: titles on the left, texts on the right.
class TypeChart {
 public:
  explicit TypeChart(ContentSizeCategory category) {
    std::vector<const TypeStyle*> ordered;
    for (const Catalogue::TypeStyleEntry& style : Catalogue::typeStyles()) ordered.push_back(&style.get());
    std::stable_sort(ordered.begin(), ordered.end(),
                     [](const TypeStyle* a, const TypeStyle* b) { return a->fontSize() > b->fontSize(); });
    double tops[] = {0, 0};
    for (const TypeStyle* style : ordered) {
      const bool isTitle = style->primaryFont() == Font::tondalTitle;
      double& top = tops[isTitle ? 0 : 1];
      Line line{Platform::TextDrawing(*specimenText(style->name(), *style, category)), {isTitle ? 0 : kTextsFrom, top}};
      top += line.drawing.size().height;
      lines_.push_back(std::move(line));
    }
    height_ = std::max(tops[0], tops[1]);
  }

  Platform::CGSize size() const { return {kWidth, height_}; }

  void paint(Platform::Canvas& canvas) const {
    canvas.fillRect({{}, {size().width, std::ceil(height_)}}, specimenGround());
    for (const Line& line : lines_) line.drawing.draw(canvas, line.at);
  }

 private:
  struct Line {
    Platform::TextDrawing drawing;
    Platform::CGPoint at;
  };
  std::vector<Line> lines_;
  double height_ = 0;
};

template <class Chart>
Picture plan(PictureBook& pictures, const std::string& path, std::shared_ptr<const Chart> chart) {
  return pictures.add(path, chart->size(), [chart](Platform::Canvas& canvas) { chart->paint(canvas); });
}

}  // namespace

Page makeStartPage(PictureBook& pictures) {
  Page page;
  page.file = "index.html";
  page.name = "Start";
  const std::size_t colors = Catalogue::colors().size() + Catalogue::legacyColors().size();
  page.markup = fillTemplate(
      siteFile("start.html"),
      {{"control", textSizeControl()},
       {"colourFacts",
        std::to_string(colors) + " colours in " + std::to_string(Catalogue::colorFamilies().size() + 1) + " families"},
       {"typeFacts", std::to_string(Catalogue::typeStyles().size()) + " styles in " +
                         std::to_string(categories().size()) + " text sizes"},
       {"colours", plan(pictures, "pictures/start/colours", std::make_shared<const ColorChart>()).attributes()},
       {"type", followingPicture("pictures/start/type", [&](const std::string& path, ContentSizeCategory category) {
          return plan(pictures, path, std::make_shared<const TypeChart>(category));
        })}});
  return page;
}

}  // namespace Brisel::Gallery
