#include "brisel/icons/icon_font.h"

#include <cmath>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/icons/internal/icon_font_registration.h"
#include "brisel/platform/font_descriptor.h"
#include "brisel/typography/font.h"
#include "brisel/typography/resource_bundle.h"

#include "tests/own_bundle.h"
#include "tests/recording_ports.h"
#include "tests/temporary_directory.h"

namespace Brisel {
namespace {

using Platform::Engine;
using Platform::NSBundle;
using testing::ElementsAre;
using testing::IsEmpty;

class IconFont : public testing::Test {
 protected:
  void SetUp() override { recordingEngine(); }

  TemporaryDirectory directory_;
};

TEST_F(IconFont, IsTheOneTrueTypeFileThatIsRegistered) {
  for (const char* name : {"A.otf", "halvicon.otf", "halvicon.ttf", "other.ttf"}) directory_.write(name);
  internal::registerIconFont(*NSBundle::bundleWithPath(directory_.path()));
  EXPECT_THAT(recordingEngine().record().registeredFiles, ElementsAre(directory_.path() / "halvicon.ttf"));
  EXPECT_EQ(recordingEngine().record().substituteFamily, "");
}

TEST_F(IconFont, MayBeRegisteredAlreadyOrRefused) {
  directory_.write("halvicon.ttf");
  const auto bundle = NSBundle::bundleWithPath(directory_.path());
  for (const auto result : {Engine::Registration::alreadyRegistered, Engine::Registration::invalidFontData,
                            Engine::Registration::fileNotFound}) {
    recordingEngine().setRegistrationResult(result);
    internal::registerIconFont(*bundle);
    EXPECT_EQ(internal::registeredIconFont(24)->fontName(), "halvicon");
  }
}

using IconFontDeathTest = IconFont;

TEST_F(IconFontDeathTest, MustBeInTheBundle) {
  directory_.write("halvicon.otf");
  EXPECT_DEATH(internal::registerIconFont(*NSBundle::bundleWithPath(directory_.path())), "lacks the icon font");
}

TEST_F(IconFontDeathTest, MustBeInTheResourceBundleWhenItIsFirstAskedFor) {
  if (!runsWithOwnBundle({"A.otf"})) return;
  EXPECT_DEATH(iconFont(24), "lacks the icon font");
}

TEST_F(IconFont, IsRegisteredOnceWithTheFirstCall) {
  if (!runsWithOwnBundle({"A.otf", "halvicon.ttf"})) return;
  EXPECT_THAT(registeredFontFiles(), IsEmpty());
  const auto font = iconFont(24);
  EXPECT_THAT(recordingEngine().record().registeredFiles, ElementsAre(resourceBundle()->bundlePath() / "halvicon.ttf"));
  EXPECT_EQ(font->fontName(), "halvicon");
  EXPECT_EQ(font->pointSize(), 24.0);
  EXPECT_EQ(iconFont(16.5)->pointSize(), 16.5);
  EXPECT_THAT(registeredFontFiles(), ElementsAre("halvicon.ttf"));
}

TEST_F(IconFont, AndTheTextFontsAreRegisteredApart) {
  if (!runsWithOwnBundle({"A.otf", "halvicon.ttf"})) return;
  Font::font(Font::tondal, {}, Font::Weight::book, 16, {});
  EXPECT_THAT(registeredFontFiles(), ElementsAre("A.otf"));
  iconFont(16);
  EXPECT_THAT(registeredFontFiles(), ElementsAre("A.otf", "halvicon.ttf"));
}

TEST_F(IconFont, IsRegisteredOnceByManyThreads) {
  if (!runsWithOwnBundle({"halvicon.ttf"})) return;
  std::vector<std::thread> threads;
  for (int i = 0; i < 8; ++i) threads.emplace_back([i] { EXPECT_EQ(iconFont(i)->pointSize(), i); });
  for (auto& thread : threads) thread.join();
  EXPECT_THAT(registeredFontFiles(), ElementsAre("halvicon.ttf"));
}

TEST_F(IconFont, IsNewEachTimeAndPlain) {
  if (!runsWithOwnBundle({"halvicon.ttf"})) return;
  const auto font = iconFont(24);
  EXPECT_NE(font, iconFont(24));
  EXPECT_TRUE(font->isEqual(*iconFont(24)));
  EXPECT_EQ(font->fontDescriptor()->objectForKey(Platform::UIFontDescriptorCascadeListAttribute), nullptr);
  EXPECT_EQ(font->fontDescriptor()->objectForKey(Platform::UIFontDescriptorFeatureSettingsAttribute), nullptr);
  EXPECT_EQ(iconFont(-1)->pointSize(), 0.0);
  EXPECT_EQ(iconFont(std::nan(""))->pointSize(), 0.0);
}

}  // namespace
}  // namespace Brisel
