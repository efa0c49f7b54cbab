#include "brisel/typography/internal/font_registration.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/log.h"
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
using testing::HasSubstr;
using testing::IsEmpty;

class FontRegistration : public testing::Test {
 protected:
  void SetUp() override { recordingEngine(); }

  TemporaryDirectory directory_;
};

TEST_F(FontRegistration, TakesTheFontFilesOfTheBundleInItsOrder) {
  for (const char* name : {"B.otf", "A.otf", "c.otf", "halvicon.ttf", "A.otf.txt", "inner/D.otf"})
    directory_.write(name);
  internal::registerFontFiles(*NSBundle::bundleWithPath(directory_.path()));
  EXPECT_THAT(registeredFontFiles(), ElementsAre("A.otf", "B.otf", "c.otf"));
}

TEST_F(FontRegistration, GoesOnAfterAFileThatIsRefused) {
  for (const char* name : {"A.otf", "B.otf"}) directory_.write(name);
  recordingEngine().setRegistrationResult(Engine::Registration::invalidFontData);
  EXPECT_EQ(internal::registerFontFiles(*NSBundle::bundleWithPath(directory_.path())), 2U);
  EXPECT_THAT(registeredFontFiles(), ElementsAre("A.otf", "B.otf"));
}

TEST_F(FontRegistration, NamesTheTextFamilyAsTheSubstituteForMissingFonts) {
  internal::registerFontFiles(*NSBundle::bundleWithPath(directory_.path()));
  EXPECT_EQ(recordingEngine().record().substituteFamily, "Tondal");
}

TEST_F(FontRegistration, FindsNothingInABundleWithoutFonts) {
  EXPECT_EQ(internal::registerFontFiles(*NSBundle::bundleWithPath(directory_.path())), 0U);
  EXPECT_THAT(registeredFontFiles(), IsEmpty());
}

using FontRegistrationDeathTest = FontRegistration;

TEST_F(FontRegistrationDeathTest, StopsAtABundleThatCannotBeListed) {
  const auto bundle = NSBundle::bundleWithPath(directory_.path());
  std::filesystem::remove_all(directory_.path());
  EXPECT_DEATH(internal::registerFontFiles(*bundle), "resource bundle");
}

TEST_F(FontRegistration, HappensOnceWithTheFirstFont) {
  EXPECT_THAT(registeredFontFiles(), IsEmpty());
  Font::font(Font::tondal, {}, Font::Weight::book, 16, {});
  const auto files = resourceBundle()->URLsForResourcesWithExtension("otf");
  ASSERT_TRUE(files);
  EXPECT_EQ(recordingEngine().record().registeredFiles, *files);
  Font::font(Font::tondal, {}, Font::Weight::bold, 17, {});
  EXPECT_EQ(recordingEngine().record().registeredFiles, *files);
}

TEST_F(FontRegistration, SaysOnceThatThereAreNoFontFiles) {
  if (!runsWithOwnBundle({})) return;
  static std::vector<std::string> messages;
  Platform::setLogHandler([](std::string_view message) {
    messages.emplace_back(message);
    Font::font(Font::tondal, {}, Font::Weight::black, 20, {});  // not under a lock that this needs
  });
  Font::font(Font::tondal, {}, Font::Weight::book, 16, {});
  Font::font(Font::tondal, {}, Font::Weight::bold, 17, {});
  EXPECT_THAT(messages, ElementsAre(HasSubstr("No font files in the resource bundle")));
  EXPECT_THAT(messages, ElementsAre(HasSubstr(resourceBundle()->bundlePath().native())));
}

}  // namespace
}  // namespace Brisel
