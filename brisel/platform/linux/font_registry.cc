#include "brisel/platform/linux/font_registry.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <system_error>
#include <utility>

namespace Brisel::Platform::Linux {

Engine::Registration FontRegistry::registerFile(const std::filesystem::path& file) {
  std::error_code error;
  const std::filesystem::path canonical = std::filesystem::canonical(file, error);
  {
    const std::lock_guard lock(mutex_);
    if (!error && files_.contains(canonical)) return Engine::Registration::alreadyRegistered;
  }
  auto [face, result] = FontFace::load(maker_, error ? file : canonical);
  if (result != Engine::Registration::registered) return result;

  const std::lock_guard lock(mutex_);
  const bool isNew = faces_.try_emplace(face->postscriptName(), face).second;
  if (!isNew) return Engine::Registration::alreadyRegistered;
  files_.insert(canonical);
  inOrder_.push_back(std::move(face));
  return Engine::Registration::registered;
}

std::shared_ptr<const FontFace> FontRegistry::find(std::string_view postscriptName) const {
  const std::lock_guard lock(mutex_);
  const auto found = faces_.find(postscriptName);
  return found == faces_.end() ? nullptr : found->second;
}

void FontRegistry::setSubstituteFamily(const std::string& family) {
  const std::lock_guard lock(mutex_);
  substituteFamily_ = family;
}

std::shared_ptr<const FontFace> FontRegistry::substitute(int weight) const {
  const std::lock_guard lock(mutex_);
  auto first = std::find_if(inOrder_.begin(), inOrder_.end(),
                            [this](const auto& face) { return face->family() == substituteFamily_; });
  if (first == inOrder_.end()) {
    first = std::find_if(inOrder_.begin(), inOrder_.end(), [](const auto& face) { return face->has(U'a'); });
  }
  if (first == inOrder_.end()) return nullptr;
  auto nearest = *first;
  for (const auto& face : inOrder_) {
    const bool isNearer = std::abs(face->weight() - weight) < std::abs(nearest->weight() - weight);
    if (face->family() == nearest->family() && isNearer) nearest = face;
  }
  return nearest;
}

std::shared_ptr<const FontFace> FontRegistry::faceFor(char32_t character, int weight) const {
  const std::lock_guard lock(mutex_);
  std::shared_ptr<const FontFace> nearest;
  for (const auto& face : inOrder_) {
    if (!face->has(character)) continue;
    if (!nearest || std::abs(face->weight() - weight) < std::abs(nearest->weight() - weight)) nearest = face;
  }
  return nearest;
}

int weightOfName(std::string_view postscriptName) {
  // OpenType's names of weights, and the two that type foundries use besides.
  static constexpr std::array<std::pair<std::string_view, int>, 13> kWeights{{{"Thin", 100},
                                                                              {"ExtraLight", 200},
                                                                              {"UltraLight", 200},
                                                                              {"Light", 300},
                                                                              {"Book", 400},
                                                                              {"Regular", 400},
                                                                              {"Medium", 500},
                                                                              {"SemiBold", 600},
                                                                              {"DemiBold", 600},
                                                                              {"Bold", 700},
                                                                              {"ExtraBold", 800},
                                                                              {"Black", 900},
                                                                              {"Heavy", 900}}};
  const std::size_t hyphen = postscriptName.rfind('-');
  if (hyphen == std::string_view::npos) return 400;
  const std::string_view suffix = postscriptName.substr(hyphen + 1);
  const auto found = std::find_if(kWeights.begin(), kWeights.end(), [&](const auto& w) { return w.first == suffix; });
  return found == kWeights.end() ? 400 : found->second;
}

}  // namespace Brisel::Platform::Linux
