#include "brisel/platform/views/internal/label_shaping.h"

#include <algorithm>

#include "brisel/platform/internal/prefetch.h"
#include "brisel/platform/port.h"
#include "brisel/platform/views/text_drawing.h"

namespace Brisel::Platform::internal {
namespace {

// Of long texts the beginning: more would displace what is needed first.
template <class T>
void prefetchSome(std::span<const T> values) noexcept {
  constexpr std::size_t kMost = 1024;  // bytes
  internal::prefetch(reinterpret_cast<std::uintptr_t>(values.data()), std::min(values.size_bytes(), kMost));
}

}  // namespace

bool LabelShaping::update(const NSAttributedString& text, const TextSpans& spans,
                          UIUserInterfaceLayoutDirection fallback) {
  const std::uint64_t generation = engine().generation();
  const bool isAlike = shaped_ && generation_ == generation && fallback_ == fallback && direction_ == spans.direction &&
                       areAlike(spans.typefaces) && areAlike(text.sharedUtf16());
  if (isAlike) return false;
  shaped_ = shape(text, spans, fallback);
  clusters_ = shaped_->clusters;
  runs_ = shaped_->runs;
  characters_ = text.sharedUtf16();
  typefaces_.assign(spans.typefaces.begin(), spans.typefaces.end());
  direction_ = spans.direction;
  fallback_ = fallback;
  generation_ = generation;
  return true;
}

void LabelShaping::prefetch() const noexcept {
  prefetchShared(shaped_.get());
  prefetchSome(clusters_);
  prefetchSome(runs_);
  prefetchShared(characters_.get());
  prefetchSome(std::span(typefaces_));
}

bool LabelShaping::areAlike(std::span<const TypefaceSpan> typefaces) const {
  const auto isAlike = [anySize = shaped_->scalesLinearly](const TypefaceSpan& a, const TypefaceSpan& b) {
    return a.end == b.end && a.typeface == b.typeface && a.usesLigatures == b.usesLigatures &&
           (anySize || a.pointSize == b.pointSize);
  };
  return std::equal(typefaces_.begin(), typefaces_.end(), typefaces.begin(), typefaces.end(), isAlike);
}

bool LabelShaping::areAlike(const std::shared_ptr<const std::u16string>& characters) const {
  return characters_ == characters || *characters_ == *characters;
}

}  // namespace Brisel::Platform::internal
