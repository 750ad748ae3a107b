#include "controls/NumericExpression.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <locale>
#include <string>

namespace
{

using namespace mfcutil;

constexpr double inf = std::numeric_limits<double>::infinity();

TEST(NumericExpression, EvaluatesWholeExpressions)
{
    const struct
    {
        const char* text;
        double value;
    } cases[] = {
        {"1/2+0.125", 0.625},
        {"2*(3+4)", 14},
        {"-(-2.5)", 2.5},
        {"10/4", 2.5},
        {"7-2-1", 4},
        {"16/4/2", 2},
        {"16/4*2", 8},
        {"2+3*4-5", 9},
        {"-2*-3", 6},
        {"--2", 2},
        {"+-+2", -2},
        {"1--1", 2},
        {"-2+3", 1},
        {"((((7))))", 7},
        {" 1 + ( 2 * 3 ) ", 7},
        {"1,5+1", 2.5},
        {".5", 0.5},
        {"5.", 5},
        {",5", 0.5},
        {"1e3", 1000},
        {"1.5E-2*2", 0.03},
        {"2e+1", 20},
        {"3000000000", 3e9},
        {"0.1+0.2", 0.1 + 0.2},
        {"1/0", inf},
        {"-1/0", -inf},
        {"1e999", inf},
        {"1e-999", 0},
        {"0.0000004", 0.0000004},
    };
    for (const auto& one : cases)
    {
        const Evaluation result = evaluateExpression(one.text);
        EXPECT_TRUE(result.complete) << one.text;
        EXPECT_EQ(result.value, one.value) << one.text;
    }
    EXPECT_TRUE(std::isnan(evaluateExpression("0/0").value));
}

TEST(NumericExpression, TellsIncompleteTextsApart)
{
    const struct
    {
        const char* text;
        double leading; // what a field shows instead
    } cases[] = {
        {"", 0},         {"   ", 0},        {"12abc", 12},  {"abc", 0},          {"1+", 1},       {"(1", 0},
        {"1)", 1},       {"1 2", 1},        {"2(3)", 2},    {"1..2", 1},         {"*3", 0},       {"-", 0},
        {"+", 0},        {"()", 0},         {"1e", 1},      {"1.2.3", 1.2},      {"-4x", -4},     {"+4x", 4},
        {"+-4x", 0},     {" \t7 mm", 7},    {"1,5x", 1.5},  {"5 \xc3\xb7 2", 5}, {"\xd9\xa3", 0}, {"2^3", 2},
        {"1e999x", inf}, {"-1e999x", -inf}, {"1e-999x", 0},
    };
    for (const auto& one : cases)
    {
        EXPECT_FALSE(evaluateExpression(one.text).complete) << one.text;
        EXPECT_EQ(leadingNumber(one.text), one.leading) << one.text;
    }
}

TEST(NumericExpression, StandsHostileTexts)
{
    const std::string open(10000, '(');
    const std::string close(10000, ')');
    EXPECT_FALSE(evaluateExpression(open + "1" + close).complete);
    EXPECT_FALSE(evaluateExpression(open).complete);
    EXPECT_FALSE(evaluateExpression(std::string(100000, '-') + "1").complete);
    EXPECT_TRUE(evaluateExpression(open.substr(0, 100) + "1" + close.substr(0, 100)).complete);

    std::string sum = "1";
    for (int i = 0; i < 20000; ++i)
        sum += "+1";
    EXPECT_EQ(evaluateExpression(sum).value, 20001) << "long is not deep";
    EXPECT_EQ(leadingNumber(std::string(400, '9')), inf);
    EXPECT_EQ(leadingNumber("0." + std::string(400, '0') + "1"), 0);
    EXPECT_FALSE(evaluateExpression(std::string_view("1\0+1", 4)).complete);
}

TEST(NumericExpression, Formats)
{
    const struct
    {
        double value;
        const char* tidy;
        const char* general;
    } cases[] = {
        {0.625, "0.625", "0.625"},   {3.0, "3", "3"},        {1.0 / 3, "0.333333", "0.333333"},
        {0.0000004, "0", "4e-07"},   {100, "100", "100"},    {0.0000005, "0.000001", "5e-07"},
        {-0.0000001, "0", "-1e-07"}, {-2.5, "-2.5", "-2.5"}, {1234567.8, "1234567.8", "1.23457e+06"},
        {inf, "inf", "inf"},         {-inf, "-inf", "-inf"}, {1e20, "100000000000000000000", "1e+20"},
    };
    for (const auto& one : cases)
    {
        EXPECT_EQ(formatTidy(one.value), one.tidy);
        EXPECT_EQ(formatGeneral(one.value), one.general);
    }
    EXPECT_EQ(formatTidy(std::numeric_limits<double>::max()).size(), 309U);
    EXPECT_NE(formatTidy(std::nan("")).find("nan"), std::string::npos);
    EXPECT_EQ(formatDecimals(12.3456, 2), "12.35");
    EXPECT_EQ(formatDecimals(0, 2), "0.00");
}

struct CommaPunctuation : std::numpunct<char>
{
    char do_decimal_point() const override { return ','; }
};

TEST(NumericExpression, DoesNotLookAtTheLocale)
{
    const std::string processBefore = std::setlocale(LC_ALL, nullptr);
    const std::locale streamsBefore = std::locale::global(std::locale(std::locale(), new CommaPunctuation));
    std::setlocale(LC_ALL, "de_DE.UTF-8"); // where the system has it
    EXPECT_EQ(evaluateExpression("1/2+0.125").value, 0.625);
    EXPECT_EQ(formatTidy(0.625), "0.625");
    EXPECT_EQ(formatGeneral(0.625), "0.625");
    EXPECT_EQ(formatDecimals(0.5, 2), "0.50");
    EXPECT_EQ(leadingNumber("2.5x"), 2.5);
    std::locale::global(streamsBefore);
    std::setlocale(LC_ALL, processBefore.c_str());
}

} // namespace
