// The program `brisel`.
#include <cerrno>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <variant>
#include <vector>

#include "gallery/arguments.h"
#include "gallery/commands/compare_command.h"
#include "gallery/commands/contrast_command.h"
#include "gallery/commands/icon_command.h"
#include "gallery/commands/icons_command.h"
#include "gallery/commands/scale_command.h"
#include "gallery/commands/text_command.h"
#include "gallery/commands/tokens_command.h"
#include "gallery/guide/site.h"
#include "gallery/interruption.h"
#include "gallery/one_line.h"
#include "gallery/window/sdl_window.h"
#include "gallery/window/window_command.h"

namespace {

using namespace Brisel::Gallery;

enum ExitStatus { done = 0, failed = 1, notUnderstood = 2, interrupted = 130 };
// Those of compare, as such tools have them.
enum ComparisonStatus { equal = 0, different = 1, trouble = 2 };

void print(std::string_view text) {
  const bool isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
  if (!isWritten)
    throw std::runtime_error("cannot write to standard output: " + std::generic_category().message(errno));
}

void printError(const std::string& text) { std::fputs(("brisel: " + text + "\n").c_str(), stderr); }

void complain(std::string_view text) { printError(onOneLine(text)); }

// Each returns the exit status.
int run(const HelpCommand& command) { return print(helpText(command.topic)), done; }
int run(const VersionCommand&) { return print("brisel " BRISEL_VERSION "\n"), done; }
int run(const GalleryCommand& command) { return writeSite(command.directory), done; }
int run(const TextCommand& command) { return drawText(command), done; }
int run(const IconCommand& command) { return drawIcon(command), done; }
int run(const IconsCommand& command) { return print(iconList(command)), done; }
int run(const ScaleCommand& command) { return scalePicture(command), done; }
int run(const TokensCommand& command) { return print(exportTokens(command)), done; }

int run(const WindowCommand& command) {
  return command.screenshot.empty() ? showWindow(command) : drawWindow(command), done;
}

int run(const ContrastCommand& command) {
  const ContrastReport report = contrastReport(command);
  print(report.text);
  if (report.shortfall.empty()) return done;
  printError(report.shortfall);  // a line for each pair
  return failed;
}

int run(const CompareCommand& command) {
  try {
    const Verdict verdict = comparePictures(command);
    print(verdict.text + "\n");
    return verdict.isEqual ? equal : different;
  } catch (const std::exception& error) {
    complain(error.what());
    return trouble;
  }
}

}  // namespace

int main(int count, char** values) {
  const std::vector<std::string_view> arguments(values + (count > 0 ? 1 : 0), values + count);
  try {
    return std::visit([](const auto& command) { return run(command); }, parseArguments(arguments));
  } catch (const UsageError& error) {
    complain(std::string(error.what()) + " (brisel --help)");
    return ExitStatus::notUnderstood;
  } catch (const Interrupted&) {
    complain("interrupted");
    return ExitStatus::interrupted;
  } catch (const std::exception& error) {
    complain(error.what());
    return ExitStatus::failed;
  }
}
