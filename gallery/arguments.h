// The command line of the program.
#pragma once

#include <filesystem>
#include <limits>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>

namespace Brisel::Gallery {

/// A command line that cannot be understood. `what()` says why, in one line.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Prints what the program or one of its commands does.
struct HelpCommand {
  std::string topic;  // the command; empty for the program
};

struct VersionCommand {};

/// Writes the style guide.
struct GalleryCommand {
  std::filesystem::path directory;
};

/// Draws one text. Names are as given: who carries it out looks them up.
struct TextCommand {
  std::string text;
  std::string style = "ballad";
  std::string category = "large";
  double width = std::numeric_limits<double>::infinity();  // points
  double scale = 1;                                        // pixels a point
  std::string color;                                       // empty: the theme's text colour
  std::string background;                                  // empty: the theme's ground
  std::filesystem::path file;
};

using Command = std::variant<HelpCommand, VersionCommand, GalleryCommand, TextCommand>;

/// Reads the arguments behind the program's name. Throws UsageError.
Command parseArguments(std::span<const std::string_view> arguments);

/// The help of a command, or of the program where the topic is empty.
std::string_view helpText(std::string_view topic);

}  // namespace Brisel::Gallery
