// White icons as RGBA bitmaps, all 328 in turn, at 48 and 72 pixels; and one that was drawn before.
//
// "Cold" means that nobody has drawn at this size before: each turn has a size of its own, within two pixels of the
// nominal one, for all alike (but for Qt, whose sizes are whole and whose font is registered anew for each pass over
// the icons). Fonts are open and SVGs in memory.
//
#include <QFontDatabase>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include <cairo-ft.h>
#include <cairo.h>
#include <ft2build.h>
#include <librsvg/rsvg.h>

#include "brisel/icons/icon.h"
#include "brisel/icons/icon_image.h"
#include "brisel/platform/color.h"
#include "brisel/platform/fatal_error.h"
#include "brisel/tokens/color.h"

#include "benchmarks/job.h"
#include "benchmarks/qt_application.h"
#include FT_FREETYPE_H
#include FT_OUTLINE_H

namespace {

using namespace Brisel::Platform;
using Brisel::Icon;

constexpr const char* kFontFile = BRISEL_BUNDLE_DIR "/halvicon.ttf";

const std::vector<Icon>& icons() { return Icon::allCases(); }

char32_t character(std::size_t icon) { return icons()[icon].glyphs().x24()->unichar(); }

// Which icon, and how large. A size comes once.
class Turns {
 public:
  explicit Turns(double pixels) : pixels_(pixels) {}

  std::size_t next() { return ++turn_ % icons().size(); }
  double size() const {
    constexpr double kGoldenRatio = 0.618'033'988'749'894'9;
    return pixels_ - 2 + 4 * std::fmod(kGoldenRatio * static_cast<double>(turn_), 1);
  }
  bool beginsPass() const { return turn_ % icons().size() == 0; }

