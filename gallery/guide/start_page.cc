#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#include "brisel/icons/catalogue.h"
#include "brisel/icons/icon_image.h"
#include "brisel/infrastructure/shape_images.h"
#include "brisel/platform/bezier_path.h"
#include "brisel/platform/views/image_renderer.h"
#include "brisel/platform/views/text_drawing.h"
#include "brisel/themes/catalogue.h"
#include "brisel/themes/theme.h"
#include "brisel/tokens/catalogue.h"
#include "brisel/typography/catalogue.h"

#include "gallery/catalogue_names.h"
#include "gallery/code_names.h"
#include "gallery/drawing.h"
#include "gallery/guide/artwork.h"
#include "gallery/guide/curve_drawing.h"
#include "gallery/guide/html.h"
#include "gallery/guide/name_chart.h"
#include "gallery/guide/pages.h"
#include "gallery/guide/published_names.h"
#include "gallery/guide/site_files.h"
#include "gallery/guide/specimens.h"
#include "gallery/guide/swatches.h"
#include "gallery/guide/text_view_specimens.h"
#include "gallery/guide/theme_card.h"
#include "gallery/guide/token_drawing.h"

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

// All icons.
class IconChart {
 public:
  Platform::CGSize size() const {
    return {kWidth, std::ceil(static_cast<double>(Catalogue::icons().size()) / kColumns) * kPitch};
  }

  void paint(Platform::Canvas& canvas) const {
    canvas.fillRect({{}, size()}, specimenGround());
    int place = 0;
    for (const Catalogue::IconEntry& entry : Catalogue::icons()) {
      const int column = place % kColumns, row = place / kColumns;
      drawAtPoint(*image(entry.get(), {kSide, kSide}, std::nullopt, Theme::dark().base().text().base(),
                         Platform::UIColor::clearColor()),
                  canvas, {column * kPitch, row * kPitch});
      ++place;
    }
  }

 private:
  static constexpr int kColumns = 21;
  static constexpr double kPitch = 25;  // points
  static constexpr double kSide = 20;   // points
};

// Shapes on the pictures that the page of shapes uses, in two rows of three.
class ShapeChart {
 public:
  static Platform::CGSize size() { return {kWidth, 2 * kCell}; }

  static void paint(Platform::Canvas& canvas) {
    canvas.fillRect({{}, size()}, specimenGround());
    const auto glyph = [](const Icon& icon, double side) {
      return image(icon, {side, side}, std::nullopt, Color::white().value(), Platform::UIColor::clearColor());
    };
    const Platform::ColorPtr line = Color::white().value(), ground = Color::kleinBlue61().value(),
                             accent = Theme::dark().base().essential().brightAccent(), pink = Color::pink115().value();
    const auto round = withCircle(*portrait(kSide), kSide, 0, line, ground, false);
    const Platform::ImagePtr shapes[] = {
        withCircle(*albumCover(kSide), kSide, 4, line, nullptr, false),
        withDot(*round, 32, 46, {kSide - 20, kSide - 20}, accent),
        withStar(*glyph(Icon::heartActive(), 44), kSide, 76, 5, pink, false),
        withStar(*portrait(kSide - 8), kSide + 8, 132, 16, Color::violet84().value(), false),
        withCircle(*glyph(Icon::heartActive(), kSide), 112, 8, line, pink, true),
        verifiedIndicator({kSide - 24, kSide - 24}, Theme::dark().base().essential().announcement()),
    };
    for (int i = 0; i < 6; ++i) {
      const Platform::CGSize own = shapes[i]->size();
      const int column = i % 3, row = i / 3;
      drawAtPoint(*shapes[i], canvas,
                  {column * kWidth / 3 + std::round((kWidth / 3 - own.width) / 2),
                   row * kCell + std::round((kCell - own.height) / 2)});
    }
  }

 private:
  static constexpr double kCell = 196;  // points
  static constexpr double kSide = 152;  // points
};

// All colour sets, in five rows of five.
class ThemeChart {
 public:
  static Platform::CGSize size() { return {kWidth, 5 * kThemeTile.height + 4 * kGap}; }

  static void paint(Platform::Canvas& canvas) {
    canvas.fillRect({{}, size()}, specimenGround());
    const std::vector<NamedColorSet> sets = allColorSets();
    for (std::size_t i = 0; i < sets.size(); ++i) {
      const auto column = static_cast<int>(i % 5), row = static_cast<int>(i / 5);
      paintThemeTile(canvas, sets[i].colors,
                     {std::round(column * (kWidth - kThemeTile.width) / 4), row * (kThemeTile.height + kGap)});
    }
  }
};

// All spacers between bars, from the narrowest to the widest, and below them all opacities on a picture each.
class TokenChart {
 public:
  static Platform::CGSize size() { return {kWidth, kTilesFrom + tileSide() + kLabel}; }

