#include "brisel/themes/theme.h"

#include "brisel/themes/internal/slot_reader.h"

namespace Brisel {

using internal::SlotReader;

Theme::State::State(SlotReader& slots) : base_(slots.next()), highlight_(slots.next()), press_(slots.next()) {}

Theme::Background::Background(SlotReader& slots)
    : elevated_(slots.read<State>()),
      tinted_(slots.read<State>()),
      unsafeForSmallText_(slots.read<State>()),
      plain_(slots.read<State>()) {}

template <class Role>
Theme::Foreground<Role>::Foreground(SlotReader& slots)
    : base_(slots.next()),
      subdued_(slots.next()),
      brightAccent_(slots.next()),
      negative_(slots.next()),
      warning_(slots.next()),
      positive_(slots.next()),
      announcement_(slots.next()) {}

Theme::Decorative::Decorative(SlotReader& slots) : base_(slots.next()), subdued_(slots.next()) {}

Theme::ColorSet::ColorSet(SlotReader& slots)
    : background_(slots.read<Background>()),
      text_(slots.read<Text>()),
      essential_(slots.read<Essential>()),
      decorative_(slots.read<Decorative>()) {}

template class Theme::Foreground<Theme::TextRole>;
template class Theme::Foreground<Theme::EssentialRole>;

}  // namespace Brisel
