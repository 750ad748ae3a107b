#include "tests/engine/CClient.h"
#include "tests/engine/PocketShapes.h"
#include "tests/engine/RunningJob.h"
#include "tests/engine/TemporaryFile.h"
#include <tessaron/engine/JobService.h>
#include <tessaron/engine/JobServiceC.h>
#include <tessaron/exchange/Archives.h>
#include <tessaron/exchange/ToolpathRecords.h>
#include <tessaron/util/Keys.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>

// The plain C interface, driven by a client that is written in C.

using testing::HasSubstr;
using testing_support::TemporaryFile;

namespace
{

std::string archive(const exchange::Tessaron2dInput& input)
{
    std::ostringstream stream;
    exchange::writeArchive(stream, input);
    return stream.str();
}

void expectFinished(const CClientResult& result, const std::string& savePath)
{
    EXPECT_GT(result.jobId, 0) << result.startText;
    EXPECT_EQ(result.state, TESSARON_JOB_FINISHED);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.percent, 100);
    EXPECT_EQ(result.workers, 2);
    EXPECT_EQ(result.workerState, TESSARON_JOB_FINISHED);
    EXPECT_EQ(result.lowestZ, -5);
    EXPECT_EQ(result.firstFeed, 400);
    EXPECT_EQ(result.spindleSpeed, 9000);
    EXPECT_EQ(result.kinds[TESSARON_RECORD_SPINDLE_SPEED], 1U);
    EXPECT_GT(result.kinds[TESSARON_RECORD_RAPID_MOVE], 0U);
    EXPECT_EQ(result.recordBeyondEnd, 0);
    EXPECT_EQ(result.saved, 0) << result.saveText;
    EXPECT_EQ(result.released, 0);
    EXPECT_EQ(result.stateAfterRelease, TESSARON_JOB_UNKNOWN);
    EXPECT_EQ(result.statusAfterRelease, -1004);

    exchange::ToolpathRecords saved;
    exchange::readArchiveFile(savePath, saved);
    EXPECT_EQ(saved.records.size(), result.records);
}

} // namespace

TEST(JobServiceC, RunsAJobFromFileAndFromMemory)
{
    exchange::Tessaron2dInput input = shapes::islandPocket();
    input.parameters.set(util::keys::numberOfConcurrentThreads, 2);
    const std::string bytes = archive(input);
    const TemporaryFile file("tessaron-c-input");
    const TemporaryFile toolpath("tessaron-c-toolpath");
    file.write(bytes);

    CClientResult result;
    runCClient(file.path().c_str(), nullptr, 0, toolpath.path().c_str(), &result);
    expectFinished(result, toolpath.path());
    const std::size_t records = result.records;
    runCClient(nullptr, bytes.data(), bytes.size(), toolpath.path().c_str(), &result);
    expectFinished(result, toolpath.path());
    EXPECT_EQ(result.records, records);
}

TEST(JobServiceC, BadFileHasATextThatFitsTheBuffer)
{
    CClientResult result;
    runCClient("/no/such/part.xml", nullptr, 0, "", &result);
    EXPECT_LT(result.jobId, 0);
    EXPECT_THAT(result.startText, HasSubstr("/no/such/part.xml"));

    // The text whole, and cut to fit.
    char whole[200];
    char cut[12];
    EXPECT_LT(tessaronJobStartFile("/no/such/part.xml", whole, sizeof whole), 0);
    EXPECT_LT(tessaronJobStartFile("/no/such/part.xml", cut, sizeof cut), 0);
    EXPECT_EQ(std::string(cut), std::string(whole).substr(0, sizeof cut - 1));
    EXPECT_LT(tessaronJobStartFile("/no/such/part.xml", nullptr, 0), 0);
}

TEST(JobServiceC, TextIsCutAtAWholeCharacter)
{
    // "é" has two bytes, of which only one would fit.
    char text[5];
    EXPECT_LT(tessaronJobStartMemory("junk", 4, "abc\xc3\xa9", text, sizeof text), 0);
    EXPECT_STREQ(text, "abc");
}

TEST(JobServiceC, FailedJobTellsWhy)
{
    exchange::Tessaron2dInput input = shapes::squarePocket();
    input.boundaries.partBoundaries.clear();
    const std::string bytes = archive(input);
    const int job = tessaronJobStartMemory(bytes.data(), bytes.size(), nullptr, nullptr, 0);
    ASSERT_GT(job, 0);
    EXPECT_EQ(tessaronJobWait(job, testing_support::longEnough), TESSARON_JOB_FAILED);
    EXPECT_EQ(tessaronJobStatus(job), -1023);
    char text[100];
    const std::size_t length = tessaronJobText(job, text, sizeof text);
    EXPECT_EQ(length, std::string(text).size());
    EXPECT_STREQ(text, "No part has been defined for this operation");
    EXPECT_EQ(tessaronJobRecordCount(job), 0U);
    EXPECT_EQ(tessaronJobSaveToolpath(job, "/tmp/never-written.xml", text, sizeof text), -1023);
    EXPECT_EQ(tessaronJobRelease(job), 0);
}

TEST(JobServiceC, CancelStops)
{
    exchange::Tessaron2dInput input = shapes::manyIslands(6);
    input.parameters.set(util::keys::stepover, 0.1);
    const std::string bytes = archive(input);
    const int job = tessaronJobStartMemory(bytes.data(), bytes.size(), "memory", nullptr, 0);
    ASSERT_GT(job, 0);
    EXPECT_EQ(tessaronJobWait(job, 0), TESSARON_JOB_RUNNING);
    EXPECT_EQ(tessaronJobCancel(job), 0);
    EXPECT_EQ(tessaronJobWait(job, testing_support::longEnough), TESSARON_JOB_CANCELLED);
    EXPECT_EQ(tessaronJobStatus(job), -1008);
    EXPECT_EQ(tessaronJobRelease(job), 0);
}

TEST(JobServiceC, UnknownIds)
{
    char text[10] = "x";
    int ids[1];
    TessaronRecord record;
    EXPECT_EQ(tessaronJobState(0), TESSARON_JOB_UNKNOWN);
    EXPECT_EQ(tessaronJobStatus(0), -1004);
    EXPECT_EQ(tessaronJobPercent(0), -1);
    EXPECT_EQ(tessaronJobWait(0, -1), TESSARON_JOB_UNKNOWN);
    EXPECT_EQ(tessaronJobWorkers(0, ids, 1), -1004);
    EXPECT_EQ(tessaronJobRecordCount(0), 0U);
    EXPECT_EQ(tessaronJobRecord(0, 0, &record), 0);
    EXPECT_EQ(tessaronJobRecordText(0, 0, text, sizeof text), 0U);
    EXPECT_STREQ(text, "");
    EXPECT_EQ(tessaronJobSaveToolpath(0, "/tmp/never-written.xml", text, sizeof text), -1004);
    EXPECT_EQ(tessaronJobCancel(0), -1004);
    EXPECT_EQ(tessaronJobRelease(0), -1004);
}
