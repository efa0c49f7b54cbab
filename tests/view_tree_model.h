// A tree of views that is changed at random, and the same tree made afresh.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "brisel/platform/views/layout_constraint.h"
#include "brisel/platform/views/layout_guide.h"
#include "brisel/platform/views/view.h"

namespace Brisel::Tests {

/// A view with a content size and a baseline, whose content may wrap.
class ModelView final : public Platform::UIView {
 public:
  static std::shared_ptr<ModelView> make() { return made(std::shared_ptr<ModelView>(new ModelView), {}); }

  Platform::CGSize content{Platform::UIViewNoIntrinsicMetric, Platform::UIViewNoIntrinsicMetric};
  Platform::FirstBaseline baseline;
  double area = 0;  // of a content that wraps, in square points; 0: it does not
  std::function<void()> onLayout;

  Platform::CGSize intrinsicContentSize() const override { return content; }
  Platform::CGSize sizeThatFits(Platform::CGSize size) const override {
    return area > 0 ? Platform::CGSize{size.width, size.width > 0 ? area / size.width : 0} : content;
  }
  Platform::FirstBaseline firstBaseline() const override { return baseline; }
  void layoutSubviews() override {
    UIView::layoutSubviews();
    if (onLayout) onLayout();
  }

 private:
  ModelView() = default;
  bool hasHeightForWidth() const override { return area > 0; }
};

/// One tree and the list of what was done to it. Numbers are small and often equal, so that constraints conflict,
/// repeat each other and meet in one point. Each view has a guide.
class ViewTreeModel {
 public:
  ViewTreeModel() { addView(0, 100); }

  /// One change. `below(n)` gives numbers from 0 to n - 1.
  template <class Below>
  void change(Below&& below) {
    const std::size_t i = static_cast<std::size_t>(below(static_cast<int>(views_.size())));
    const std::size_t last = constraints_.size();
    const std::size_t k = last == 0 ? 0 : static_cast<std::size_t>(below(static_cast<int>(last)));
    View& view = views_[i];
    const int kind = below(20);
    if (kind < 3) {
      if (views_.size() < kMostViews) addView(i, below(60));
    } else if (kind == 3 && i > 0) {
      below(2) == 0 ? remove(i) : move(i, static_cast<std::size_t>(below(static_cast<int>(i))));
    } else if (kind < 6) {
      const bool stands = i == 0 || below(3) == 0;
      view.view->setTranslatesAutoresizingMaskIntoConstraints(stands);
      setFrame(view, below);
    } else if (kind == 6) {
      view.view->content = {static_cast<double>(below(40)) - 1, static_cast<double>(below(40)) - 1};
      view.view->baseline = {below(3) * 0.5, static_cast<double>(below(9))};
      view.view->area = below(2) == 0 && !areAxesTied() ? 400 : 0;
      view.view->invalidateIntrinsicContentSize();
    } else if (kind == 7) {
      const auto axis = static_cast<Platform::UILayoutConstraintAxis>(below(2));
      below(2) == 0 ? view.view->setContentHuggingPriority(priority(below), axis)
                    : view.view->setContentCompressionResistancePriority(priority(below), axis);
    } else if (kind == 8) {
      view.view->setSemanticContentAttribute(static_cast<Platform::UISemanticContentAttribute>(below(3)));
    } else if (kind < 15) {
      if (constraints_.size() < kMostConstraints) addConstraint(i, below);
    } else if (last > 0 && kind == 15) {
      constraints_[k].constraint->setActive(false);
      forgetInactive();
    } else if (last > 0 && kind == 16) {
      constraints_[k].constraint->setPriority(priority(below));
    } else if (last > 0 && kind < 19) {
      constraints_[k].constraint->setConstant(below(61) - 20);
    } else {
      view.view->systemLayoutSizeFittingSize({static_cast<double>(below(100)), 0});
    }
  }

  const std::shared_ptr<ModelView>& top() const { return views_.front().view; }
  const std::shared_ptr<ModelView>& view(std::size_t i) const { return views_[i % views_.size()].view; }
  void layOut() { top()->layoutIfNeeded(); }

