// PNG files written, and read as others write them: by libpng's own interface, in every kind of pixel.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <png.h>

#include "brisel/platform/image.h"
#include "brisel/platform/linux/scarce_memory_test.h"
#include "brisel/platform/port.h"

namespace Brisel::Platform {
namespace {

using Bytes = std::vector<std::uint8_t>;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

struct Sample {
  png_uint_32 width = 1;
  png_uint_32 height = 1;
  int depth = 8;
  int colorType = PNG_COLOR_TYPE_RGB;
  int interlace = PNG_INTERLACE_NONE;
  std::vector<Bytes> rows{};
  std::vector<png_color> palette{};
  Bytes paletteAlphas{};
  bool hasTransparentColor = false;
  png_color_16 transparentColor{};
};

Bytes fileOf(const Sample& sample) {
  Bytes file;
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png_create_info_struct(png);
  png_set_write_fn(
      png, &file,
      [](png_structp writer, png_bytep data, std::size_t size) {
        auto& bytes = *static_cast<Bytes*>(png_get_io_ptr(writer));
        bytes.insert(bytes.end(), data, data + size);
      },
      [](png_structp) {});
  png_set_IHDR(png, info, sample.width, sample.height, sample.depth, sample.colorType, sample.interlace,
               PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  if (!sample.palette.empty()) {
    png_set_PLTE(png, info, sample.palette.data(), static_cast<int>(sample.palette.size()));
  }
  if (!sample.paletteAlphas.empty() || sample.hasTransparentColor) {
    png_set_tRNS(png, info, sample.paletteAlphas.data(), static_cast<int>(sample.paletteAlphas.size()),
                 &sample.transparentColor);
  }
  std::vector<Bytes> rows = sample.rows;
  std::vector<png_bytep> pointers;
  pointers.reserve(rows.size());
  for (Bytes& row : rows) pointers.push_back(row.data());
  png_set_rows(png, info, pointers.data());
  png_write_png(png, info, PNG_TRANSFORM_IDENTITY, nullptr);
  png_destroy_write_struct(&png, &info);
  return file;
}

PngPicture read(const Bytes& file) { return engine().decodePng(file); }

std::vector<int> pixelsOf(const PngPicture& picture) {
  EXPECT_EQ(picture.problem, "");
  return {picture.bitmap.rgba.begin(), picture.bitmap.rgba.end()};
}

void writeWord(Bytes& file, std::size_t offset, std::uint32_t word) {
  for (std::size_t i = 0; i < 4; ++i) file[offset + i] = static_cast<std::uint8_t>(word >> (24 - 8 * i));
}

// A sound file but for its dimensions, which are written where they belong, with their checksum.
Bytes fileClaiming(std::uint32_t width, std::uint32_t height) {
  Bytes file = fileOf({.rows = {{1, 2, 3}}});
  writeWord(file, 16, width);
  writeWord(file, 20, height);
  std::uint32_t crc = 0xFFFFFFFF;
  for (std::size_t i = 12; i < 29; ++i) {
    crc ^= file[i];
    for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xEDB88320U : 0U);
  }
  writeWord(file, 29, ~crc);
  return file;
}

void expectOneClearLine(const PngPicture& picture) {
  EXPECT_FALSE(picture.bitmap.isValid());
  EXPECT_FALSE(picture.problem.empty());
  EXPECT_THAT(picture.problem, Not(HasSubstr("\n")));
}

TEST(Png, ReadsBackEveryColourUnderEveryAlphaAsItWas) {
  Bitmap bitmap{256, 256, {}};  // across: the colour, as far as the alpha lets it; down: the alpha
  for (int alpha = 0; alpha < 256; ++alpha) {
    for (int i = 0; i < 256; ++i) {
      const auto color = static_cast<std::uint8_t>(std::min(i, alpha));
      const auto other = static_cast<std::uint8_t>(alpha - color);
      bitmap.rgba.insert(bitmap.rgba.end(), {color, other, 0, static_cast<std::uint8_t>(alpha)});
    }
  }
  const PngPicture picture = read(engine().encodePng(bitmap));
  EXPECT_EQ(picture.problem, "");
  EXPECT_TRUE(picture.hasAlpha);
  EXPECT_EQ(picture.bitmap, bitmap);
}

TEST(Png, IsWrittenWithoutAlphaWhereAllIsOpaque) {
  constexpr std::size_t kColorType = 25;  // in the header that each file begins with
  const Bitmap opaque{2, 1, {1, 2, 3, 255, 4, 5, 6, 255}};
  const Bytes file = engine().encodePng(opaque);
  EXPECT_EQ(file.at(kColorType), PNG_COLOR_TYPE_RGB);
  EXPECT_FALSE(read(file).hasAlpha);
  EXPECT_EQ(read(file).bitmap, opaque);
  EXPECT_EQ(engine().encodePng({2, 1, {1, 2, 3, 255, 4, 5, 6, 254}}).at(kColorType), PNG_COLOR_TYPE_RGB_ALPHA);
}

TEST(Png, IsWrittenInGreyWhereAllIsGreyAndOpaque) {
  constexpr std::size_t kColorType = 25;
  Bitmap grey{256, 1, {}};
  for (int i = 0; i < 256; ++i) {
    const auto level = static_cast<std::uint8_t>(i);
    grey.rgba.insert(grey.rgba.end(), {level, level, level, 255});
  }
  EXPECT_EQ(engine().encodePng(grey).at(kColorType), PNG_COLOR_TYPE_GRAY);
  EXPECT_EQ(read(engine().encodePng(grey)).bitmap, grey);
  for (std::size_t channel = 0; channel < 3; ++channel) {
    Bitmap tinted = grey;
    tinted.rgba[4 * 200 + channel] -= 1;
    EXPECT_EQ(engine().encodePng(tinted).at(kColorType), PNG_COLOR_TYPE_RGB);
    EXPECT_EQ(read(engine().encodePng(tinted)).bitmap, tinted);
  }
}

TEST(Png, KeepsRedAndBlueInTheirPlaces) {
  EXPECT_THAT(pixelsOf(read(fileOf({.rows = {{255, 128, 1}}}))), ElementsAre(255, 128, 1, 255));
}

TEST(Png, IsReadPremultiplied) {
  const PngPicture picture = read(fileOf({.colorType = PNG_COLOR_TYPE_RGB_ALPHA, .rows = {{255, 100, 1, 51}}}));
  EXPECT_THAT(pixelsOf(picture), ElementsAre(51, 20, 0, 51));  // 51 is a fifth of 255
  EXPECT_TRUE(picture.hasAlpha);
}

TEST(Png, IsReadInGreyOfEachDepth) {
  EXPECT_THAT(pixelsOf(read(fileOf({.width = 2, .depth = 1, .colorType = PNG_COLOR_TYPE_GRAY, .rows = {{0x40}}}))),
              ElementsAre(0, 0, 0, 255, 255, 255, 255, 255));
  EXPECT_THAT(pixelsOf(read(fileOf({.width = 2, .depth = 4, .colorType = PNG_COLOR_TYPE_GRAY, .rows = {{0x3C}}}))),
              ElementsAre(51, 51, 51, 255, 204, 204, 204, 255));
  EXPECT_THAT(pixelsOf(read(fileOf({.colorType = PNG_COLOR_TYPE_GRAY, .rows = {{77}}}))), ElementsAre(77, 77, 77, 255));
  EXPECT_THAT(pixelsOf(read(fileOf({.colorType = PNG_COLOR_TYPE_GRAY_ALPHA, .rows = {{100, 51}}}))),
              ElementsAre(20, 20, 20, 51));
}

TEST(Png, IsReadInSixteenBitsAChannel) {
  EXPECT_THAT(pixelsOf(read(fileOf({.depth = 16, .rows = {{0x80, 0x80, 0x01, 0x01, 0xFF, 0xFF}}}))),
              ElementsAre(0x80, 0x01, 0xFF, 255));
}

TEST(Png, IsReadByItsPalette) {
  Sample sample{.width = 4, .depth = 2, .colorType = PNG_COLOR_TYPE_PALETTE, .rows = {{0b00011011}}};
  sample.palette = {{1, 2, 3}, {10, 20, 30}, {255, 0, 0}, {0, 0, 255}};
  EXPECT_THAT(pixelsOf(read(fileOf(sample))),
              ElementsAre(1, 2, 3, 255, 10, 20, 30, 255, 255, 0, 0, 255, 0, 0, 255, 255));
  EXPECT_FALSE(read(fileOf(sample)).hasAlpha);
  sample.paletteAlphas = {0, 255, 51};
  EXPECT_THAT(pixelsOf(read(fileOf(sample))), ElementsAre(0, 0, 0, 0, 10, 20, 30, 255, 51, 0, 0, 51, 0, 0, 255, 255));
  EXPECT_TRUE(read(fileOf(sample)).hasAlpha);
}

TEST(Png, TheColourThatAFileNamesTransparentIsSo) {
  Sample sample{.width = 2, .rows = {{1, 2, 3, 1, 2, 4}}, .hasTransparentColor = true};
  sample.transparentColor.red = 1;
  sample.transparentColor.green = 2;
  sample.transparentColor.blue = 3;
  const PngPicture picture = read(fileOf(sample));
  EXPECT_THAT(pixelsOf(picture), ElementsAre(0, 0, 0, 0, 1, 2, 4, 255));
  EXPECT_TRUE(picture.hasAlpha);
}

TEST(Png, IsReadInterlacedToo) {
  Sample sample{.width = 9, .height = 11};
  for (int y = 0; y < 11; ++y) {
    Bytes& row = sample.rows.emplace_back();
    for (int x = 0; x < 27; ++x) row.push_back(static_cast<std::uint8_t>(x * 9 + y));
  }
  const PngPicture plain = read(fileOf(sample));
  sample.interlace = PNG_INTERLACE_ADAM7;
  const PngPicture interlaced = read(fileOf(sample));
  EXPECT_EQ(interlaced.problem, "");
  EXPECT_EQ(interlaced.bitmap, plain.bitmap);
  EXPECT_EQ(interlaced.bitmap.pixel(8, 10)[2], (26 * 9 + 10) % 256);
}

TEST(Png, WhatIsNoPngFileSaysSo) {
  EXPECT_EQ(read({}).problem, "an empty file");
  EXPECT_EQ(read({'G', 'I', 'F', '8', '9', 'a'}).problem, "not a PNG file");
  EXPECT_EQ(read({0xFF, 0xD8, 0xFF, 0xE0, 0, 16, 'J', 'F', 'I', 'F'}).problem, "not a PNG file");
  EXPECT_EQ(read(Bytes(100)).problem, "not a PNG file");
}

TEST(Png, CutOffAnywhereItIsNoPictureAndSaysSo) {
  Sample sample{.width = 9, .height = 11, .rows = std::vector<Bytes>(11, Bytes(27, 7))};
  const Bytes whole = fileOf(sample);
  constexpr std::size_t kEnd = 12;  // the last chunk, which says only that the file has ended
  for (std::size_t size = 1; size < whole.size() - kEnd; ++size) {
    const PngPicture picture = read({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)});
    SCOPED_TRACE(size);
    expectOneClearLine(picture);
    EXPECT_THAT(picture.problem, HasSubstr("PNG file"));
  }
}

TEST(Png, WithAWrongByteSomewhereItIsReadOrSaysWhyNot) {
  const Bytes sound = fileOf({.width = 3, .height = 2, .rows = {Bytes(9, 1), Bytes(9, 200)}});
  for (std::size_t i = 0; i < sound.size(); ++i) {
    Bytes bent = sound;
    bent[i] ^= 0x55;
    const PngPicture picture = read(bent);
    SCOPED_TRACE(i);
    if (!picture.bitmap.isValid()) expectOneClearLine(picture);
  }
}

TEST(Png, OfHugeDimensionsIsRefusedByThem) {
  EXPECT_EQ(read(fileClaiming(40'000, 2)).problem, "a picture of 40000 x 2 pixels, which is too large");
  EXPECT_EQ(read(fileClaiming(20'000, 20'000)).problem, "a picture of 20000 x 20000 pixels, which is too large");
  for (const std::uint32_t side : {0U, 1'000'000U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
    expectOneClearLine(read(fileClaiming(side, side)));
    expectOneClearLine(read(fileClaiming(side, 1)));
  }
  expectOneClearLine(read(fileClaiming(2, 1)));
}

TEST(Png, OfFewBytesThatClaimManyPixelsIsRefusedByItsLength) {
  EXPECT_EQ(read(fileClaiming(11'000, 12'000)).problem, "a damaged PNG file: too short for 11000 x 12000 pixels");
}

TEST(Png, OfOneColourIsReadHoweverWellItIsPacked) {
  for (const int depth : {1, 8}) {
    constexpr png_uint_32 kSide = 4096;
    Sample sample{.width = kSide, .height = kSide, .depth = depth, .colorType = PNG_COLOR_TYPE_GRAY};
    sample.rows.assign(kSide, Bytes(kSide * static_cast<std::size_t>(depth) / 8));
    const PngPicture picture = read(fileOf(sample));
    EXPECT_EQ(picture.problem, "");
    EXPECT_EQ(picture.bitmap.width, 4096);
  }
}

TEST(Png, IsNeitherReadNorWrittenWhereMemoryIsShort) {
  if (!ScarceMemory::isPossible()) GTEST_SKIP() << "Sanitizers need memory of their own.";
  const Bitmap bitmap{2000, 2000, Bytes(16'000'000)};
  const Bytes file = engine().encodePng(bitmap);
  ASSERT_FALSE(file.empty());
  const ScarceMemory scarce(1 << 20);
  EXPECT_TRUE(engine().encodePng(bitmap).empty());
  EXPECT_EQ(read(file).problem, "a picture of 2000 x 2000 pixels, which is too large for the memory");
}

TEST(Png, AsAnImageHasItsScaleAndSaysWhetherItHasAlpha) {
  const Bytes opaque = fileOf({.width = 4, .height = 2, .rows = {Bytes(12, 9), Bytes(12, 9)}});
  const auto image = UIImage::imageWithData(opaque, 2);
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(image->size(), (CGSize{2, 1}));
  EXPECT_EQ(image->alphaInfo(), CGImageAlphaInfo::noneSkipLast);
  EXPECT_EQ(UIImage::imageWithData(UIImagePNGRepresentation(*image))->bitmap()->rgba, image->bitmap()->rgba);

  const auto translucent =
      UIImage::imageWithData(fileOf({.colorType = PNG_COLOR_TYPE_RGB_ALPHA, .rows = {{1, 2, 3, 4}}}));
  EXPECT_EQ(translucent->alphaInfo(), CGImageAlphaInfo::last);
}

}  // namespace
}  // namespace Brisel::Platform
