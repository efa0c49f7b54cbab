// What constraints mean: sums over the variables of the places that they depend on.
#include <algorithm>
#include <cmath>

#include "brisel/platform/views/internal/view_layout.h"

namespace Brisel::Platform::internal {
namespace {

constexpr double kLargestMultiplier = 10'000;

double cut(double number, double largest) { return std::isnan(number) ? 0 : std::clamp(number, -largest, largest); }

double cutConstant(double number) { return cut(number, ConstraintSolver::kLargestConstant); }

bool isSize(NSLayoutAttribute attribute) {
  return attribute == NSLayoutAttribute::width || attribute == NSLayoutAttribute::height;
}

void addUp(std::vector<ConstraintSolver::Term>& terms) {
  std::sort(terms.begin(), terms.end(), [](const auto& a, const auto& b) { return a.variable.slot < b.variable.slot; });
  auto kept = terms.begin();
  for (auto it = terms.begin(); it != terms.end();) {
    auto sum = *it;
    for (++it; it != terms.end() && it->variable == sum.variable; ++it) sum.coefficient += it->coefficient;
    if (std::fabs(sum.coefficient) >= ConstraintSolver::kSmallestCoefficient) *kept++ = sum;
  }
  terms.erase(kept, terms.end());
}

}  // namespace

bool ViewLayout::isDirected(const NSLayoutConstraint& constraint) {
  const auto isEdgeOfText = [](NSLayoutAttribute attribute) {
    return attribute == NSLayoutAttribute::leading || attribute == NSLayoutAttribute::trailing;
  };
  return isEdgeOfText(constraint.firstAttribute_) || isEdgeOfText(constraint.secondAttribute_);
}

void ViewLayout::formOf(const NSLayoutConstraint& constraint, FirstBaseline ofFirst, FirstBaseline ofSecond) {
  form_.terms.clear();
  form_.constant = -cutConstant(constraint.constant_);
  addAttribute(constraint, *constraint.first_, constraint.firstAttribute_, ofFirst, 1);
  if (constraint.second_) {
    const double multiplier = cut(constraint.multiplier_, kLargestMultiplier);
    addAttribute(constraint, *constraint.second_, constraint.secondAttribute_, ofSecond, -multiplier);
  }
  addUp(form_.terms);
  form_.constant = cutConstant(form_.constant);
}

void ViewLayout::addAttribute(const NSLayoutConstraint& constraint, LayoutItem& item, NSLayoutAttribute attribute,
                              FirstBaseline baseline, double factor) {
  using Attribute = NSLayoutAttribute;
  const UIView& holder = *constraint.holder_;
  if (isSize(attribute)) return addSize(item, attribute == Attribute::width, factor);

  // Where text runs to the left, all of such a constraint is measured from the right edge of its holder.
  const bool isMirrored =
      isDirected(constraint) && holder.place_->direction == UIUserInterfaceLayoutDirection::rightToLeft;
  bool isX = true;
  double share = 0;  // of the item's size, from its left or top
  switch (attribute) {
    case Attribute::right:
      share = 1;
      break;
    case Attribute::leading:
      share = isMirrored ? 1 : 0;
      break;
    case Attribute::trailing:
      share = isMirrored ? 0 : 1;
      break;
    case Attribute::centerX:
      share = 0.5;
      break;
    case Attribute::top:
      isX = false;
      break;
    case Attribute::bottom:
      isX = false;
      share = 1;
      break;
    case Attribute::centerY:
      isX = false;
      share = 0.5;
      break;
    case Attribute::firstBaseline:
      isX = false;
      share = cut(baseline.fractionOfHeight, 10);
      form_.constant += factor * cutConstant(baseline.offset);
      break;
    case Attribute::left:
    case Attribute::width:
    case Attribute::height:
    case Attribute::notAnAttribute:
      break;
  }
  if (isMirrored) {
    addSize(holder, true, factor);
    factor = -factor;
  }
  addOrigin(holder, item, isX, factor);
  addSize(item, isX, factor * share);
}

// What has no variables is a view: guides always have some.
void ViewLayout::addOrigin(const UIView& holder, LayoutItem& item, bool isX, double factor) {
  const auto addOne = [this, isX, factor](const LayoutItem& at) {
    if (const LayoutPlace* place = placeInHere(at)) {
      form_.terms.push_back({isX ? place->x : place->y, factor});
    } else {
      const CGPoint origin = static_cast<const UIView&>(at).frame_.origin;
      form_.constant += factor * cutConstant(isX ? origin.x : origin.y);
    }
  };
  const UIView* view = asView(item);
  if (!view) {
    addOne(item);
    view = static_cast<UILayoutGuide&>(item).owner_;
  }
  for (; view != &holder; view = view->superview_) addOne(*view);
}

void ViewLayout::addSize(const LayoutItem& item, bool isWidth, double factor) {
  if (const LayoutPlace* place = placeInHere(item)) {
    form_.terms.push_back({isWidth ? place->width : place->height, factor});
  } else {
    const CGSize size = static_cast<const UIView&>(item).frame_.size;
    form_.constant += factor * cutConstant(isWidth ? size.width : size.height);
  }
}

}  // namespace Brisel::Platform::internal
