#include "tests/engine/PocketShapes.h"
#include "tests/engine/RunningJob.h"
#include <tessaron/engine/JobService.h>
#include <tessaron/util/Keys.h>

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

// Cancelling at every stage of a job, from several threads, and with more jobs than processors.

namespace keys = util::keys;
using exchange::JobState;
using testing_support::RunningJob;

namespace
{

using Clock = std::chrono::steady_clock;

/// What a cancel may take: 50 ms, and in these tests some more for a machine that is busy with others.
#if defined(__SANITIZE_THREAD__) || defined(__SANITIZE_ADDRESS__)
constexpr std::chrono::milliseconds allowed{1000};
#else
constexpr std::chrono::milliseconds allowed{250};
#endif

exchange::Tessaron2dInput bigJob(int threads)
{
    exchange::Tessaron2dInput input = shapes::manyIslands(8);
    input.parameters.set(keys::stepover, 1.0);
    input.parameters.set(keys::depthOfCut, 1.0);
    input.parameters.set(keys::numberOfConcurrentThreads, threads);
    return input;
}

class CancelStages : public testing::TestWithParam<const char*>
{
};

std::string stageName(const testing::TestParamInfo<const char*>& stage)
{
    std::string name;
    for (const char* c = stage.param; *c; ++c)
        if (std::isalpha(static_cast<unsigned char>(*c)))
            name += *c;
    return name;
}

} // namespace

TEST_P(CancelStages, EndsSoon)
{
    const RunningJob job(bigJob(2));
    JobState state = JobState::running;
    ASSERT_TRUE(testing_support::becomesTrue(
        [&]
        {
            const exchange::JobInfo info = job.info();
            state = info.state;
            return state != JobState::running || info.stages.has(GetParam());
        }));
    ASSERT_EQ(state, JobState::running) << "the stage was too short to be seen";
    const auto start = Clock::now();
    EXPECT_EQ(exchange::cancelJob(job.id()), 0);
    EXPECT_EQ(job.wait(), JobState::cancelled);
    EXPECT_LT(Clock::now() - start, allowed);
    EXPECT_EQ(job.info().status, -1008);
    EXPECT_FALSE(exchange::jobToolpath(job.id()));
    // A second cancel changes nothing.
    EXPECT_EQ(exchange::cancelJob(job.id()), 0);
    EXPECT_EQ(job.info().state, JobState::cancelled);
}

INSTANTIATE_TEST_SUITE_P(Stages, CancelStages,
                         testing::Values("Processing part boundaries: ", "Creating offset surfaces: ",
                                         "Generating boundaries: ", "Creating toolpath: "),
                         stageName);

TEST(Cancel, OfAFinishedJobLeavesItFinished)
{
    const RunningJob job(shapes::squarePocket());
    EXPECT_EQ(job.wait(), JobState::finished);
    EXPECT_EQ(exchange::cancelJob(job.id()), 0);
    EXPECT_EQ(job.info().state, JobState::finished);
    EXPECT_TRUE(exchange::jobToolpath(job.id()));
}

TEST(Cancel, ManyJobsStartedWatchedAndCancelledFromManyThreads)
{
    constexpr int manyUsers = 4;
    std::vector<std::thread> users;
    users.reserve(manyUsers);
    for (int user = 0; user < manyUsers; ++user)
        users.emplace_back(
            [user]
            {
                for (int round = 0; round < 6; ++round)
                {
                    const bool cancel = (user + round) % 2 == 0;
                    const RunningJob job(cancel ? bigJob(3) : shapes::twoPockets());
                    for (const int worker : job.info().workerIds)
                        exchange::jobInfo(worker);
                    if (cancel)
                        exchange::cancelJob(job.id());
                    EXPECT_EQ(job.wait(), cancel ? JobState::cancelled : JobState::finished) << job.info().text;
                }
            });
    for (std::thread& user : users)
        user.join();
}
