#include "brisel/platform/internal/decimal.h"

#include <cmath>
#include <cstdlib>
#include <limits>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace Brisel::Platform::internal {
namespace {

TEST(Decimal, AlwaysHasAFraction) {
  EXPECT_EQ(decimal(16.0), "16.0");
  EXPECT_EQ(decimal(1.0), "1.0");
  EXPECT_EQ(decimal(-3.0), "-3.0");
  EXPECT_EQ(decimal(0.0), "0.0");
  EXPECT_EQ(decimal(-0.0), "-0.0");
  EXPECT_EQ(decimal(100000.0), "100000.0");
}

TEST(Decimal, IsTheShortestThatReadsBack) {
  EXPECT_EQ(decimal(0.35), "0.35");
  EXPECT_EQ(decimal(0.1 + 0.2), "0.30000000000000004");
  EXPECT_EQ(decimal(14.001999999999999), "14.001999999999999");
  EXPECT_EQ(decimal(1.0 / 3.0), "0.3333333333333333");
}

TEST(Decimal, HasAnExponentOnlyFarFromOne) {
  EXPECT_EQ(decimal(0.0001), "0.0001");
  EXPECT_EQ(decimal(0.00001), "1e-05");
  EXPECT_EQ(decimal(-0.000015), "-1.5e-05");
  EXPECT_EQ(decimal(9007199254740992.0), "9007199254740992.0");
  EXPECT_EQ(decimal(9007199254740994.0), "9.007199254740994e+15");
  EXPECT_EQ(decimal(1e22), "1e+22");
  EXPECT_EQ(decimal(std::numeric_limits<double>::max()), "1.7976931348623157e+308");
  EXPECT_EQ(decimal(std::numeric_limits<double>::denorm_min()), "5e-324");
}

TEST(Decimal, NamesWhatIsNoNumber) {
  EXPECT_EQ(decimal(std::numeric_limits<double>::infinity()), "inf");
  EXPECT_EQ(decimal(-std::numeric_limits<double>::infinity()), "-inf");
  EXPECT_EQ(decimal(std::numeric_limits<double>::quiet_NaN()), "nan");
  EXPECT_EQ(decimal(-std::numeric_limits<double>::quiet_NaN()), "nan");
}

RC_GTEST_PROP(Decimal, ReadsBackAsTheSameNumber, (double number)) {
  RC_ASSERT(std::strtod(decimal(number).c_str(), nullptr) == number);
}

}  // namespace
}  // namespace Brisel::Platform::internal
