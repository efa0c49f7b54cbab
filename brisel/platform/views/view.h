#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "brisel/platform/canvas.h"
#include "brisel/platform/color.h"
#include "brisel/platform/geometry.h"
#include "brisel/platform/layout_direction.h"
#include "brisel/platform/trait_collection.h"
#include "brisel/platform/views/layout_anchor.h"
#include "brisel/platform/views/layout_constraint.h"

namespace Brisel::Platform {

class UILayoutGuide;
class UIViewController;
class UIWindow;
namespace internal {
class Surroundings;
}

/// The two axes of layout, by the published numbers.
enum class UILayoutConstraintAxis : std::uint8_t {
  horizontal = 0,  ///< widths
  vertical = 1,    ///< heights
};

/// Whether a view is mirrored where the interface runs from right to left: as its surroundings are, or never, or
/// always.
enum class UISemanticContentAttribute : std::uint8_t {
  unspecified,       ///< as its surroundings are
  forceLeftToRight,  ///< never
  forceRightToLeft,  ///< always
};

/// The size to which views are asked to fit as small as they can be.
inline constexpr CGSize UILayoutFittingCompressedSize{0, 0};
/// The size to which views are asked to fit as large as they wish.
inline constexpr CGSize UILayoutFittingExpandedSize{10'000, 10'000};

/// In a view's intrinsic content size: that it has none on this axis.
inline constexpr CGFloat UIViewNoIntrinsicMetric = -1;

/// Where the first baseline of a view lies: this part of the view's height below its top, and these points more.
struct FirstBaseline {
  CGFloat fractionOfHeight = 1;  ///< 0…1
  CGFloat offset = 0;            ///< points, downwards
};

/// A rectangle on the screen, in a tree of such. A view owns its subviews, layout guides and constraints; all that
/// points up or across is weak. For the main thread only.
class UIView : public LayoutItem {
 public:
  /// `initWithFrame:`: a view that shows nothing.
  static std::shared_ptr<UIView> initWithFrame(const CGRect& frame = {});
  ~UIView() override;

  // The tree.

  /// Puts a view in front of the other subviews, out of the place where it was. To add a view to itself or to what is
  /// below it, or none, is a programming error.
  void addSubview(const std::shared_ptr<UIView>& view);
  /// Takes it out of its superview; harmless where it has none.
  void removeFromSuperview();
  /// From the hindmost to the foremost.
  const std::vector<std::shared_ptr<UIView>>& subviews() const noexcept { return subviews_; }
  /// The view that owns it; null at the top.
  std::shared_ptr<UIView> superview() const noexcept;
  /// The window at the top of the tree, or null. A window is in itself.
  std::shared_ptr<UIWindow> window() const;
  /// `isDescendantOfView:`: a view is one of itself.
  bool isDescendantOfView(const UIView& view) const noexcept;

  // The rectangle.

  /// In the coordinates of the superview, in points. Where constraints place the view, what is set here holds until the
  /// next layout. Distances that are not finite count as 0.
  const CGRect& frame() const noexcept { return frame_; }
  void setFrame(const CGRect& frame);
  /// The same in its own coordinates: the origin is (0, 0).
  CGRect bounds() const noexcept { return {{}, frame_.size}; }
  /// `convertPoint:toView:`: from its own coordinates to those of a view of the same tree.
  CGPoint convertPointToView(CGPoint point, const UIView& view) const noexcept;
  /// `convertRect:toView:`: likewise.
  CGRect convertRectToView(const CGRect& rect, const UIView& view) const noexcept;

  // What is seen.

  /// Whether it is left out when the tree is drawn, with all below it. It keeps its place all the same.
  bool isHidden() const noexcept { return hidden_; }
  void setHidden(bool hidden) noexcept { hidden_ = hidden; }
  /// What is drawn behind its content; null: nothing.
  const ColorPtr& backgroundColor() const noexcept { return backgroundColor_; }
  void setBackgroundColor(ColorPtr color) noexcept { backgroundColor_ = std::move(color); }
  /// Whether subviews are cut at its edges.
  bool clipsToBounds() const noexcept { return clipsToBounds_; }
  void setClipsToBounds(bool clips) noexcept { clipsToBounds_ = clips; }

