#include "gallery/options.h"

#include <charconv>

#include "gallery/arguments.h"

namespace Brisel::Gallery {
namespace {

std::optional<double> numberIn(std::string_view text) {
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

[[noreturn]] void refuse(std::string_view name, const std::string& takes, std::string_view value) {
  throw UsageError(std::string(name) + " takes " + takes + ", not \"" + std::string(value) + "\"");
}

}  // namespace

Option into(std::string& text) {
  return {[&text](std::string_view value) { text = value; }};
}

Option into(std::filesystem::path& path) {
  return {[&path](std::string_view value) { path = value; }};
}

Option into(bool& flag) {
  return {[&flag](std::string_view) { flag = true; }, false};
}

Option intoPositive(double& number, std::string_view name, double limit) {
  return {[&number, name, limit](std::string_view value) {
    const auto read = numberIn(value);
    if (!read || !(*read > 0) || !(*read <= limit)) {
      refuse(name, "a number above 0 and up to " + std::to_string(static_cast<int>(limit)), value);
    }
    number = *read;
  }};
}

Option intoBetween(double& number, std::string_view name, int least, int greatest) {
  return {[&number, name, least, greatest](std::string_view value) {
    const auto read = numberIn(value);
    if (!read || !(*read >= least) || !(*read <= greatest)) {
      refuse(name, "a number from " + std::to_string(least) + " to " + std::to_string(greatest), value);
    }
    number = *read;
  }};
}

std::optional<std::uint64_t> wholeNumber(std::string_view text, std::uint64_t limit) {
  std::uint64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || number == 0 || number > limit) return std::nullopt;
  return number;
}

std::optional<std::vector<std::string_view>> readOptions(std::span<const std::string_view> arguments,
                                                         const Options& options) {
  std::vector<std::string_view> rest;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    std::string_view name = arguments[i];
    if (name == "--") {
      rest.insert(rest.end(), arguments.begin() + static_cast<std::ptrdiff_t>(i) + 1, arguments.end());
      break;
    }
    if (name.size() < 2 || name[0] != '-') {
      rest.push_back(name);
      continue;
    }
    if (name == "--help" || name == "-h") return std::nullopt;
    std::optional<std::string_view> value;
    if (const auto equals = name.find('='); name.starts_with("--") && equals != std::string_view::npos) {
      value = name.substr(equals + 1);
      name = name.substr(0, equals);
    }
    const auto option = options.find(name == "-o" ? "--out" : name);
    if (option == options.end()) throw UsageError("unknown option " + std::string(name));
    if (!option->second.takesValue) {
      if (value) throw UsageError(std::string(name) + " takes no value");
      option->second.set({});
      continue;
    }
    if (!value) {
      if (i + 1 == arguments.size()) throw UsageError(std::string(name) + " needs a value");
      value = arguments[++i];
    }
    if (value->empty()) throw UsageError(std::string(name) + " needs a value that is not empty");
    option->second.set(*value);
  }
  return rest;
}

}  // namespace Brisel::Gallery
