#include "host/JobRunner.h"

#include "host/Part.h"
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/util/Keys.h>

#include <gtest/gtest.h>

#include <stdexcept>

namespace host
{

namespace
{

exchange::Tessaron2dInput sample()
{
    return loadPart(TESSARON_SAMPLES "/square-pocket.xml").input;
}

// A job that takes long unless it is stopped.
exchange::Tessaron2dInput longJob()
{
    exchange::Tessaron2dInput input = loadPart(TESSARON_SAMPLES "/pocket-with-islands.xml").input;
    input.parameters.set(util::keys::stepover, 0.03);
    return input;
}

int watchToTheEnd(int jobId)
{
    exchange::waitForJob(jobId, -1);
    return 1;
}

TEST(JobRunner, GivesTheToolpathOfAJobThatEndsByItself)
{
    JobRunner runner;
    int seen = 0;
    const JobOutcome outcome = runner.run(sample(),
                                          [&](int jobId)
                                          {
                                              seen = jobId;
                                              EXPECT_TRUE(runner.running());
                                              EXPECT_EQ(runner.jobId(), jobId);
                                              return watchToTheEnd(jobId);
                                          });
    EXPECT_EQ(outcome.state, exchange::JobState::finished);
    EXPECT_EQ(outcome.text, "");
    ASSERT_TRUE(outcome.toolpath);
    EXPECT_GT(outcome.toolpath->records.size(), 100u);
    EXPECT_FALSE(runner.running());
    EXPECT_EQ(exchange::jobInfo(seen).state, exchange::JobState::unknown) << "the job was not released";
}

TEST(JobRunner, CancelsAJobWhoseProgressIsNotWatchedToTheEnd)
{
    JobRunner runner;
    for (const bool byCancel : {false, true})
    {
        const JobOutcome outcome = runner.run(longJob(),
                                              [&](int)
                                              {
                                                  if (byCancel)
                                                      runner.cancel();
                                                  return 2;
                                              });
        EXPECT_EQ(outcome.state, exchange::JobState::cancelled);
        EXPECT_EQ(outcome.text, exchange::statusText(exchange::status::cancelled));
        EXPECT_EQ(outcome.progressResult, 2);
        EXPECT_FALSE(outcome.toolpath);
    }
}

TEST(JobRunner, SaysWhyThereIsNoToolpath)
{
    exchange::Tessaron2dInput noStock = sample();
    noStock.boundaries.materialBoundaries.clear();
    exchange::Tessaron2dInput noPart = sample();
    noPart.boundaries.partBoundaries.clear();
    exchange::Tessaron2dInput largeTool = sample();
    largeTool.parameters.set(util::keys::toolDiameter, 200.0);
    const struct
    {
        const exchange::Tessaron2dInput& input;
        int status;
    } cases[] = {{noStock, exchange::status::noStock},
                 {noPart, exchange::status::noPart},
                 {largeTool, exchange::status::noToolpath}};
    JobRunner runner;
    for (const auto& testCase : cases)
    {
        const JobOutcome outcome = runner.run(testCase.input, watchToTheEnd);
        EXPECT_EQ(outcome.state, exchange::JobState::failed);
        EXPECT_EQ(outcome.text, exchange::statusText(testCase.status));
    }
}

TEST(JobRunner, ReleasesTheJobWhenShowingItFails)
{
    JobRunner runner;
    int seen = 0;
    EXPECT_THROW(runner.run(longJob(),
                            [&](int jobId) -> int
                            {
                                seen = jobId;
                                throw std::runtime_error("no window");
                            }),
                 std::runtime_error);
    EXPECT_FALSE(runner.running());
    EXPECT_EQ(exchange::jobInfo(seen).state, exchange::JobState::unknown);
}

} // namespace

} // namespace host
