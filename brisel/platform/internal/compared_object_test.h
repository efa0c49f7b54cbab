// Counts how often runs of attributes are compared.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "brisel/platform/attributed_string.h"

namespace Brisel::Platform {

/// Equal to itself alone. Where one is an attribute, neighbouring runs are told apart by it.
class ComparedObject final : public NSObject {
 public:
  static inline std::size_t comparisons = 0;

  bool isEqual(const NSObject& other) const override {
    ++comparisons;
    return this == &other;
  }
  std::size_t objectHash() const override { return 0; }
};

/// The text in these attributes, with a run for each of its characters, which are ASCII. Nothing has been compared
/// then.
inline std::shared_ptr<NSMutableAttributedString> textOfRuns(const std::string& text, const Dictionary& attributes) {
  const auto result = NSMutableAttributedString::initWithString(text, attributes);
  for (std::size_t i = 0; i < text.size(); ++i)
    result->addAttribute("compared", Value(std::make_shared<const ComparedObject>()), {i, 1});
  ComparedObject::comparisons = 0;
  return result;
}

}  // namespace Brisel::Platform
