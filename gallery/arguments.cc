#include "gallery/arguments.h"

#include <charconv>
#include <cmath>
#include <functional>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace Brisel::Gallery {
namespace {

constexpr std::string_view kHelp =
    R"(Usage: brisel <command> [options]

  brisel gallery --out DIR         write the style guide
  brisel text "…" -o FILE.png      draw one text

  brisel <command> --help          what a command takes
  brisel --version

Exit status: 0 done, 1 failed, 2 not understood.
)";

constexpr std::string_view kGalleryHelp =
    R"(Usage: brisel gallery --out DIR

Writes the style guide, a site that opens from its index.html. It appears in DIR all
at once when it is complete. An older style guide there is replaced; any other
directory must be empty.

  -o, --out DIR           where to
)";

constexpr std::string_view kTextHelp =
    R"(Usage: brisel text "…" [options] -o FILE.png

Draws one text in a type style.

  -o, --out FILE          the picture, a PNG
      --style NAME        ballad, balladBold, bass … (ballad)
      --category NAME     a content-size category: extraSmall … large …
                          accessibilityExtraExtraExtraLarge, or its platform name (large)
      --width POINTS      wraps the text there (as wide as it takes)
      --scale NUMBER      pixels a point (1)
      --color COLOR       of the text: a palette name or #rrggbb, #rrggbbaa (the theme's text)
      --background COLOR  behind it (the theme's ground)
)";

// "--name value" and "--name=value" in any order, and what is left. "--" ends the options.
class Options {
 public:
  using Setter = std::function<void(std::string_view)>;
  using Setters = std::map<std::string_view, Setter>;

  // Returns the arguments that are no options, or nothing where help was asked for.
  static std::optional<std::vector<std::string_view>> read(std::span<const std::string_view> arguments,
                                                           const Setters& setters) {
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
      const auto setter = setters.find(name == "-o" ? "--out" : name);
      if (setter == setters.end()) throw UsageError("unknown option " + std::string(name));
      if (!value) {
        if (i + 1 == arguments.size()) throw UsageError(std::string(name) + " needs a value");
        value = arguments[++i];
      }
      if (value->empty()) throw UsageError(std::string(name) + " needs a value that is not empty");
      setter->second(*value);
    }
    return rest;
  }
};

Options::Setter into(std::string& text) {
  return [&text](std::string_view value) { text = value; };
}

Options::Setter into(std::filesystem::path& path) {
  return [&path](std::string_view value) { path = value; };
}

Options::Setter into(double& number, std::string_view name, double limit) {
  return [&number, name, limit](std::string_view value) {
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
    if (error != std::errc() || end != value.data() + value.size() || !(number > 0) || !(number <= limit)) {
      throw UsageError(std::string(name) + " takes a number above 0 and up to " +
                       std::to_string(static_cast<int>(limit)) + ", not \"" + std::string(value) + "\"");
    }
  };
}

Command parseGallery(std::span<const std::string_view> arguments) {
  GalleryCommand command;
  const auto rest = Options::read(arguments, {{"--out", into(command.directory)}});
  if (!rest) return HelpCommand{"gallery"};
  if (!rest->empty()) throw UsageError("gallery takes no argument \"" + std::string(rest->front()) + "\"");
  if (command.directory.empty()) throw UsageError("gallery needs --out DIR");
  return command;
}

Command parseText(std::span<const std::string_view> arguments) {
  TextCommand command;
  const auto rest = Options::read(arguments, {{"--out", into(command.file)},
                                              {"--style", into(command.style)},
                                              {"--category", into(command.category)},
                                              {"--width", into(command.width, "--width", 32767)},
                                              {"--scale", into(command.scale, "--scale", 16)},
                                              {"--color", into(command.color)},
                                              {"--background", into(command.background)}});
  if (!rest) return HelpCommand{"text"};
  if (rest->empty() || rest->front().empty()) throw UsageError("text needs a text to draw");
  if (rest->size() > 1) throw UsageError("text takes one text; put it in quotes");
  if (command.file.empty()) throw UsageError("text needs -o FILE");
  command.text = rest->front();
  return command;
}

}  // namespace

Command parseArguments(std::span<const std::string_view> arguments) {
  if (arguments.empty()) throw UsageError("a command is missing: gallery or text");
  const std::string_view command = arguments.front();
  const auto rest = arguments.subspan(1);
  if (command == "gallery") return parseGallery(rest);
  if (command == "text") return parseText(rest);
  const bool isHelp = command == "--help" || command == "-h" || command == "help";
  const bool isVersion = command == "--version";
  if (!isHelp && !isVersion) throw UsageError("unknown command \"" + std::string(command) + "\": gallery or text");
  if (isVersion && rest.empty()) return VersionCommand{};
  if (isHelp && rest.empty()) return HelpCommand{};
  if (isHelp && rest.size() == 1 && (rest[0] == "gallery" || rest[0] == "text")) {
    return HelpCommand{std::string(rest[0])};
  }
  throw UsageError(std::string(command) + " does not take \"" + std::string(rest.back()) + "\"");
}

std::string_view helpText(std::string_view topic) {
  if (topic == "gallery") return kGalleryHelp;
  if (topic == "text") return kTextHelp;
  return kHelp;
}

}  // namespace Brisel::Gallery
