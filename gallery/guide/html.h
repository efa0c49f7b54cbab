// Markup from templates and texts.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace Brisel::Gallery {

/// A text as the content of an element or a quoted attribute.
std::string escapeHtml(std::string_view text);

/// A text as a string of JavaScript, quotes included, that may stand in a script element.
std::string quoteScript(std::string_view text);

using Fields = std::initializer_list<std::pair<std::string_view, std::string_view>>;

/// A template with its fields filled in: {{name}} by the field's text, escaped, {{{name}}} by the field as markup.
/// Throws std::logic_error where a template names a field that is not given, or is given one that it does not name.
std::string fillTemplate(std::string_view text, Fields fields);

}  // namespace Brisel::Gallery
