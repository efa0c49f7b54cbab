// Each name draws what the operation that it forwards to draws.
#include "brisel/object_interface/shape_images.h"

#include <functional>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/infrastructure/shape_images.h"

#include "tests/recording_ports.h"

namespace {

using namespace Brisel::Platform;
using Brisel::recordingEngine;
using Brisel::verifiedIndicator;
using Brisel::withCircle;
using Brisel::withDot;
using Brisel::withStar;

class ShapeImageNames : public testing::Test {
 protected:
  static std::vector<RecordingEngine::CanvasCall> callsOf(const std::function<ImagePtr()>& makeImage) {
    recordingEngine().forget();
    EXPECT_NE(makeImage(), nullptr);
    return recordingEngine().record().calls;
  }

  ShapeImageNames() { recordingEngine(); }

  const ColorPtr red = UIColor::initWithRed(1, 0, 0, 1);
  const ColorPtr blue = UIColor::initWithRed(0, 0, 1, 0.5);
  const ImagePtr image = UIImage::imageWithBitmap({10, 8, std::vector<std::uint8_t>(320, 90)}, 1);
};

TEST_F(ShapeImageNames, OfTheCircleTakeColourAndWidthInTheirOwnOrders) {
  for (const bool cutOut : {false, true}) {
    const auto expected = callsOf([&] { return withCircle(*image, 20, 3, red, blue, cutOut); });
    EXPECT_EQ(callsOf([&] { return briselSwift_withCircleOfDiameter(*image, 20, 3, red, blue, cutOut); }), expected);
    EXPECT_EQ(callsOf([&] { return brisel_withCircleOfDiameter(*image, 20, red, 3, blue, cutOut); }), expected);
  }
  EXPECT_EQ(callsOf([&] { return brisel_withCircleOfDiameter(*image, 20, red, 3, nullptr); }),
            callsOf([&] { return withCircle(*image, 20, 3, red, nullptr, false); }));
}

TEST_F(ShapeImageNames, OfTheStarForward) {
  for (const bool cutOut : {false, true}) {
    const auto expected = callsOf([&] { return withStar(*image, 20, 8, 5, red, cutOut); });
    EXPECT_EQ(callsOf([&] { return briselSwift_withStarOfDiameter(*image, 20, 8, 5, red, cutOut); }), expected);
    EXPECT_EQ(callsOf([&] { return brisel_withStarOfDiameter(*image, 20, 8, 5, red, cutOut); }), expected);
  }
  EXPECT_EQ(callsOf([&] { return brisel_withStarOfDiameter(*image, 20, 8, 5, red); }),
            callsOf([&] { return withStar(*image, 20, 8, 5, red, false); }));
}

TEST_F(ShapeImageNames, OfTheDotForward) {
  const auto expected = callsOf([&] { return withDot(*image, 4, 6, {8, 2}, red); });
  EXPECT_EQ(callsOf([&] { return briselSwift_withDotOfDiameter(*image, 4, 6, {8, 2}, red); }), expected);
  EXPECT_EQ(callsOf([&] { return brisel_withDotOfDiameter(*image, 4, 6, {8, 2}, red); }), expected);
}

TEST_F(ShapeImageNames, OfTheBadgeForward) {
  verifiedIndicator({48, 24}, red);  // From now on the check mark is in the cache of icons.
  const auto expected = callsOf([&] { return verifiedIndicator({48, 24}, red); });
  EXPECT_EQ(expected.size(), 2U);
  EXPECT_EQ(callsOf([&] { return briselSwift_verifiedIndicatorForSize({48, 24}, red); }), expected);
  EXPECT_EQ(callsOf([&] { return brisel_verifiedIndicatorForSize({48, 24}, red); }), expected);
}

}  // namespace
