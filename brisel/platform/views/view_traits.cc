// How traits and windows come down a tree, and who is told of them.
#include <cstddef>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include "brisel/platform/log.h"
#include "brisel/platform/views/view.h"
#include "brisel/platform/views/view_controller.h"
#include "brisel/platform/views/window.h"

namespace Brisel::Platform {
namespace internal {
namespace {

using Traits = std::shared_ptr<const UITraitCollection>;

// So often one is told of one change and of all that its own calls lead to, then no more: calls that change the traits
// to and fro have an end.
constexpr int kMostCalls = 16;

bool isSameWindow(const std::weak_ptr<UIWindow>& a, const std::weak_ptr<UIWindow>& b) noexcept {
  return !a.owner_before(b) && !b.owner_before(a);  // tells one that was freed from none
}

}  // namespace

/// A change of surroundings: of the place in a tree, of a window's traits, of an override.
///
/// First all that is below takes its new traits and window; no one else's code runs meanwhile. Then those whom it
/// concerns are told, from the top down. What their calls change is right at once, everywhere; who is concerned by that
/// is told in turn, behind those who wait already, and once: of what has changed since it was told last, if anything
/// has. So calls are never nested, and whoever is called finds the whole tree up to date.
class Surroundings {
 public:
  static void didChange(UIView* view, UIViewController* controller) {
    if (current) {
      current->handDown({view, controller});
      return;
    }
    Surroundings change;
    change.handDown({view, controller});
    if (change.waiting_.empty()) return;
    struct Current {
      explicit Current(Surroundings& now) { current = &now; }
      ~Current() { current = nullptr; }
    } now(change);
    change.tell();
  }

 private:
  // A view or a controller.
  struct Member {
    UIView* view = nullptr;
    UIViewController* controller = nullptr;
  };

  struct Told {
    std::shared_ptr<NSObject> owner;  // of the member, which is not freed before all have been told
    Member member;
    Traits traits;                   // what it knows
    std::weak_ptr<UIWindow> window;  // of a view: the same
    int calls = 0;
    bool isWaiting = false;
  };

  static constinit thread_local Surroundings* current;

  void handDown(Member top) {
    std::vector<Member> members{top};
    while (!members.empty()) {
      const Member member = members.back();
      members.pop_back();
      if (member.controller) {
        update(*member.controller, members);
      } else {
        update(*member.view, members);
      }
    }
  }

  void update(UIViewController& controller, std::vector<Member>& below) {
    Traits traits = traitsOf(controller);
    if (traits->isEqual(*controller.traitCollection_)) return;
    note(controller, {nullptr, &controller}, controller.traitCollection_, {});
    controller.traitCollection_ = std::move(traits);
    // The view is on top, so that children whose views are in it are told where their views are.
    const auto& children = controller.children_;
    for (std::size_t i = children.size(); i-- > 0;) below.push_back({nullptr, children[i].get()});
    if (controller.view_) below.push_back({controller.view_.get(), nullptr});
  }

  void update(UIView& view, std::vector<Member>& below) {
    const auto controller = view.viewController_.lock();
    if (controller) update(*controller, below);
    Traits traits = controller ? controller->traitCollection_ : surrounding(view);
    std::weak_ptr<UIWindow> window;
    if (view.superview_) {
      window = view.superview_->window_;
    } else if (dynamic_cast<UIWindow*>(&view)) {
      window = std::static_pointer_cast<UIWindow>(view.shared_from_this());
    }
    const bool isOther = !traits->isEqual(*view.traitCollection_);
    if (!isOther && isSameWindow(window, view.window_)) return;
    note(view, {&view, nullptr}, view.traitCollection_, view.window_);
    if (isOther) view.traitCollection_ = std::move(traits);
    view.window_ = std::move(window);
    const auto& subviews = view.subviews_;
    for (std::size_t i = subviews.size(); i-- > 0;) below.push_back({subviews[i].get(), nullptr});
  }

  // What comes to a view from above, whatever its controller says.
  static Traits surrounding(const UIView& view) {
    if (view.superview_) return view.superview_->traitCollection_;
    const auto* window = dynamic_cast<const UIWindow*>(&view);
    return window && window->hostTraits_ ? window->hostTraits_ : UITraitCollection::init();
  }

  static Traits traitsOf(const UIViewController& controller) {
    const auto parent = controller.parent_.lock();
    Traits given = parent             ? parent->traitCollection_
                   : controller.view_ ? surrounding(*controller.view_)
                                      : UITraitCollection::init();
    if (!controller.override_) return given;
    return UITraitCollection::traitCollectionWithTraitsFromCollections({given, controller.override_});
  }

  // Has a member told that is about to change; these are its traits and its window before.
  void note(NSObject& object, Member member, const Traits& traits, const std::weak_ptr<UIWindow>& window) {
    const auto [entry, isNew] = told_.try_emplace(&object);
    Told& told = entry->second;
    if (isNew) told = {object.shared_from_this(), member, traits, window};
    if (!std::exchange(told.isWaiting, true)) waiting_.push_back(&told);
  }

  void tell() {
    std::size_t next = 0;
    while (next < waiting_.size()) {  // Calls make the list longer.
      Told& told = *waiting_[next++];
      told.isWaiting = false;
      if (++told.calls <= kMostCalls) {
        if (told.member.controller) tell(*told.member.controller, told);
        if (told.member.view) tell(*told.member.view, told);
      } else if (told.calls == kMostCalls + 1) {
        log("A view's traits change whenever it is told of them: it is told no more");
      }
    }
  }

  template <class Receiver>
  static void tellTraits(Receiver& receiver, Told& told) {
    if (told.traits->isEqual(*receiver.traitCollection_)) return;
    const Traits previous = std::exchange(told.traits, receiver.traitCollection_);
    receiver.traitCollectionDidChange(previous);
  }

  static void tell(UIViewController& controller, Told& told) { tellTraits(controller, told); }

  static void tell(UIView& view, Told& told) {
    tellTraits(view, told);
    if (isSameWindow(told.window, view.window_)) return;
    told.window = view.window_;
    view.didMoveToWindow();
  }

  std::unordered_map<const NSObject*, Told> told_;
  std::vector<Told*> waiting_;  // in the order of the calls
};

constinit thread_local Surroundings* Surroundings::current = nullptr;

}  // namespace internal

void UIView::surroundingsDidChange() { internal::Surroundings::didChange(this, nullptr); }

void UIViewController::surroundingsDidChange() { internal::Surroundings::didChange(nullptr, this); }

}  // namespace Brisel::Platform
