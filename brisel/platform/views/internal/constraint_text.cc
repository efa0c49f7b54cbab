#include "brisel/platform/views/internal/constraint_text.h"

#include <cctype>
#include <cmath>
#include <string_view>
#include <typeinfo>

#include "brisel/platform/internal/decimal.h"

namespace Brisel::Platform::internal {
namespace {

std::string_view attributeName(NSLayoutAttribute attribute) {
  static constexpr std::string_view names[] = {"",         "left",  "right",  "top",     "bottom",  "leading",
                                               "trailing", "width", "height", "centerX", "centerY", "firstBaseline"};
  return names[static_cast<std::size_t>(attribute)];
}

std::string side(const LayoutItem& item, NSLayoutAttribute attribute) {
  return className(item) + "." + std::string(attributeName(attribute));
}

}  // namespace

// Compilers write a class as the lengths and names of its namespaces and itself: "N6Brisel8Platform7UILabelE". What is
// more complicated is left as it is.
std::string className(const LayoutItem& item) {
  const std::string_view encoded = typeid(item).name();
  std::string_view rest = encoded;
  if (rest.starts_with('N')) rest.remove_prefix(1);
  std::string_view last;
  while (!rest.empty() && std::isdigit(static_cast<unsigned char>(rest.front()))) {
    std::size_t length = 0;
    for (; !rest.empty() && std::isdigit(static_cast<unsigned char>(rest.front())); rest.remove_prefix(1))
      length = length * 10 + static_cast<std::size_t>(rest.front() - '0');
    last = rest.substr(0, length);
    rest.remove_prefix(last.size());
  }
  return std::string(last.empty() || (!rest.empty() && rest != "E") ? encoded : last);
}

std::string constraintText(const NSLayoutConstraint& constraint) {
  const auto first = constraint.firstItem(), second = constraint.secondItem();
  if (!first) return "a constraint";
  std::string text = side(*first, constraint.firstAttribute());
  text += constraint.relation() == NSLayoutRelation::equal             ? " = "
          : constraint.relation() == NSLayoutRelation::lessThanOrEqual ? " ≤ "
                                                                       : " ≥ ";
  const double constant = constraint.constant();
  if (!second) return text + decimal(constant);
  text += side(*second, constraint.secondAttribute());
  if (constraint.multiplier() != 1) text += " × " + decimal(constraint.multiplier());
  if (constant != 0) text += (constant < 0 ? " - " : " + ") + decimal(std::fabs(constant));
  return text;
}

}  // namespace Brisel::Platform::internal
