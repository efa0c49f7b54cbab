// Any command line: it is either refused, in one line of clean text, or understood, and then all that it says lies
// within the stated limits and comes from the arguments. They are parted by zero bytes, the one byte that no argument
// can hold.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "brisel/platform/internal/utf.h"

#include "fuzz/input.h"
#include "gallery/arguments.h"
#include "gallery/one_line.h"

namespace {

using namespace Brisel::Gallery;
using Brisel::Fuzz::require;
using Arguments = std::vector<std::string_view>;

bool isOneOf(std::string_view text, std::initializer_list<std::string_view> texts) {
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

// Holds a command to what arguments.h and the help say of it, and writes it down.
class Reader {
 public:
  explicit Reader(const Arguments& arguments) : arguments_(arguments) {}

  std::string operator()(const HelpCommand& command) const {
    require(!helpText(command.topic).empty());
    return "help" + command.topic;
  }
  std::string operator()(const VersionCommand&) const { return "version"; }
  std::string operator()(const GalleryCommand& command) const { return "gallery" + given(command.directory); }
  std::string operator()(const TextCommand& command) const {
    require(command.width > 0 && (command.width <= 32767 || std::isinf(command.width)));
    require(command.scale > 0 && command.scale <= 16);
    return "text" + given(command.text) + given(command.style, "ballad") + given(command.category, "large") +
           std::to_string(command.width) + std::to_string(command.scale) + given(command.color, "") +
           given(command.background, "") + given(command.file);
  }
  std::string operator()(const IconCommand& command) const {
    require(command.size > 0 && command.size <= 32767);
    require(command.scale > 0 && command.scale <= 16);
    require(isOneOf(command.design, {"", "x16", "x24"}));
    return "icon" + given(command.icon) + std::to_string(command.size) + std::to_string(command.scale) +
           command.design + given(command.color, "") + given(command.background, "") + given(command.file);
  }
  std::string operator()(const IconsCommand& command) const { return command.isJson ? "icons as JSON" : "icons"; }
  std::string operator()(const CompareCommand& command) const {
    require(command.accuracy >= 0 && command.accuracy <= 1);
    return "compare" + given(command.first) + given(command.second) + std::to_string(command.accuracy) +
           given(command.difference, "");
  }
  std::string operator()(const ScaleCommand& command) const {
    require(command.factor >= 1 && command.factor <= 32767);
    require(isOneOf(command.interpolation, {"none", "low", "medium", "high"}));
    return "scale" + given(command.picture) + std::to_string(command.factor) + command.interpolation +
           given(command.grid, "") + given(command.file);
  }
  std::string operator()(const TokensCommand& command) const {
    require(isOneOf(command.format, {"dtcg", "css", "json"}));
    return "tokens" + command.format + (command.format == "dtcg" ? given(command.out) : given(command.out, ""));
  }
  std::string operator()(const ContrastCommand& command) const {
    require(command.minimum >= 1 && command.minimum <= 21);
    require(isOneOf(command.role, {"", "text", "essential"}));
    return "contrast" + given(command.set, "") + command.role + (command.isJson ? "as JSON" : "") +
           std::to_string(command.minimum);
  }
  std::string operator()(const WindowCommand& command) const {
    require(command.width >= kLeastWindowWidth && command.width <= kLargestWindowSide);
    require(!command.height || (*command.height >= kLeastWindowHeight && *command.height <= kLargestWindowSide));
    require(!command.scale || (*command.scale > 0 && *command.scale <= 16));
    return "window" + std::to_string(command.width) + std::to_string(command.height.value_or(0)) +
           std::to_string(command.scale.value_or(0)) + given(command.textSize, "") + given(command.set, "base") +
           (command.isRightToLeft ? "rtl" : "ltr") + given(command.screenshot, "");
  }

 private:
  // Some argument, or what stands behind its "=". It is not empty.
  std::string given(const std::string& text) const {
    require(!text.empty());
    require(std::any_of(arguments_.begin(), arguments_.end(),
                        [&text](std::string_view argument) { return argument.ends_with(text); }));
    return '\0' + text + '\0';
  }
  std::string given(const std::string& text, std::string_view unlessTold) const {
    return text == unlessTold ? text : given(text);
  }
  std::string given(const std::filesystem::path& path) const { return given(path.native()); }
  std::string given(const std::filesystem::path& path, std::string_view unlessTold) const {
    return given(path.native(), unlessTold);
  }

  const Arguments& arguments_;
};

std::string outcome(const Arguments& arguments) {
  try {
    return std::visit(Reader(arguments), parseArguments(arguments));
  } catch (const UsageError& error) {
    const std::string why = onOneLine(error.what());
    require(!why.empty());
    require(Brisel::Platform::internal::wellFormed(why) == why);
    require(std::none_of(why.begin(), why.end(), [](unsigned char c) { return c < ' ' || c == 0x7F; }));
    for (std::size_t i = why.find('\xC2'); i != std::string::npos; i = why.find('\xC2', i + 1))
      require(static_cast<unsigned char>(why[i + 1]) >= 0xA0);  // U+0080 … U+009F are controls too
    return "refused: " + why;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // Copies of just these bytes, so that reading beyond an argument is found.
  std::vector<std::vector<char>> copies;
  for (std::size_t start = 0; size > 0 && start <= size;) {
    const std::uint8_t* const end = std::find(data + start, data + size, std::uint8_t{0});
    copies.emplace_back(data + start, end);
    start = static_cast<std::size_t>(end - data) + 1;
  }
  Arguments arguments;
  for (const auto& copy : copies) arguments.emplace_back(copy.data(), copy.size());

  require(outcome(arguments) == outcome(arguments));
  return 0;
}
