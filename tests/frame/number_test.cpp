#include "frame/number.h"

#include <gtest/gtest.h>
#include <limits>

namespace kelmora::number_test {

namespace {

TEST(Saturated, CutsTheFractionOff)
{
    EXPECT_EQ(saturated(0.0), 0U);
    EXPECT_EQ(saturated(-0.0), 0U);
    EXPECT_EQ(saturated(0.9), 0U);
    EXPECT_EQ(saturated(-0.9), 0U);
    EXPECT_EQ(saturated(3600.9), 3600U);
    EXPECT_EQ(saturated(2147483647.9), 2147483647U);
}

TEST(Saturated, TakesTheWholeUnsignedRange)
{
    EXPECT_EQ(saturated(2147483647.0), 2147483647U);
    EXPECT_EQ(saturated(2147483648.0), 2147483648U);
    EXPECT_EQ(saturated(2147483649.5), 2147483649U);
    EXPECT_EQ(saturated(4294967294.0), 4294967294U);
    EXPECT_EQ(saturated(4294967295.0), 4294967295U);
    EXPECT_EQ(saturated(4294967295.9), 4294967295U);
}

TEST(Saturated, StopsAtTheLargest)
{
    EXPECT_EQ(saturated(4294967296.0), 4294967295U);
    EXPECT_EQ(saturated(5000000000.0), 4294967295U);
    EXPECT_EQ(saturated(1e300), 4294967295U);
    EXPECT_EQ(saturated(std::numeric_limits<double>::infinity()), 4294967295U);
}

TEST(Saturated, TakesNegativeNumbersAsTheirComplement)
{
    EXPECT_EQ(saturated(-1.0), 4294967295U);
    EXPECT_EQ(saturated(-1.9), 4294967295U);
    EXPECT_EQ(saturated(-2147483647.0), 2147483649U);
    EXPECT_EQ(saturated(-2147483648.0), 2147483648U);
}

TEST(Saturated, StopsAtTheSmallest)
{
    EXPECT_EQ(saturated(-2147483648.9), 2147483648U);
    EXPECT_EQ(saturated(-2147483649.0), 2147483648U);
    EXPECT_EQ(saturated(-5000000000.0), 2147483648U);
    EXPECT_EQ(saturated(-std::numeric_limits<double>::infinity()), 2147483648U);
}

} // namespace

} // namespace kelmora::number_test
