#include "tests/engine/Simulated.h"
#include <tessaron/exchange/Archives.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

// The parts that come with the program: their toolpaths never gouge and clear all that the tool can reach.

namespace
{

struct Sample
{
    const char* name;
    std::size_t levels;
    std::size_t mostRetracts;
};

std::ostream& operator<<(std::ostream& stream, const Sample& sample)
{
    return stream << sample.name;
}

class Samples : public testing::TestWithParam<Sample>
{
};

std::string sampleName(const testing::TestParamInfo<Sample>& sample)
{
    std::string name = sample.param.name;
    std::erase(name, '-');
    return name;
}

} // namespace

TEST_P(Samples, neverGougeAndClearAllReachable)
{
    const std::string path = std::string(TESSARON_SAMPLES) + "/" + GetParam().name + ".xml";
    exchange::Tessaron2dInput input;
    ASSERT_NO_THROW(exchange::readArchiveFile(path, input)) << path;
    const testing_support::Simulated sample = testing_support::simulated(input);
    EXPECT_EQ(sample.problems(), "");
    EXPECT_EQ(sample.info.status, exchange::status::ok);
    EXPECT_EQ(sample.report.levels().size(), GetParam().levels);
    EXPECT_LE(sample.report.retracts, GetParam().mostRetracts);
}

INSTANTIATE_TEST_SUITE_P(All, Samples,
                         testing::Values(Sample{"square-pocket", 4, 1}, Sample{"pocket-with-islands", 6, 12},
                                         Sample{"open-shape", 5, 15}, Sample{"large-plate", 1, 1224}),
                         sampleName);
