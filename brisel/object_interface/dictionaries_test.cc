#include "brisel/object_interface/dictionaries.h"

#include <optional>
#include <stdexcept>

#include <gtest/gtest.h>

namespace {

using Brisel::Platform::Dictionary;

TEST(Dictionaries, DifferAsOnTheValueInterface) {
  EXPECT_EQ(brisel_diff({{"a", 1}, {"b", 2}}, Dictionary{{"a", 1}, {"b", 3}, {"c", 4}}), (Dictionary{{"b", 2}}));
  EXPECT_EQ(brisel_diff({{"a", 1}}, std::nullopt), (Dictionary{{"a", 1}}));
  EXPECT_THROW(brisel_diff({{"n", Dictionary{{"x", 1}}}}, Dictionary{{"n", 5}}), std::logic_error);
}

}  // namespace
