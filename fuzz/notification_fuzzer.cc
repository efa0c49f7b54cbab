// Random payloads posted to a notification centre whose observers come and go meanwhile. Payloads are compared, hashed
// and searched on arrival.

#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "brisel/platform/content_size_category.h"
#include "brisel/platform/notification_center.h"

#include "fuzz/input.h"

namespace {

using namespace Brisel::Platform;
using Brisel::Fuzz::require;

constexpr std::string_view kNames[] = {UIContentSizeCategoryDidChangeNotification, "other", ""};

class Sender final : public NSObject {};

// Reads the input as a script; an exhausted one reads as zeros.
class Script {
 public:
  Script(const std::uint8_t* data, std::size_t size) : bytes_(reinterpret_cast<const char*>(data), size) {}
  bool isOver() const { return bytes_.empty(); }

  std::uint8_t byte() { return bytes_.empty() ? 0 : static_cast<std::uint8_t>(text(1)[0]); }

  std::string_view text(std::size_t length) {
    const std::string_view read = bytes_.substr(0, length);
    bytes_.remove_prefix(read.size());
    return read;
  }

  std::int64_t integer() {
    std::uint64_t number = 0;
    for (int i = 0; i < 8; ++i) number = number << 8 | byte();
    return static_cast<std::int64_t>(number);
  }

  Value value(int depth) {
    switch (byte() % 9) {
      case 0:
        return nullptr;
      case 1:
        return byte() % 2 == 0;
      case 2:
        return integer();
      case 3:
        return std::bit_cast<double>(integer());
      case 4:
        return UIColor::initWithWhite(byte() / 255.0, 1);
      case 5:
        return std::make_shared<Sender>();
      case 6:
        if (depth > 0) {
          std::vector<Value> elements(byte() % 8);
          for (Value& element : elements) element = value(depth - 1);
          return List(std::move(elements));
        }
        [[fallthrough]];
      case 7:
        if (depth > 0) return dictionary(depth - 1);
        [[fallthrough]];
      default:
        return text(byte() % 32);
    }
  }

  Dictionary dictionary(int depth) {
    std::vector<DictionaryEntry> entries(byte() % 16);
    for (DictionaryEntry& entry : entries) {
      entry.key = byte() % 4 == 0 ? Value(UIContentSizeCategoryNewValueKey) : value(depth);
      entry.value = value(depth);
    }
    return Dictionary(std::move(entries));
  }

 private:
  std::string_view bytes_;
};

// Everything that an observer could do with a payload.
void inspect(const Dictionary& payload) {
  require(payload == payload);  // NOLINT(misc-redundant-expression): equality itself is under test.
  require(Value(payload).hash() == Value(payload).hash());
  for (const auto& [key, value] : payload) {
    require(value.as<Sender>() == nullptr || value.kind() == Value::Kind::object);
    // NOLINTNEXTLINE(misc-redundant-expression): a NaN differs from itself and is never found.
    if (key == key) require(payload.find(key) == &value);
    if (const auto* text = key.asString()) require(payload.find(std::string_view(*text)) == &value);
    if (const auto* inner = value.asDictionary()) inspect(*inner);
  }
  const Value* category = payload.find(UIContentSizeCategoryNewValueKey);
  if (category && category->asString())
    require(UIContentSizeCategory::fromValue(*category)->string() == *category->asString());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Script script(data, size);
  NSNotificationCenter center;
  std::vector<std::shared_ptr<Sender>> objects(8);
  int calls = 0;

  // One step of the script; handlers take further ones, to a depth.
  const auto step = [&](const auto& self, int depth) -> void {
    auto& object = objects[script.byte() % objects.size()];
    const std::string_view name = kNames[script.byte() % std::size(kNames)];
    const std::shared_ptr<const NSObject> sender = objects[script.byte() % objects.size()];
    switch (script.byte() % 6) {
      case 0:
        object = std::make_shared<Sender>();
        break;
      case 1:
        object.reset();
        break;
      case 2:
        center.addObserver(
            object, name,
            [&, depth, name](const NSNotification& notification) {
              require(notification.name == name);
              inspect(notification.userInfo);
              if (++calls < 1'000 && depth > 0 && !script.isOver()) self(self, depth - 1);
            },
            sender);
        break;
      case 3:
        center.removeObserver(object);
        break;
      case 4:
        center.removeObserver(object, name);
        break;
      default:
        center.postNotificationName(name, sender, script.dictionary(3));
        break;
    }
  };
  while (!script.isOver()) step(step, 4);
  return 0;
}
