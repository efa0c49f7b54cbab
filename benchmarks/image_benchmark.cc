// Images compared, enlarged and blended.
#include <QImage>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include <opencv2/core.hpp>

#include "brisel/infrastructure/image_blending.h"
#include "brisel/infrastructure/image_comparison.h"
#include "brisel/infrastructure/image_enlarging.h"

#include "benchmarks/job.h"
#include "benchmarks/node_process.h"

namespace {

using namespace Brisel::Platform;
using Brisel::Pixel;

constexpr int kWidth = 3840;
constexpr int kHeight = 2160;
constexpr int kTolerance = 5;
constexpr double kAccuracy = 5.1 / 255.0;

// --- Comparison ---

// Opaque noise; `differs` changes its colours by 0 to 2. pixelmatch/compare.mjs knows the formula.
Bitmap noise(int width, int height, bool differs = false) {
  Bitmap bitmap{width, height, {}};
  bitmap.rgba.resize(bitmap.bytesPerRow() * static_cast<std::size_t>(height));
  for (std::size_t i = 0; i < bitmap.rgba.size(); ++i) {
    const auto byte = static_cast<std::uint8_t>(static_cast<std::uint32_t>(i * 2'654'435'761) >> 24U);
    bitmap.rgba[i] = i % 4 == 3 ? std::uint8_t{255} : static_cast<std::uint8_t>(byte ^ (differs ? i % 3 : 0));
  }
  return bitmap;
}

struct Pair {
  ImagePtr image = UIImage::imageWithBitmap(noise(kWidth, kHeight), 1);
  ImagePtr other;
};

const Pair& identical() {
  static const Pair pair{.other = UIImage::imageWithBitmap(noise(kWidth, kHeight), 1)};
  return pair;
}

const Pair& within() {
  static const Pair pair{.other = UIImage::imageWithBitmap(noise(kWidth, kHeight, true), 1)};
  return pair;
}

// The first row differs by more than is tolerated.
const Pair& early() {
  static const Pair pair = [] {
    Bitmap bitmap = noise(kWidth, kHeight);
    bitmap.rgba[4000] = static_cast<std::uint8_t>(bitmap.rgba[4000] ^ 128U);
    return Pair{.other = UIImage::imageWithBitmap(std::move(bitmap), 1)};
  }();
  return pair;
}

template <const Pair& (*pair)(), bool expected = true>
void ours(benchmark::State& state) {
  const Pair& images = pair();
  for (auto _ : state) {
    if (Brisel::isEqualToPixels(*images.image, images.other, kAccuracy) != expected) state.SkipWithError("wrong");
  }
}

// Whatever the images are, this reads two that are equal to their end: the least that looking at all costs.
void equalBytes(benchmark::State& state) {
  const Bitmap& image = *identical().image->bitmap();
  const Bitmap& other = *identical().other->bitmap();
  for (auto _ : state) {
    if (std::memcmp(image.rgba.data(), other.rgba.data(), image.rgba.size()) != 0) state.SkipWithError("wrong");
  }
}

template <const Pair& (*pair)()>
void plainLoop(benchmark::State& state) {
  const Bitmap& image = *pair().image->bitmap();
  const Bitmap& other = *pair().other->bitmap();
  for (auto _ : state) {
    bool isEqual = true;
    for (std::size_t i = 0; i < image.rgba.size() && isEqual; ++i) {
      isEqual = std::abs(int{image.rgba[i]} - int{other.rgba[i]}) <= kTolerance;
    }
    if (!isEqual) state.SkipWithError("wrong");
  }
}

// In strips of eight rows that stay in the cache, which is how it is quickest.
template <const Pair& (*pair)()>
void openCv(benchmark::State& state) {
  cv::setNumThreads(1);
  const auto matrix = [](const ImagePtr& image) {
    return cv::Mat(kHeight, kWidth * 4, CV_8UC1, const_cast<std::uint8_t*>(image->bitmap()->rgba.data()));
  };
  const cv::Mat image = matrix(pair().image);
  const cv::Mat other = matrix(pair().other);
  cv::Mat difference;
  cv::Mat mask;
  for (auto _ : state) {
    int count = 0;
    for (int y = 0; y < kHeight && count == 0; y += 8) {
      cv::absdiff(image.rowRange(y, y + 8), other.rowRange(y, y + 8), difference);
      cv::compare(difference, kTolerance, mask, cv::CMP_GT);
      count = cv::countNonZero(mask);
    }
    if (count != 0) state.SkipWithError("wrong");
  }
}

// By a perceptual measure, so not quite the same job.
void pixelmatch(benchmark::State& state, const char* images) {
  Brisel::Benchmarks::NodeProcess node({BRISEL_PIXELMATCH, std::to_string(kWidth), std::to_string(kHeight), images});
  node.seconds();  // the first comparison is that of a compiler warming up
  for (auto _ : state) {
    const double seconds = node.seconds();
    if (!(seconds > 0)) return state.SkipWithError("node does not answer; see benchmarks/pixelmatch");
    state.SetIterationTime(seconds);
  }
}

BRISEL_JOB("image_comparison_within/ours", ours<within>);
BRISEL_JOB("image_comparison_within/memcmp", equalBytes);
BRISEL_JOB("image_comparison_within/OpenCV", openCv<within>);
BRISEL_JOB("image_comparison_within/plain loop", plainLoop<within>);
BRISEL_JOB("image_comparison_within/pixelmatch", [](auto& state) { pixelmatch(state, "within"); }) -> UseManualTime();
BRISEL_JOB("image_comparison_identical/ours", ours<identical>);
BRISEL_JOB("image_comparison_identical/memcmp", equalBytes);
BRISEL_JOB("image_comparison_identical/OpenCV", openCv<identical>);
BRISEL_JOB("image_comparison_identical/plain loop", plainLoop<identical>);
BRISEL_JOB("image_comparison_identical/pixelmatch", [](auto& state) { pixelmatch(state, "identical"); })
    -> UseManualTime();
BRISEL_JOB("image_comparison_early/ours", (ours<early, false>));
BRISEL_JOB("image_comparison_early/identical", ours<identical>);

// --- Scaling ---

constexpr int kSide = 512;
constexpr int kFactor = 3;

void scalingByOurs(benchmark::State& state) {
  const ImagePtr image = UIImage::imageWithBitmap(noise(kSide, kSide), 1);
  for (auto _ : state) {
    benchmark::DoNotOptimize(Brisel::imageByScaling(*image, kFactor, CGInterpolationQuality::none, nullptr));
  }
}

void scalingByQt(benchmark::State& state) {
  const Bitmap bitmap = noise(kSide, kSide);
  const QImage image(bitmap.rgba.data(), kSide, kSide, QImage::Format_RGBA8888_Premultiplied);
  for (auto _ : state) {
    const QImage scaled = image.scaled(kSide * kFactor, kSide * kFactor, Qt::IgnoreAspectRatio, Qt::FastTransformation);
    benchmark::DoNotOptimize(scaled.constBits());
  }
}

BRISEL_JOB("image_scaling/ours", scalingByOurs);
BRISEL_JOB("image_scaling/Qt", scalingByQt);

// --- Blending ---

// The mean of two pixels: little work, so that what surrounds it counts.
Brisel::RgbaBlock mean() {
  return [](const Pixel* a, const Pixel* b, Pixel& output, bool&) {
    const auto half = [](unsigned char one, unsigned char another) {
      return static_cast<unsigned char>((one + another) / 2);
    };
    output = {half(a->red, b->red), half(a->green, b->green), half(a->blue, b->blue), half(a->alpha, b->alpha)};
  };
}

void blendingByOurs(benchmark::State& state) {
  const ImagePtr image = UIImage::imageWithBitmap(noise(kSide, kSide), 1);
  const ImagePtr other = UIImage::imageWithBitmap(noise(kSide, kSide, true), 1);
  const Brisel::RgbaBlock block = mean();
  for (auto _ : state) benchmark::DoNotOptimize(Brisel::imageByBlendingUsingRgbaBlock(*image, other, block));
}

// Without edges to look for: both images have all pixels.
void blendingByLoop(benchmark::State& state) {
  const Bitmap image = noise(kSide, kSide);
  const Bitmap other = noise(kSide, kSide, true);
  const Brisel::RgbaBlock block = mean();
  for (auto _ : state) {
    std::vector<std::uint8_t> rgba(image.rgba.size());
    for (std::size_t i = 0; i < rgba.size(); i += 4) {
      Pixel a;
      Pixel b;
      Pixel output;
      std::memcpy(&a, image.rgba.data() + i, 4);
      std::memcpy(&b, other.rgba.data() + i, 4);
      bool stop = false;
      block(&a, &b, output, stop);
      if (stop) break;
      std::memcpy(rgba.data() + i, &output, 4);
    }
    benchmark::DoNotOptimize(UIImage::imageWithBitmap({kSide, kSide, std::move(rgba)}, 1));
  }
}

BRISEL_JOB("image_blending/ours", blendingByOurs);
BRISEL_JOB("image_blending/loop", blendingByLoop);

}  // namespace
