#include "exchange/archive/NumberText.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

namespace testing_support
{
namespace
{

std::string ours(double value)
{
    char text[exchange::archive::maxDoubleText];
    return std::string(text, exchange::archive::formatDouble(text, value));
}

std::string printed(double value)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.17g", value);
    return text;
}

TEST(NumberText, SpecialValues)
{
    using Limits = std::numeric_limits<double>;
    // Others of every magnitude are below; these are the ends of the range, and digits that round up to one more.
    const double halfWay[] = {9007199254740993.0, 99999999999999999.0, 999999999999999.88, 0.99999999999999989};
    for (const double value : halfWay)
        EXPECT_EQ(ours(value), printed(value));
    const double ends[] = {0, 1, 1e22, 1e-300, Limits::min(), Limits::denorm_min(), Limits::max(), Limits::infinity()};
    for (const double value : ends)
    {
        EXPECT_EQ(ours(value), printed(value));
        EXPECT_EQ(ours(-value), printed(-value));
    }
    EXPECT_EQ(ours(Limits::quiet_NaN()), "nan");
}

TEST(NumberText, EqualsPrintfForNumbersOfEveryMagnitude)
{
    std::mt19937_64 random(7);
    for (int i = 0; i < 100'000; ++i)
    {
        const auto any = std::bit_cast<double>(static_cast<std::uint64_t>(random()));
        const double magnitude = std::pow(10.0, static_cast<double>(random() % 36) - 14);
        const double length = static_cast<double>(random() % 10'000'000) / 1000;
        // Halves and their like make the digits end exactly on the rounding point.
        const double tie = std::ldexp(static_cast<double>(random() >> 11), -static_cast<int>(random() % 80));
        for (const double value :
             {any, magnitude, std::nextafter(magnitude, 0), std::nextafter(magnitude, 1e300), length, length / 3, tie})
            if (!std::isnan(value))
            {
                ASSERT_EQ(ours(value), printed(value));
            }
    }
}

} // namespace
} // namespace testing_support