  /// Of all views and guides.
  std::vector<double> frames() const { return framesOf(views_); }

  /// Those of a tree made in the same order, and laid out once.
  std::vector<double> framesLaidOutAfresh() const {
    std::vector<View> copies;
    for (const View& view : views_) {
      View& copy = copies.emplace_back(newView());
      copy.view->content = view.view->content;
      copy.view->baseline = view.view->baseline;
      copy.view->area = view.view->area;
      copy.view->setFrame(view.frame);
      copy.view->setTranslatesAutoresizingMaskIntoConstraints(view.view->translatesAutoresizingMaskIntoConstraints());
      copy.view->setSemanticContentAttribute(view.view->semanticContentAttribute());
      for (const auto axis :
           {Platform::UILayoutConstraintAxis::horizontal, Platform::UILayoutConstraintAxis::vertical}) {
        copy.view->setContentHuggingPriority(view.view->contentHuggingPriorityForAxis(axis), axis);
        copy.view->setContentCompressionResistancePriority(view.view->contentCompressionResistancePriorityForAxis(axis),
                                                           axis);
      }
      if (const auto above = view.view->superview()) copies[indexOf(above.get())].view->addSubview(copy.view);
    }
    for (const Constraint& constraint : constraints_) {
      const auto& of = *constraint.constraint;
      const auto made = Platform::NSLayoutConstraint::constraintWithItem(
          item(copies, constraint.first), of.firstAttribute(), of.relation(),
          constraint.second.first ? item(copies, constraint.second) : nullptr, of.secondAttribute(), of.multiplier(),
          of.constant());
      made->setPriority(of.priority());
      made->setActive(true);
    }
    copies.front().view->layoutIfNeeded();
    return framesOf(copies);
  }

  static bool areNear(const std::vector<double>& a, const std::vector<double>& b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
      if (!(std::fabs(a[i] - b[i]) <= 1e-6 * (1 + std::fabs(a[i])))) return false;
    return true;
  }

 private:
  static constexpr std::size_t kMostViews = 10;
  static constexpr std::size_t kMostConstraints = 30;
  static constexpr std::array kPriorities = {1000.0F, 1000.0F, 999.0F, 750.0F, 501.0F, 500.0F, 250.0F, 0.0F};
  static constexpr std::array kMultipliers = {1.0, 1.0, 1.0, 0.5, 2.0};

  struct View {
    std::shared_ptr<ModelView> view;
    std::shared_ptr<Platform::UILayoutGuide> guide;
    Platform::CGRect frame;
  };
  using Item = std::pair<const ModelView*, bool>;  // the view, or its guide
  struct Constraint {
    std::shared_ptr<Platform::NSLayoutConstraint> constraint;
    Item first, second;
  };

  template <class Below>
  static float priority(Below& below) {
    return kPriorities[static_cast<std::size_t>(below(static_cast<int>(kPriorities.size())))];
  }

  static View newView() {
    View view{ModelView::make(), Platform::UILayoutGuide::init(), {}};
    view.view->addLayoutGuide(view.guide);
    return view;
  }

  void addView(std::size_t above, double width) {
    View view = newView();
    view.frame = {{1, 2}, {width, 50}};
    view.view->setFrame(view.frame);
    if (!views_.empty()) {
      view.view->setTranslatesAutoresizingMaskIntoConstraints(false);
      views_[above].view->addSubview(view.view);
    }
    views_.push_back(std::move(view));
  }

  template <class Below>
  static void setFrame(View& view, Below& below) {
    view.frame = {{static_cast<double>(below(20)), static_cast<double>(below(20))},
                  {static_cast<double>(below(90)), static_cast<double>(below(90))}};
    view.view->setFrame(view.frame);
  }

  void remove(std::size_t i) {
    const auto gone = views_[i].view;
    gone->removeFromSuperview();
    std::erase_if(views_, [&](const View& view) { return view.view->isDescendantOfView(*gone); });
    std::erase_if(constraints_, [&](const Constraint& constraint) { return indexOf(constraint.first.first) == kNone; });
    forgetInactive();
  }

