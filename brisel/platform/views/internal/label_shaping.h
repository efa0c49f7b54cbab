#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "brisel/platform/attributed_string.h"
#include "brisel/platform/engine.h"
#include "brisel/platform/layout_direction.h"
#include "brisel/platform/shaped_text.h"

namespace Brisel::Platform {

struct TextSpans;

namespace internal {

/// A label's glyphs, and what they were shaped from: they are kept as long as only sizes and colours change.
class LabelShaping {
 public:
  const std::shared_ptr<const ShapedText>& shaped() const noexcept { return shaped_; }
  UIUserInterfaceLayoutDirection fallback() const noexcept { return fallback_; }

  /// Whether other glyphs were needed.
  bool update(const NSAttributedString& text, const TextSpans& spans, UIUserInterfaceLayoutDirection fallback);

  /// Has what `update` compares and layout reads fetched into the cache, without waiting for it.
  void prefetch() const noexcept;

 private:
  bool areAlike(std::span<const TypefaceSpan> typefaces) const;
  bool areAlike(const std::shared_ptr<const std::u16string>& characters) const;

  std::shared_ptr<const ShapedText> shaped_;
  // Without the attributes: they would keep fonts alive, and the text that is replaced.
  std::shared_ptr<const std::u16string> characters_;
  std::vector<TypefaceSpan> typefaces_;
  WritingDirection direction_{};
  UIUserInterfaceLayoutDirection fallback_{};
  std::uint64_t generation_ = 0;  // the engine's
  // Where the glyphs are, to be prefetched.
  std::span<const ShapedCluster> clusters_;
  std::span<const ShapedRun> runs_;
};

}  // namespace internal
}  // namespace Brisel::Platform