 private:
  double pixels_;
  std::size_t turn_ = 0;
};

int canvasSide(double pixels) { return static_cast<int>(pixels) + 2; }

// --- Ours ---

void oursCold(benchmark::State& state, double pixels) {
  const auto white = Brisel::Color::white().value();
  const auto clear = UIColor::clearColor();
  const auto side = static_cast<double>(canvasSide(pixels));
  Turns turns(pixels);
  for (auto _ : state) {
    const Icon& icon = icons()[turns.next()];
    const CGSize box{turns.size(), turns.size()};
    benchmark::DoNotOptimize(Brisel::image(icon, box, {side, side}, Icon::GlyphSize::x24, white, clear, {0, 0}));
  }
}

BRISEL_JOB("icon_cold_48/ours", [](auto& state) { oursCold(state, 48); });
BRISEL_JOB("icon_cold_72/ours", [](auto& state) { oursCold(state, 72); });
BRISEL_JOB("icon_cached/ours", [](benchmark::State& state) {
  const auto white = Brisel::Color::white().value();
  const auto clear = UIColor::clearColor();
  Turns turns(48);
  for (auto _ : state) {
    const Icon& icon = icons()[turns.next()];
    benchmark::DoNotOptimize(Brisel::image(icon, {48, 48}, Icon::GlyphSize::x24, white, clear));
  }
});

// --- FreeType ---

FT_Face freeTypeFace() {
  static const FT_Face face = [] {
    FT_Library library = nullptr;
    FT_Face opened = nullptr;
    if (FT_Init_FreeType(&library) != 0 || FT_New_Face(library, kFontFile, 0, &opened) != 0)
      fatalError("The icon font cannot be opened");
    return opened;
  }();
  return face;
}

void freeTypeCold(benchmark::State& state, double pixels) {
  const FT_Face face = freeTypeFace();
  const auto side = static_cast<std::size_t>(canvasSide(pixels));
  Turns turns(pixels);
  for (auto _ : state) {
    const FT_UInt glyph = FT_Get_Char_Index(face, character(turns.next()));
    FT_Set_Char_Size(face, 0, std::lround(turns.size() * 64), 72, 72);
    FT_Load_Glyph(face, glyph, FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP);
    FT_Render_Glyph(face->glyph, FT_RENDER_MODE_NORMAL);
    const FT_Bitmap& coverage = face->glyph->bitmap;
    std::vector<std::uint8_t> rgba(side * side * 4);
    for (std::size_t y = 0; y < coverage.rows && y < side; ++y) {
      const unsigned char* from = coverage.buffer + y * static_cast<std::size_t>(coverage.pitch);
      std::uint8_t* to = rgba.data() + y * side * 4;
      for (std::size_t x = 0; x < coverage.width && x < side; ++x) {
        const std::uint32_t white = from[x] * 0x01010101U;  // premultiplied
        std::memcpy(to + x * 4, &white, 4);
      }
    }
    benchmark::DoNotOptimize(rgba.data());
  }
}

BRISEL_JOB("icon_cold_48/FreeType", [](auto& state) { freeTypeCold(state, 48); });
BRISEL_JOB("icon_cold_72/FreeType", [](auto& state) { freeTypeCold(state, 72); });

// --- Cairo ---

struct CairoDelete {
  void operator()(cairo_surface_t* surface) const noexcept { cairo_surface_destroy(surface); }
  void operator()(cairo_t* context) const noexcept { cairo_destroy(context); }
};

cairo_font_face_t* cairoFace() {
  static cairo_font_face_t* const face = cairo_ft_font_face_create_for_ft_face(freeTypeFace(), FT_LOAD_NO_HINTING);
  return face;
}

void drawByCairo(std::size_t icon, double size, int side) {
  const std::unique_ptr<cairo_surface_t, CairoDelete> surface(
      cairo_image_surface_create(CAIRO_FORMAT_ARGB32, side, side));
  const std::unique_ptr<cairo_t, CairoDelete> context(cairo_create(surface.get()));
  cairo_set_font_face(context.get(), cairoFace());
  cairo_set_font_size(context.get(), size);
  cairo_set_source_rgb(context.get(), 1, 1, 1);
  const cairo_glyph_t glyph{FT_Get_Char_Index(freeTypeFace(), character(icon)), 0, size * 0.875};
  cairo_show_glyphs(context.get(), &glyph, 1);
  cairo_surface_flush(surface.get());
  benchmark::DoNotOptimize(cairo_image_surface_get_data(surface.get()));
}

void cairoCold(benchmark::State& state, double pixels) {
  Turns turns(pixels);
  for (auto _ : state) {
    const std::size_t icon = turns.next();
    drawByCairo(icon, turns.size(), canvasSide(pixels));
  }
}

BRISEL_JOB("icon_cold_48/Cairo", [](auto& state) { cairoCold(state, 48); });
BRISEL_JOB("icon_cold_72/Cairo", [](auto& state) { cairoCold(state, 72); });
BRISEL_JOB("icon_cached/Cairo warm", [](benchmark::State& state) {
  Turns turns(48);
  for (auto _ : state) drawByCairo(turns.next(), 48, 48);
});

// --- Qt ---

void qtCold(benchmark::State& state, double pixels) {
  Brisel::Benchmarks::qtApplication();
  const int side = canvasSide(pixels);
  Turns turns(pixels);
  int added = QFontDatabase::addApplicationFont(kFontFile);
  if (QFontDatabase::applicationFontFamilies(added) != QStringList("halvicon")) {
    state.SkipWithError("Qt does not find the icon font");
    return;
  }
  QFont font("halvicon");
  font.setHintingPreference(QFont::PreferNoHinting);
  for (auto _ : state) {
    const std::size_t icon = turns.next();
    if (turns.beginsPass()) {  // Its glyph cache goes with the font.
      QFontDatabase::removeApplicationFont(added);
      added = QFontDatabase::addApplicationFont(kFontFile);
    }
    font.setPixelSize(static_cast<int>(turns.size()));
    QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(QPointF(0, turns.size() * 0.875), QString(QChar(static_cast<char16_t>(character(icon)))));
    painter.end();
    benchmark::DoNotOptimize(picture.constBits());
  }
  QFontDatabase::removeApplicationFont(added);
}

BRISEL_JOB("icon_cold_48/Qt", [](auto& state) { qtCold(state, 48); });
BRISEL_JOB("icon_cold_72/Qt", [](auto& state) { qtCold(state, 72); });

// --- librsvg ---

// The glyphs' own outlines as SVGs.
const std::vector<std::string>& svgs() {
  static const std::vector<std::string> all = [] {
    std::vector<std::string> made;
    const auto point = [](const FT_Vector* v) { return std::to_string(v->x) + " " + std::to_string(896 - v->y); };
    static constexpr auto to = [](const FT_Vector* v, const char* command, void* text, const auto& written) {
      *static_cast<std::string*>(text) += command + written(v);
      return 0;
    };
    static const auto written = point;
    const FT_Outline_Funcs functions{
        [](const FT_Vector* end, void* text) { return to(end, "M", text, written); },
        [](const FT_Vector* end, void* text) { return to(end, "L", text, written); },
        [](const FT_Vector* control, const FT_Vector* end, void* text) {
          to(control, "Q", text, written);
          return to(end, " ", text, written);
        },
        [](const FT_Vector* first, const FT_Vector* second, const FT_Vector* end, void* text) {
          to(first, "C", text, written);
          to(second, " ", text, written);
          return to(end, " ", text, written);
        },
        0,
        0};
    for (std::size_t i = 0; i < icons().size(); ++i) {
      std::string path;
      FT_Load_Char(freeTypeFace(), character(i), FT_LOAD_NO_SCALE);
      FT_Outline_Decompose(&freeTypeFace()->glyph->outline, &functions, &path);
      made.push_back(R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 1024 1024"><path fill="#fff" d=")" + path +
                     R"("/></svg>)");
    }
    return made;
  }();
  return all;
}

struct Unref {
  void operator()(void* object) const noexcept { g_object_unref(object); }
};
using HandlePtr = std::unique_ptr<RsvgHandle, Unref>;

HandlePtr parsed(const std::string& svg) {
  return HandlePtr(rsvg_handle_new_from_data(reinterpret_cast<const guint8*>(svg.data()), svg.size(), nullptr));
}

void render(RsvgHandle* handle, double size, int side) {
  const std::unique_ptr<cairo_surface_t, CairoDelete> surface(
      cairo_image_surface_create(CAIRO_FORMAT_ARGB32, side, side));
  const std::unique_ptr<cairo_t, CairoDelete> context(cairo_create(surface.get()));
  const RsvgRectangle place{0, 0, size, size};
  rsvg_handle_render_document(handle, context.get(), &place, nullptr);
  benchmark::DoNotOptimize(cairo_image_surface_get_data(surface.get()));
}

void rsvgCold(benchmark::State& state, double pixels, bool parsesEachTime) {
  std::vector<HandlePtr> handles;
  for (const std::string& svg : svgs()) handles.push_back(parsed(svg));
  Turns turns(pixels);
  for (auto _ : state) {
    const std::size_t icon = turns.next();
    const HandlePtr fresh = parsesEachTime ? parsed(svgs()[icon]) : nullptr;
    render(fresh ? fresh.get() : handles[icon].get(), turns.size(), canvasSide(pixels));
  }
}

BRISEL_JOB("icon_cold_48/librsvg parsed", [](auto& state) { rsvgCold(state, 48, false); });
BRISEL_JOB("icon_cold_72/librsvg parsed", [](auto& state) { rsvgCold(state, 72, false); });
BRISEL_JOB("icon_cold_48/librsvg", [](auto& state) { rsvgCold(state, 48, true); });
BRISEL_JOB("icon_cold_72/librsvg", [](auto& state) { rsvgCold(state, 72, true); });

}  // namespace
