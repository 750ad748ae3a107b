#include "tests/engine/PocketShapes.h"
#include "tests/engine/RunningJob.h"
#include <tessaron/engine/JobService.h>
#include <tessaron/engine/ProgressData.h>
#include <tessaron/util/Keys.h>

#include <gtest/gtest.h>

// The record through which progress windows watch a job.

using exchange::JobState;
using testing_support::RunningJob;

namespace
{

using Record = boost::shared_ptr<exchange::ProgressData>;

Record linkedTo(int jobId)
{
    Record record = exchange::createLocallyLinkedProgressData();
    const boost::mutex::scoped_lock lock(record->mutex);
    record->jobId = jobId;
    return record;
}

bool hasEnded(const Record& record)
{
    const boost::mutex::scoped_lock lock(record->mutex);
    return record->percent < 0 && record->jobId < -1;
}

exchange::Tessaron2dInput longJob()
{
    exchange::Tessaron2dInput input = shapes::manyIslands(6);
    input.parameters.set(util::keys::stepover, 0.1);
    input.parameters.set(util::keys::numberOfConcurrentThreads, 2);
    return input;
}

} // namespace

TEST(LinkedProgress, followsAJobToItsEnd)
{
    const RunningJob job(shapes::manyIslands(2));
    const Record record = linkedTo(job.id());
    double percent = 0;
    EXPECT_TRUE(testing_support::becomesTrue(
        [&]
        {
            record->refresh();
            if (hasEnded(record))
                return true;
            const boost::mutex::scoped_lock lock(record->mutex);
            EXPECT_EQ(record->jobId, job.id());
            EXPECT_GE(record->percent, percent);
            percent = record->percent;
            return false;
        }));
    EXPECT_EQ(job.wait(), JobState::finished);
    record->refresh();
    EXPECT_TRUE(hasEnded(record));
}

TEST(LinkedProgress, unlinkedRecordStaysAsItIs)
{
    const Record record = exchange::createLocallyLinkedProgressData();
    record->refresh();
    record->requestCancel();
    std::vector<int> ids{7};
    record->getSubJobIds(ids);
    EXPECT_TRUE(ids.empty());
    EXPECT_EQ(record->jobId, -1);
    EXPECT_EQ(record->percent, 0);
}

TEST(LinkedProgress, unknownJobHasEnded)
{
    for (const int id : {0, 2000000000})
    {
        const Record record = linkedTo(id);
        record->refresh();
        EXPECT_TRUE(hasEnded(record)) << id;
    }
}

TEST(LinkedProgress, canBeLinkedAgainAfterAnEnd)
{
    const Record record = linkedTo(2000000000);
    record->refresh();
    const RunningJob job(longJob());
    {
        const boost::mutex::scoped_lock lock(record->mutex);
        record->jobId = job.id();
        record->percent = 0;
    }
    record->refresh();
    EXPECT_FALSE(hasEnded(record));
}

TEST(LinkedProgress, cancelStopsTheJob)
{
    const RunningJob job(longJob());
    const Record record = linkedTo(job.id());
    record->requestCancel();
    EXPECT_EQ(job.wait(), JobState::cancelled);
    EXPECT_EQ(job.info().status, -1008);
    record->refresh();
    EXPECT_TRUE(hasEnded(record));
}

TEST(LinkedProgress, workersAreFollowedLikeJobs)
{
    const RunningJob job(longJob());
    const Record record = linkedTo(job.id());
    std::vector<int> ids;
    ASSERT_TRUE(testing_support::becomesTrue(
        [&]
        {
            record->getSubJobIds(ids);
            return ids.size() == 2;
        }));
    EXPECT_TRUE(testing_support::becomesTrue(
        [&]
        {
            const Record worker = linkedTo(ids.front());
            worker->refresh();
            EXPECT_FALSE(hasEnded(worker));
            return worker->stages.find(util::keys::stageCreatingOffsetSurfaces) != nullptr;
        }));
    // A worker is stopped together with its job.
    linkedTo(ids.back())->requestCancel();
    EXPECT_EQ(job.wait(), JobState::cancelled);
    record->refresh();
    record->getSubJobIds(ids);
    EXPECT_EQ(ids.size(), 2U);
    const Record worker = linkedTo(ids.front());
    worker->refresh();
    EXPECT_TRUE(hasEnded(worker));
}
