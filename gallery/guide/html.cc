#include "gallery/guide/html.h"

#include <algorithm>
#include <set>
#include <stdexcept>

namespace Brisel::Gallery {

std::string escapeHtml(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size());
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      case '\'':
        escaped += "&#39;";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

std::string quoteScript(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    switch (c) {
      case '"':
        quoted += "\\\"";
        break;
      case '\\':
        quoted += "\\\\";
        break;
      case '\n':
        quoted += "\\n";
        break;
      case '<':
        quoted += "\\u003c";
        break;  // so that no text can end the script element
      default:
        quoted += c;
    }
  }
  return quoted + '"';
}

std::string fillTemplate(std::string_view text, Fields fields) {
  std::string filled;
  std::set<std::string_view> used;
  for (std::size_t open = text.find("{{"); open != std::string_view::npos; open = text.find("{{")) {
    const bool isMarkup = text.substr(open).starts_with("{{{");
    const std::string_view closing = isMarkup ? "}}}" : "}}";
    const std::size_t nameAt = open + closing.size();
    const std::size_t close = text.find(closing, nameAt);
    if (close == std::string_view::npos) throw std::logic_error("a template's field does not end");
    const std::string_view name = text.substr(nameAt, close - nameAt);
    const auto* field = std::find_if(fields.begin(), fields.end(), [&](const auto& f) { return f.first == name; });
    if (field == fields.end()) throw std::logic_error("a template lacks its field " + std::string(name));
    used.insert(name);
    filled += text.substr(0, open);
    if (isMarkup) {
      filled += field->second;
    } else {
      filled += escapeHtml(field->second);
    }
    text.remove_prefix(close + closing.size());
  }
  for (const auto& field : fields) {
    if (!used.contains(field.first)) throw std::logic_error("a template has no field " + std::string(field.first));
  }
  filled += text;
  return filled;
}

}  // namespace Brisel::Gallery