  static void paint(Platform::Canvas& canvas) {
    canvas.fillRect({{}, size()}, specimenGround());
    const auto& text = Theme::dark().base().text();
    double x = 0;
    for (const auto& entry : Catalogue::spacers()) {
      const double gap = entry.get().value();
      canvas.fillRect({{x, 0}, {kBar, kBarHeight}}, *text.base());
      x += kBar;
      drawLine(canvas, decimal(gap), TypeStyle::finale(), text.subdued(), {{x, kBarHeight}, {gap, kLabel}},
               Alignment::middle);
      x += gap;
    }
    canvas.fillRect({{x, 0}, {kBar, kBarHeight}}, *text.base());

    const double side = tileSide(), inset = Spacer::x16().value();
    const Platform::ImagePtr picture = landscape(side);
    double left = 0;
    for (const auto& entry : Catalogue::opacities()) {
      drawAtPoint(*picture, canvas, {left, kTilesFrom});
      paintLayer(canvas, {{left + inset, kTilesFrom + inset}, {side - 2 * inset, side - 2 * inset}}, entry.get());
      drawLine(canvas, decimal(entry.get().value()), TypeStyle::finale(), text.subdued(),
               {{left, kTilesFrom + side}, {side, kLabel}}, Alignment::middle);
      left += side + kGap;
    }
  }

 private:
  static constexpr double kBar = 3;                                                  // points
  static constexpr double kBarHeight = 300;                                          // points
  static constexpr double kLabel = 24;                                               // points
  static constexpr double kTilesFrom = kBarHeight + kLabel + Spacer::x24().value();  // points

  // As many as there are opacities, on whole points.
  static double tileSide() {
    const auto count = static_cast<double>(Catalogue::opacities().size());
    return std::floor((kWidth + kGap) / count - kGap);
  }
};

// A row for each curve: where what it eases is at equal times, from left to right.
class CurveChart {
 public:
  static Platform::CGSize size() { return {kWidth, static_cast<double>(namedCurves().size()) * kRow}; }

  static void paint(Platform::Canvas& canvas) {
    canvas.fillRect({{}, size()}, specimenGround());
    const Theme::ColorSet& colors = Theme::dark().base();
    double top = 0;
    for (const NamedCurve& named : namedCurves()) {
      drawLine(canvas, named.title, TypeStyle::mesto(), colors.text().subdued(), {{0, top}, {kFrom, kRow}});
      const auto curve = named.make();
      const double middle = top + kRow / 2;
      canvas.fillRect({{kFrom, middle - 0.5}, {kTo - kFrom, 1}}, *colors.decorative().subdued());
      for (int time = 0; time <= kTimes; ++time) {
        const double x = kFrom + (kTo - kFrom) * curve->yForGivenX(static_cast<double>(time) / kTimes);
        canvas.fillPath(
            Platform::UIBezierPath::bezierPathWithOvalInRect({{x - kDot, middle - kDot}, {2 * kDot, 2 * kDot}}),
            *colors.text().base());
      }
      top += kRow;
    }
  }

 private:
  static constexpr double kRow = 72;          // points
  static constexpr double kFrom = 128;        // points
  static constexpr double kTo = kWidth - 56;  // points: what overshoots has room behind it
  static constexpr double kDot = 5;           // points, half a dot's width
  static constexpr int kTimes = 20;
};

template <class Chart>
Picture plan(PictureBook& pictures, const std::string& path, const std::shared_ptr<const Chart>& chart) {
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
       {"textViewFacts", "Labels, fields, text views and buttons in the styles"},
       {"iconFacts", std::to_string(Catalogue::icons().size()) + " icons in 2 designs"},
       {"shapeFacts", "Circles, stars, dots and the verified badge"},
       {"themeFacts", std::to_string(Catalogue::colorSets().size()) + " colour sets of the dark theme and " +
                          std::to_string(Catalogue::campaignColorSets().size()) + " for campaigns, " +
                          std::to_string(Catalogue::slots().size()) + " slots each"},
       {"tokenFacts", std::to_string(Catalogue::spacers().size()) + " spacers and " +
                          std::to_string(Catalogue::opacities().size()) + " opacities"},
       {"curveFacts", "Cubic Bézier curves that ease animations"},
       {"curves", plan(pictures, "pictures/start/curves", std::make_shared<const CurveChart>()).attributes()},
       {"referenceFacts", std::to_string(publishedEntryCount()) + " names, value types beside objects"},
       {"reference",
        plan(pictures, "pictures/start/reference", std::make_shared<const NameChart>(kWidth)).attributes()},
       {"themes", plan(pictures, "pictures/start/themes", std::make_shared<const ThemeChart>()).attributes()},
       {"tokens", plan(pictures, "pictures/start/tokens", std::make_shared<const TokenChart>()).attributes()},
       {"icons", plan(pictures, "pictures/start/icons", std::make_shared<const IconChart>()).attributes()},
       {"shapes", plan(pictures, "pictures/start/shapes", std::make_shared<const ShapeChart>()).attributes()},
       {"colours", plan(pictures, "pictures/start/colours", std::make_shared<const ColorChart>()).attributes()},
       {"type", followingPicture("pictures/start/type",
                                 [&](const std::string& path, ContentSizeCategory category) {
                                   return plan(pictures, path, std::make_shared<const TypeChart>(category));
                                 })},
       {"textViews",
        followingPicture("pictures/start/text-views", [&](const std::string& path, ContentSizeCategory category) {
          return pictures.addView(path, textViewScreen(kWidth, category));
        })}});
  return page;
}

}  // namespace Brisel::Gallery
