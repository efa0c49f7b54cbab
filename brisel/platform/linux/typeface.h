#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include <hb.h>

#include "brisel/platform/engine.h"
#include "brisel/platform/linux/character_set.h"
#include "brisel/platform/linux/font_face.h"

namespace Brisel::Platform::Linux {

/// A face with its cascade and the OpenType features asked for.
class LinuxTypeface final : public Typeface {
 public:
  using Faces = std::vector<std::shared_ptr<const FontFace>>;

  /// `faces` holds the primary face first and is never empty.
  LinuxTypeface(const Engine& maker, Faces faces, const std::vector<FontFeatureSetting>& features);

  const Faces& faces() const noexcept { return faces_; }
  const FontFace& primary() const noexcept { return *faces_.front(); }
  const std::vector<hb_feature_t>& features() const noexcept { return features_; }

 private:
  bool onHasCharacter(char32_t character) const override;
  bool onHasCharacters(std::u16string_view text) const override;

  Faces faces_;
  mutable CharacterSet drawable_;  // those that were asked for, and that need no other face
  std::vector<hb_feature_t> features_;
};

}  // namespace Brisel::Platform::Linux