  /// Draws the view and what is below it, the view's upper left corner at the point. Draws what was laid out last;
  /// hidden views not at all.
  void drawHierarchy(Canvas& canvas, CGPoint at) const;

  // Layout.

  /// Has `layoutSubviews` called at the next layout.
  void setNeedsLayout();
  /// Lays out now: solves the constraints of the whole tree, places its views, and calls `layoutSubviews` of this view
  /// and those below it that need it; again, while that asks for more, up to 16 times. May be called from within
  /// `layoutSubviews`: then it begins again once, and does nothing where a tree is laid out for the fifth time at once,
  /// four calls within each other being under way. What is left waits for the next layout.
  void layoutIfNeeded();
  /// Called by layout for a view that needs it: one whose size has changed, or that was told so. Subclasses place here
  /// what constraints do not; they call their base class's first.
  virtual void layoutSubviews();

  /// Whether its frame stands as it is set (true at first); false where constraints place the view.
  bool translatesAutoresizingMaskIntoConstraints() const noexcept { return translatesAutoresizingMask_; }
  void setTranslatesAutoresizingMaskIntoConstraints(bool translates);

  /// How strongly the view resists becoming larger than its intrinsic content; 250 at first.
  UILayoutPriority contentHuggingPriorityForAxis(UILayoutConstraintAxis axis) const noexcept;
  /// `setContentHuggingPriority:forAxis:`: from the next layout on.
  void setContentHuggingPriority(UILayoutPriority priority, UILayoutConstraintAxis axis);
  /// How strongly it resists becoming smaller; 750 at first.
  UILayoutPriority contentCompressionResistancePriorityForAxis(UILayoutConstraintAxis axis) const noexcept;
  /// `setContentCompressionResistancePriority:forAxis:`: from the next layout on.
  void setContentCompressionResistancePriority(UILayoutPriority priority, UILayoutConstraintAxis axis);

  /// The size of its content, in points; `UIViewNoIntrinsicMetric` on an axis without one, as on both of a plain view.
  virtual CGSize intrinsicContentSize() const;
  /// To be called when that has changed.
  void invalidateIntrinsicContentSize();
  /// `sizeThatFits:`: the size that its content takes within one; a plain view answers its own.
  virtual CGSize sizeThatFits(CGSize size) const;
  /// Takes the size that fits its own.
  void sizeToFit();
  /// Where text stands: by this, first baselines are aligned.
  virtual FirstBaseline firstBaseline() const;

  /// `systemLayoutSizeFittingSize:`: the size that constraints give the view when it is asked for one as near to this
  /// as they allow (at `UILayoutPriorityFittingSizeLevel`). Nothing is placed by it. May be called from within
  /// `intrinsicContentSize`; where views always ask each other again, the answer is in the end the size as it is.
  virtual CGSize systemLayoutSizeFittingSize(CGSize size);

  /// `constraints`: those that it holds, in the order of activation.
  const std::vector<std::shared_ptr<NSLayoutConstraint>>& constraints() const noexcept { return constraints_; }

  /// Takes a guide, out of the view that owned it.
  void addLayoutGuide(const std::shared_ptr<UILayoutGuide>& guide);
  /// Gives a guide away; the constraints that tie it are deactivated.
  void removeLayoutGuide(const std::shared_ptr<UILayoutGuide>& guide);
  /// Its guides, in the order in which they were added.
  const std::vector<std::shared_ptr<UILayoutGuide>>& layoutGuides() const noexcept { return layoutGuides_; }

  // Its surroundings.

