#include <tessaron/util/Assertion.h>

#include <gtest/gtest.h>

#include <string>

namespace
{

TEST(Assertion, NamesTheExpressionAndThePlace)
{
    const int two = 2;
    int line = 0;
    try
    {
        line = __LINE__ + 1;
        TESSARON_ASSERT(two + two == 5, "Util\\Sums");
        FAIL() << "nothing was thrown";
    }
    catch (const util::AssertionError& error)
    {
        EXPECT_EQ(error.what(), "Expression 'two + two == 5' failed in 'Util\\Sums.cpp', line " + std::to_string(line));
    }
}

TEST(Assertion, EvaluatesTheExpressionOnce)
{
    int calls = 0;
    TESSARON_ASSERT(++calls == 1, "Util\\Sums");
    EXPECT_EQ(calls, 1);
}

} // namespace
