#include <tessaron/exchange/StatusTable.h>

#include <gtest/gtest.h>

#include <climits>
#include <fstream>
#include <string>

namespace
{

using exchange::Severity;
using exchange::severity;
using exchange::statusText;

TEST(StatusTable, GivesTheExactTexts)
{
    std::ifstream published(TESSARON_TEST_DATA "/status-texts.txt");
    int codes = 0;
    for (std::string line; std::getline(published, line); ++codes)
    {
        const std::size_t blank = line.find(' ');
        EXPECT_EQ(statusText(std::stoi(line.substr(0, blank))), line.substr(blank + 1));
    }
    EXPECT_EQ(codes, 31);

    const std::string start = "There was an internal error in processing; please report this problem to ";
    EXPECT_EQ(statusText(-1007).compare(0, start.size(), start), 0);
    EXPECT_NE(statusText(-1007).find('@', start.size()), std::string::npos);
}

TEST(StatusTable, OtherCodesHaveNoText)
{
    for (const int code : {0, 1, -1, -1000, -1001, -1003, -1031, -1046, -1999, -2003, 1040, INT_MIN, INT_MAX})
        EXPECT_EQ(statusText(code), "") << code;
}

TEST(StatusTable, TellsErrorsFromWarningsByTheRange)
{
    const struct
    {
        int code;
        Severity expected;
    } cases[] = {
        {0, Severity::none},        {7, Severity::none},          {-1, Severity::none},
        {-999, Severity::none},     {-1000, Severity::error},     {-1045, Severity::error},
        {-1999, Severity::error},   {-2000, Severity::warning},   {-2001, Severity::warning},
        {-9999, Severity::warning}, {INT_MIN, Severity::warning}, {INT_MAX, Severity::none},
    };
    for (const auto& c : cases)
        EXPECT_EQ(severity(c.code), c.expected) << c.code;
}

} // namespace
