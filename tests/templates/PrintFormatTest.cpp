#include "templates/columns/PrintFormat.h"
#include "templates/columns/LocalTime.h"

#include <gtest/gtest.h>

#include <array>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <limits>

using TessaronResources::PrintFormat;

namespace
{

/// What the C library prints, which the class has to agree with.
template <class Value>
std::string printed(const char* format, Value value)
{
    std::array<char, 5000> buffer;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    std::snprintf(buffer.data(), buffer.size(), format, value);
#pragma GCC diagnostic pop
    return buffer.data();
}

TEST(PrintFormat, RealsPrintAsTheLibraryDoes)
{
    const double values[] = {0.0,
                             -0.0,
                             1.0,
                             -1.0,
                             0.1,
                             1.0 / 3.0,
                             12.7,
                             100000.0,
                             1000000.0,
                             1e-4,
                             1e-5,
                             123456.0,
                             1234567.0,
                             9.9999995,
                             2.5,
                             -2.5e-7,
                             1e100,
                             5e-324,
                             999999.5,
                             25.4,
                             std::numeric_limits<double>::max(),
                             std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN()};
    for (const char* const format : {"%g", "%f", "%e", "%G", "%E", "%.3f", "%.0f", "%.10g", "%8.2f", "%-8.2f|",
                                     "%08.2f", "%+g", "% g", "%+08.3f", "%g mm", "%% %g %%", "%.0e", "%12g", "%#.0f"})
        for (const double value : values)
            EXPECT_EQ(PrintFormat(format).print(value), printed(format, value)) << format << " of " << value;
}

TEST(PrintFormat, IntegersAndTextsPrintAsTheLibraryDoes)
{
    for (const char* const format :
         {"%d", "%i", "%5d", "%-5d|", "%05d", "%+d", "% d", "%.3d", "%8.3d", "%08.3d", "no %d!"})
        for (const int value : {0, 1, -1, 42, -12345, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
            EXPECT_EQ(PrintFormat(format).print(value), printed(format, value)) << format << " of " << value;
    for (const char* const format : {"%s", "%10s", "%-10s|", "%.2s", "'%s'"})
        for (const char* const value : {"", "a", "abcdefghijklm"})
            EXPECT_EQ(PrintFormat(format).print(std::string_view(value)), printed(format, value)) << format;
}

TEST(PrintFormat, FormatsThatDoNotFitTheValuePrintNothing)
{
    for (const char* const format :
         {"", "text", "%", "%%", "%n", "%s", "%d%d", "%*d", "%ld", "%p", "%1000d", "%x", "%."})
        EXPECT_EQ(PrintFormat(format).print(1.5), "") << format;
    for (const char* const format : {"%n", "%g", "%s%s", "%d%n", "%hd", "%lc"})
        EXPECT_EQ(PrintFormat(format).print(1), "") << format;
    for (const char* const format : {"%d", "%g", "%s%n", "%ls"})
        EXPECT_EQ(PrintFormat(format).print(std::string_view("x")), "") << format;
}

TEST(PrintFormat, LongTextsAreCutBetweenCharacters)
{
    std::string text(4094, 'x');
    text += "\xC3\xA4\xC3\xA4";
    EXPECT_EQ(PrintFormat("%s").print(std::string_view(text)), std::string(4094, 'x'));
    EXPECT_EQ(PrintFormat("%.1s").print(std::string_view("\xC3\xA4")), "");
}

TEST(PrintFormat, NumbersHaveAPointInEveryLocale)
{
    bool tried = false;
    for (const char* const name : {"de_DE.UTF-8", "fr_FR.UTF-8", "pl_PL.UTF-8"})
    {
        if (!std::setlocale(LC_NUMERIC, name))
            continue;
        tried = true;
        EXPECT_EQ(PrintFormat("%g").print(1.5), "1.5");
    }
    std::setlocale(LC_NUMERIC, "C");
    if (!tried)
        GTEST_SKIP() << "no locale with a comma is installed";
}

TEST(LocalTime, PrintsInTheZoneOfTheUser)
{
    using TessaronResources::printLocalTime;
    ::setenv("TZ", "XYZ-05:30", 1);
    ::tzset();
    EXPECT_EQ(printLocalTime(0, "%Y-%m-%d %H:%M:%S"), "1970-01-01 05:30:00");
    EXPECT_EQ(printLocalTime(1700000000, "%Y-%m-%d %H:%M:%S"), "2023-11-15 03:43:20");
    EXPECT_EQ(printLocalTime(std::numeric_limits<std::uint64_t>::max(), "%Y"), "");
    EXPECT_EQ(printLocalTime(std::numeric_limits<std::int64_t>::max(), "%Y"), "");
    EXPECT_EQ(printLocalTime(0, ""), "");
    EXPECT_EQ(printLocalTime(0, std::string(5000, 'x')), "");
    ::unsetenv("TZ");
    ::tzset();
}

} // namespace
