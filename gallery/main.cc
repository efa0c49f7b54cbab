// The program `brisel`.
#include <cstdio>
#include <exception>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "gallery/arguments.h"
#include "gallery/interruption.h"
#include "gallery/site.h"
#include "gallery/text_command.h"

namespace {

using namespace Brisel::Gallery;

enum ExitStatus { done = 0, failed = 1, notUnderstood = 2, interrupted = 130 };

void print(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stdout); }

void complain(const std::string& text) { std::fputs(("brisel: " + text + "\n").c_str(), stderr); }

void run(const HelpCommand& command) { print(helpText(command.topic)); }
void run(const VersionCommand&) { print("brisel " BRISEL_VERSION "\n"); }
void run(const GalleryCommand& command) { writeSite(command.directory); }
void run(const TextCommand& command) { drawText(command); }

}  // namespace

int main(int count, char** values) {
  const std::vector<std::string_view> arguments(values + (count > 0 ? 1 : 0), values + count);
  try {
    std::visit([](const auto& command) { run(command); }, parseArguments(arguments));
    return ExitStatus::done;
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
