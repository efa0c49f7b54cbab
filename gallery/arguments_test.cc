#include "gallery/arguments.h"

#include <initializer_list>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Brisel::Gallery {
namespace {

using testing::HasSubstr;
using testing::Not;

Command parse(std::initializer_list<std::string_view> arguments) {
  return parseArguments(std::span(arguments.begin(), arguments.size()));
}

std::string complaint(std::initializer_list<std::string_view> arguments) {
  try {
    parse(arguments);
  } catch (const UsageError& error) {
    return error.what();
  }
  return "no complaint";
}

TEST(Arguments, ReadAGalleryCommand) {
  EXPECT_EQ(std::get<GalleryCommand>(parse({"gallery", "--out", "a/b"})).directory, "a/b");
  EXPECT_EQ(std::get<GalleryCommand>(parse({"gallery", "--out=a/b"})).directory, "a/b");
  EXPECT_EQ(std::get<GalleryCommand>(parse({"gallery", "-o", "a/b"})).directory, "a/b");
}

TEST(Arguments, ReadATextCommandInAnyOrder) {
  const auto command = std::get<TextCommand>(
      parse({"text", "--style", "bass", "-o", "x.png", "Hello = there", "--category=accessibilityLarge", "--width",
             "300.5", "--scale", "2", "--color", "#1ED760", "--background", "gray7"}));
  EXPECT_EQ(command.text, "Hello = there");
  EXPECT_EQ(command.style, "bass");
  EXPECT_EQ(command.category, "accessibilityLarge");
  EXPECT_EQ(command.width, 300.5);
  EXPECT_EQ(command.scale, 2);
  EXPECT_EQ(command.color, "#1ED760");
  EXPECT_EQ(command.background, "gray7");
  EXPECT_EQ(command.file, "x.png");
}

TEST(Arguments, LeaveATextAtItsNaturalSizeUnlessTold) {
  const auto command = std::get<TextCommand>(parse({"text", "a", "-o", "x.png"}));
  EXPECT_EQ(command.style, "ballad");
  EXPECT_EQ(command.category, "large");
  EXPECT_EQ(command.width, std::numeric_limits<double>::infinity());
  EXPECT_EQ(command.scale, 1);
}

TEST(Arguments, TakeATextThatLooksLikeAnOptionBehindTwoDashes) {
  EXPECT_EQ(std::get<TextCommand>(parse({"text", "-o", "x.png", "--", "--style"})).text, "--style");
  EXPECT_EQ(std::get<TextCommand>(parse({"text", "-o", "x.png", "-"})).text, "-");
}

TEST(Arguments, AnswerWhoAsksForHelpWhateverElseStandsThere) {
  EXPECT_EQ(std::get<HelpCommand>(parse({"--help"})).topic, "");
  EXPECT_EQ(std::get<HelpCommand>(parse({"help", "text"})).topic, "text");
  EXPECT_EQ(std::get<HelpCommand>(parse({"text", "--help"})).topic, "text");
  EXPECT_EQ(std::get<HelpCommand>(parse({"gallery", "--out", "x", "-h"})).topic, "gallery");
  EXPECT_TRUE(std::holds_alternative<VersionCommand>(parse({"--version"})));
}

TEST(Arguments, HelpTellsOfEveryOption) {
  for (const auto* option : {"--out", "--style", "--category", "--width", "--scale", "--color", "--background"}) {
    EXPECT_THAT(helpText("text"), HasSubstr(option));
  }
  EXPECT_THAT(helpText("gallery"), HasSubstr("--out"));
  EXPECT_THAT(helpText(""), HasSubstr("gallery"));
}

TEST(Arguments, SayWhatIsMissing) {
  EXPECT_EQ(complaint({}), "a command is missing: gallery or text");
  EXPECT_EQ(complaint({"gallery"}), "gallery needs --out DIR");
  EXPECT_EQ(complaint({"gallery", "--out"}), "--out needs a value");
  EXPECT_EQ(complaint({"gallery", "--out="}), "--out needs a value that is not empty");
  EXPECT_EQ(complaint({"text", "-o", "x.png"}), "text needs a text to draw");
  EXPECT_EQ(complaint({"text", "", "-o", "x.png"}), "text needs a text to draw");
  EXPECT_EQ(complaint({"text", "a"}), "text needs -o FILE");
}

TEST(Arguments, SayWhatIsNotKnown) {
  EXPECT_EQ(complaint({"paint"}), "unknown command \"paint\": gallery or text");
  EXPECT_EQ(complaint({"gallery", "--where", "x"}), "unknown option --where");
  EXPECT_EQ(complaint({"gallery", "x"}), "gallery takes no argument \"x\"");
  EXPECT_EQ(complaint({"text", "a", "b", "-o", "x"}), "text takes one text; put it in quotes");
  EXPECT_EQ(complaint({"--version", "now"}), "--version does not take \"now\"");
  EXPECT_EQ(complaint({"help", "paint"}), "help does not take \"paint\"");
}

TEST(Arguments, RefuseNumbersThatAreNone) {
  for (const auto* number : {"0", "-1", "nan", "inf", "1e9", "3px", " 3", "0x3"}) {
    EXPECT_THAT(complaint({"text", "a", "-o", "x", "--width", number}), HasSubstr("--width takes a number above 0"))
        << number;
    EXPECT_THAT(complaint({"text", "a", "-o", "x", "--scale", number}), HasSubstr("up to 16")) << number;
  }
}

TEST(Arguments, ComplainInOneLine) { EXPECT_THAT(complaint({"paint"}), Not(HasSubstr("\n"))); }

}  // namespace
}  // namespace Brisel::Gallery
