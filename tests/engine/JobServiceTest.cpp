#include <tessaron/engine/JobService.h>

#include "tests/engine/PocketShapes.h"
#include "tests/engine/RunningJob.h"
#include "tests/engine/TemporaryFile.h"
#include <tessaron/exchange/Archives.h>
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/exchange/ToolpathRecords.h>
#include <tessaron/exchange/geom/Arc2Impl.h>
#include <tessaron/exchange/geom/BSplineCurveImpl.h>
#include <tessaron/exchange/geom/PolylineImpl.h>
#include <tessaron/util/Keys.h>

#include <boost/make_shared.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <set>
#include <sstream>
#include <thread>

namespace keys = util::keys;
namespace status = exchange::status;
using exchange::JobInfo;
using exchange::JobState;
using exchange::Tessaron2dInput;
using testing::HasSubstr;
using testing_support::RunningJob;
using testing_support::TemporaryFile;

namespace
{

Tessaron2dInput with(const util::Key& key, const util::Parameterized::Value& value)
{
    Tessaron2dInput input = shapes::squarePocket();
    input.parameters.set(key, value);
    return input;
}

Tessaron2dInput without(const util::Key& key)
{
    Tessaron2dInput input = shapes::squarePocket();
    input.parameters.erase(key);
    return input;
}

Tessaron2dInput withPart(exchange::CurveList part)
{
    Tessaron2dInput input = shapes::squarePocket();
    input.boundaries.partBoundaries = std::move(part);
    return input;
}

std::string archiveOf(const Tessaron2dInput& input, exchange::ArchiveFormat format)
{
    std::ostringstream stream;
    exchange::writeArchive(stream, input, format);
    return stream.str();
}

/// The toolpath as its archive, to compare whole toolpaths.
std::string toolpathText(const Tessaron2dInput& input)
{
    const RunningJob job(input);
    EXPECT_EQ(job.wait(), JobState::finished) << job.info().text;
    std::ostringstream stream;
    exchange::writeArchive(stream, *exchange::jobToolpath(job.id()));
    return stream.str();
}

} // namespace

TEST(JobService, FinishedJobHasAToolpathAndFullProgress)
{
    const RunningJob job(shapes::squarePocket());
    EXPECT_GT(job.id(), 0);
    EXPECT_EQ(job.wait(), JobState::finished);
    const JobInfo info = job.info();
    EXPECT_EQ(info.status, status::ok);
    EXPECT_EQ(info.percent, 100);
    EXPECT_TRUE(info.stages.empty());
    EXPECT_TRUE(info.text.empty());
    ASSERT_TRUE(exchange::jobToolpath(job.id()));
    EXPECT_GT(exchange::jobToolpath(job.id())->records.size(), 10U);
}

