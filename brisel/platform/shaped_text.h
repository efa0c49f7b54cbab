// Text after shaping and before layout: glyphs at no particular size.
//
// A port makes it (Engine::shape), TextLayout turns it into lines at given sizes and a given width. All distances are
// in ems, so that one shaped text serves every size of fonts that scale linearly.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "brisel/platform/geometry.h"

namespace Brisel::Platform {

class Face;

/// A font's vertical measures, in ems. The descender is negative, as in font files.
struct FontMetrics {
  CGFloat ascender = 0;   ///< above the baseline
  CGFloat descender = 0;  ///< below the baseline, negative
  CGFloat leading = 0;    ///< between lines
  CGFloat capHeight = 0;  ///< of capitals
  CGFloat xHeight = 0;    ///< of small letters without ascenders
  friend bool operator==(const FontMetrics&, const FontMetrics&) = default;
};

/// One glyph of a run: its number in the face, and where it is drawn relative to the pen (x to the right, y upwards).
struct ShapedGlyph {
  std::uint32_t id = 0;       ///< its number in the face
  std::uint32_t cluster = 0;  ///< index into ShapedText::clusters
  CGFloat advance = 0;        ///< how far the pen moves
  CGFloat xOffset = 0;        ///< from the pen, to the right
  CGFloat yOffset = 0;        ///< from the pen, upwards
};

/// Glyphs of one face, one direction and one font span, in the order in which they are drawn from left to right.
struct ShapedRun {
  std::shared_ptr<const Face> face;  ///< what Canvas::drawGlyphs takes
  FontMetrics metrics;               ///< of the face that draws
  std::uint32_t firstCluster = 0;    ///< index into ShapedText::clusters
  std::uint32_t endCluster = 0;      ///< one behind the last
  std::uint8_t level = 0;            ///< the bidirectional embedding level; odd runs right to left
  std::vector<ShapedGlyph> glyphs;   ///< from left to right
};

/// What must not be torn apart: a user-perceived character, or several that share a glyph. In the order of the text.
struct ShapedCluster {
  /// Whether a line may start at a cluster.
  enum class Break : std::uint8_t {
    none,      ///< a line may start here only if nothing else fits
    allowed,   ///< a line may start here
    required,  ///< a line starts here
  };

  std::uint32_t begin = 0;              ///< index of the first UTF-16 code unit
  std::uint32_t run = 0;                ///< index into ShapedText::runs
  CGFloat advance = 0;                  ///< of all its glyphs
  Break breakBefore = Break::none;      ///< whether a line may start here
  bool isSpace = false;                 ///< white space or a line ending: it does not count where a line ends
  bool isParagraphStart = false;        ///< the first cluster of a paragraph
  bool paragraphIsRightToLeft = false;  ///< the direction of its paragraph
};

/// A text as glyphs, whose runs and clusters are in the order of the text. Immutable once made, and shared.
struct ShapedText {
  std::uint32_t length = 0;             ///< UTF-16 code units
  std::vector<ShapedRun> runs;          ///< cover the clusters
  std::vector<ShapedCluster> clusters;  ///< cover the text
  bool endsWithLineBreak = false;       ///< an empty line follows the last cluster
  /// Whether glyphs and distances hold at every size. Where not, they hold at the sizes that were asked for.
  bool scalesLinearly = true;
};

}  // namespace Brisel::Platform
