#include "tests/engine/CutChecker.h"
#include "tests/engine/RunningJob.h"
#include <tessaron/engine/JobService.h>
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
    /// The width of the grid on which coverage is tried.
    double pitch;
    std::size_t levels;
    int mostRetracts;
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
    const testing_support::RunningJob job(input);
    ASSERT_EQ(job.wait(), exchange::JobState::finished) << job.info().text;
    const cuts::Cuts cuts = cuts::cutsOf(*exchange::jobToolpath(job.id()), input);
    EXPECT_EQ(cuts.levels.size(), GetParam().levels);
    EXPECT_LE(cuts.retracts, GetParam().mostRetracts);
    cuts::checkNoGouge(input, cuts);
    cuts::checkCoverage(input, cuts.levels, GetParam().pitch);
}

INSTANTIATE_TEST_SUITE_P(All, Samples,
                         testing::Values(Sample{"square-pocket", 1, 4, 1}, Sample{"pocket-with-islands", 1, 6, 12},
                                         Sample{"open-shape", 1, 5, 15}, Sample{"large-plate", 5, 1, 1224}),
                         sampleName);
