// A screen of rows, each of an icon, a title, a value and a note, laid out by about six constraints a view: after the
// height of one icon has changed, and for the first time. A dense solver gets the same system. And a stack of texts,
// each below the last, so that the place of each depends on the heights of all before.
#include <cmath>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "brisel/platform/views/layout_constraint.h"
#include "brisel/platform/views/view.h"

#include "benchmarks/dense_layout.h"
#include "benchmarks/job.h"

namespace {

using namespace Brisel::Platform;
using Brisel::Benchmarks::DenseLayout;

constexpr std::size_t kViewsARow = 5;
constexpr CGFloat kScreenWidth = 320;
// In the order of importance: required, compression, hugging.
constexpr std::size_t kRequired = 0, kCompression = 1, kHugging = 2;

class Text final : public UIView {
 public:
  static std::shared_ptr<Text> make(CGSize size) {
    auto text = made(std::shared_ptr<Text>(new Text), {});
    text->size_ = size;
    return text;
  }
  CGSize intrinsicContentSize() const override { return size_; }

 private:
  Text() = default;
  CGSize size_;
};

CGFloat titleWidth(std::size_t row) { return 90 + 13.0 * static_cast<double>(row % 7); }
CGFloat valueWidth(std::size_t row) { return 40 + 11.0 * static_cast<double>(row % 5); }
CGFloat noteWidth(std::size_t row) { return 150 + 29.0 * static_cast<double>(row % 6); }

// The screen as views.
struct Screen {
  explicit Screen(std::size_t views) {
    for (std::size_t row = 0; row < views / kViewsARow; ++row) addRow(row);
  }

  std::shared_ptr<UIView> added(const std::shared_ptr<UIView>& superview, std::shared_ptr<UIView> view) {
    view->setTranslatesAutoresizingMaskIntoConstraints(false);
    superview->addSubview(view);
    all.push_back(view);
    return view;
  }

  void addRow(std::size_t index) {
    const auto row = added(top, UIView::initWithFrame()), icon = added(row, UIView::initWithFrame()),
               title = added(row, Text::make({titleWidth(index), 17})),
               value = added(row, Text::make({valueWidth(index), 17})),
               note = added(row, Text::make({noteWidth(index), 12}));
    iconHeight = icon->heightAnchor().constraintEqualToConstant(24);
    NSLayoutConstraint::activateConstraints({
        row->leadingAnchor().constraintEqualToAnchor(top->leadingAnchor(), 16),
        row->trailingAnchor().constraintEqualToAnchor(top->trailingAnchor(), -16),
        index == 0 ? row->topAnchor().constraintEqualToAnchor(top->topAnchor(), 8)
                   : row->topAnchor().constraintEqualToAnchor(last->bottomAnchor(), 8),
        icon->leadingAnchor().constraintEqualToAnchor(row->leadingAnchor()),
        icon->topAnchor().constraintEqualToAnchor(row->topAnchor(), 4),
        icon->widthAnchor().constraintEqualToAnchor(icon->heightAnchor()),
        iconHeight,
        icon->bottomAnchor().constraintLessThanOrEqualToAnchor(row->bottomAnchor(), -4),
        title->leadingAnchor().constraintEqualToAnchor(icon->trailingAnchor(), 8),
        title->topAnchor().constraintEqualToAnchor(row->topAnchor(), 4),
        title->trailingAnchor().constraintLessThanOrEqualToAnchor(value->leadingAnchor(), -8),
        value->trailingAnchor().constraintEqualToAnchor(row->trailingAnchor()),
        value->centerYAnchor().constraintEqualToAnchor(title->centerYAnchor()),
        value->topAnchor().constraintGreaterThanOrEqualToAnchor(row->topAnchor(), 4),
        note->leadingAnchor().constraintEqualToAnchor(title->leadingAnchor()),
        note->topAnchor().constraintEqualToAnchor(title->bottomAnchor(), 2),
        note->trailingAnchor().constraintLessThanOrEqualToAnchor(row->trailingAnchor()),
        note->bottomAnchor().constraintEqualToAnchor(row->bottomAnchor(), -4),
    });
    last = row;
    if (index == 0) firstIconHeight = iconHeight;
  }

