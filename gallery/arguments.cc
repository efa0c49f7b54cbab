#include "gallery/arguments.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "gallery/options.h"

namespace Brisel::Gallery {
namespace {

using Arguments = std::span<const std::string_view>;

constexpr double kLargestSide = 32767;  // points; a picture has no more pixels
constexpr double kLargestScale = 16;    // pixels a point

// The one argument that a command takes besides its options.
std::string_view onlyOne(const std::vector<std::string_view>& rest, const std::string& isMissing,
                         const std::string& areTooMany) {
  if (rest.empty() || rest.front().empty()) throw UsageError(isMissing);
  if (rest.size() > 1) throw UsageError(areTooMany);
  return rest.front();
}

void requireOutput(const std::filesystem::path& file, const std::string& command) {
  if (file.empty()) throw UsageError(command + " needs -o FILE");
}

void requireNothing(std::string_view command, const std::vector<std::string_view>& rest) {
  if (rest.empty()) return;
  throw UsageError(std::string(command) + " takes no argument \"" + std::string(rest.front()) + "\"");
}

Command parseGallery(Arguments arguments) {
  GalleryCommand command;
  const auto rest = readOptions(arguments, {{"--out", into(command.directory)}});
  if (!rest) return HelpCommand{"gallery"};
  requireNothing("gallery", *rest);
  if (command.directory.empty()) throw UsageError("gallery needs --out DIR");
  return command;
}

Command parseText(Arguments arguments) {
  TextCommand command;
  const auto rest = readOptions(arguments, {{"--out", into(command.file)},
                                            {"--style", into(command.style)},
                                            {"--category", into(command.category)},
                                            {"--width", intoPositive(command.width, "--width", kLargestSide)},
                                            {"--scale", intoPositive(command.scale, "--scale", kLargestScale)},
                                            {"--color", into(command.color)},
                                            {"--background", into(command.background)}});
  if (!rest) return HelpCommand{"text"};
  command.text = onlyOne(*rest, "text needs a text to draw", "text takes one text; put it in quotes");
  requireOutput(command.file, "text");
  return command;
}

Command parseIcon(Arguments arguments) {
  IconCommand command;
  const auto rest = readOptions(arguments, {{"--out", into(command.file)},
                                            {"--size", intoPositive(command.size, "--size", kLargestSide)},
                                            {"--scale", intoPositive(command.scale, "--scale", kLargestScale)},
                                            {"--design", into(command.design)},
                                            {"--color", into(command.color)},
                                            {"--background", into(command.background)}});
  if (!rest) return HelpCommand{"icon"};
  command.icon = onlyOne(*rest, "icon needs the name of an icon", "icon takes one icon");
  if (!command.design.empty() && command.design != "x16" && command.design != "x24") {
    throw UsageError("--design takes x16 or x24, not \"" + command.design + "\"");
  }
  requireOutput(command.file, "icon");
  return command;
}

Command parseIcons(Arguments arguments) {
  IconsCommand command;
  const auto rest = readOptions(arguments, {{"--json", into(command.isJson)}});
  if (!rest) return HelpCommand{"icons"};
  requireNothing("icons", *rest);
  return command;
}

Command parseCompare(Arguments arguments) {
  CompareCommand command;
  const auto rest = readOptions(arguments, {{"--accuracy", intoBetween(command.accuracy, "--accuracy", 0, 1)},
                                            {"--diff", into(command.difference)}});
  if (!rest) return HelpCommand{"compare"};
  if (rest->size() != 2 || (*rest)[0].empty() || (*rest)[1].empty()) throw UsageError("compare takes two pictures");
  command.first = (*rest)[0];
  command.second = (*rest)[1];
  return command;
}

Command parseScale(Arguments arguments) {
  ScaleCommand command;
  const auto rest = readOptions(arguments, {{"--out", into(command.file)},
                                            {"--grid", into(command.grid)},
                                            {"--interpolation", into(command.interpolation)}});
  if (!rest) return HelpCommand{"scale"};
  if (rest->size() != 2 || (*rest)[0].empty()) throw UsageError("scale takes a picture and a factor");
  command.picture = (*rest)[0];
  constexpr auto kLargestFactor = static_cast<std::uint64_t>(kLargestSide);
  const auto factor = wholeNumber((*rest)[1], kLargestFactor);
  if (!factor) {
    throw UsageError("the factor is a whole number from 1 to " + std::to_string(kLargestFactor) + ", not \"" +
                     std::string((*rest)[1]) + "\"");
  }
  command.factor = *factor;
  const std::string_view kind = command.interpolation;
  if (kind != "none" && kind != "low" && kind != "medium" && kind != "high") {
    throw UsageError("--interpolation takes none, low, medium or high, not \"" + command.interpolation + "\"");
  }
  requireOutput(command.file, "scale");
  return command;
}

Command parseTokens(Arguments arguments) {
  TokensCommand command;
  const auto rest = readOptions(arguments, {{"--format", into(command.format)}, {"--out", into(command.out)}});
  if (!rest) return HelpCommand{"tokens"};
  requireNothing("tokens", *rest);
  const std::string_view format = command.format;
  if (format.empty()) throw UsageError("tokens needs --format dtcg, css or json");
  if (format != "dtcg" && format != "css" && format != "json") {
    throw UsageError("--format takes dtcg, css or json, not \"" + command.format + "\"");
  }
  if (format == "dtcg" && command.out.empty()) throw UsageError("tokens --format dtcg needs -o DIR");
  return command;
}

Command parseContrast(Arguments arguments) {
  ContrastCommand command;
  const auto rest = readOptions(arguments, {{"--set", into(command.set)},
                                            {"--role", into(command.role)},
                                            {"--json", into(command.isJson)},
                                            {"--min", intoBetween(command.minimum, "--min", 1, 21)}});
  if (!rest) return HelpCommand{"contrast"};
  requireNothing("contrast", *rest);
  if (!command.role.empty() && command.role != "text" && command.role != "essential") {
    throw UsageError("--role takes text or essential, not \"" + command.role + "\"");
  }
  return command;
}

// "960x720", or a width alone.
void readWindowSize(std::string_view text, WindowCommand& command) {
  const auto x = std::min(text.find('x'), text.size());
  const bool hasHeight = x < text.size();
  const auto width = wholeNumber(text.substr(0, x), kLargestWindowSide).value_or(0);
  const auto height = hasHeight ? wholeNumber(text.substr(x + 1), kLargestWindowSide).value_or(0) : 0;
  const bool isWide = width >= kLeastWindowWidth;
  const bool isHigh = !hasHeight || height >= kLeastWindowHeight;
  if (!isWide || !isHigh) {
    throw UsageError("--size takes a width, or a width and a height as in 960x720, from 320x240 to 8192x8192, not \"" +
                     std::string(text) + "\"");
  }
  command.width = static_cast<double>(width);
  command.height.reset();
  if (hasHeight) command.height = static_cast<double>(height);
}

Command parseWindow(Arguments arguments) {
  WindowCommand command;
  std::string size, direction = "ltr";
  double scale = 0;
  const auto rest = readOptions(arguments, {{"--size", into(size)},
                                            {"--scale", intoPositive(scale, "--scale", kLargestScale)},
                                            {"--text-size", into(command.textSize)},
                                            {"--set", into(command.set)},
                                            {"--direction", into(direction)},
                                            {"--screenshot", into(command.screenshot)}});
  if (!rest) return HelpCommand{"window"};
  requireNothing("window", *rest);
  if (!size.empty()) readWindowSize(size, command);
  if (scale > 0) command.scale = scale;
  if (direction != "ltr" && direction != "rtl") {
    throw UsageError("--direction takes ltr or rtl, not \"" + direction + "\"");
  }
  command.isRightToLeft = direction == "rtl";
  return command;
}

struct Parser {
  std::string_view command;
  Command (*parse)(Arguments arguments);
};
constexpr Parser kParsers[] = {{"gallery", parseGallery}, {"text", parseText},         {"icon", parseIcon},
                               {"icons", parseIcons},     {"compare", parseCompare},   {"scale", parseScale},
                               {"tokens", parseTokens},   {"contrast", parseContrast}, {"window", parseWindow}};
constexpr std::string_view kCommands = "gallery, text, icon, icons, compare, scale, tokens, contrast or window";

}  // namespace

Command parseArguments(Arguments arguments) {
  if (arguments.empty()) throw UsageError("a command is missing: " + std::string(kCommands));
  const std::string_view command = arguments.front();
  const auto rest = arguments.subspan(1);
  for (const Parser& parser : kParsers) {
    if (parser.command == command) return parser.parse(rest);
  }
  const bool isHelp = command == "--help" || command == "-h" || command == "help";
  const bool isVersion = command == "--version";
  if (!isHelp && !isVersion) {
    throw UsageError("unknown command \"" + std::string(command) + "\": " + std::string(kCommands));
  }
  if (isVersion && rest.empty()) return VersionCommand{};
  if (isHelp && rest.empty()) return HelpCommand{};
  for (const Parser& parser : kParsers) {
    if (isHelp && rest.size() == 1 && rest[0] == parser.command) return HelpCommand{std::string(rest[0])};
  }
  throw UsageError(std::string(command) + " does not take \"" + std::string(rest.back()) + "\"");
}

}  // namespace Brisel::Gallery
