// The command line of the program.
#pragma once

#include <cstdint>
#include <filesystem>
#include <limits>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>

namespace Brisel::Gallery {

/// A command line that cannot be understood. `what()` says why, with what was typed as it is.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The commands. Names of styles, colours and icons are as given: who carries a command out looks them up.

/// Prints what the program or one of its commands does.
struct HelpCommand {
  std::string topic;  // the command; empty for the program
};

struct VersionCommand {};

/// Writes the style guide.
struct GalleryCommand {
  std::filesystem::path directory;
};

/// Draws one text.
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

/// Draws one icon.
struct IconCommand {
  std::string icon;
  double size = 24;        // points
  double scale = 1;        // pixels a point
  std::string design;      // "x16" or "x24"; empty: by the size
  std::string color;       // empty: the theme's text colour
  std::string background;  // empty: none
  std::filesystem::path file;
};

/// Lists all icons.
struct IconsCommand {
  bool isJson = false;
};

/// Compares two pictures.
struct CompareCommand {
  std::filesystem::path first, second;
  double accuracy = 0;               // a fraction of full scale
  std::filesystem::path difference;  // empty: not drawn
};

/// Enlarges a picture.
struct ScaleCommand {
  std::filesystem::path picture;
  std::uint64_t factor = 1;
  std::string interpolation = "none";
  std::string grid;  // its colour; empty: none
  std::filesystem::path file;
};

/// Exports the tokens for other tools.
struct TokensCommand {
  std::string format;         // "dtcg", "css" or "json"
  std::filesystem::path out;  // a directory for "dtcg", a file for others; empty: standard output
};

/// Lists the contrast within the colour sets.
struct ContrastCommand {
  std::string set;   // empty: all
  std::string role;  // "text" or "essential"; empty: both
  bool isJson = false;
  double minimum = 1;  // the least ratio that passes
};

/// The sizes, in points, that the live window may have.
constexpr std::uint64_t kLeastWindowWidth = 320;
constexpr std::uint64_t kLeastWindowHeight = 240;
constexpr std::uint64_t kLargestWindowSide = 8192;

/// Opens the live window, or draws what it would show.
struct WindowCommand {
  double width = 960;                  // points
  std::optional<double> height = 720;  // points; nothing: as high as what it shows
  std::optional<double> scale;         // pixels a point; nothing: those of the display
  std::string textSize;                // empty: that of the desktop
  std::string set = "base";
  bool isRightToLeft = false;
  std::filesystem::path screenshot;  // empty: a window
};

using Command = std::variant<HelpCommand, VersionCommand, GalleryCommand, TextCommand, IconCommand, IconsCommand,
                             CompareCommand, ScaleCommand, TokensCommand, ContrastCommand, WindowCommand>;

/// Reads the arguments behind the program's name. Throws UsageError.
Command parseArguments(std::span<const std::string_view> arguments);

/// The help of a command, or of the program where the topic is empty. Throws UsageError for an unknown topic.
std::string_view helpText(std::string_view topic);

}  // namespace Brisel::Gallery
