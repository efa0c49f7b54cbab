#include "brisel/platform/linux/shaper.h"

#include <algorithm>
#include <span>
#include <utility>
#include <vector>

#include <hb.h>

#include "brisel/platform/internal/utf.h"
#include "brisel/platform/linux/typeface.h"
#include "brisel/platform/linux/unicode.h"

namespace Brisel::Platform::Linux {
namespace {

using Platform::internal::nextCharacter;
using Boundary = TextAnalysis::Boundary;
using Break = ShapedCluster::Break;

constexpr int kSpacesInATab = 4;

// A user-perceived character and what decides with whom it is shaped.
struct Item {
  std::uint32_t begin;
  std::uint32_t span;  // index of its typeface span
  const std::shared_ptr<const FontFace>* face;
  hb_script_t script;
  std::uint8_t level;

  bool shapesWith(const Item& other) const noexcept {
    return span == other.span && *face == *other.face && script == other.script && level == other.level;
  }
};

bool isOfNoScript(hb_script_t script) {
  return script == HB_SCRIPT_COMMON || script == HB_SCRIPT_INHERITED || script == HB_SCRIPT_UNKNOWN;
}

// What HarfBuzz made of a run.
struct Glyphs {
  std::span<const hb_glyph_info_t> infos;
  std::span<const hb_glyph_position_t> positions;
};

// The one glyph of a run that is but a space, without features.
struct LoneSpace {
  std::shared_ptr<const FontFace> face;
  hb_script_t script;
  bool isReversed;
  hb_glyph_info_t info;
  hb_glyph_position_t position;
};

constexpr std::size_t kMostLoneSpaces = 32;

// Texts beyond this length are rare, and what they needed is not kept for the next.
constexpr std::size_t kLongText = 1 << 16;

}  // namespace

// What shaping one text needs, kept warm from text to text.
struct Shaper::Workshop {
  TextAnalysis analysis;
  std::vector<Item> items;
  std::vector<LoneSpace> loneSpaces;
  std::unique_ptr<hb_buffer_t, HbDelete<hb_buffer_t, hb_buffer_destroy>> buffer{hb_buffer_create()};

  bool isWorthKeeping() const noexcept { return items.capacity() <= kLongText; }
};

// The shaping of one text.
class Shaper::Shaping {
 public:
  Shaping(const ShapeRequest& request, HostFonts* host, Workshop& workshop)
      : request_(request), host_(host), workshop_(workshop) {}

  std::shared_ptr<const ShapedText> shape() {
    workshop_.analysis.analyse(request_.text, request_.direction, request_.naturalFallbackIsRightToLeft);
    itemise();
    resolveScripts();
    text_->length = static_cast<std::uint32_t>(request_.text.size());
    text_->clusters.reserve(workshop_.items.size());
    const auto& items = workshop_.items;
    for (std::size_t first = 0; first < items.size();) {
      std::size_t end = first + 1;
      while (end < items.size() && items[end].shapesWith(items[first])) ++end;
      shapeRun(first, end);
      first = end;
    }
    const char16_t last = request_.text.back();
    text_->endsWithLineBreak = (last >= 0x0A && last <= 0x0D) || last == 0x85 || last == 0x2028 || last == 0x2029;
    return text_;
  }

 private:
  void itemise() {
    const auto& analysis = workshop_.analysis;
    const std::u16string_view text = request_.text;
    workshop_.items.clear();
    std::uint32_t span = 0;
    for (std::size_t begin = 0; begin < text.size();) {
      std::size_t end = begin + 1;
      while (end < text.size() && analysis.boundaries[end] == Boundary::none) ++end;
      while (request_.typefaces[span].end <= begin) ++span;
      std::size_t next = begin;
      const char32_t base = nextCharacter(text, next);
      workshop_.items.push_back({static_cast<std::uint32_t>(begin), span,
                                 &faceFor(typeface(span), text.substr(begin, end - begin)),
                                 hb_unicode_script(hb_unicode_funcs_get_default(), base), analysis.levels[begin]});
      begin = end;
    }
  }

  // Characters of no script of their own (spaces, digits, punctuation) go with what precedes them; those at the start
  // with what follows.
  void resolveScripts() {
    auto& items = workshop_.items;
    const auto first = std::find_if(items.begin(), items.end(), [](const Item& i) { return !isOfNoScript(i.script); });
    hb_script_t current = first == items.end() ? HB_SCRIPT_LATIN : first->script;
    for (Item& item : items) {
      if (isOfNoScript(item.script)) item.script = current;
      current = item.script;
    }
  }

  const LinuxTypeface& typeface(std::uint32_t span) const {
    return static_cast<const LinuxTypeface&>(*request_.typefaces[span].typeface);
  }

