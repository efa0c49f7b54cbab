// Names of C++ as the Reference page shows them and finds their comments.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "gallery/guide/published_names.h"
#include "gallery/guide/reference_comments.h"

namespace Brisel::Gallery {

/// A qualified name as markup: its last part bold, and allowed to break behind each "::" and before each hump.
std::string nameMarkup(std::string_view name);

/// A text of C++ as markup that may break behind each "::", and behind each ":" of a selector.
std::string codeMarkup(std::string_view code);

/// A sentence as markup: what stands in backticks is code.
std::string sentenceMarkup(std::string_view sentence);

/// The address of a name on the page: "TypeStyle-withFontSize" for "Brisel::TypeStyle::withFontSize".
std::string fragmentOf(std::string_view name);

/// What stands in a signature's brackets, without const, scopes and blanks: "double,UIColor&".
std::string argumentTypes(std::string_view signature);

/// A signature as the page shows it: "(double) const → TypeStyle" for "(TypeStyle(double) const)".
std::string shownSignature(std::string_view signature);

/// What the headers say of a name: of overloads the one whose arguments are most like the signature's; null where none
/// of `comments`, which are in the order of their names, bears the name.
const ReferenceComment* commentOn(const PublishedName& published, PublishedEntry::Kind kind,
                                  std::span<const ReferenceComment> comments);

}  // namespace Brisel::Gallery
