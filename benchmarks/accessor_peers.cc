#include "benchmarks/accessor_peers.h"

#include <memory>
#include <mutex>
#include <unordered_map>

namespace Brisel::Benchmarks {
namespace {

using Platform::ColorPtr;
using Platform::UIColor;

template <class Value>
struct GuardedMap {
  std::mutex mutex;
  std::unordered_map<std::string_view, Value> values;

  const Value& find(std::string_view name) {
    const std::lock_guard lock(mutex);
    return values.find(name)->second;
  }
};

}  // namespace

const ColorPtr& staticColor() noexcept {
  static const ColorPtr color = std::make_shared<const UIColor>(UIColor::grey(0.071, 1));
  return color;
}

const TypeStyle& staticStyle() noexcept {
  static const TypeStyle style = TypeStyle::ballad();
  return style;
}

const Theme& staticTheme() noexcept {
  static const Theme theme = Theme::dark();
  return theme;
}

const ColorPtr& mappedColor(std::string_view name) {
  static auto& colors = *new GuardedMap<ColorPtr>{{}, {{"gray7", staticColor()}, {"gray10", staticColor()}}};
  return colors.find(name);
}

const TypeStyle& mappedStyle(std::string_view name) {
  static auto& styles = *new GuardedMap<TypeStyle>{{}, {{"ballad", staticStyle()}, {"cello", staticStyle()}}};
  return styles.find(name);
}

}  // namespace Brisel::Benchmarks
