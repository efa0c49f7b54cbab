#pragma once

#include <memory>
#include <mutex>
#include <unordered_map>

#include "brisel/platform/linux/font_face.h"

namespace Brisel::Platform::Linux {

/// The fonts that the machine has, for characters that nothing registered can draw. Fontconfig's ordinary
/// configuration, opened when first asked; answers are kept. May be asked from any thread.
class HostFonts {
 public:
  explicit HostFonts(const Engine& maker);
  ~HostFonts();
  HostFonts(const HostFonts&) = delete;
  HostFonts& operator=(const HostFonts&) = delete;

  /// The host's best face that has the character, near the given weight; null where it has none.
  std::shared_ptr<const FontFace> faceFor(char32_t character, int weight);

  /// The host's ordinary text face; null where it has none.
  std::shared_ptr<const FontFace> textFace(int weight) { return faceFor(U'a', weight); }

 private:
  class Configuration;
  std::shared_ptr<const FontFace> match(char32_t character, int weight);
  std::shared_ptr<const FontFace> open(const std::string& file, unsigned index);

  const Engine& maker_;
  std::mutex mutex_;
  std::unique_ptr<Configuration> configuration_;
  std::unordered_map<std::uint64_t, std::shared_ptr<const FontFace>> answers_;  // by weight and character
  std::unordered_map<std::string, std::shared_ptr<const FontFace>> files_;      // by file and index, as the host has
};

}  // namespace Brisel::Platform::Linux
