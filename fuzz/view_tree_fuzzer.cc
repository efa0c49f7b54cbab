// Trees of views that are changed and laid out over and over, against the same tree made afresh; trees with any numbers
// at all; and trees that are changed by their own callbacks.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "brisel/platform/views/layout_constraint.h"
#include "brisel/platform/views/view.h"

#include "fuzz/input.h"
#include "tests/view_tree_model.h"

namespace {

using namespace Brisel::Platform;
using Brisel::Fuzz::require;
using Brisel::Fuzz::Source;
using Brisel::Tests::ModelView;
using Brisel::Tests::ViewTreeModel;

void changeAndCompare(Source& source) {
  ViewTreeModel model;
  const auto below = [&source](int end) { return source.below(end); };
  while (!source.isEmpty()) {
    for (int changes = 1 + source.below(8); changes > 0; --changes) model.change(below);
    model.layOut();
    require(ViewTreeModel::areNear(model.frames(), model.framesLaidOutAfresh()));
  }
}

// Any frames, contents, baselines, constants, multipliers, priorities and sizes to fit.
void takeAnything(Source& source) {
  std::vector<std::shared_ptr<ModelView>> views = {ModelView::make()};
  std::vector<std::shared_ptr<NSLayoutConstraint>> constraints;
  const auto number = [&source] { return source.take<double>(); };
  while (!source.isEmpty() && views.size() < 20 && constraints.size() < 60) {
    const auto& view = views[source.take<std::uint8_t>() % views.size()];
    const auto& other = views[source.take<std::uint8_t>() % views.size()];
    const int kind = source.below(9);
    if (kind == 0) {
      const auto added = ModelView::make();
      added->setTranslatesAutoresizingMaskIntoConstraints(source.below(3) == 0);
      view->addSubview(added);
      views.push_back(added);
    } else if (kind == 1) {
      view->setFrame({{number(), number()}, {number(), number()}});
    } else if (kind == 2) {
      view->content = {number(), number()};
      view->baseline = {number(), number()};
      view->invalidateIntrinsicContentSize();
    } else if (kind == 3) {
      view->setContentHuggingPriority(source.take<float>(), UILayoutConstraintAxis::vertical);
    } else if (kind < 7) {
      constraints.push_back(NSLayoutConstraint::constraintWithItem(
          view, kind == 4 ? NSLayoutAttribute::trailing : NSLayoutAttribute::firstBaseline,
          static_cast<NSLayoutRelation>(source.below(3) - 1), other,
          kind == 4 ? NSLayoutAttribute::leading : NSLayoutAttribute::bottom, number(), number()));
      constraints.back()->setPriority(source.take<float>());
      constraints.back()->setActive(true);
    } else if (kind == 7) {
      view->systemLayoutSizeFittingSize({number(), number()});
    } else {
      views.front()->layoutIfNeeded();
    }
    for (const auto& at : views) {
      const CGRect frame = at->frame();
      require(std::isfinite(frame.origin.x) && std::isfinite(frame.origin.y));
      require(std::isfinite(frame.size.width) && std::isfinite(frame.size.height));
    }
  }
  views.front()->layoutIfNeeded();
}

// `layoutSubviews` changes the tree, measures, and lays out again, as often as there is input.
void changeFromWithin(Source& source) {
  ViewTreeModel model;
  const auto below = [&source](int end) { return source.below(end); };
  for (int changes = 12; changes > 0; --changes) model.change(below);
  while (!source.isEmpty()) {
    model.view(source.take<std::uint8_t>())->onLayout = [&] {
      if (source.isEmpty()) return;
      model.change(below);
      const auto view = model.view(source.take<std::uint8_t>());
      const auto width = view->widthAnchor().constraintEqualToConstant(source.below(100));
      width->setPriority(501);
      width->setActive(true);
      view->setNeedsLayout();
      view->layoutIfNeeded();
      width->setActive(false);
    };
    for (int changes = 1 + source.below(4); changes > 0; --changes) model.change(below);
    model.layOut();
  }
  model.layOut();
  require(ViewTreeModel::areNear(model.frames(), model.framesLaidOutAfresh()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Source source(data, size);
  switch (source.below(4)) {
    case 0:
      takeAnything(source);
      break;
    case 1:
      changeFromWithin(source);
      break;
    default:
      changeAndCompare(source);
  }
  return 0;
}
