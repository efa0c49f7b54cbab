// Views for the tests of layout.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "brisel/platform/log.h"
#include "brisel/platform/views/layout_constraint.h"
#include "brisel/platform/views/view.h"

namespace Brisel::Platform {

/// A view with content: a size, a baseline, a text that wraps, and what to do in `layoutSubviews`.
class TestBox final : public UIView {
 public:
  static std::shared_ptr<TestBox> make(CGSize content) {
    auto box = made(std::shared_ptr<TestBox>(new TestBox), {});
    box->content_ = content;
    return box;
  }

  void setContent(CGSize content) {
    content_ = content;
    invalidateIntrinsicContentSize();
  }
  /// The content is a text of so many square points, which fills its width.
  void setArea(CGFloat area) {
    area_ = area;
    invalidateIntrinsicContentSize();
  }
  void setBaseline(FirstBaseline baseline) {
    baseline_ = baseline;
    invalidateIntrinsicContentSize();
  }
  void setOnLayout(std::function<void()> onLayout) { onLayout_ = std::move(onLayout); }
  void setOnSize(std::function<void()> onSize) { onSize_ = std::move(onSize); }
  void setOnFit(std::function<void()> onFit) { onFit_ = std::move(onFit); }
  int layouts() const { return layouts_; }
  int sizesAsked() const { return sizesAsked_; }

  CGSize intrinsicContentSize() const override {
    ++sizesAsked_;
    if (onSize_) onSize_();
    return content_;
  }
  CGSize sizeThatFits(CGSize size) const override {
    if (onFit_) onFit_();
    return area_ > 0 ? CGSize{size.width, size.width > 0 ? area_ / size.width : 0} : content_;
  }
  FirstBaseline firstBaseline() const override { return baseline_; }
  void layoutSubviews() override {
    UIView::layoutSubviews();
    ++layouts_;
    if (onLayout_) onLayout_();
  }

 private:
  TestBox() = default;
  bool hasHeightForWidth() const override { return area_ > 0; }

  CGSize content_;
  CGFloat area_ = 0;
  FirstBaseline baseline_;
  std::function<void()> onLayout_;
  std::function<void()> onSize_;
  std::function<void()> onFit_;
  int layouts_ = 0;
  mutable int sizesAsked_ = 0;
};

inline void setFree(UIView& view) { view.setTranslatesAutoresizingMaskIntoConstraints(false); }

/// A plain view below another, to be placed by constraints.
inline std::shared_ptr<UIView> placedIn(const std::shared_ptr<UIView>& superview, const CGRect& frame = {}) {
  auto view = UIView::initWithFrame(frame);
  setFree(*view);
  superview->addSubview(view);
  return view;
}

/// The same with content.
inline std::shared_ptr<TestBox> boxIn(const std::shared_ptr<UIView>& superview, CGSize content) {
  auto box = TestBox::make(content);
  setFree(*box);
  superview->addSubview(box);
  return box;
}

inline std::shared_ptr<NSLayoutConstraint> active(std::shared_ptr<NSLayoutConstraint> constraint,
                                                  float priority = UILayoutPriorityRequired) {
  constraint->setPriority(priority);
  constraint->setActive(true);
  return constraint;
}

/// A screen of 100 × 60 points, and views placed on it.
class Arrangement : public testing::Test {
 protected:
  std::shared_ptr<UIView> screen = UIView::initWithFrame({{0, 0}, {100, 60}});

  std::shared_ptr<UIView> placed(const CGRect& frame = {}) { return placedIn(screen, frame); }
  std::shared_ptr<TestBox> box(CGFloat width, CGFloat height) { return boxIn(screen, {width, height}); }
  void layOut() { screen->layoutIfNeeded(); }

  static void pin(UIView& view, const UIView& to, CGFloat top, CGFloat leading, CGFloat bottom, CGFloat trailing) {
    active(view.topAnchor().constraintEqualToAnchor(to.topAnchor(), top));
    active(view.leadingAnchor().constraintEqualToAnchor(to.leadingAnchor(), leading));
    active(view.bottomAnchor().constraintEqualToAnchor(to.bottomAnchor(), -bottom));
    active(view.trailingAnchor().constraintEqualToAnchor(to.trailingAnchor(), -trailing));
  }
  static void pinTopLeading(UIView& view, const UIView& to, CGFloat top, CGFloat leading) {
    active(view.topAnchor().constraintEqualToAnchor(to.topAnchor(), top));
    active(view.leadingAnchor().constraintEqualToAnchor(to.leadingAnchor(), leading));
  }
  static void size(UIView& view, CGFloat width, CGFloat height) {
    active(view.widthAnchor().constraintEqualToConstant(width));
    active(view.heightAnchor().constraintEqualToConstant(height));
  }
};

inline CGRect rect(CGFloat x, CGFloat y, CGFloat width, CGFloat height) { return {{x, y}, {width, height}}; }

/// What the log has been told since this was made.
class LogRecord {
 public:
  LogRecord() {
    lines().clear();
    setLogHandler([](std::string_view line) { lines().emplace_back(line); });
  }
  LogRecord(const LogRecord&) = delete;
  LogRecord& operator=(const LogRecord&) = delete;
  ~LogRecord() { setLogHandler(nullptr); }

  static std::vector<std::string>& lines() {
    static auto& all = *new std::vector<std::string>;
    return all;
  }
};

}  // namespace Brisel::Platform