  // Below a view that is older, as the copies are made in this order.
  void move(std::size_t i, std::size_t above) {
    views_[above].view->addSubview(views_[i].view);
    forgetInactive();
  }

  void forgetInactive() {
    std::erase_if(constraints_, [](const Constraint& constraint) { return !constraint.constraint->isActive(); });
  }

  template <class Below>
  void addConstraint(std::size_t i, Below& below) {
    using Attribute = Platform::NSLayoutAttribute;
    static constexpr std::array x = {Attribute::left, Attribute::right, Attribute::centerX};
    static constexpr std::array text = {Attribute::leading, Attribute::trailing, Attribute::centerX};
    static constexpr std::array y = {Attribute::top, Attribute::bottom, Attribute::centerY, Attribute::firstBaseline};
    static constexpr std::array size = {Attribute::width, Attribute::height};
    const auto attributes = [&, axis = below(5)]() -> Attribute {
      const auto any = [&](const auto& list) {
        return list[static_cast<std::size_t>(below(static_cast<int>(list.size())))];
      };
      return axis == 0 ? any(x) : axis == 1 ? any(text) : axis == 2 ? any(y) : any(size);
    };
    const Attribute first = attributes(), other = attributes();
    const Attribute second = tiesAxes(first, other) && isAnyWrapping() ? first : other;
    const bool isSize = first == Attribute::width || first == Attribute::height;
    Constraint constraint;
    constraint.first = {views_[i].view.get(), below(6) == 0};
    const std::size_t to = static_cast<std::size_t>(below(static_cast<int>(views_.size())));
    if (!isSize || below(2) == 0) constraint.second = {views_[to].view.get(), below(6) == 0};
    const double multiplier = kMultipliers[static_cast<std::size_t>(below(static_cast<int>(kMultipliers.size())))];
    constraint.constraint = Platform::NSLayoutConstraint::constraintWithItem(
        item(views_, constraint.first), first, static_cast<Platform::NSLayoutRelation>(below(3) - 1),
        constraint.second.first ? item(views_, constraint.second) : nullptr, second, multiplier, below(41) - 10);
    constraint.constraint->setPriority(priority(below));
    constraint.constraint->setActive(true);
    constraints_.push_back(std::move(constraint));
  }

  // Where a width depends on a height, and that on a width again, layout comes nearer to an answer and stops; where,
  // depends on what was before. So the model has views that wrap, or such constraints.
  static bool tiesAxes(Platform::NSLayoutAttribute first, Platform::NSLayoutAttribute second) {
    const auto isHeight = [](auto attribute) { return attribute == Platform::NSLayoutAttribute::height; };
    const auto isWidth = [](auto attribute) { return attribute == Platform::NSLayoutAttribute::width; };
    return (isWidth(first) && isHeight(second)) || (isHeight(first) && isWidth(second));
  }
  bool areAxesTied() const {
    return std::any_of(constraints_.begin(), constraints_.end(), [](const Constraint& constraint) {
      return tiesAxes(constraint.constraint->firstAttribute(), constraint.constraint->secondAttribute());
    });
  }
  bool isAnyWrapping() const {
    return std::any_of(views_.begin(), views_.end(), [](const View& view) { return view.view->area > 0; });
  }

  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  std::size_t indexOf(const Platform::UIView* wanted) const {
    for (std::size_t i = 0; i < views_.size(); ++i)
      if (views_[i].view.get() == wanted) return i;
    return kNone;
  }

  std::shared_ptr<Platform::LayoutItem> item(const std::vector<View>& views, const Item& of) const {
    const View& view = views[indexOf(of.first)];
    if (of.second) return view.guide;
    return view.view;
  }

  static std::vector<double> framesOf(const std::vector<View>& views) {
    std::vector<double> numbers;
    for (const View& view : views)
      for (const Platform::CGRect& rect : {view.view->frame(), view.guide->layoutFrame()})
        numbers.insert(numbers.end(), {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height});
    return numbers;
  }

  std::vector<View> views_;  // the first is the top
  std::vector<Constraint> constraints_;
};

}  // namespace Brisel::Tests
