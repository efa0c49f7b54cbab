#include "gallery/exports/flat_json.h"

#include "gallery/exports/json_value.h"
#include "gallery/exports/names.h"

namespace Brisel::Gallery {
namespace {

Json orNull(const std::string& text) { return text.empty() ? Json() : Json(text); }

}  // namespace

std::string flatJsonText(std::span<const Token> tokens) {
  requireExportable(tokens);
  Json list = Json::array();
  for (const Token& token : tokens) {
    list.push_back({{"name", dottedName(token)},
                    {"family", token.path.front()},
                    {"type", tokenType(token.value)},
                    {"value", tokenValue(token.value)},
                    {"property", customPropertyName(token)},
                    {"valueInterface", orNull(token.valueInterface)},
                    {"objectInterface", orNull(token.objectInterface)},
                    {"deprecated", deprecation(token)},
                    {"facts", token.facts}});
  }
  return jsonLines(list);
}

}  // namespace Brisel::Gallery
