#include "tests/engine/CutChecker.h"
#include "tests/engine/RunningJob.h"
#include <tessaron/engine/JobService.h>
#include <tessaron/exchange/Archives.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <string>
#include <vector>

// The parts that come with the program: their toolpaths never gouge and clear all that the tool can reach.

namespace
{

struct Sample
{
    const char* name;
    /// The width of the grid on which coverage is tried.
    double pitch;
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

std::vector<std::array<double, 4>> sorted(const std::vector<cuts::Segment>& segments)
{
    std::vector<std::array<double, 4>> ends;
    ends.reserve(segments.size());
    for (const cuts::Segment& segment : segments)
        ends.push_back({segment.start[0], segment.start[1], segment.end[0], segment.end[1]});
    std::sort(ends.begin(), ends.end());
    return ends;
}

} // namespace

TEST_P(Samples, neverGougeAndClearAllReachable)
{
    const std::string path = std::string(TESSARON_SAMPLES) + "/" + GetParam().name + ".xml";
    exchange::Tessaron2dInput input;
    ASSERT_NO_THROW(exchange::readArchiveFile(path, input)) << path;
    const testing_support::RunningJob job(input);
    ASSERT_EQ(job.wait(), exchange::JobState::finished) << job.info().text;
    cuts::Levels levels = cuts::levelsOf(*exchange::jobToolpath(job.id()), input.parameters);
    ASSERT_FALSE(levels.empty());
    // Every level is cut along the same paths, so the lowest stands for all.
    const auto lowest = sorted(levels.begin()->second);
    for (const auto& [z, segments] : levels)
        EXPECT_TRUE(sorted(segments) == lowest) << "other paths at level " << z;
    levels.erase(std::next(levels.begin()), levels.end());
    cuts::checkNoGouge(input, levels);
    cuts::checkCoverage(input, levels, GetParam().pitch);
}

INSTANTIATE_TEST_SUITE_P(All, Samples,
                         testing::Values(Sample{"square-pocket", 1}, Sample{"pocket-with-islands", 1},
                                         Sample{"open-shape", 1}, Sample{"large-plate", 5}),
                         sampleName);
