#include <tessaron/util/Assertion.h>
#include <tessaron/util/Keys.h>
#include <tessaron/util/Parameterized.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace
{

using namespace util;

std::vector<std::string> keysOf(const Parameterized& set)
{
    std::vector<std::string> texts;
    for (const auto& entry : set.params())
        texts.push_back(entry.first);
    return texts;
}

TEST(Parameterized, SettingAKeyReplacesValueAndKind)
{
    Parameterized set;
    set.set("Stepover", 1);
    set.set("Stepover", 2.5);
    EXPECT_EQ(set.size(), 1u);
    EXPECT_EQ(set.findInt("Stepover"), nullptr);
    ASSERT_NE(set.findDouble("Stepover"), nullptr);
    EXPECT_EQ(*set.findDouble("Stepover"), 2.5);

    set.set("Stepover", "wide");
    EXPECT_EQ(set.findDouble("Stepover"), nullptr);
    EXPECT_EQ(set.stringOr("Stepover", ""), "wide");
}

TEST(Parameterized, KeepsTheKindOfWhatIsSet)
{
    Parameterized set;
    set.set("flag", true);
    set.set("letter", "x");
    set.set("real", 1.0f);
    EXPECT_EQ(set.at("flag").which(), 0);
    EXPECT_EQ(set.at("letter").which(), 2);
    EXPECT_EQ(set.at("real").which(), 1);
}

TEST(Parameterized, ErasingRemovesOneKeyAndNothingWhenItIsMissing)
{
    Parameterized set;
    set.set(keys::feedrate, 100.0);
    set.set(keys::coolant, 1);
    set.erase("feedrate");
    EXPECT_EQ(set.size(), 2u);
    set.erase(keys::feedrate);
    EXPECT_THAT(keysOf(set), testing::ElementsAre("Coolant"));
    set.erase(keys::feedrate);
    EXPECT_EQ(set.size(), 1u);
}

TEST(Parameterized, IteratesInByteOrder)
{
    Parameterized set;
    const std::string highByte = "\xC3\xA9";
    for (const std::string& key :
         {highByte, std::string(keys::zagFeedRatePercent), std::string(keys::zStockToLeave),
          std::string(keys::additionalCutDepths), std::string("5X Rotary Mode"), std::string("a"), std::string()})
        set.set(key, 0);
    EXPECT_THAT(keysOf(set), testing::ElementsAre("", "5X Rotary Mode", "Additional Cut Depths", "Z Stock to Leave",
                                                  "Zag Feed Rate Percent", "a", highByte));
}

TEST(Parameterized, LookupsOfMissingOrOtherKindsGiveTheDefault)
{
    Parameterized set;
    set.set("int", 3);
    set.set("double", 0.5);
    set.set("text", "12");
    const struct
    {
        const char* key;
        int intValue;
        double number;
        const char* text;
    } cases[] = {
        {"int", 3, 3.0, "-"},
        {"double", -1, 0.5, "-"},
        {"text", -1, -1.0, "12"},
        {"missing", -1, -1.0, "-"},
    };
    for (const auto& c : cases)
    {
        EXPECT_EQ(set.intOr(c.key, -1), c.intValue) << c.key;
        EXPECT_EQ(set.numberOr(c.key, -1), c.number) << c.key;
        EXPECT_EQ(set.stringOr(c.key, "-"), c.text) << c.key;
    }
    EXPECT_FALSE(set.has("missing"));
    EXPECT_TRUE(set.has("text"));
}

TEST(Parameterized, AMissingKeyThatMustBeThereFailsTheAssertion)
{
    Parameterized set;
    set.set("Stepover", 0.5);
    try
    {
        set.doubleAt("Feedrate");
        FAIL() << "nothing was thrown";
    }
    catch (const AssertionError& error)
    {
        EXPECT_THAT(error.what(), testing::StartsWith("Expression 'it != m_params.end()' failed in 'Util\\Params"));
    }
    EXPECT_THROW(set.intAt("Stepover"), boost::bad_get);
    set.doubleAt("Stepover") = 0.75;
    EXPECT_EQ(set.numberOr("Stepover", 0), 0.75);
}

TEST(Parameterized, CopiesAreDeepAndMovesLeaveNothingBehind)
{
    Parameterized set;
    set.set("Comment", "first");
    Parameterized copy(set);
    copy.set("Comment", "second");
    EXPECT_EQ(set.stringOr("Comment", ""), "first");
    EXPECT_NE(set, copy);

    set = copy;
    EXPECT_EQ(set, copy);
    const Parameterized moved(std::move(copy));
    EXPECT_EQ(set, moved);
    set = Parameterized();
    EXPECT_TRUE(set.empty());
}

TEST(Parameterized, WritingThroughAPointerChangesNoCopy)
{
    Parameterized set;
    set.set("Stepover", 1.0);
    set.set("Coolant", 1);
    const Parameterized before(set);
    double* const stepover = set.findDouble("Stepover");
    int& coolant = set.intAt("Coolant");
    const Parameterized after(set);
    Parameterized assigned;
    assigned = set;

    set.set("Comment", "the pointers stay");
    *stepover = 2.0;
    coolant = 2;
    EXPECT_EQ(set.numberOr("Stepover", 0), 2.0);
    EXPECT_EQ(set.intOr("Coolant", 0), 2);
    for (const Parameterized* const copy : {&before, &after, &std::as_const(assigned)})
    {
        EXPECT_EQ(copy->numberOr("Stepover", 0), 1.0);
        EXPECT_EQ(copy->intOr("Coolant", 0), 1);
    }
    EXPECT_EQ(Parameterized(set), set);
}

TEST(Parameterized, TakesItsOwnKeysAndValuesAsArguments)
{
    Parameterized set;
    set.set("Comment", "a text that is too long to lie in the string itself");
    for (const bool shared : {false, true})
    {
        const Parameterized copy = shared ? set : Parameterized();
        set.set("Copy", set.at("Comment"));
        EXPECT_EQ(set.stringOr("Copy", ""), set.stringOr("Comment", "-"));
        const Parameterized whole = shared ? set : Parameterized();
        set.erase(set.params().rbegin()->first);
        EXPECT_FALSE(set.has("Copy"));
    }
}

TEST(Parameterized, CopiesChangeInManyThreadsAtOnce)
{
    Parameterized original;
    for (int i = 0; i < 100; ++i)
        original.set("key " + std::to_string(i), i);
    std::vector<Parameterized> copies(8, original);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < copies.size(); ++i)
        threads.emplace_back(
            [&copy = copies[i], i]
            {
                for (int round = 0; round < 200; ++round)
                {
                    const Parameterized kept = copy;
                    copy.set("key 0", static_cast<int>(i) * 1000 + round);
                    copy.intAt("key 1") += copy.intOr("key 0", -1) - kept.intOr("key 0", -1);
                    copy = Parameterized(copy);
                }
            });
    original.clear();
    for (std::thread& thread : threads)
        thread.join();
    for (std::size_t i = 0; i < copies.size(); ++i)
    {
        const int last = static_cast<int>(i) * 1000 + 199;
        EXPECT_EQ(copies[i].intOr("key 0", -1), last);
        EXPECT_EQ(copies[i].intOr("key 1", -1), 1 + last);
        EXPECT_EQ(copies[i].intOr("key 99", -1), 99);
    }
}

TEST(Parameterized, CallsThroughTheBaseReachADerivedClass)
{
    class Counting : public Parameterized
    {
    public:
        void set(std::string key, const Value& value) override
        {
            ++calls;
            Parameterized::set(std::move(key), value);
        }
        int calls = 0;
    };
    Counting counting;
    static_cast<Parameterized&>(counting).set("Feedrate", 1.0);
    EXPECT_EQ(counting.calls, 1);
    EXPECT_TRUE(counting.has("Feedrate"));
}

} // namespace