TEST(JobService, UnknownIds)
{
    int released = 0;
    {
        const RunningJob job(shapes::squarePocket());
        job.wait();
        released = job.id();
    }
    for (const int id : {released, 0, -1, -5, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
    {
        EXPECT_EQ(exchange::jobInfo(id).state, JobState::unknown) << id;
        EXPECT_EQ(exchange::jobInfo(id).status, -1004) << id;
        EXPECT_EQ(exchange::waitForJob(id, -1), JobState::unknown) << id;
        EXPECT_EQ(exchange::cancelJob(id), -1004) << id;
        EXPECT_EQ(exchange::releaseJob(id), -1004) << id;
        EXPECT_FALSE(exchange::jobToolpath(id)) << id;
    }
}

TEST(JobService, WorkersHaveIdsOfTheirOwn)
{
    Tessaron2dInput input = shapes::manyIslands(3);
    input.parameters.set(keys::numberOfConcurrentThreads, 3);
    const RunningJob job(input);
    job.wait();
    const std::vector<int> workers = job.info().workerIds;
    ASSERT_EQ(workers.size(), 3U);
    EXPECT_EQ(std::set<int>(workers.begin(), workers.end()).size(), 3U);
    for (const int worker : workers)
    {
        EXPECT_GT(worker, 0);
        EXPECT_NE(worker, job.id());
        EXPECT_EQ(exchange::jobInfo(worker).state, JobState::finished);
        EXPECT_TRUE(exchange::jobInfo(worker).workerIds.empty());
        EXPECT_FALSE(exchange::jobToolpath(worker));
        EXPECT_EQ(exchange::releaseJob(worker), -1004);
    }
    EXPECT_EQ(exchange::releaseJob(job.id()), 0);
    EXPECT_EQ(exchange::jobInfo(workers.front()).state, JobState::unknown);
}

TEST(JobService, ToolpathOutlivesItsJob)
{
    boost::shared_ptr<const exchange::ToolpathRecords> toolpath;
    {
        const RunningJob job(shapes::squarePocket());
        job.wait();
        toolpath = exchange::jobToolpath(job.id());
    }
    ASSERT_TRUE(toolpath);
    EXPECT_TRUE(boost::get<exchange::SpindleSpeed>(&toolpath->records.front()));
}

TEST(JobService, KeepsTheLastEndedJobsOnly)
{
    Tessaron2dInput input = without(keys::toolDiameter);
    const int first = exchange::startJob(input).jobId;
    EXPECT_EQ(exchange::waitForJob(first, testing_support::longEnough), JobState::failed);
    std::vector<int> ids;
    for (int i = 0; i < 32; ++i)
    {
        ids.push_back(exchange::startJob(input).jobId);
        exchange::waitForJob(ids.back(), testing_support::longEnough);
    }
    EXPECT_EQ(exchange::jobInfo(first).state, JobState::unknown);
    EXPECT_EQ(exchange::jobInfo(ids.front()).state, JobState::failed);
    EXPECT_EQ(exchange::jobInfo(ids.back()).state, JobState::failed);
    for (const int id : ids)
        exchange::releaseJob(id);
}

TEST(JobService, ReleaseOfARunningJobStopsIt)
{
    const exchange::JobStart start = exchange::startJob(shapes::manyIslands(5));
    EXPECT_EQ(exchange::waitForJob(start.jobId, 0), JobState::running);
    EXPECT_EQ(exchange::releaseJob(start.jobId), 0);
    EXPECT_EQ(exchange::jobInfo(start.jobId).state, JobState::unknown);
}

TEST(JobService, ResultDoesNotDependOnTheNumberOfThreads)
{
    std::string one;
    for (const int threads : {1, 2, 5})
    {
        Tessaron2dInput input = shapes::manyIslands(2);
        input.parameters.set(keys::numberOfConcurrentThreads, threads);
        const std::string text = toolpathText(input);
        if (threads == 1)
            one = text;
        EXPECT_TRUE(text == one) << threads << " threads";
    }
}

TEST(JobService, StagesAndPercentOnTheWay)
{
    const std::map<std::string, double> greatest = {{"Processing part boundaries: ", 1},
                                                    {"Creating offset surfaces: ", 1},
                                                    {"Generating boundaries: ", 1e6},
                                                    {"Creating toolpath: ", 1}};
    Tessaron2dInput input = shapes::manyIslands(4);
    input.parameters.set(keys::stepover, 0.3);
    const RunningJob job(input);
    std::set<std::string> seen;
    double percent = 0;
    double checksLeft = std::numeric_limits<double>::infinity();
    for (;;)
    {
        const JobInfo info = job.info();
        EXPECT_GE(info.percent, percent);
        EXPECT_LE(info.percent, 100);
        percent = info.percent;
        EXPECT_LE(info.stages.size(), 1U);
        for (const auto& [name, value] : info.stages.params())
        {
            ASSERT_TRUE(greatest.count(name)) << name;
            ASSERT_TRUE(boost::get<double>(&value)) << name;
            EXPECT_GE(boost::get<double>(value), 0) << name;
            EXPECT_LE(boost::get<double>(value), greatest.at(name)) << name;
            seen.insert(name);
            if (name == keys::stageGeneratingBoundaries.c_str())
            {
                EXPECT_LE(boost::get<double>(value), checksLeft);
                checksLeft = boost::get<double>(value);
            }
        }
        for (const int worker : info.workerIds)
        {
            const JobInfo workerInfo = exchange::jobInfo(worker);
            for (const auto& [name, value] : workerInfo.stages.params())
                EXPECT_TRUE(greatest.count(name)) << name;
        }
        if (info.state != JobState::running)
            break;
        std::this_thread::yield();
    }
    EXPECT_EQ(job.info().state, JobState::finished) << job.info().text;
    EXPECT_EQ(percent, 100);
    EXPECT_EQ(seen.size(), greatest.size());
}

struct Failure
{
    const char* name;
    Tessaron2dInput input;
    int status;
    const char* text;
};

std::ostream& operator<<(std::ostream& stream, const Failure& failure)
{
    return stream << failure.name;
}

class JobFailures : public testing::TestWithParam<Failure>
{
};

TEST_P(JobFailures, EndWithTheCodeAndATextThatSaysWhatIsWrong)
{
    const RunningJob job(GetParam().input);
    EXPECT_EQ(job.wait(), JobState::failed);
    const JobInfo info = job.info();
    EXPECT_EQ(info.status, GetParam().status);
    EXPECT_THAT(info.text, HasSubstr(GetParam().text));
    EXPECT_FALSE(exchange::jobToolpath(job.id()));
    EXPECT_FALSE(exchange::statusText(info.status).empty());
}

namespace
{

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

std::vector<Failure> geometryFailures()
{
    using namespace shapes;
    Tessaron2dInput noStock = squarePocket();
    noStock.boundaries.materialBoundaries.clear();
    Tessaron2dInput openStock = squarePocket();
    openStock.boundaries.materialBoundaries = {line({0, 0}, {100, 0}), line({100, 0}, {100, 80})};
    Tessaron2dInput tiny = squarePocket();
    tiny.boundaries.materialBoundaries = {rectangle(0, 0, 1e-200, 1e-200)};
    tiny.boundaries.partBoundaries = tiny.boundaries.materialBoundaries;
    const auto outer = rectangle(0, 0, 100, 80);
    return {
        {"noStock", noStock, -1022, "No stock"},
        {"noPart", withPart({}), -1023, "No part"},
        {"openPart", withPart({outer, polyline({{20, 20}, {80, 20}, {80, 60}, {20, 61}})}), -1002, "open"},
        {"openStock", openStock, -1002, "open"},
        {"bowTie", withPart({outer, polyline({{20, 20}, {80, 60}, {80, 20}, {20, 60}, {20, 20}})}), -1002,
         "crosses itself"},
        {"crossing", withPart({outer, rectangle(20, 20, 50, 50), rectangle(40, 40, 70, 70)}), -1002, "cross"},
        // Two squares that cross exactly through vertices of one another.
        {"crossingAtVertices",
         withPart({outer, polyline({{30, 20}, {50, 40}, {30, 60}, {10, 40}, {30, 20}}),
                   polyline({{40, 30}, {60, 40}, {40, 50}, {20, 30}, {40, 30}})}),
         -1002, "cross"},
        {"twice", withPart({outer, rectangle(20, 20, 50, 50), rectangle(20, 20, 50, 50)}), -1002, "along"},
        {"noArea", withPart({outer, line({20, 20}, {80, 60}), line({80, 60}, {20, 20})}), -1002, "no area"},
        {"allPart", withPart({outer}), -1002, "single closed region"},
        {"emptyCurve", withPart({outer, CurvePtr()}), -1002, "Part boundary 2"},
        {"notFinite", withPart({outer, rectangle(20, 20, nan, 60)}), -1002, "not a finite number"},
        {"overflowing", withPart({outer, rectangle(20, 20, 1e300, 60)}), -1002, "size"},
        {"noSize", tiny, -1002, ""},
        {"unreadPolyline", withPart({outer, boost::make_shared<geom::PolylineImpl<2>>()}), -1002, "fewer than two"},
        {"unreadSpline", withPart({outer, boost::make_shared<geom::BSplineCurveImpl<2>>()}), -1002, "cannot be used"},
        {"unreadArc", withPart({outer, boost::make_shared<geom::Arc2Impl>()}), -1002, "radius"},
    };
}

std::vector<Failure> parameterFailures()
{
    Tessaron2dInput negativeStock = with(keys::xyStockToLeave, -1.0);
    return {
        {"noDiameter", without(keys::toolDiameter), -1012, "\"Tool Diameter\" is missing"},
        {"zeroDiameter", with(keys::toolDiameter, 0.0), -1012, "\"Tool Diameter\""},
        {"negativeDiameter", with(keys::toolDiameter, -6.0), -1012, "\"Tool Diameter\""},
        {"nanDiameter", with(keys::toolDiameter, nan), -1012, "\"Tool Diameter\""},
        {"textDiameter", with(keys::toolDiameter, std::string("6")), -1012, "is a text"},
        {"smallDiameter", with(keys::toolDiameter, 0.1), -1012, "at least 8 times"},
        {"greatDiameter", with(keys::toolDiameter, 41.0), -1013, "too large"},
        {"hugeDiameter", with(keys::toolDiameter, 1e300), -1013, "too large"},
        {"tooMuchStock", with(keys::xyStockToLeave, 18.0), -1013, "too large"},
        {"noStepover", without(keys::stepover), -1007, "\"Stepover\" is missing"},
        {"zeroStepover", with(keys::stepover, 0), -1007, "greater than 0"},
        {"negativeStepover", with(keys::stepover, -1.0), -1007, "greater than 0"},
        {"infiniteStepover", with(keys::stepover, infinity), -1007, "finite"},
        {"absurdStepover", with(keys::stepover, 1e-12), -1007, "less than the cut tolerance"},
        {"wideStepover", with(keys::stepover, 6.1), -1007, "greater than the tool diameter"},
        {"textStepover", with(keys::stepover, std::string("wide")), -1007, "is a text"},
        {"zeroDepthOfCut", with(keys::depthOfCut, 0.0), -1007, "\"Depth of Cut\""},
        {"absurdDepthOfCut", with(keys::depthOfCut, 1e-9), -1007, "levels"},
        {"depthAboveTop", with(keys::zDepth, 1.0), -1007, "\"Z Depth\""},
        {"infiniteDepth", with(keys::zDepth, -infinity), -1007, "\"Z Depth\""},
        {"farDepth", with(keys::zDepth, -1e308), -1007, "levels"},
        {"noRapidPlane", without(keys::rapidPlaneZ), -1007, "\"Rapid Plane Z\" is missing"},
        {"rapidInMaterial", with(keys::rapidPlaneZ, -1.0), -1007, "\"Rapid Plane Z\""},
        {"negativeFeed", with(keys::feedrate, -800.0), -1007, "\"Feedrate\""},
        {"noSpindle", without(keys::spindleSpeed), -1007, "\"Spindle Speed\""},
        {"zeroTolerance", with(keys::cutTolerance, 0.0), -1007, "\"Cut Tolerance\""},
        {"absurdTolerance", with(keys::cutTolerance, 1e-9), -1007, "\"Cut Tolerance\""},
        {"nanChaining", with(keys::chainingTolerance, nan), -1007, "\"Chaining Tolerance\""},
        {"negativeStockToLeave", negativeStock, -1007, "\"XY Stock to Leave\""},
        {"allStockToLeave", with(keys::zStockToLeave, 5.0), -1007, "\"Z Stock to Leave\""},
        {"noThreads", with(keys::numberOfConcurrentThreads, 0), -1007, "\"Number of Concurrent Threads\""},
        {"halfThreads", with(keys::numberOfConcurrentThreads, 1.5), -1007, "whole number"},
        {"textDirection", with(keys::toolpathCcw, std::string("yes")), -1007, "\"Toolpath CCW\""},
    };
}

std::string failureName(const testing::TestParamInfo<Failure>& failure)
{
    return failure.param.name;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Geometry, JobFailures, testing::ValuesIn(geometryFailures()), failureName);
INSTANTIATE_TEST_SUITE_P(Parameters, JobFailures, testing::ValuesIn(parameterFailures()), failureName);

TEST(JobInputCheck, TellsTheParameterAtFaultWithoutAJob)
{
    EXPECT_EQ(exchange::checkJobInput(shapes::squarePocket()).status, status::ok);
    const exchange::JobInputProblem problem = exchange::checkJobInput(without(keys::toolDiameter));
    EXPECT_EQ(problem.status, status::toolDiameterTooSmall);
    EXPECT_EQ(problem.field, "Tool Diameter");
    EXPECT_EQ(problem.text, "\"Tool Diameter\" is missing.");

    const RunningJob job(without(keys::toolDiameter));
    job.wait();
    EXPECT_EQ(job.info().field, problem.field);
    EXPECT_EQ(job.info().text, problem.text);
}

TEST(JobLimits, AToolpathOfTooManyRecordsFailsSoon)
{
    Tessaron2dInput input = shapes::manyIslands(6);
    input.parameters.set(keys::stepover, 0.02);
    input.parameters.set(keys::depthOfCut, 0.001);
    const RunningJob job(input);
    EXPECT_EQ(job.wait(), JobState::failed);
    EXPECT_EQ(job.info().status, status::internalError);
    EXPECT_THAT(job.info().text, HasSubstr("too many records"));
}

TEST(JobLimits, AThousandThreadsAreNotStarted)
{
    Tessaron2dInput input = shapes::squarePocket();
    input.parameters.set(keys::numberOfConcurrentThreads, std::numeric_limits<int>::max());
    const RunningJob job(input);
    EXPECT_EQ(job.wait(), JobState::finished);
    EXPECT_EQ(job.info().workerIds.size(), 64U);
}

TEST(JobArchives, FileAndMemoryGiveTheSameJob)
{
    const Tessaron2dInput input = shapes::islandPocket();
    const std::string expected = toolpathText(input);
    for (const auto format : {exchange::ArchiveFormat::xml, exchange::ArchiveFormat::binary})
    {
        const std::string archive = archiveOf(input, format);
        const TemporaryFile file("tessaron-job-input");
        file.write(archive);
        for (const exchange::JobStart& start :
             {exchange::startJobFromFile(file.path()), exchange::startJobFromArchive(archive, "memory")})
        {
            ASSERT_GT(start.jobId, 0) << start.text;
            EXPECT_EQ(exchange::waitForJob(start.jobId, testing_support::longEnough), JobState::finished);
            std::ostringstream stream;
            exchange::writeArchive(stream, *exchange::jobToolpath(start.jobId));
            EXPECT_TRUE(stream.str() == expected);
            exchange::releaseJob(start.jobId);
        }
    }
}

TEST(JobArchives, ABadFileIsNamedWithWhatIsWrong)
{
    const std::string archive = archiveOf(shapes::squarePocket(), exchange::ArchiveFormat::xml);
    const std::string contents[] = {"", "no archive at all", archive.substr(0, archive.size() / 2),
                                    archive.substr(0, archive.find("<partBoundaries"))};
    for (const std::string& content : contents)
    {
        const TemporaryFile file("tessaron-bad-input");
        file.write(content);
        const exchange::JobStart start = exchange::startJobFromFile(file.path());
        EXPECT_EQ(start.jobId, 0);
        EXPECT_LT(start.status, 0);
        EXPECT_THAT(start.text, HasSubstr(file.path()));
        EXPECT_GT(start.text.size(), file.path().size() + 3);
    }
    const exchange::JobStart missing = exchange::startJobFromFile("/no/such/folder/part.xml");
    EXPECT_EQ(missing.jobId, 0);
    EXPECT_THAT(missing.text, HasSubstr("/no/such/folder/part.xml"));
    EXPECT_THAT(exchange::startJobFromArchive("junk", "the clipboard").text, HasSubstr("the clipboard"));
}

TEST(JobArchives, AFailedJobNamesItsFile)
{
    const TemporaryFile file("tessaron-no-diameter");
    file.write(archiveOf(without(keys::toolDiameter), exchange::ArchiveFormat::xml));
    const exchange::JobStart start = exchange::startJobFromFile(file.path());
    ASSERT_GT(start.jobId, 0);
    exchange::waitForJob(start.jobId, testing_support::longEnough);
    EXPECT_EQ(exchange::jobInfo(start.jobId).text, file.path() + ": \"Tool Diameter\" is missing.");
    exchange::releaseJob(start.jobId);
}
