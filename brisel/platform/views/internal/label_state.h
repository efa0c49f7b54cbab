#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <utility>

#include "brisel/platform/attributed_string.h"
#include "brisel/platform/font.h"
#include "brisel/platform/paragraph_style.h"
#include "brisel/platform/text_layout.h"
#include "brisel/platform/views/internal/label_shaping.h"

namespace Brisel::Platform::internal {

/// What a label shows, and what was made of it. What a change of the text size touches stands together, and within the
/// label: thousands of them may follow it at once.
struct LabelState {
  static constexpr NSTextAlignment kTextAlignment = NSTextAlignment::natural;
  static constexpr NSLineBreakMode kLineBreakMode = NSLineBreakMode::byTruncatingTail;

  // What was set, and the size of it.
  std::optional<CGSize> intrinsicSize;  // not rounded
  std::shared_ptr<const NSAttributedString> text;
  std::shared_ptr<const UIFont> font;
  bool isPlain = true;  // the text has no attributes but the label's
  // Which of its attributes the label has changed since an attributed text was set. They are put into it when it is
  // next looked at, since it is mostly replaced before.
  bool fontIsNewer = false;
  bool colorIsNewer = false;
  bool alignmentIsNewer = false;
  bool lineBreakModeIsNewer = false;
  bool adjustsFontSizeToFitWidth = false;
  NSTextAlignment textAlignment = kTextAlignment;
  NSLineBreakMode lineBreakMode = kLineBreakMode;
  std::int64_t numberOfLines = 1;
  CGFloat minimumScaleFactor = 0;
  CGFloat preferredMaxLayoutWidth = 0;
  ColorPtr textColor;

  // What was made of it.
  struct Drawn {
    CGSize bounds;
    TextLayout layout;
  };
  std::unique_ptr<Drawn> drawn;
  LabelShaping shaping;
  bool shapingIsStale = true;  // it is of an earlier text, which may lend its glyphs to this one
  std::shared_ptr<const NSParagraphStyle> paragraphStyle;  // of this alignment and line-break mode
  std::shared_ptr<const UIFont> substituteFont;            // the one of this generation of the engine
  std::uint64_t substituteGeneration = 0;

  void forgetLayout() {
    intrinsicSize.reset();
    drawn.reset();
  }

  void forgetText() {
    forgetLayout();
    shapingIsStale = true;
  }

  bool hasNewerAttributes() const { return fontIsNewer || colorIsNewer || alignmentIsNewer || lineBreakModeIsNewer; }

  void setText(std::shared_ptr<const NSAttributedString> given, bool plain) {
    text = std::move(given);
    isPlain = plain;
    fontIsNewer = colorIsNewer = alignmentIsNewer = lineBreakModeIsNewer = false;
    forgetText();
  }

  /// The font that the text is set in where it says nothing.
  const std::shared_ptr<const UIFont>& ownFont();
  /// The paragraph style that the text is set in where it says nothing.
  const std::shared_ptr<const NSParagraphStyle>& ownParagraphStyle();
  /// The text with the attributes that were set for all of it since.
  const std::shared_ptr<const NSAttributedString>& currentText();

  std::size_t mostLines() const {
    return numberOfLines > 0 ? static_cast<std::size_t>(numberOfLines) : std::numeric_limits<std::size_t>::max();
  }
};

}  // namespace Brisel::Platform::internal