  std::vector<double> frames() const {
    std::vector<double> numbers;
    for (const auto& view : all) {
      const CGRect& frame = view->frame();
      numbers.insert(numbers.end(), {frame.origin.x, frame.origin.y, frame.size.width, frame.size.height});
    }
    return numbers;
  }

  std::shared_ptr<UIView> top = UIView::initWithFrame({{0, 0}, {kScreenWidth, 2'000}});
  std::shared_ptr<UIView> last;
  std::vector<std::shared_ptr<UIView>> all;
  std::shared_ptr<NSLayoutConstraint> iconHeight, firstIconHeight;
};

struct Stack {
  explicit Stack(std::size_t views) {
    for (std::size_t index = 0; index < views; ++index) {
      const auto text = Text::make({titleWidth(index), 17});
      text->setTranslatesAutoresizingMaskIntoConstraints(false);
      top->addSubview(text);
      NSLayoutConstraint::activateConstraints({
          text->leadingAnchor().constraintEqualToAnchor(top->leadingAnchor(), 16),
          last ? text->topAnchor().constraintEqualToAnchor(last->bottomAnchor(), 8)
               : text->topAnchor().constraintEqualToAnchor(top->topAnchor(), 8),
      });
      last = text;
    }
  }

  std::shared_ptr<UIView> top = UIView::initWithFrame({{0, 0}, {kScreenWidth, 2'000}});
  std::shared_ptr<UIView> last;
};

// The same as rows of numbers, in the same order of views.
DenseLayout denseScreen(std::size_t views) {
  using Relation = DenseLayout::Relation;
  struct Box {
    std::size_t x, y, width, height;
  };
  DenseLayout dense;
  const auto box = [&dense] {
    const std::size_t x = dense.addVariable(), y = dense.addVariable(), width = dense.addVariable();
    return Box{x, y, width, dense.addVariable()};
  };
  const auto text = [&](CGFloat width, CGFloat height) {
    const Box made = box();
    for (const auto& [side, size] : {std::pair(made.width, width), std::pair(made.height, height)}) {
      dense.add({{side, 1}}, Relation::atLeast, size, kCompression);
      dense.add({{side, 1}}, Relation::atMost, size, kHugging);
    }
    return made;
  };
  Box last{};
  for (std::size_t index = 0; index < views / kViewsARow; ++index) {
    const Box row = box(), icon = box(), title = text(titleWidth(index), 17), value = text(valueWidth(index), 17),
              note = text(noteWidth(index), 12);
    const auto add = [&](const DenseLayout::Terms& terms, Relation relation, double sum) {
      dense.add(terms, relation, sum, kRequired);
    };
    add({{row.x, 1}}, Relation::equal, 16);
    add({{row.x, 1}, {row.width, 1}}, Relation::equal, kScreenWidth - 16);
    if (index == 0) {
      add({{row.y, 1}}, Relation::equal, 8);
    } else {
      add({{row.y, 1}, {last.y, -1}, {last.height, -1}}, Relation::equal, 8);
    }
    add({{icon.x, 1}}, Relation::equal, 0);
    add({{icon.y, 1}}, Relation::equal, 4);
    add({{icon.width, 1}, {icon.height, -1}}, Relation::equal, 0);
    add({{icon.height, 1}}, Relation::equal, 24);
    add({{icon.y, 1}, {icon.height, 1}, {row.height, -1}}, Relation::atMost, -4);
    add({{title.x, 1}, {icon.x, -1}, {icon.width, -1}}, Relation::equal, 8);
    add({{title.y, 1}}, Relation::equal, 4);
    add({{title.x, 1}, {title.width, 1}, {value.x, -1}}, Relation::atMost, -8);
    add({{value.x, 1}, {value.width, 1}, {row.width, -1}}, Relation::equal, 0);
    add({{value.y, 1}, {value.height, 0.5}, {title.y, -1}, {title.height, -0.5}}, Relation::equal, 0);
    add({{value.y, 1}}, Relation::atLeast, 4);
    add({{note.x, 1}, {title.x, -1}}, Relation::equal, 0);
    add({{note.y, 1}, {title.y, -1}, {title.height, -1}}, Relation::equal, 2);
    add({{note.x, 1}, {note.width, 1}, {row.width, -1}}, Relation::atMost, 0);
    add({{note.y, 1}, {note.height, 1}, {row.height, -1}}, Relation::equal, -4);
    last = row;
  }
  return dense;
}

void afterAChange(benchmark::State& state, std::size_t views) {
  const Screen screen(views);
  screen.top->layoutIfNeeded();
  bool isTall = false;
  for (auto _ : state) {
    isTall = !isTall;
    screen.firstIconHeight->setConstant(isTall ? 48 : 24);
    screen.top->layoutIfNeeded();
  }
  benchmark::DoNotOptimize(screen.last->frame());
}

template <class Tree>
void afresh(benchmark::State& state, std::size_t views) {
  for (auto _ : state) {
    state.PauseTiming();
    auto tree = std::make_unique<Tree>(views);
    state.ResumeTiming();
    tree->top->layoutIfNeeded();
    state.PauseTiming();
    tree.reset();
    state.ResumeTiming();
  }
}

void densely(benchmark::State& state, std::size_t views) {
  const DenseLayout dense = denseScreen(views);
  const Screen screen(views);
  screen.top->layoutIfNeeded();
  const std::vector<double> ours = screen.frames(), theirs = dense.solve();
  for (std::size_t i = 0; i < ours.size(); ++i)
    if (std::fabs(ours[i] - theirs[i]) > 1e-6) return state.SkipWithError("the two solutions differ");
  for (auto _ : state) benchmark::DoNotOptimize(dense.solve());
}

template <std::size_t views>
void addChange(const std::string& name) {
  Brisel::Benchmarks::addJob(name.c_str(), [](benchmark::State& state) { afterAChange(state, views); });
}
template <std::size_t views, class Tree = Screen>
void addAfresh(const std::string& name) {
  Brisel::Benchmarks::addJob(name.c_str(), [](benchmark::State& state) { afresh<Tree>(state, views); });
}
template <std::size_t views>
void addDense(const std::string& name) {
  Brisel::Benchmarks::addJob(name.c_str(), [](benchmark::State& state) { densely(state, views); });
}

bool addRows() {
  addChange<20>("constraint_layout_20/ours");
  addChange<60>("constraint_layout_60/ours");
  addChange<120>("constraint_layout_120/ours");
  addAfresh<20>("constraint_layout_20/afresh");
  addAfresh<60>("constraint_layout_60/afresh");
  addAfresh<120>("constraint_layout_120/afresh");
  addDense<20>("constraint_layout_20/dense");
  addDense<60>("constraint_layout_60/dense");
  addDense<120>("constraint_layout_120/dense");
  // How the first layout grows.
  addAfresh<60>("constraint_layout_growth_60/ours");
  addAfresh<20>("constraint_layout_growth_60/20 views");
  addAfresh<120>("constraint_layout_growth_120/ours");
  addAfresh<60>("constraint_layout_growth_120/60 views");
  addAfresh<120, Stack>("constraint_layout_stack_growth_120/ours");
  addAfresh<60, Stack>("constraint_layout_stack_growth_120/60 views");
  addChange<120>("constraint_layout_change_growth_120/ours");
  addChange<20>("constraint_layout_change_growth_120/20 views");
  return true;
}

[[maybe_unused]] const bool added = addRows();

}  // namespace
