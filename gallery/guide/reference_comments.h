// What the public headers say of the names that they declare.
#pragma once

#include <span>
#include <string_view>

namespace Brisel::Gallery {

struct ReferenceComment {
  std::string_view name;           ///< qualified: "Brisel::TypeStyle::withFontSize"
  std::string_view argumentTypes;  ///< of a function, without const, scopes and blanks: "double,UIColor&"
  std::string_view
      declaration;          ///< what follows the name: "(double fontSize) const → TypeStyle", or what it is: "class"
  std::string_view header;  ///< "brisel/typography/type_style.h"
  std::string_view sentence;  ///< the comment's first, code in backticks; empty where there is none
};

/// Of all public names, by name, the overloads of each as they stand in the headers. The build writes them: see
/// reference_comments.py.
std::span<const ReferenceComment> referenceComments();

}  // namespace Brisel::Gallery