  // The first of the cascade that has the whole user-perceived character, else the first that has its base, else the
  // host's best, else the primary face, which draws its replacement glyph.
  const std::shared_ptr<const FontFace>& faceFor(const LinuxTypeface& typeface, std::u16string_view cluster) {
    const auto& faces = typeface.faces();
    std::size_t next = 0;
    const char32_t base = nextCharacter(cluster, next);
    if (cluster.size() == next) {
      if (isIgnorable(base)) return faces.front();
      for (const auto& face : faces) {
        if (face->has(base)) return face;
      }
      return hostFace(base, typeface);
    }
    for (const auto& face : faces) {
      if (hasAll(*face, cluster)) return face;
    }
    for (const auto& face : faces) {
      if (face->has(base)) return face;
    }
    return isIgnorable(base) ? faces.front() : hostFace(base, typeface);
  }

  static bool hasAll(const FontFace& face, std::u16string_view cluster) {
    for (std::size_t i = 0; i < cluster.size();) {
      const char32_t character = nextCharacter(cluster, i);
      if (!isIgnorable(character) && !face.has(character)) return false;
    }
    return true;
  }

  const std::shared_ptr<const FontFace>& hostFace(char32_t character, const LinuxTypeface& typeface) {
    if (!host_) return typeface.faces().front();
    auto face = host_->faceFor(character, typeface.primary().weight());
    if (!face) return typeface.faces().front();
    const auto known = std::find_if(hostFaces_.begin(), hostFaces_.end(), [&](const auto& f) { return *f == face; });
    if (known != hostFaces_.end()) return **known;
    hostFaces_.push_back(std::make_unique<std::shared_ptr<const FontFace>>(std::move(face)));
    return *hostFaces_.back();
  }

  void shapeRun(std::size_t firstItem, std::size_t endItem) {
    const auto& items = workshop_.items;
    const Item& item = items[firstItem];
    const TypefaceSpan& span = request_.typefaces[item.span];
    const FontFace& face = **item.face;
    const std::uint32_t begin = item.begin;
    const std::uint32_t end = endItem < items.size() ? items[endItem].begin : text_->length;

    const bool isLoneSpace = end - begin == 1 && request_.text[begin] == u' ' && span.usesLigatures &&
                             typeface(item.span).features().empty();
    const Glyphs glyphs = isLoneSpace ? shapeLoneSpace(item) : shapeByHarfBuzz(item, end);

    const auto runIndex = static_cast<std::uint32_t>(text_->runs.size());
    ShapedRun& run = text_->runs.emplace_back();
    run.face = *item.face;
    run.metrics = face.metrics();
    run.level = item.level;
    run.firstCluster = static_cast<std::uint32_t>(text_->clusters.size());
    addClusters(runIndex, begin, end, glyphs);
    run.endCluster = static_cast<std::uint32_t>(text_->clusters.size());
    addGlyphs(run, face, glyphs);
  }

  // Between words that a fallback face draws every space is a run of its own, and each comes out like the others.
  Glyphs shapeLoneSpace(const Item& item) {
    auto& known = workshop_.loneSpaces;
    const bool isReversed = item.level % 2 == 1;
    auto space = std::find_if(known.begin(), known.end(), [&](const LoneSpace& s) {
      return s.face == *item.face && s.script == item.script && s.isReversed == isReversed;
    });
    if (space == known.end()) {
      const Glyphs glyphs = shapeByHarfBuzz(item, item.begin + 1);
      if (glyphs.infos.size() != 1) return glyphs;
      if (known.size() == kMostLoneSpaces) known.clear();
      known.push_back({*item.face, item.script, isReversed, glyphs.infos[0], glyphs.positions[0]});
      space = known.end() - 1;
    }
    space->info.cluster = item.begin;
    return {{&space->info, 1}, {&space->position, 1}};
  }

  // The result lies in the workshop's buffer.
  Glyphs shapeByHarfBuzz(const Item& item, std::uint32_t end) {
    hb_buffer_t* buffer = workshop_.buffer.get();
    hb_buffer_clear_contents(buffer);
    hb_buffer_add_utf16(buffer, reinterpret_cast<const std::uint16_t*>(request_.text.data()),
                        static_cast<int>(text_->length), item.begin, static_cast<int>(end - item.begin));
    hb_buffer_set_direction(buffer, item.level % 2 == 1 ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
    hb_buffer_set_script(buffer, item.script);
    hb_buffer_set_language(buffer, HB_LANGUAGE_INVALID);
    shapeBuffer(**item.face, typeface(item.span), request_.typefaces[item.span].usesLigatures);
    unsigned count = 0;
    const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer, &count);
    return {{infos, count}, {hb_buffer_get_glyph_positions(buffer, nullptr), count}};
  }

  void shapeBuffer(const FontFace& face, const LinuxTypeface& typeface, bool usesLigatures) {
    hb_buffer_t* buffer = workshop_.buffer.get();
    const auto& features = typeface.features();
    if (usesLigatures) {
      hb_shape(face.font(), buffer, features.data(), static_cast<unsigned>(features.size()));
      return;
    }
    std::vector<hb_feature_t> spaced = features;
    for (const hb_tag_t tag : {HB_TAG('l', 'i', 'g', 'a'), HB_TAG('c', 'l', 'i', 'g')}) {
      spaced.push_back({tag, 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END});
    }
    hb_shape(face.font(), buffer, spaced.data(), static_cast<unsigned>(spaced.size()));
  }

