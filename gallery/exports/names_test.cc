#include "gallery/exports/names.h"

#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "gallery/exports/css.h"
#include "gallery/exports/dtcg.h"
#include "gallery/exports/flat_json.h"

namespace Brisel::Gallery {
namespace {

using testing::HasSubstr;

// Tokens with paths as given, all worth 1.
std::vector<Token> named(const std::vector<std::vector<std::string>>& paths) {
  std::vector<Token> tokens;
  for (const auto& path : paths) tokens.push_back({path, 1.0, "", ""});
  return tokens;
}

template <class Action>
std::string complaint(Action action) {
  try {
    action();
  } catch (const std::logic_error& error) {
    return error.what();
  }
  return "no complaint";
}
std::string refusal(const std::vector<std::vector<std::string>>& paths) {
  return complaint([&] { requireExportable(named(paths)); });
}

TEST(TokenNames, AreWrittenInKebabCaseAsStyleDictionaryDoes) {
  EXPECT_EQ(kebabCase("gray7"), "gray7");
  EXPECT_EQ(kebabCase("x16"), "x16");
  EXPECT_EQ(kebabCase("extraLarge"), "extra-large");
  EXPECT_EQ(kebabCase("halvornBrand2Alternate"), "halvorn-brand2-alternate");
  EXPECT_EQ(kebabCase("plus2Px"), "plus2-px");
  EXPECT_EQ(kebabCase("xAlt"), "x-alt");
  EXPECT_EQ(kebabCase("airPlay"), "air-play");
  EXPECT_EQ(kebabCase("XMLHttpABc"), "xml-http-a-bc");
  EXPECT_EQ(kebabCase("RTL"), "rtl");
  EXPECT_EQ(kebabCase("theme.dark overMedia__base-"), "theme-dark-over-media-base");
  EXPECT_EQ(kebabCase("__"), "");
  EXPECT_EQ(customPropertyName(named({{"theme", "dark", "base", "text", "brightAccent"}}).front()),
            "--brisel-theme-dark-base-text-bright-accent");
}

TEST(TokenNames, AreRefusedWhereTheFormatForbidsThem) {
  EXPECT_EQ(refusal({{"a", "b"}, {"a", "c", "d"}, {"$", "e"}}), "the token $.e has a name that starts with $");
  EXPECT_EQ(refusal({{"a", "b"}, {"a", "c", "d"}, {"e$"}}), "no complaint");
  EXPECT_EQ(refusal({{}}), "the token  has no name");
  EXPECT_EQ(refusal({{"a", ""}}), "the token a. has an empty name in its path");
  for (const auto* bad : {"a{", "}a", "a.b", "{a}"}) {
    EXPECT_THAT(refusal({{"a", bad}}), HasSubstr("has a name with a brace or a dot")) << bad;
  }
}

TEST(TokenNames, AreRefusedWhereTheyAreTakenOrDifferInCaseAlone) {
  EXPECT_EQ(refusal({{"a", "b"}, {"a", "b"}}), "the token a.b finds the place of a.b taken");
  EXPECT_EQ(refusal({{"a", "b"}, {"a", "b", "c"}}), "the token a.b.c finds the place of a.b taken");
  EXPECT_EQ(refusal({{"a", "b", "c"}, {"a", "b"}}), "the token a.b finds the place of a.b taken");
  EXPECT_EQ(refusal({{"a", "airPlay"}, {"a", "airplay"}}), "the token a.airplay differs from a.airPlay in case alone");
  EXPECT_EQ(refusal({{"a", "B", "c"}, {"a", "b", "d"}}), "the token a.b.d differs from a.B in case alone");
}

TEST(TokenNames, AreRefusedByEachFormat) {
  const std::vector<Token> bad = named({{"a", "$b"}});
  EXPECT_THROW(dtcgText(bad), std::logic_error);
  EXPECT_THROW(cssText(bad), std::logic_error);
  EXPECT_THROW(flatJsonText(bad), std::logic_error);
}

TEST(TokenNames, AreRefusedWhereTheyCollideInAStyleSheet) {
  const auto collision = [](const std::vector<Token>& tokens) { return complaint([&] { cssText(tokens); }); };
  EXPECT_EQ(collision(named({{"a", "extraLarge"}, {"a", "extra-large"}})),
            "the token a.extra-large finds the name --brisel-a-extra-large taken");
  EXPECT_EQ(collision(named({{"a", "b", "c"}, {"a", "bC"}})), "the token a.bC finds the name --brisel-a-b-c taken");
  std::vector<Token> tokens = named({{"t", "fontSize"}});
  tokens.push_back({{"t"}, TypeSetting{{"sans-serif"}, 1, 400, 1.2}, "", ""});
  EXPECT_THAT(collision(tokens), HasSubstr("taken"));
}

TEST(TokenTexts, AreRefusedWhereTheyWouldBeReferences) {
  const auto refusal = [](const Token& token) {
    return complaint([&token] { requireExportable(std::vector<Token>{token}); });
  };
  const TypeSetting setting{{"Tondal {b}", "sans-serif"}, 1, 400, 1.2};
  EXPECT_EQ(refusal({{"a"}, 1.0, "a()", "b()", {{"n", 1}, {"t", "x"}}, "Take b."}), "no complaint");
  for (const Token& bad : std::vector<Token>{{{"a"}, 1.0, "", "", Json::object(), "Take {b} instead."},
                                             {{"a"}, 1.0, "a({})", ""},
                                             {{"a"}, 1.0, "", "}"},
                                             {{"a"}, 1.0, "", "", {{"name", "{b}"}}},
                                             {{"a"}, 1.0, "", "", {{"list", Json::array({1, "{b}"})}}},
                                             {{"a"}, 1.0, "", "", {{"{b}", 1}}},
                                             {{"a"}, setting, "", ""}}) {
    EXPECT_EQ(refusal(bad), "the token a has braces in a text");
  }
}

}  // namespace
}  // namespace Brisel::Gallery
