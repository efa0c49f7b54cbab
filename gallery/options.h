// How the arguments of a command are read.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Brisel::Gallery {

/// What happens with the value of an option.
struct Option {
  std::function<void(std::string_view)> set;
  bool takesValue = true;
};
using Options = std::map<std::string_view, Option>;  // by name, such as "--out"

// Where values go. Numbers above 0 and up to a limit, or between two that are whole; what is none throws UsageError by
// the option's name.
Option into(std::string& text);
Option into(std::filesystem::path& path);
Option into(bool& flag);
Option intoPositive(double& number, std::string_view name, double limit);
Option intoBetween(double& number, std::string_view name, int least, int greatest);

/// A whole number above 0 and up to a limit; nothing for any other text.
std::optional<std::uint64_t> wholeNumber(std::string_view text, std::uint64_t limit);

/// Reads "--name value" and "--name=value" in any order, "-o" being "--out", and "--" as the end of the options.
/// Returns the arguments that are no options, or nothing where help was asked for. Throws UsageError.
std::optional<std::vector<std::string_view>> readOptions(std::span<const std::string_view> arguments,
                                                         const Options& options);

}  // namespace Brisel::Gallery
