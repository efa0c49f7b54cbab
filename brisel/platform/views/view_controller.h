#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "brisel/platform/object.h"
#include "brisel/platform/trait_collection.h"

namespace Brisel::Platform {

class UIView;
namespace internal {
class Surroundings;
}

/// Owns a view and child controllers, and hands the traits of its surroundings on to them, with changes for some. For
/// the main thread only.
class UIViewController : public NSObject {
 public:
  /// A controller whose view has not been made.
  static std::shared_ptr<UIViewController> init();
  ~UIViewController() override;

  /// Its view, made by `loadView` at the first call; never null.
  const std::shared_ptr<UIView>& view();
  /// Whether the view has been made.
  bool isViewLoaded() const noexcept { return view_ != nullptr; }

  /// The controller that owns it; null at the top.
  std::shared_ptr<UIViewController> parentViewController() const noexcept { return parent_.lock(); }
  /// Those that it owns, in the order in which they were added.
  const std::vector<std::shared_ptr<UIViewController>>& childViewControllers() const noexcept { return children_; }
  /// `addChildViewController:`: takes it from its parent before; one that is a child already stays as it is. To add a
  /// controller to itself or to one below it, or none, is a programming error. Its view is for the caller to place.
  void addChildViewController(const std::shared_ptr<UIViewController>& child);
  /// Takes its parent's override from it.
  void removeFromParentViewController();

  /// What it is told of its surroundings; never null: what they give it (its parent's traits; those that come to its
  /// view from above for one without a parent) with the parent's override on top.
  const std::shared_ptr<const UITraitCollection>& traitCollection() const noexcept { return traitCollection_; }
  /// `setOverrideTraitCollection:forChildViewController:`: what of the child's traits is to be other than here; null:
  /// nothing. Ignored where it is no child.
  void setOverrideTraitCollection(const std::shared_ptr<const UITraitCollection>& traits,
                                  const std::shared_ptr<UIViewController>& child);
  /// `overrideTraitCollectionForChildViewController:`: null where there is none.
  std::shared_ptr<const UITraitCollection> overrideTraitCollectionForChildViewController(
      const UIViewController& child) const;
  /// `traitCollectionDidChange:`: called when `traitCollection` has become another, before the view is told. Subclasses
  /// call their base class's first.
  virtual void traitCollectionDidChange(const std::shared_ptr<const UITraitCollection>& previous);

 protected:
  /// For subclasses' factories.
  UIViewController();

  /// Makes the view: a plain one, unless a subclass makes another. Never to answer null.
  virtual std::shared_ptr<UIView> loadView();
  /// Called once, when the view has been made.
  virtual void viewDidLoad();

 private:
  friend class internal::Surroundings;

  std::shared_ptr<UIViewController> self();
  bool isBelow(const UIViewController& controller) const noexcept;
  void leaveParent();
  void surroundingsDidChange();

  std::shared_ptr<UIView> view_;
  std::weak_ptr<UIViewController> parent_;
  std::vector<std::shared_ptr<UIViewController>> children_;
  std::shared_ptr<const UITraitCollection> override_;  // the parent's, for this one
  std::shared_ptr<const UITraitCollection> traitCollection_;
};

}  // namespace Brisel::Platform