  /// What it is told of its surroundings; never null. The traits are those of its view controller, else those of the
  /// superview; a tree without a window has none specified.
  const std::shared_ptr<const UITraitCollection>& traitCollection() const noexcept { return traitCollection_; }
  /// `traitCollectionDidChange:`: called when `traitCollection` has become another. Subclasses call their base class's
  /// first.
  virtual void traitCollectionDidChange(const std::shared_ptr<const UITraitCollection>& previous);
  /// Called when the view has come into a window or left one.
  virtual void didMoveToWindow();

  /// Whether it is mirrored; unspecified at first.
  UISemanticContentAttribute semanticContentAttribute() const noexcept { return semanticContentAttribute_; }
  void setSemanticContentAttribute(UISemanticContentAttribute attribute);
  /// The direction that the semantic attribute forces, else that of its traits, else that of the user interface.
  UIUserInterfaceLayoutDirection effectiveUserInterfaceLayoutDirection() const noexcept;

  std::shared_ptr<const UIView> layoutView() const override;

 protected:
  /// For subclasses' factories.
  UIView();

  /// What every factory does with the bare object: gives it its frame, and runs `didInitWithFrame`.
  template <class View>
  static std::shared_ptr<View> made(std::shared_ptr<View> view, const CGRect& frame) {
    view->setFrame(frame);
    static_cast<UIView&>(*view).didInitWithFrame();  // protected in the class itself
    return view;
  }
  /// The rest of initialisation, where `shared_from_this` works. Subclasses call their base class's first.
  virtual void didInitWithFrame();

  /// Draws the view's own content over its background, its upper left corner at the point. It may change the tree;
  /// siblings that it takes out are still drawn.
  virtual void drawContent(Canvas& canvas, CGPoint at) const;

  /// Whether the height of its content depends on its width, as that of wrapped text does; then layout asks
  /// `sizeThatFits` for the height at the width that it finds.
  virtual bool hasHeightForWidth() const;

 private:
  friend class NSLayoutConstraint;
  friend class UILayoutGuide;
  friend class UIViewController;
  friend class UIWindow;
  friend class internal::Surroundings;
  friend class internal::ViewLayout;

  UIView& top() noexcept;
  void detach();
  void dismantle(std::vector<std::shared_ptr<UIView>>& orphans);
  void markAbove(bool UIView::*mark) noexcept;
  void layOutSubtree();
  /// The rectangle that layout found.
  void takePlace(const CGRect& frame);
  /// Called when the superview, the controller or what the window was told may have become another: has the view and
  /// all below take their traits and window, and tells those for whom they are others.
  void surroundingsDidChange();

  UIView* superview_ = nullptr;  // which takes itself out before it goes
  std::vector<std::shared_ptr<UIView>> subviews_;
  std::vector<std::shared_ptr<UILayoutGuide>> layoutGuides_;
  std::vector<std::shared_ptr<NSLayoutConstraint>> constraints_;
  std::shared_ptr<internal::ViewLayout> layout_;  // of the tree, at its top; null until needed
  std::weak_ptr<UIViewController> viewController_;
  std::weak_ptr<UIWindow> window_;
  std::shared_ptr<const UITraitCollection> traitCollection_;
  ColorPtr backgroundColor_;
  CGRect frame_;
  UILayoutPriority hugging_[2] = {UILayoutPriorityDefaultLow, UILayoutPriorityDefaultLow};
  UILayoutPriority compressionResistance_[2] = {UILayoutPriorityDefaultHigh, UILayoutPriorityDefaultHigh};
  UISemanticContentAttribute semanticContentAttribute_ = UISemanticContentAttribute::unspecified;
  bool hidden_ = false;
  bool clipsToBounds_ = false;
  bool translatesAutoresizingMask_ = true;
  bool needsLayout_ = true;
  bool needsLayoutBelow_ = false;
  bool isConstrained_ = false;  // constraints, or views that they place, may be here or below
};

}  // namespace Brisel::Platform
