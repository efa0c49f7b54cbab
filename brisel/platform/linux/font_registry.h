#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "brisel/platform/linux/font_face.h"

namespace Brisel::Platform::Linux {

/// The faces that files have been registered for, by PostScript name. May be used from any thread.
class FontRegistry {
 public:
  explicit FontRegistry(const Engine& maker) : maker_(maker) {}

  Engine::Registration registerFile(const std::filesystem::path& file);

  /// The face of that name; null where nobody has registered it.
  std::shared_ptr<const FontFace> find(std::string_view postscriptName) const;

  /// Which family stands in for missing names.
  void setSubstituteFamily(const std::string& family);

  /// What stands in for a missing name: of the substitute family, or else the first registered one with Latin letters,
  /// the face nearest to the weight. Null where there is none.
  std::shared_ptr<const FontFace> substitute(int weight) const;

  /// Of the registered faces that have the character, the one nearest to the weight. Null where there is none.
  std::shared_ptr<const FontFace> faceFor(char32_t character, int weight) const;

 private:
  const Engine& maker_;
  mutable std::mutex mutex_;
  std::set<std::filesystem::path> files_;
  std::map<std::string, std::shared_ptr<const FontFace>, std::less<>> faces_;
  std::vector<std::shared_ptr<const FontFace>> inOrder_;
  std::string substituteFamily_;
};

/// The weight that a PostScript name ends in ("Some-Bold" is 700); 400 where it tells none.
int weightOfName(std::string_view postscriptName);

}  // namespace Brisel::Platform::Linux
