// The exports against the tables of the design: what is written is read back, and compared number by number.
#include <charconv>
#include <cstddef>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "brisel/themes/catalogue.h"
#include "brisel/typography/catalogue.h"

#include "gallery/catalogue_names.h"
#include "gallery/commands/tokens_command.h"
#include "gallery/exports/css.h"
#include "gallery/exports/dtcg.h"
#include "gallery/exports/families.h"
#include "gallery/exports/flat_json.h"
#include "gallery/exports/names.h"
#include "tests/own_bundle.h"
#include "tests/temporary_directory.h"

namespace Brisel::Gallery {
namespace {

namespace fs = std::filesystem;
using Platform::UIColor;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;
using testing::StartsWith;

struct Designed {
  std::string name;
  UIColor color;
};
const std::vector<Designed>& palette() {
  static const std::vector<Designed> colors{
#define BRISEL_GREY(name, white, alpha) {#name, UIColor::grey(white, alpha)},
#define BRISEL_RGB(name, red, green, blue, hex) {#name, UIColor::rgb(red, green, blue)},
#include "brisel/tokens/palette.def"
  };
  return colors;
}
const std::vector<Designed>& legacy() {
  static const std::vector<Designed> colors{
#define BRISEL_GREY(name, white, alpha) {#name, UIColor::grey(white, alpha)},
#define BRISEL_RGB(name, red, green, blue, hex) {#name, UIColor::rgb(red, green, blue)},
#include "brisel/tokens/legacy_colors.def"
  };
  return colors;
}

// The colours of all colour sets under their exported names.
std::vector<Designed> slotColors() {
  std::vector<Designed> colors;
  const auto add = [&colors](const std::string& name, const Theme::ColorSet& set) {
    for (const Catalogue::SlotEntry& slot : Catalogue::slots()) {
      colors.push_back({name + "." + std::string(slot.path), *slot.get(set)});
    }
  };
  for (const auto& set : Catalogue::colorSets()) {
    add("theme.dark." + std::string(set.name), (Theme::dark().*set.get)());
  }
  for (const auto& set : Catalogue::campaignColorSets()) add("campaign." + std::string(set.name), set.get());
  return colors;
}

// All that are exported, as designed.
std::vector<Designed> allColors() {
  std::vector<Designed> colors = slotColors();
  for (const Designed& color : palette()) colors.push_back({"palette." + color.name, color.color});
  for (const Designed& color : legacy()) colors.push_back({"legacy." + color.name, color.color});
  return colors;
}

std::string formName(const UIColor& color) { return color.form() == UIColor::Form::grey ? "grey" : "rgb"; }

const Json& whole() {
  static const Json tree = Json::parse(dtcgText(allTokens()));
  return tree;
}

const Json& token(std::string_view dotted) {
  std::string pointer = "/" + std::string(dotted);
  for (char& c : pointer) c = c == '.' ? '/' : c;
  return whole().at(Json::json_pointer(pointer));
}
const Json& value(std::string_view dotted) { return token(dotted).at("$value"); }
const Json& own(std::string_view dotted) { return token(dotted).at("$extensions").at("foundation.brisel"); }

void forEachToken(const Json& group, const std::function<void(const Json&)>& visit) {
  for (const Json& member : group) {
    if (member.contains("$value")) {
      visit(member);
    } else {
      forEachToken(member, visit);
    }
  }
}

// A style sheet's properties by name. Reads what the export writes: comments, and strings without semicolons.
std::map<std::string, std::string> parseCss(std::string text) {
  for (auto begin = text.find("/*"); begin != std::string::npos; begin = text.find("/*")) {
    text.erase(begin, text.find("*/", begin) + 2 - begin);
  }
  const auto open = text.find('{'), close = text.rfind('}');
  EXPECT_EQ(text.substr(0, open), "\n:root ");
  EXPECT_EQ(text.substr(close), "}\n");
  std::map<std::string, std::string> properties;
  for (auto begin = open + 1;;) {
    begin = text.find_first_not_of(" \n", begin);
    if (begin == close) return properties;
    const auto colon = text.find(": ", begin), end = text.find(';', colon);
    const bool isNew =
        properties.emplace(text.substr(begin, colon - begin), text.substr(colon + 2, end - colon - 2)).second;
    EXPECT_TRUE(isNew) << text.substr(begin, colon - begin);
    begin = end + 1;
  }
}

const std::map<std::string, std::string>& styleSheet() {
  static const auto properties = parseCss(cssText(allTokens()));
  return properties;
}

// "7.1%" as 0.071, to the last digit: the decimals are shifted, not divided.
double fraction(std::string_view percent) {
  EXPECT_TRUE(percent.ends_with('%')) << percent;
  const std::string shifted = std::string(percent.substr(0, percent.size() - 1)) + "e-2";
  double number = -1;
  const auto [end, error] = std::from_chars(shifted.data(), shifted.data() + shifted.size(), number);
  EXPECT_TRUE(error == std::errc() && end == shifted.data() + shifted.size()) << percent;
  return number;
}

// "rgb(7.1% 0% 0% / 54%)"
UIColor::RgbComponents cssColor(const std::string& text) {
  EXPECT_THAT(text, MatchesRegex(R"(rgb\([0-9.]+% [0-9.]+% [0-9.]+%( / [0-9.]+%)?\))"));
  std::vector<double> numbers;
  for (std::size_t begin = 4; begin < text.size();) {
    const auto end = text.find_first_of(" )", begin);
    const std::string part = text.substr(begin, end - begin);
    if (part != "/") numbers.push_back(fraction(part));
    begin = end + 1;
  }
  return {numbers.at(0), numbers.at(1), numbers.at(2), numbers.size() == 4 ? numbers[3] : 1};
}

std::string read(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// --- What is exported ---

TEST(Exports, HoldEveryTokenOfEveryFamily) {
  std::map<std::string, int> counts;
  std::vector<std::string> families;
  for (const TokenFamily& family : tokenFamilies()) {
    families.emplace_back(family.name);
    for (const Token& exported : family.tokens()) {
      EXPECT_EQ(exported.path.front(), family.name);
      ++counts[exported.path.front()];
    }
  }
  EXPECT_THAT(families,
              ElementsAre("palette", "legacy", "opacity", "spacer", "theme", "campaign", "typography", "icon"));
  EXPECT_EQ(counts["palette"], 252);
  EXPECT_EQ(counts["legacy"], 60);
  EXPECT_EQ(counts["opacity"], 6);
  EXPECT_EQ(counts["spacer"], 13);
  EXPECT_EQ(counts["theme"], 10 * 28);
  EXPECT_EQ(counts["campaign"], 15 * 28);
  EXPECT_EQ(counts["typography"], 19 * 12);
  EXPECT_EQ(counts["icon"], 2 * 328);
  int written = 0;
  forEachToken(whole(), [&written](const Json&) { ++written; });
  EXPECT_EQ(written, 1915);
}

TEST(Exports, GiveEveryColourAsItWasDesigned) {
  for (const Designed& designed : allColors()) {
    SCOPED_TRACE(designed.name);
    const auto [red, green, blue, alpha] = designed.color.getRed();
    EXPECT_EQ(token(designed.name).at("$type"), "color");
    const Json& written = value(designed.name);
    EXPECT_EQ(written.size(), 4);
    EXPECT_EQ(written.at("colorSpace"), "srgb");
    EXPECT_EQ(written.at("components"), Json({red, green, blue}));
    EXPECT_EQ(written.at("alpha"), alpha);
    EXPECT_EQ(written.at("hex"), hexText(designed.color).substr(0, 7));
    EXPECT_EQ(own(designed.name).at("form"), formName(designed.color));
  }
  EXPECT_EQ(value("theme.dark.overMedia.background.unsafeForSmallText.press"),
            Json::parse(R"({"colorSpace":"srgb","components":[0,0,0],"alpha":0.61,"hex":"#000000"})"));
  EXPECT_EQ(value("campaign.tierBexaAlternate.text.brightAccent").at("components"), Json({1.0, 0.784, 0.384}));
}

TEST(Exports, WriteNumbersAsDesignedWithoutNoise) {
  EXPECT_EQ(value("palette.gray7").at("components").dump(), "[0.071,0.071,0.071]");
  EXPECT_EQ(value("spacer.x16").dump(), R"({"value":16,"unit":"px"})");
  std::size_t count = 0;
  const std::function<void(const Json&)> look = [&](const Json& json) {
    if (json.is_number_float()) {
      EXPECT_EQ(json.dump(), decimal(json.get<double>()));  // the fewest digits that read back the same
      ++count;
    }
    if (json.is_structured()) {
      for (const Json& member : json) look(member);
    }
  };
  look(whole());
  EXPECT_GT(count, 1000);
}

TEST(Exports, MarkOlderNamesAndNameThePaletteColourWhereOneIsTheSame) {
  std::size_t adviceCount = 0;
  for (const Designed& older : legacy()) {
    SCOPED_TRACE(older.name);
    const Json& deprecated = token("legacy." + older.name).at("$deprecated");
    Json expected = true;
    for (const Designed& color : palette()) {
      if (color.color != older.color) continue;
      expected = "Take palette." + color.name + " instead, the same colour.";
      ++adviceCount;
      break;
    }
    EXPECT_EQ(deprecated, expected);
  }
  EXPECT_GT(adviceCount, 0);
  EXPECT_EQ(token("legacy.white10").at("$deprecated"), "Take palette.opacityWhite10 instead, the same colour.");
  EXPECT_EQ(token("legacy.aquamarine").at("$deprecated"), true);
  EXPECT_FALSE(token("palette.gray7").contains("$deprecated"));
}

TEST(Exports, GiveOpacitiesAndSpacers) {
#define BRISEL_OPACITY(name, number, objectName)                                         \
  EXPECT_EQ(token("opacity." #name).at("$type"), "number");                              \
  EXPECT_EQ(value("opacity." #name), number);                                            \
  EXPECT_EQ(own("opacity." #name).at("valueInterface"), "Brisel::Opacity::" #name "()"); \
  EXPECT_EQ(own("opacity." #name).at("objectInterface"), "VLMBriselOpacities::" #objectName "()");
#include "brisel/tokens/opacities.def"
#define BRISEL_SPACER(name, number, objectName)                                        \
  EXPECT_EQ(token("spacer." #name).at("$type"), "dimension");                          \
  EXPECT_EQ(value("spacer." #name), Json({{"value", number}, {"unit", "px"}}));        \
  EXPECT_EQ(own("spacer." #name).at("valueInterface"), "Brisel::Spacer::" #name "()"); \
  EXPECT_EQ(own("spacer." #name).at("objectInterface"), "VLMBriselSpacers::" #objectName "()");
#include "brisel/tokens/spacers.def"
}

TEST(Exports, SetTypeAtEachCategoryAsTheStylesDo) {
  const Json text{"Tondal", "TondalArab", "TondalHebr", "TondalCyrl", "TondalGrek", "TondalDeva", "sans-serif"};
  const Json title{"TondalTitle", "TondalTitleTall", "TondalArab", "TondalHebr",
                   "TondalCyrl",  "TondalGrek",      "TondalDeva", "sans-serif"};
  const std::map<std::string_view, int> weights{{"Book", 400}, {"Bold", 700}, {"Black", 900}};
  for (const Catalogue::TypeStyleEntry& entry : Catalogue::typeStyles()) {
    const TypeStyle& style = entry.get();
    for (const NamedCategory& category : categories()) {
      const std::string name = "typography." + std::string(entry.name) + "." + std::string(category.name);
      SCOPED_TRACE(name);
      EXPECT_EQ(token(name).at("$type"), "typography");
      const Json& written = value(name);
      EXPECT_EQ(written.size(), 5);
      EXPECT_EQ(written.at("fontFamily"), style.primaryFont() == Font::tondal ? text : title);
      const Platform::UIContentSizeCategory& platformCategory = category.category.platformCategory();
      EXPECT_EQ(written.at("fontSize"), Json({{"value", style.font(platformCategory)->pointSize()}, {"unit", "px"}}));
      EXPECT_EQ(written.at("fontWeight"), weights.at(style.fontWeight().nameSuffix()));
      EXPECT_EQ(written.at("letterSpacing"), Json({{"value", 0}, {"unit", "px"}}));
      EXPECT_EQ(written.at("lineHeight").dump(), "1.2");  // of all faces: 950 above, 250 below the baseline
      EXPECT_EQ(own(name).at("category"), platformCategory.string());
      EXPECT_EQ(own(name).at("minimumScaleFactor"), style.configuration().minimumScaleFactor().value(platformCategory));
    }
  }
  EXPECT_EQ(value("typography.ballad.large").at("fontSize").dump(), R"({"value":16,"unit":"px"})");
  EXPECT_EQ(value("typography.bass.extraExtraExtraLarge").at("fontSize").at("value"), 62);
  EXPECT_EQ(own("typography.metronome.large"), Json({{"valueInterface", "Brisel::TypeStyle::metronome()"},
                                                     {"objectInterface", "VLMBriselTypeStyle::metronome()"},
                                                     {"name", "Metronome"},
                                                     {"category", "UIContentSizeCategoryLarge"},
                                                     {"group", "smallText"},
                                                     {"nominalSize", 14},
                                                     {"minimumScaleFactor", 1},
                                                     {"usesUpperCaseLayout", true},
                                                     {"features", Json::array()}}));
}

TEST(Exports, NeverMeasureWhatStandsInForAFace) {
  if (!runsWithOwnBundle({"Tondal-Book.otf"})) return;
  EXPECT_THAT([] { allTokens(); },
              testing::ThrowsMessage<std::runtime_error>("the resource bundle lacks the font Tondal-Book"));
}

TEST(Exports, GiveIconsByTheirCodePoints) {
  std::size_t mirrored = 0;
  const auto check = [&mirrored](std::string accessor, std::string_view name, int x16, int x24, bool autoMirror) {
    const std::string code = accessor + "()";
    if (accessor.ends_with('_')) accessor.pop_back();
    SCOPED_TRACE(accessor);
    mirrored += autoMirror ? 1 : 0;
    for (const auto& [design, codePoint, size] : {std::tuple("x16", x16, 16), std::tuple("x24", x24, 24)}) {
      const std::string path = "icon." + accessor + "." + design;
      EXPECT_EQ(token(path).at("$type"), "number");
      EXPECT_EQ(value(path), codePoint);
      EXPECT_EQ(own(path), Json({{"valueInterface", "Brisel::Icon::" + code},
                                 {"objectInterface", "VLMBriselSwiftIcons::" + code},
                                 {"constant", "VLMBriselIcon" + std::string(name)},
                                 {"name", name},
                                 {"designSize", size},
                                 {"autoMirror", autoMirror}}));
    }
  };
#define BRISEL_ICON(accessor, name, x16, x24, autoMirror) check(#accessor, #name, x16, x24, autoMirror);
#include "brisel/icons/icons.def"
  EXPECT_GT(mirrored, 0);
  EXPECT_EQ(own("icon.delete.x16").at("valueInterface"), "Brisel::Icon::delete_()");
}

TEST(Exports, TellHowTokensAreWrittenInCode) {
  for (const Designed& color : palette()) {
    EXPECT_EQ(own("palette." + color.name).at("valueInterface"), "Brisel::Color::" + color.name + "()");
    EXPECT_EQ(own("palette." + color.name).at("objectInterface"), "VLMBriselColors::" + color.name + "()");
  }
  for (const Designed& color : legacy()) {
    EXPECT_FALSE(own("legacy." + color.name).contains("valueInterface"));
    EXPECT_EQ(own("legacy." + color.name).at("objectInterface"), "VLMBriselColors::" + color.name + "()");
  }
  EXPECT_EQ(own("theme.dark.base.background.elevated.press"),
            Json({{"valueInterface", "Brisel::Theme::dark().base().background().elevated().press()"},
                  {"objectInterface", "VLMBriselColorTheme::dark()->base()->background()->elevated()->press()"},
                  {"form", "rgb"}}));
  EXPECT_EQ(own("campaign.tierAurel.text.base"),
            Json({{"valueInterface", "Brisel::Theme::ColorSet::Campaign::tierAurel().text().base()"},
                  {"objectInterface", "VLMBriselColorTheme::campaign()->tierAurel()->text()->base()"},
                  {"form", "rgb"}}));
}

TEST(Exports, HaveNoBracesInTextsWhichWouldBeReferences) {
  const std::function<void(const Json&)> look = [&look](const Json& json) {
    if (json.is_string()) {
      EXPECT_THAT(json.get<std::string>(), Not(testing::ContainsRegex("[{}]")));
    }
    if (json.is_structured()) {
      for (const Json& member : json) look(member);
    }
  };
  look(whole());
}

// --- Design Tokens files ---

TEST(DtcgExport, WritesAFileAFamilyAndOneOfThemAll) {
  const TemporaryDirectory directory;
  writeDtcg(directory.path() / "tokens");
  Json joined = Json::object();
  std::size_t files = 0;
  for (const TokenFamily& family : tokenFamilies()) {
    const Json tree = Json::parse(read(directory.path() / "tokens" / (std::string(family.name) + ".tokens.json")));
    EXPECT_EQ(tree.size(), 1);
    joined.update(tree);
  }
  EXPECT_EQ(Json::parse(read(directory.path() / "tokens/brisel.tokens.json")), joined);
  EXPECT_EQ(joined, whole());
  for (const auto& entry : fs::directory_iterator(directory.path() / "tokens"))
    files += entry.is_regular_file() ? 1 : 0;
  EXPECT_EQ(files, tokenFamilies().size() + 1);
}

TEST(DtcgExport, ReplacesAnEarlierOneByTheSameBytes) {
  const TemporaryDirectory directory;
  const fs::path place = directory.path() / "tokens";
  writeDtcg(place);
  const std::string before = read(place / "brisel.tokens.json");
  fs::remove(place / "icon.tokens.json");  // by a version that lacked the family
  writeDtcg(place);
  EXPECT_EQ(read(place / "brisel.tokens.json"), before);
  EXPECT_TRUE(fs::exists(place / "icon.tokens.json"));
}

TEST(DtcgExport, LeavesADirectoryAloneThatHoldsAnythingElse) {
  const TemporaryDirectory directory;
  const fs::path place = directory.path() / "tokens";
  writeDtcg(place);
  std::ofstream(place / "style-dictionary.json") << "{}";
  const auto again = [&place] { writeDtcg(place); };
  EXPECT_THAT(again, testing::ThrowsMessage<std::runtime_error>(HasSubstr("it holds other files")));
  EXPECT_EQ(read(place / "style-dictionary.json"), "{}");
  fs::remove(place / "style-dictionary.json");
  fs::create_directories(place / "mine");
  EXPECT_THAT(again, testing::ThrowsMessage<std::runtime_error>(HasSubstr("it holds other files")));
}

// The key is published, so files of others hold it as well.
TEST(DtcgExport, DeletesNoFileOfOthersThatHoldsItsKey) {
  const TemporaryDirectory directory;
  const fs::path place = directory.path() / "tokens";
  const auto refuses = [&place] {
    EXPECT_THAT([&place] { writeDtcg(place); },
                testing::ThrowsMessage<std::runtime_error>(HasSubstr("it holds other files")));
  };
  writeDtcg(place);
  const std::string family = read(place / "icon.tokens.json");
  for (const auto* name : {"build.mjs", "README.md", "mine.tokens.json", "icon.tokens.json.orig", "icon.json"}) {
    SCOPED_TRACE(name);
    std::ofstream(place / name) << family;
    refuses();
    EXPECT_EQ(read(place / name), family);
    EXPECT_EQ(std::distance(fs::directory_iterator(place), {}), 10);
    fs::remove(place / name);
  }
  fs::remove_all(place);
  fs::create_directories(place);
  std::ofstream(place / "build.mjs") << "t.$extensions['foundation.brisel'].valueInterface";
  refuses();
  EXPECT_EQ(read(place / "build.mjs"), "t.$extensions['foundation.brisel'].valueInterface");
}

TEST(DtcgExport, TakesAFileForItsOwnOnlyAsItWritesIt) {
  const TemporaryDirectory directory;
  const fs::path place = directory.path() / "tokens", file = place / "icon.tokens.json";
  const auto refuses = [&place] {
    EXPECT_THAT([&place] { writeDtcg(place); },
                testing::ThrowsMessage<std::runtime_error>(HasSubstr("it holds other files")));
  };
  writeDtcg(place);
  const std::string ours = read(file), other = read(place / "theme.tokens.json");
  for (const std::string& text :
       {Json::parse(ours).dump(), Json::parse(ours).dump(2), other,
        std::string("{\n  \"icon\": {\n    \"$description\": \"foundation.brisel\"\n  }\n}\n")}) {
    std::ofstream(file) << text;
    refuses();
    EXPECT_EQ(read(file), text);
  }
  fs::remove(file);
  std::ofstream(directory.path() / "elsewhere") << ours;
  fs::create_symlink(directory.path() / "elsewhere", file);
  refuses();
  EXPECT_TRUE(fs::is_symlink(file));
  fs::remove(file);
  ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
  refuses();  // and does not wait for who writes to it
  EXPECT_TRUE(fs::is_fifo(file));
  fs::remove(file);
  std::ofstream(file) << ours;
  writeDtcg(place);
}

TEST(DtcgExport, StaysReadable) {
  const std::vector<Token> tokens{{{"a", "b", "c"}, 1.0, "", ""}, {{"a", "b", "d"}, 1.0, "", ""}, {{"e"}, 1.0, "", ""}};
  EXPECT_EQ(dtcgText(tokens), R"({
  "a": {
    "b": {
      "c": {"$type":"number","$value":1,"$extensions":{"foundation.brisel":{}}},
      "d": {"$type":"number","$value":1,"$extensions":{"foundation.brisel":{}}}
    }
  },
  "e": {"$type":"number","$value":1,"$extensions":{"foundation.brisel":{}}}
}
)");
}

// --- Style sheet ---

TEST(CssExport, GivesEveryColourExactly) {
  for (const Designed& designed : allColors()) {
    SCOPED_TRACE(designed.name);
    EXPECT_EQ(cssColor(styleSheet().at("--brisel-" + kebabCase(designed.name))), designed.color.getRed());
  }
  EXPECT_EQ(styleSheet().at("--brisel-palette-gray7"), "rgb(7.1% 7.1% 7.1%)");
  EXPECT_EQ(styleSheet().at("--brisel-theme-dark-over-media-background-tinted-press"), "rgb(0% 0% 0% / 54%)");
}

TEST(CssExport, GivesOpacitiesSpacersAndIcons) {
  EXPECT_EQ(styleSheet().at("--brisel-opacity-x0"), "0");
  EXPECT_EQ(styleSheet().at("--brisel-opacity-x30"), "0.3");
#define BRISEL_SPACER(name, number, objectName) \
  EXPECT_EQ(styleSheet().at("--brisel-spacer-" #name), decimal(number) + "px");
#include "brisel/tokens/spacers.def"
  const auto check = [](std::string accessor, int x16, int x24) {
    if (accessor.ends_with('_')) accessor.pop_back();
    const std::string name = "--brisel-icon-" + kebabCase(accessor);
    for (const auto& [design, codePoint] : {std::pair("-x16", x16), std::pair("-x24", x24)}) {
      const std::string& content = styleSheet().at(name + design);
      ASSERT_THAT(content, MatchesRegex(R"("\\[0-9a-f]{4,6}")"));
      EXPECT_EQ(std::stoi(content.substr(2), nullptr, 16), codePoint);
    }
  };
#define BRISEL_ICON(accessor, name, x16, x24, autoMirror) check(#accessor, x16, x24);
#include "brisel/icons/icons.def"
}

TEST(CssExport, GivesTypeAsOneValueAndInParts) {
  for (const Catalogue::TypeStyleEntry& entry : Catalogue::typeStyles()) {
    for (const NamedCategory& category : categories()) {
      const std::string dotted = "typography." + std::string(entry.name) + "." + std::string(category.name);
      SCOPED_TRACE(dotted);
      const std::string name = "--brisel-" + kebabCase(dotted);
      const Json& expected = value(dotted);
      const std::string size = decimal(expected.at("fontSize").at("value")) + "px";
      const std::string families = styleSheet().at(name + "-font-family");
      EXPECT_EQ(styleSheet().at(name + "-font-size"), size);
      EXPECT_EQ(styleSheet().at(name + "-font-weight"), expected.at("fontWeight").dump());
      EXPECT_EQ(styleSheet().at(name + "-line-height"), "1.2");
      EXPECT_EQ(styleSheet().at(name + "-letter-spacing"), "0px");
      EXPECT_EQ(styleSheet().at(name), expected.at("fontWeight").dump() + " " + size + "/1.2 " + families);
      Json list = Json::parse("[" + families.substr(0, families.rfind(", ")) + ",\"sans-serif\"]");
      EXPECT_EQ(list, expected.at("fontFamily"));
      EXPECT_THAT(families, testing::EndsWith(", sans-serif"));  // a keyword, unquoted
    }
  }
  EXPECT_EQ(styleSheet().at("--brisel-typography-ballad-extra-extra-extra-large-font-size"), "22px");
}

TEST(CssExport, HasNothingThatTheCataloguesLack) {
  EXPECT_EQ(styleSheet().size(), 1915 + 5 * 19 * 12);
  for (const auto& [name, ignored] : styleSheet()) EXPECT_THAT(name, MatchesRegex("--brisel(-[a-z0-9]+)+"));
}

TEST(CssExport, EscapesWhatStringsCannotHold) {
  const std::vector<Token> tokens{{{"type"}, TypeSetting{{"A \"b\" \\ c\nd", "sans-serif"}, 1.5, 400, 1.2}, "", ""}};
  EXPECT_THAT(cssText(tokens), HasSubstr(R"(  --brisel-type: 400 1.5px/1.2 "A \"b\" \\ c\a d", sans-serif;)"));
}

TEST(CssExport, TakesTheLastFamilyForTheGenericOne) {
  const std::vector<Token> tokens{{{"type"}, TypeSetting{{"sans-serif", "system-ui"}, 1, 400, 1.2}, "", ""}};
  EXPECT_THAT(cssText(tokens), HasSubstr("--brisel-type-font-family: \"sans-serif\", system-ui;\n"));
}

TEST(CssExport, EndsNoCommentEarly) {
  const std::vector<Token> tokens{{{"a"}, 1.0, "", "", Json::object(), "Take */b**/ or */*/."}};
  EXPECT_THAT(cssText(tokens), HasSubstr("  --brisel-a: 1; /* deprecated: Take * /b** / or * /* /. */\n"));
}

TEST(CssExport, MovesThePointOfPercentages) {
  const auto written = [](double white, double alpha) {
    return parseCss(cssText(std::vector<Token>{{{"c"}, UIColor::grey(white, alpha), "", ""}})).at("--brisel-c");
  };
  EXPECT_EQ(written(0.07, 1), "rgb(7% 7% 7%)");
  EXPECT_EQ(written(0.5, 0.001), "rgb(50% 50% 50% / 0.1%)");
  EXPECT_EQ(written(1, 0.0001), "rgb(100% 100% 100% / 0.01%)");
  EXPECT_EQ(written(1.25, 0), "rgb(125% 125% 125% / 0%)");
  EXPECT_EQ(written(-0.25, 0.1), "rgb(-25% -25% -25% / 10%)");
}

TEST(CssExport, SaysWhichColoursAreDeprecated) {
  const std::string text = cssText(allTokens());
  EXPECT_THAT(text, HasSubstr("--brisel-legacy-aquamarine: rgb(60.8% 94.1% 88.2%); /* deprecated */\n"));
  EXPECT_THAT(text, HasSubstr("/* deprecated: Take palette.opacityWhite10 instead, the same colour. */\n"));
}

// --- Flat list ---

TEST(FlatExport, ListsAllTokensWithTheSameMembers) {
  const Json list = Json::parse(flatJsonText(allTokens()));
  ASSERT_EQ(list.size(), 1915);
  for (const Json& entry : list) {
    std::vector<std::string> members;
    for (const auto& [name, ignored] : entry.items()) members.push_back(name);
    EXPECT_THAT(members, ElementsAre("name", "family", "type", "value", "property", "valueInterface", "objectInterface",
                                     "deprecated", "facts"));
    const auto name = entry.at("name").get<std::string>();
    SCOPED_TRACE(name);
    EXPECT_THAT(name, StartsWith(entry.at("family").get<std::string>() + "."));
    EXPECT_EQ(entry.at("type"), token(name).at("$type"));
    EXPECT_EQ(entry.at("value"), value(name));
    EXPECT_EQ(styleSheet().count(entry.at("property").get<std::string>()), 1);
    EXPECT_EQ(entry.at("objectInterface"), own(name).at("objectInterface"));
    EXPECT_EQ(entry.at("deprecated"), token(name).value("$deprecated", Json(false)));
    for (const auto& [fact, said] : entry.at("facts").items()) EXPECT_EQ(said, own(name).at(fact));
  }
  EXPECT_EQ(list.front().at("name"), "palette.gray7");
  EXPECT_EQ(list.front().at("valueInterface"), "Brisel::Color::gray7()");
  EXPECT_EQ(list.at(252).at("name"), "legacy.aquamarine");
  EXPECT_EQ(list.at(252).at("valueInterface"), nullptr);
}

TEST(TokensCommand, PrintsOrWritesTheSame) {
  const TemporaryDirectory directory;
  for (const auto* format : {"css", "json"}) {
    const std::string printed = exportTokens({format, ""});
    EXPECT_EQ(printed.back(), '\n');
    EXPECT_EQ(exportTokens({format, directory.path() / format}), "");
    EXPECT_EQ(read(directory.path() / format), printed);
    EXPECT_EQ(exportTokens({format, ""}), printed);
  }
  EXPECT_THROW(exportTokens({"css", directory.path() / "missing" / "a.css"}), std::runtime_error);
}

TEST(JsonNumbers, AreWrittenAsAPersonWould) {
  EXPECT_EQ(jsonNumber(16).dump(), "16");
  EXPECT_EQ(jsonNumber(0.071).dump(), "0.071");
  EXPECT_EQ(jsonNumber(-0.0).dump(), "0");
  EXPECT_EQ(jsonNumber(-2.5).dump(), "-2.5");
  EXPECT_EQ(jsonNumber(9007199254740991.0).dump(), "9007199254740991");
  EXPECT_EQ(jsonNumber(1e300).get<double>(), 1e300);
}

}  // namespace
}  // namespace Brisel::Gallery
