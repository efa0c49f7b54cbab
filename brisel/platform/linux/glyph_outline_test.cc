#include "brisel/platform/linux/glyph_outline.h"

#include <cstddef>
#include <memory>
#include <new>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "brisel/platform/linux/polygon_font_test.h"
#include "brisel/platform/linux/scarce_memory_test.h"

namespace Brisel::Platform::Linux {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr hb_codepoint_t kMostPoints = 32'767;

// Whether the outline is that of the polygon font's glyph `points`.
bool isPolygon(const GlyphOutline& outline, std::size_t points) {
  if (outline.points.size() != points || outline.tags.size() != points || outline.contours.size() != 1) return false;
  for (std::size_t i = 0; i + 1 < points; ++i) {
    const GlyphOutline::Point& point = outline.points[i];
    if (point.x != static_cast<float>(i) || point.y != static_cast<float>(i % 2)) return false;
  }
  return outline.points.back().x == 0 && outline.contours[0] == static_cast<short>(points - 1);
}

class GlyphOutlinesOfPolygons : public testing::Test {
 protected:
  const HbFontPtr font = makePolygonFont();
  const GlyphOutlines outlines{font.get()};
};

TEST_F(GlyphOutlinesOfPolygons, AreTakenPointByPoint) {
  const auto outline = outlines.outline(4);
  ASSERT_EQ(outline->points.size(), 4U);
  EXPECT_EQ(outline->points[2].x, 2);
  EXPECT_EQ(outline->points[1].y, 1);
  EXPECT_THAT(outline->tags, ElementsAre(1, 1, 1, 1));  // all on the curve
  EXPECT_THAT(outline->contours, ElementsAre(3));
}

TEST_F(GlyphOutlinesOfPolygons, AreReadOnce) {
  const auto outline = outlines.outline(5);
  EXPECT_EQ(outlines.outline(5), outline);
  EXPECT_NE(outlines.outline(6), outline);
}

TEST_F(GlyphOutlinesOfPolygons, AreEmptyWhereThereIsNoInk) {
  EXPECT_THAT(outlines.outline(0)->points, IsEmpty());
  EXPECT_THAT(outlines.outline(0)->contours, IsEmpty());
}

TEST_F(GlyphOutlinesOfPolygons, AreEmptyBeyondThePointsThatFreeTypeCounts) {
  EXPECT_TRUE(isPolygon(*outlines.outline(kMostPoints), kMostPoints));
  EXPECT_THAT(outlines.outline(kMostPoints + 1)->points, IsEmpty());
  EXPECT_THAT(outlines.outline(kMostPoints + 1)->contours, IsEmpty());
}

TEST_F(GlyphOutlinesOfPolygons, AreForgottenWhenTheyTakeTooMuchAndReadAgainAsTheyWere) {
  const auto before = outlines.outline(100);
  for (hb_codepoint_t points = 30'000; points < 30'010; ++points) {  // more than a quarter of 1 MiB each
    EXPECT_TRUE(isPolygon(*outlines.outline(points), points));
  }
  const auto after = outlines.outline(100);
  EXPECT_NE(after, before);
  EXPECT_TRUE(isPolygon(*before, 100));  // whoever holds one keeps it
  EXPECT_TRUE(isPolygon(*after, 100));
  EXPECT_EQ(outlines.outline(100), after);
}

TEST_F(GlyphOutlinesOfPolygons, AreNotTakenForEmptyWhereMemoryIsShort) {
  if (!ScarceMemory::isPossible()) GTEST_SKIP() << "Sanitizers need memory of their own.";
  {
    const ScarceMemory scarce(0);
    EXPECT_THROW(outlines.outline(kMostPoints), std::bad_alloc);
  }
  EXPECT_TRUE(isPolygon(*outlines.outline(kMostPoints), kMostPoints));
}

TEST_F(GlyphOutlinesOfPolygons, ServeEightThreads) {
  std::vector<std::thread> threads;
  std::vector<int> wrong(8);
  threads.reserve(wrong.size());
  for (int& mine : wrong) {
    threads.emplace_back([&mine, this] {
      for (int round = 0; round < 20; ++round) {
        for (const hb_codepoint_t points : {3U, 17U, 20'000U, 25'000U, 30'000U, 31'000U, 32'000U}) {
          if (!isPolygon(*outlines.outline(points), points)) ++mine;
        }
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_THAT(wrong, testing::Each(0));
}

}  // namespace
}  // namespace Brisel::Platform::Linux
