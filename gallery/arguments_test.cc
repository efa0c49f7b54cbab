#include "gallery/arguments.h"

#include <initializer_list>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Brisel::Gallery {
namespace {

using testing::AllOf;
using testing::HasSubstr;

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

TEST(Arguments, ReadAnIconCommand) {
  const auto command = std::get<IconCommand>(parse({"icon", "heart", "--size", "24", "--scale=3", "--color", "#1ED760",
                                                    "--background", "black", "--design", "x16", "-o", "heart.png"}));
  EXPECT_EQ(command.icon, "heart");
  EXPECT_EQ(command.size, 24);
  EXPECT_EQ(command.scale, 3);
  EXPECT_EQ(command.color, "#1ED760");
  EXPECT_EQ(command.background, "black");
  EXPECT_EQ(command.design, "x16");
  EXPECT_EQ(command.file, "heart.png");
}

TEST(Arguments, DrawAnIconOf24PointsUnlessTold) {
  const auto command = std::get<IconCommand>(parse({"icon", "heart", "-o", "x.png"}));
  EXPECT_EQ(command.size, 24);
  EXPECT_EQ(command.scale, 1);
  EXPECT_EQ(command.design, "");
}

TEST(Arguments, ReadAnIconsCommandWithItsFlag) {
  EXPECT_FALSE(std::get<IconsCommand>(parse({"icons"})).isJson);
  EXPECT_TRUE(std::get<IconsCommand>(parse({"icons", "--json"})).isJson);
  EXPECT_EQ(complaint({"icons", "--json=yes"}), "--json takes no value");
  EXPECT_EQ(complaint({"icons", "heart"}), "icons takes no argument \"heart\"");
}

TEST(Arguments, ReadACompareCommand) {
  const auto command =
      std::get<CompareCommand>(parse({"compare", "a.png", "b.png", "--accuracy", "0.02", "--diff", "d.png"}));
  EXPECT_EQ(command.first, "a.png");
  EXPECT_EQ(command.second, "b.png");
  EXPECT_EQ(command.accuracy, 0.02);
  EXPECT_EQ(command.difference, "d.png");
  EXPECT_EQ(std::get<CompareCommand>(parse({"compare", "a", "b"})).accuracy, 0);
  EXPECT_EQ(std::get<CompareCommand>(parse({"compare", "a", "b", "--accuracy", "1"})).accuracy, 1);
}

TEST(Arguments, ReadAScaleCommand) {
  const auto command = std::get<ScaleCommand>(
      parse({"scale", "in.png", "8", "--grid", "#FF00FF", "--interpolation", "high", "-o", "out.png"}));
  EXPECT_EQ(command.picture, "in.png");
  EXPECT_EQ(command.factor, 8U);
  EXPECT_EQ(command.grid, "#FF00FF");
  EXPECT_EQ(command.interpolation, "high");
  EXPECT_EQ(command.file, "out.png");
  EXPECT_EQ(std::get<ScaleCommand>(parse({"scale", "in.png", "1", "-o", "out.png"})).interpolation, "none");
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
  for (const auto* option : {"--out", "--size", "--scale", "--design", "--color", "--background"}) {
    EXPECT_THAT(helpText("icon"), HasSubstr(option));
  }
  EXPECT_THAT(helpText("icons"), HasSubstr("--json"));
  EXPECT_THAT(helpText("compare"), AllOf(HasSubstr("--accuracy"), HasSubstr("--diff")));
  EXPECT_THAT(helpText("scale"), AllOf(HasSubstr("--out"), HasSubstr("--grid"), HasSubstr("--interpolation")));
  for (const auto* command : {"gallery", "tokens"}) EXPECT_THAT(helpText(command), HasSubstr("mount point"));
  EXPECT_THAT(helpText("tokens"), AllOf(HasSubstr("--format"), HasSubstr("--out DIR"), HasSubstr("--out FILE")));
  for (const auto* command : {"gallery", "text", "icon", "icons", "compare", "scale", "tokens", "contrast", "window"}) {
    EXPECT_THAT(helpText(""), HasSubstr("brisel " + std::string(command) + " "));
    EXPECT_EQ(std::get<HelpCommand>(parse({command, "--help"})).topic, command);
    EXPECT_EQ(std::get<HelpCommand>(parse({"help", command})).topic, command);
  }
}

TEST(Arguments, ReadATokensCommandInEachFormat) {
  const auto files = std::get<TokensCommand>(parse({"tokens", "--format", "dtcg", "-o", "a/b"}));
  EXPECT_EQ(files.format, "dtcg");
  EXPECT_EQ(files.out, "a/b");
  const auto printed = std::get<TokensCommand>(parse({"tokens", "--format=css"}));
  EXPECT_EQ(printed.format, "css");
  EXPECT_TRUE(printed.out.empty());
  EXPECT_EQ(std::get<TokensCommand>(parse({"tokens", "-o", "x.json", "--format", "json"})).out, "x.json");
  EXPECT_EQ(complaint({"tokens"}), "tokens needs --format dtcg, css or json");
  EXPECT_EQ(complaint({"tokens", "--format", "scss"}), "--format takes dtcg, css or json, not \"scss\"");
  EXPECT_EQ(complaint({"tokens", "--format", "dtcg"}), "tokens --format dtcg needs -o DIR");
  EXPECT_EQ(complaint({"tokens", "--format", "css", "x.css"}), "tokens takes no argument \"x.css\"");
}

TEST(Arguments, ReadAContrastCommand) {
  const auto command = std::get<ContrastCommand>(
      parse({"contrast", "--min", "4.5", "--json", "--set=tierAurel", "--role", "essential"}));
  EXPECT_EQ(command.set, "tierAurel");
  EXPECT_EQ(command.role, "essential");
  EXPECT_TRUE(command.isJson);
  EXPECT_EQ(command.minimum, 4.5);
  const auto all = std::get<ContrastCommand>(parse({"contrast"}));
  EXPECT_EQ(all.set + all.role, "");
  EXPECT_FALSE(all.isJson);
  EXPECT_EQ(all.minimum, 1);  // which no pair is below
  EXPECT_EQ(complaint({"contrast", "--role", "decorative"}), "--role takes text or essential, not \"decorative\"");
  EXPECT_EQ(complaint({"contrast", "--min", "AA"}), "--min takes a number from 1 to 21, not \"AA\"");
  for (const auto* ratio : {"0.99", "21.01", "nan", "4,5"})
    EXPECT_THAT(complaint({"contrast", "--min", ratio}), HasSubstr("from 1 to 21")) << ratio;
  EXPECT_EQ(complaint({"contrast", "base"}), "contrast takes no argument \"base\"");
  EXPECT_THAT(helpText("contrast"),
              AllOf(HasSubstr("--set"), HasSubstr("--role"), HasSubstr("--json"), HasSubstr("--min")));
}

TEST(Arguments, ReadAWindowCommand) {
  const auto command = std::get<WindowCommand>(
      parse({"window", "--size", "1280x800", "--scale", "2", "--text-size", "accessibilityLarge", "--set=overMedia",
             "--direction", "rtl", "--screenshot", "x.png"}));
  EXPECT_EQ(command.width, 1280);
  EXPECT_EQ(command.height, 800);
  EXPECT_EQ(command.scale, 2);
  EXPECT_EQ(command.textSize, "accessibilityLarge");
  EXPECT_EQ(command.set, "overMedia");
  EXPECT_TRUE(command.isRightToLeft);
  EXPECT_EQ(command.screenshot, "x.png");
}

TEST(Arguments, OpenAWindowInTheDesktopsTextSizeUnlessTold) {
  const auto command = std::get<WindowCommand>(parse({"window"}));
  EXPECT_EQ(command.width, 960);
  EXPECT_EQ(command.height, 720);
  EXPECT_EQ(command.scale, std::nullopt);
  EXPECT_EQ(command.textSize, "");
  EXPECT_EQ(command.set, "base");
  EXPECT_FALSE(command.isRightToLeft);
  EXPECT_TRUE(command.screenshot.empty());
}

TEST(Arguments, TakeAWindowOfAnyHeightAndRefuseSizesThatNoneHas) {
  const auto whole = std::get<WindowCommand>(parse({"window", "--size", "320"}));
  EXPECT_EQ(whole.width, 320);
  EXPECT_EQ(whole.height, std::nullopt);
  EXPECT_EQ(std::get<WindowCommand>(parse({"window", "--size", "320x240"})).height, 240);
  EXPECT_EQ(std::get<WindowCommand>(parse({"window", "--size", "8192x8192"})).height, 8192);
  for (const auto* size : {"319", "319x240", "320x239", "8193", "960x8193", "960x", "x720", "960x720x2", "960 x 720",
                           "-960x720", "9e2x720", "960X720", "0"}) {
    EXPECT_THAT(complaint({"window", "--size", size}), HasSubstr("from 320x240 to 8192x8192")) << size;
  }
  EXPECT_EQ(complaint({"window", "--direction", "left"}), "--direction takes ltr or rtl, not \"left\"");
  EXPECT_EQ(complaint({"window", "now"}), "window takes no argument \"now\"");
  for (const auto* option : {"--size", "--scale", "--text-size", "--set", "--direction", "--screenshot"})
    EXPECT_THAT(helpText("window"), HasSubstr(option));
}

TEST(Arguments, SayWhatIsMissing) {
  EXPECT_EQ(complaint({}),
            "a command is missing: gallery, text, icon, icons, compare, scale, tokens, contrast or window");
  EXPECT_EQ(complaint({"gallery"}), "gallery needs --out DIR");
  EXPECT_EQ(complaint({"gallery", "--out"}), "--out needs a value");
  EXPECT_EQ(complaint({"gallery", "--out="}), "--out needs a value that is not empty");
  EXPECT_EQ(complaint({"text", "-o", "x.png"}), "text needs a text to draw");
  EXPECT_EQ(complaint({"text", "", "-o", "x.png"}), "text needs a text to draw");
  EXPECT_EQ(complaint({"text", "a"}), "text needs -o FILE");
  EXPECT_EQ(complaint({"icon"}), "icon needs the name of an icon");
  EXPECT_EQ(complaint({"icon", "heart"}), "icon needs -o FILE");
  EXPECT_EQ(complaint({"icon", "heart", "star", "-o", "x"}), "icon takes one icon");
  EXPECT_EQ(complaint({"compare", "a.png"}), "compare takes two pictures");
  EXPECT_EQ(complaint({"scale", "a.png", "-o", "x"}), "scale takes a picture and a factor");
  EXPECT_EQ(complaint({"scale", "a.png", "8"}), "scale needs -o FILE");
}

TEST(Arguments, SayWhatIsNotKnown) {
  EXPECT_EQ(complaint({"paint"}),
            "unknown command \"paint\": gallery, text, icon, icons, compare, scale, tokens, contrast or window");
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

TEST(Arguments, RefuseFactorsAndFractionsThatAreNone) {
  for (const auto* factor : {"0", "1.5", "8x", "", "32768", "18446744073709551617"}) {
    EXPECT_THAT(complaint({"scale", "a.png", factor, "-o", "x"}), HasSubstr("whole number from 1 to 32767")) << factor;
  }
  for (const auto* fraction : {"-0.1", "1.01", "nan", "2%"}) {
    EXPECT_THAT(complaint({"compare", "a", "b", "--accuracy", fraction}), HasSubstr("from 0 to 1")) << fraction;
  }
  EXPECT_THAT(complaint({"icon", "heart", "--design", "24", "-o", "x"}), HasSubstr("x16 or x24"));
  EXPECT_THAT(complaint({"scale", "a", "2", "--interpolation", "best", "-o", "x"}), HasSubstr("medium or high"));
}

}  // namespace
}  // namespace Brisel::Gallery
