// Random texts that are names of icons, or nearly: made of pieces of names and of prefixes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <rapidcheck.h>

#include "brisel/icons/catalogue.h"

namespace Brisel::Tests {

inline rc::Gen<std::string> iconTextPieces() {
  const auto name = rc::gen::map(rc::gen::elementOf(Catalogue::icons()),
                                 [](const Catalogue::IconEntry& entry) { return std::string(entry.get().name()); });
  const auto accessor = rc::gen::map(rc::gen::elementOf(Catalogue::icons()),
                                     [](const Catalogue::IconEntry& entry) { return std::string(entry.name); });
  const auto partOfName =
      rc::gen::apply([](const std::string& text, std::size_t from,
                        std::size_t size) { return text.substr(from % (text.size() + 1), size % (text.size() + 1)); },
                     name, rc::gen::arbitrary<std::size_t>(), rc::gen::arbitrary<std::size_t>());
  const auto partOfPrefix = rc::gen::elementOf(std::vector<std::string>{
      "VLMBriselIcon", "VLMIcon", "VLMBriselIcon", "VLMIcon", "VLM",    "VLMBrisel", "Brisel", "Icon",   "V",
      "LMIcon",        "None",    "none",          "Invalid", "Active", "\u0131",    "\u017F", "\uFB01", "\uFB02",
      "\uFB05",        "\uFB06",  "\u00DF",        "vlm"});
  return rc::gen::weightedOneOf<std::string>(
      {{6, partOfPrefix}, {5, name}, {3, accessor}, {3, partOfName}, {1, rc::gen::arbitrary<std::string>()}});
}

inline rc::Gen<std::string> iconTexts() {
  return rc::gen::map(rc::gen::resize(4, rc::gen::container<std::vector<std::string>>(iconTextPieces())),
                      [](const std::vector<std::string>& pieces) {
                        std::string text;
                        for (const std::string& piece : pieces) text += piece;
                        return text;
                      });
}

}  // namespace Brisel::Tests
