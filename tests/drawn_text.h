// What a view draws with the recording engine, piece by piece.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "brisel/platform/font.h"
#include "brisel/platform/font_descriptor.h"
#include "brisel/platform/views/view.h"

#include "tests/recording_ports.h"

namespace Brisel {

/// Characters that were drawn in one go, from left to right.
struct DrawnText {
  std::u32string text;
  Platform::CGPoint origin;  // of the first glyph
  Platform::CGFloat pointSize = 0;
  Platform::UIColor color = Platform::UIColor::grey(0, 1);
};

/// A font of the recording engine: a character is half its size wide, a line as high as its size, and the baseline
/// three quarters of that below its top.
inline std::shared_ptr<const Platform::UIFont> fontOfSize(Platform::CGFloat size) {
  return Platform::UIFont::fontWithDescriptor(Platform::UIFontDescriptor::fontDescriptorWithName("Any-Book", size),
                                              size);
}

/// What the view draws with its upper left corner at the point.
inline std::vector<DrawnText> drawnText(const Platform::UIView& view, Platform::CGPoint at = {}) {
  recordingEngine().forget();
  const auto canvas = recordingEngine().makeCanvas({1000, 1000}, 1);
  view.drawHierarchy(*canvas, at);
  std::vector<DrawnText> pieces;
  for (const auto& drawing : recordingEngine().record().drawings) {
    if (drawing.glyphs.empty()) continue;
    DrawnText& piece = pieces.emplace_back();
    for (const auto& glyph : drawing.glyphs) piece.text += static_cast<char32_t>(glyph.id);
    piece.origin = drawing.glyphs.front().origin;
    piece.pointSize = drawing.pointSize;
    piece.color = drawing.color;
  }
  return pieces;
}

}  // namespace Brisel
