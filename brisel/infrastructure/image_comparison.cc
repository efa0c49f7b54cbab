#include "brisel/infrastructure/image_comparison.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace Brisel {
namespace {

using Platform::Bitmap;
using Platform::ImagePtr;
using Platform::UIImage;

constexpr std::size_t kBlock = 64;  // bytes between two looks at whether to go on

bool exceeds(const std::uint8_t* bytes, const std::uint8_t* others, std::size_t count, std::uint8_t tolerance) {
  int largest = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const int difference = int{bytes[i]} - int{others[i]};
    largest = difference > largest ? difference : largest;
    largest = -difference > largest ? -difference : largest;
  }
  return largest > tolerance;
}

#if defined(__SSE2__)

// What each of 16 differences has above the tolerance.
__m128i excess(const std::uint8_t* bytes, const std::uint8_t* others, __m128i tolerance) {
  const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
  const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(others));
  const __m128i difference = _mm_or_si128(_mm_subs_epu8(a, b), _mm_subs_epu8(b, a));
  return _mm_subs_epu8(difference, tolerance);
}

bool blockExceeds(const std::uint8_t* bytes, const std::uint8_t* others, std::uint8_t tolerance) {
  const __m128i most = _mm_set1_epi8(static_cast<char>(tolerance));
  const __m128i first = _mm_or_si128(excess(bytes, others, most), excess(bytes + 16, others + 16, most));
  const __m128i second = _mm_or_si128(excess(bytes + 32, others + 32, most), excess(bytes + 48, others + 48, most));
  const __m128i isNone = _mm_cmpeq_epi8(_mm_or_si128(first, second), _mm_setzero_si128());
  return _mm_movemask_epi8(isNone) != 0xFFFF;
}

#else

bool blockExceeds(const std::uint8_t* bytes, const std::uint8_t* others, std::uint8_t tolerance) {
  return exceeds(bytes, others, kBlock, tolerance);
}

#endif

bool differsByMoreThan(std::uint8_t tolerance, const Bitmap& bitmap, const Bitmap& other) {
  const std::size_t size = bitmap.rgba.size();
  const std::uint8_t* bytes = bitmap.rgba.data();
  const std::uint8_t* others = other.rgba.data();
  if (tolerance == 0) return std::memcmp(bytes, others, size) != 0;
  std::size_t i = 0;
  for (; i + kBlock <= size; i += kBlock) {
    if (blockExceeds(bytes + i, others + i, tolerance)) return true;
  }
  return exceeds(bytes + i, others + i, size - i, tolerance);
}

}  // namespace

bool isEqualToPixels(const UIImage& image, const ImagePtr& otherImage, double accuracy) {
  if (&image == otherImage.get()) return true;
  if (!otherImage) return false;
  const Bitmap* const bitmap = image.bitmap().get();
  const Bitmap* const other = otherImage->bitmap().get();
  if (!bitmap || !other) return bitmap == other;
  if (bitmap->width != other->width || bitmap->height != other->height) return false;

  // Differences are whole numbers from 0 to 255: they exceed a threshold just when they exceed its whole part.
  const double threshold = accuracy * 255.0;
  if (threshold < 0) return false;
  if (!(threshold < 255.0) || bitmap == other) return true;  // NaN exceeds nothing, and nothing exceeds NaN
  return !differsByMoreThan(static_cast<std::uint8_t>(threshold), *bitmap, *other);
}

}  // namespace Brisel
