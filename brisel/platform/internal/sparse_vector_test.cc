#include "brisel/platform/internal/sparse_vector.h"

#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Brisel::Platform::internal {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

std::vector<std::pair<std::uint64_t, double>> listOf(const SparseVector& vector) {
  std::vector<std::pair<std::uint64_t, double>> list;
  for (const auto& [key, amount] : vector) list.emplace_back(key, amount);
  return list;
}

SparseVector vectorOf(const std::vector<std::pair<std::uint64_t, double>>& entries) {
  SparseVector vector;
  for (const auto& [key, amount] : entries) vector.append(key, amount);
  vector.addUp();
  return vector;
}

TEST(SparseVector, AddsUpWhatWasAppendedInAnyOrder) {
  EXPECT_THAT(listOf(vectorOf({{7, 1}, {2, 3}, {7, 2}, {2, -3}, {5, 1}})), ElementsAre(Pair(5, 1), Pair(7, 3)));
}

TEST(SparseVector, TakesRoundingErrorsForZero) {
  SparseVector vector = vectorOf({{1, 0.1}, {1, 0.2}, {1, -0.3}});
  EXPECT_TRUE(vector.isEmpty());
  vector.add(1, 0.1);
  vector.add(1, -0.1 - 1e-15);
  EXPECT_TRUE(vector.isEmpty());
  vector.add(1, 1e-15);  // small, but of nothing larger
  EXPECT_EQ(vector[1], 1e-15);
}

TEST(SparseVector, KeepsItsOrder) {
  SparseVector vector;
  vector.insert(5, 1);
  vector.add(2, 4);
  vector.add(9, 6);
  vector.add(2, 2);
  vector.divide(2);
  EXPECT_THAT(listOf(vector), ElementsAre(Pair(2, 3), Pair(5, 0.5), Pair(9, 3)));
  vector.erase(5);
  vector.erase(6);
  EXPECT_THAT(listOf(vector), ElementsAre(Pair(2, 3), Pair(9, 3)));
  EXPECT_EQ(vector[5], 0);
}

TEST(SparseVector, TellsWhatAMultipleMakesAppearAndGo) {
  SparseVector vector = vectorOf({{1, 1}, {3, 6}, {4, 1}});
  SparseVector scratch;
  std::vector<std::pair<std::uint64_t, bool>> changes;
  vector.addMultiple(2, vectorOf({{2, 5}, {3, -3}, {4, 1}, {8, 1}}), scratch,
                     [&changes](std::uint64_t key, bool isThere) { changes.emplace_back(key, isThere); });
  EXPECT_THAT(listOf(vector), ElementsAre(Pair(1, 1), Pair(2, 10), Pair(4, 3), Pair(8, 2)));
  EXPECT_THAT(changes, ElementsAre(Pair(2, true), Pair(3, false), Pair(8, true)));
}

TEST(SparseVector, ComparesByTheFirstKeyThatDiffers) {
  const auto compare = [](const SparseVector& a, const SparseVector& b) {
    return SparseVector::compare(a, 1, b, 1, 1e-9);
  };
  EXPECT_EQ(compare(vectorOf({{1, 1}, {2, 9}}), vectorOf({{1, 2}})), -1);
  EXPECT_EQ(compare(vectorOf({{2, 9}}), vectorOf({{1, 1}})), -1);
  EXPECT_EQ(compare(vectorOf({{2, 9}}), vectorOf({{1, -1}})), 1);
  EXPECT_EQ(compare(vectorOf({{1, 1}, {3, 1}}), vectorOf({{1, 1 + 1e-12}, {3, 0.5}})), 1);
  EXPECT_EQ(compare(vectorOf({{1, 1}}), vectorOf({{1, 1}})), 0);
  EXPECT_EQ(SparseVector::compare(vectorOf({{1, 6}}), 2, vectorOf({{1, 4}}), 1, 1e-9), -1);
}

TEST(SparseVector, IsNegativeByItsFirstEntry) {
  EXPECT_TRUE(vectorOf({{1, -1}, {2, 5}}).isNegative());
  EXPECT_FALSE(vectorOf({{1, 1}, {2, -5}}).isNegative());
  EXPECT_FALSE(SparseVector().isNegative());
  EXPECT_THAT(listOf(SparseVector()), IsEmpty());
}

}  // namespace
}  // namespace Brisel::Platform::internal