  // One cluster for each cluster value that HarfBuzz kept, in the order of the text.
  void addClusters(std::uint32_t run, std::uint32_t begin, std::uint32_t end, const Glyphs& glyphs) {
    const auto& analysis = workshop_.analysis;
    const std::size_t count = glyphs.infos.size();
    const bool isReversed = text_->runs[run].level % 2 == 1;
    for (std::size_t i = 0; i < count; ++i) {
      const std::uint32_t at = glyphs.infos[isReversed ? count - 1 - i : i].cluster;
      if (at < begin || at >= end) continue;
      if (analysis.boundaries[at] == Boundary::none) continue;  // HarfBuzz parts CR and LF
      if (!text_->clusters.empty() && text_->clusters.back().begin >= at) continue;
      ShapedCluster& cluster = text_->clusters.emplace_back();
      std::size_t next = at;
      const Boundary boundary = analysis.boundaries[at];
      cluster.begin = at;
      cluster.run = run;
      cluster.isSpace = isBreakingSpace(nextCharacter(request_.text, next));
      if (boundary == Boundary::allowed) cluster.breakBefore = Break::allowed;
      if (boundary == Boundary::required) cluster.breakBefore = Break::required;
      cluster.isParagraphStart = at == 0 || (boundary == Boundary::required && request_.text[at - 1] != 0x2028);
      cluster.paragraphIsRightToLeft = analysis.paragraphLevels[at] % 2 == 1;
    }
  }

  void addGlyphs(ShapedRun& run, const FontFace& face, const Glyphs& glyphs) {
    const auto& [infos, positions] = glyphs;
    const CGFloat em = face.unitsPerEm();
    auto& clusters = text_->clusters;
    run.glyphs.reserve(infos.size());
    const bool isReversed = run.level % 2 == 1;
    std::uint32_t cluster = isReversed ? run.endCluster - 1 : run.firstCluster;
    for (std::size_t i = 0; i < infos.size(); ++i) {
      const std::uint32_t at = infos[i].cluster;
      while (!isReversed && cluster + 1 < run.endCluster && clusters[cluster + 1].begin <= at) ++cluster;
      while (isReversed && cluster > run.firstCluster && clusters[cluster].begin > at) --cluster;
      const char16_t unit = request_.text[at];
      if (unit == u'\t') {
        clusters[cluster].advance += kSpacesInATab * spaceAdvance(face) / em;
      } else if (!isControl(unit)) {
        const ShapedGlyph glyph{infos[i].codepoint, cluster, positions[i].x_advance / em, positions[i].x_offset / em,
                                positions[i].y_offset / em};
        clusters[cluster].advance += glyph.advance;
        run.glyphs.push_back(glyph);
      }
    }
  }

  static CGFloat spaceAdvance(const FontFace& face) {
    hb_codepoint_t space = 0;
    hb_font_get_nominal_glyph(face.font(), U' ', &space);
    return hb_font_get_glyph_h_advance(face.font(), space);
  }

  const ShapeRequest& request_;
  HostFonts* host_;
  Workshop& workshop_;
  std::shared_ptr<ShapedText> text_ = std::make_shared<ShapedText>();
  std::vector<std::unique_ptr<std::shared_ptr<const FontFace>>> hostFaces_;  // at addresses that stay
};

Shaper::Shaper() = default;
Shaper::~Shaper() = default;

std::shared_ptr<const ShapedText> Shaper::shape(const ShapeRequest& request, HostFonts* host) {
  const Pool<Workshop>::Lease workshop(workshops_);
  return Shaping(request, host, *workshop).shape();
}

std::vector<FaceForText> Shaper::facesForLacking(const ShapeRequest& request, const FontRegistry& registry,
                                                 HostFonts* host) {
  const Pool<Workshop>::Lease workshop(workshops_);
  TextAnalysis& analysis = (*workshop).analysis;
  analysis.analyse(request.text, request.direction, request.naturalFallbackIsRightToLeft);
  std::vector<FaceForText> result;
  std::size_t span = 0;
  for (std::size_t begin = 0, end = 0; begin < request.text.size(); begin = end) {
    end = begin + 1;
    while (end < request.text.size() && analysis.boundaries[end] == Boundary::none) ++end;
    while (request.typefaces[span].end <= begin) ++span;
    const auto& typeface = static_cast<const LinuxTypeface&>(*request.typefaces[span].typeface);
    std::size_t next = begin;
    const char32_t base = nextCharacter(request.text, next);
    if (isIgnorable(base) || typeface.hasCharacter(base)) continue;
    const int weight = typeface.primary().weight();
    auto face = registry.faceFor(base, weight);
    if (!face && host) face = host->faceFor(base, weight);
    if (!face) continue;
    if (!result.empty() && result.back().end == begin && result.back().face == face) {
      result.back().end = static_cast<std::uint32_t>(end);
    } else {
      result.push_back({static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(end), std::move(face)});
    }
  }
  return result;
}

}  // namespace Brisel::Platform::Linux
