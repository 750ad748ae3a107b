#include "tests/c/PocketClient.h"
#include "tests/support/TemporaryFolder.h"
#include <tessaron/c/CuttingData.h>
#include <tessaron/c/Jobs.h>
#include <tessaron/c/Templates.h>
#include <tessaron/exchange/Archives.h>
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/exchange/Tessaron2dInput.h>
#include <tessaron/exchange/ToolpathRecords.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <poll.h>
#include <unistd.h>

// The interface for C as a host uses it; the pocket is built by a client that is written in C.

using testing::ElementsAre;
using testing::HasSubstr;

namespace
{

/// A handle that is freed at the end of the scope.
template <class Handle, void (*freeHandle)(Handle*)>
class Owned
{
public:
    Owned() = default;
    explicit Owned(Handle* handle) : m_handle(handle) {}
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;
    ~Owned() { freeHandle(m_handle); }
    operator Handle*() const { return m_handle; }
    Handle** operator&() { return &m_handle; }

private:
    Handle* m_handle = nullptr;
};

using Parameters = Owned<TessaronParameters, tessaronParametersFree>;
using Input = Owned<TessaronInput, tessaronInputFree>;
using Toolpath = Owned<TessaronToolpath, tessaronToolpathFree>;
using Templates = Owned<TessaronTemplateList, tessaronTemplatesFree>;

template <class Structure>
Structure withSize()
{
    Structure structure{};
    structure.size = sizeof structure;
    return structure;
}

constexpr int longEnough = 240000;

std::vector<double> numbersOf(const TessaronRecord& record)
{
    return {record.kind, record.x, record.y, record.z, record.radius, record.value};
}

/// A job from the C client's pocket that is released at the end of the scope.
class PocketJob
{
public:
    explicit PocketJob(const TessaronInput* input) { EXPECT_EQ(tessaronJobStart(input, &m_id), TESSARON_OK); }
    PocketJob(const PocketJob&) = delete;
    PocketJob& operator=(const PocketJob&) = delete;
    ~PocketJob() { tessaronJobRelease(m_id); }
    int id() const { return m_id; }
    int wait() const
    {
        int state = TESSARON_JOB_UNKNOWN;
        EXPECT_EQ(tessaronJobWait(m_id, longEnough, &state), TESSARON_OK);
        return state;
    }

private:
    int m_id = 0;
};

} // namespace

TEST(CInterface, APocketBuiltInCIsCut)
{
    const Input input(pocketFromC());
    ASSERT_NE(input, nullptr) << tessaronLastError()->text;
    EXPECT_EQ(tessaronInputCurveCount(input, TESSARON_PART), 4U);
    EXPECT_EQ(tessaronInputCurveCount(input, TESSARON_STOCK), 1U);
    EXPECT_EQ(tessaronInputCheck(input), TESSARON_OK) << tessaronLastError()->text;

    const PocketJob job(input);
    ASSERT_EQ(job.wait(), TESSARON_JOB_FINISHED);
    auto info = withSize<TessaronJobInfo>();
    ASSERT_EQ(tessaronJobQuery(job.id(), &info), TESSARON_OK);
    EXPECT_EQ(info.status, 0);
    EXPECT_EQ(info.percent, 100);
    ASSERT_GT(info.recordCount, 0U);

    std::vector<TessaronRecord> records(info.recordCount);
    ASSERT_EQ(tessaronJobRecords(job.id(), 0, records.size(), records.data()), TESSARON_OK);
    double lowest = 0;
    std::vector<int> kinds(8);
    for (const TessaronRecord& record : records)
    {
        ++kinds.at(static_cast<std::size_t>(record.kind));
        if (static_cast<int>(record.kind) == TESSARON_RECORD_LINEAR_MOVE)
        {
            lowest = std::min(lowest, record.z);
            EXPECT_GT(std::hypot(record.x - 50, record.y - 40), 9 - 0.03) << "the tool gouges the island";
        }
    }
    EXPECT_EQ(lowest, -5);
    EXPECT_GT(kinds[TESSARON_RECORD_ARC_0] + kinds[TESSARON_RECORD_ARC_1], 0);
    EXPECT_EQ(kinds[TESSARON_RECORD_SPINDLE_SPEED], 1);
}

TEST(CInterface, ToolpathOutlivesItsJob)
{
    const TemporaryFolder folder;
    const std::string path = folder.path() + "/path.xml";
    const Input input(pocketFromC());
    Toolpath toolpath;
    {
        const PocketJob job(input);
        ASSERT_EQ(job.wait(), TESSARON_JOB_FINISHED);
        ASSERT_EQ(tessaronJobToolpath(job.id(), &toolpath), TESSARON_OK);
    }
    ASSERT_EQ(tessaronToolpathWrite(toolpath, path.c_str()), TESSARON_OK) << tessaronLastError()->text;
    EXPECT_EQ(tessaronToolpathAppendText(toolpath, "M0"), TESSARON_INVALID_ARGUMENT);

    Toolpath read;
    ASSERT_EQ(tessaronToolpathRead(path.c_str(), &read), TESSARON_OK) << tessaronLastError()->text;
    const std::size_t count = tessaronToolpathCount(toolpath);
    ASSERT_EQ(tessaronToolpathCount(read), count);
    TessaronRecord last[2];
    ASSERT_EQ(tessaronToolpathRecords(toolpath, count - 1, 1, &last[0]), TESSARON_OK);
    ASSERT_EQ(tessaronToolpathRecords(read, count - 1, 1, &last[1]), TESSARON_OK);
    EXPECT_EQ(last[0].z, last[1].z);
    EXPECT_EQ(tessaronToolpathRecords(read, count - 1, 2, last), TESSARON_NOT_FOUND);
    EXPECT_EQ(tessaronToolpathRecords(read, count, std::numeric_limits<std::size_t>::max(), last), TESSARON_NOT_FOUND);
}

TEST(CInterface, ToolpathsAreWrittenAsGcode)
{
    const TemporaryFolder folder;
    const std::string path = folder.path() + "/pocket.ngc";
    const Input input(pocketFromC());
    const PocketJob job(input);
    ASSERT_EQ(job.wait(), TESSARON_JOB_FINISHED);
    Toolpath toolpath;
    ASSERT_EQ(tessaronJobToolpath(job.id(), &toolpath), TESSARON_OK);
    const char* const inches[] = {"units", "inch", "tool", "3", nullptr};
    ASSERT_EQ(tessaronToolpathWriteGcode(toolpath, path.c_str(), inches), TESSARON_OK) << tessaronLastError()->text;
    const std::string program = readBytes(path);
    EXPECT_THAT(program, HasSubstr("G20"));
    EXPECT_THAT(program, HasSubstr("T3"));

    const char* const unknown[] = {"colour", "red", nullptr};
    EXPECT_EQ(tessaronToolpathWriteGcode(toolpath, path.c_str(), unknown), TESSARON_INVALID_ARGUMENT);
    EXPECT_STREQ(tessaronLastError()->field, "colour");
    EXPECT_EQ(tessaronToolpathWriteGcode(toolpath, "/no/such/folder/x", nullptr), TESSARON_WRITE_ERROR);
    EXPECT_STREQ(tessaronLastError()->file, "/no/such/folder/x");
}

TEST(CInterface, RecordsOfEveryKindComeBack)
{
    Toolpath toolpath;
    ASSERT_EQ(tessaronToolpathCreate(&toolpath), TESSARON_OK);
    const TessaronRecord records[] = {
        {TESSARON_RECORD_RAPID_MOVE, 1, 2, 3, 0, 0},    {TESSARON_RECORD_LINEAR_MOVE, 4, 5, 6, 0, 0},
        {TESSARON_RECORD_ARC_1, 7, 8, 9, 1.5, 0},       {TESSARON_RECORD_ARC_0, 1, 1, 1, -2.5, 0},
        {TESSARON_RECORD_FEED_RATE, 0, 0, 0, 0, 400},   {TESSARON_RECORD_SPINDLE_SPEED, 0, 0, 0, 0, 9000},
        {TESSARON_RECORD_TOOL_AXIS, 0, 0.6, 0.8, 0, 0},
    };
    constexpr std::size_t count = std::size(records);
    ASSERT_EQ(tessaronToolpathAppend(toolpath, records, count), TESSARON_OK);
    ASSERT_EQ(tessaronToolpathAppendText(toolpath, "M0"), TESSARON_OK);
    ASSERT_EQ(tessaronToolpathCount(toolpath), count + 1);
    TessaronRecord copied[count + 1];
    ASSERT_EQ(tessaronToolpathRecords(toolpath, 0, count + 1, copied), TESSARON_OK);
    for (std::size_t i = 0; i < count; ++i)
        EXPECT_EQ(numbersOf(copied[i]), numbersOf(records[i])) << "record " << i;
    EXPECT_EQ(static_cast<int>(copied[count].kind), TESSARON_RECORD_CUSTOM);
    const char* text = nullptr;
    ASSERT_EQ(tessaronToolpathText(toolpath, count, &text), TESSARON_OK);
    EXPECT_STREQ(text, "M0");
    EXPECT_EQ(tessaronToolpathText(toolpath, 0, &text), TESSARON_WRONG_KIND);

    // All of them or none.
    TessaronRecord bad[] = {records[0], records[1]};
    bad[1].z = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(tessaronToolpathAppend(toolpath, bad, 2), TESSARON_INVALID_ARGUMENT);
    EXPECT_THAT(tessaronLastError()->text, HasSubstr("record 1"));
    bad[1] = {TESSARON_RECORD_CUSTOM, 0, 0, 0, 0, 0};
    EXPECT_EQ(tessaronToolpathAppend(toolpath, bad, 2), TESSARON_INVALID_ARGUMENT);
    EXPECT_EQ(tessaronToolpathCount(toolpath), count + 1);
}

TEST(CInterface, ParametersKeepKindsAndOrder)
{
    Parameters set;
    ASSERT_EQ(tessaronParametersCreate(&set), TESSARON_OK);
    EXPECT_EQ(tessaronParametersSetInt(set, "Tool Num Flutes", 4), TESSARON_OK);
    EXPECT_EQ(tessaronParametersSetDouble(set, "Feedrate", 812.5), TESSARON_OK);
    EXPECT_EQ(tessaronParametersSetText(set, "Template Name", "Fräsen"), TESSARON_OK);
    EXPECT_EQ(tessaronParametersSetText(set, "", "x"), TESSARON_INVALID_ARGUMENT);

    std::vector<std::string> keys;
    const char* key = nullptr;
    while (tessaronParametersNext(set, key, &key) == TESSARON_OK)
        keys.emplace_back(key);
    EXPECT_THAT(keys, ElementsAre("Feedrate", "Template Name", "Tool Num Flutes"));

    double number = 0;
    EXPECT_EQ(tessaronParametersGetDouble(set, "Tool Num Flutes", &number), TESSARON_OK);
    EXPECT_EQ(number, 4);
    int integer = -1;
    EXPECT_EQ(tessaronParametersGetInt(set, "Feedrate", &integer), TESSARON_WRONG_KIND);
    EXPECT_EQ(tessaronParametersGetInt(set, "Stepover", &integer), TESSARON_NOT_FOUND);
    EXPECT_STREQ(tessaronLastError()->field, "Stepover");
    EXPECT_EQ(integer, -1) << "a failed call stores nothing";

    Parameters copy;
    ASSERT_EQ(tessaronParametersCopy(set, &copy), TESSARON_OK);
    EXPECT_EQ(tessaronParametersErase(copy, "Feedrate"), TESSARON_OK);
    EXPECT_EQ(tessaronParametersErase(copy, "Feedrate"), TESSARON_NOT_FOUND);
    EXPECT_EQ(tessaronParametersCount(set), 3U);
    EXPECT_EQ(tessaronParametersCount(copy), 2U);
}

TEST(CInterface, InputsComeBackFromFileAndMemory)
{
    const TemporaryFolder folder;
    const Input input(pocketFromC());
    const double hole[] = {50, 30};
    const double holder[] = {10, 30, 20, 30, 20, 80};
    ASSERT_EQ(tessaronInputAddHole(input, hole, 4, 1), TESSARON_OK);
    ASSERT_EQ(tessaronInputSetHolderProfile(input, holder, 3), TESSARON_OK);
    for (const int format : {TESSARON_FORMAT_XML, TESSARON_FORMAT_BINARY})
    {
        const std::string path = folder.path() + "/input" + std::to_string(format);
        ASSERT_EQ(tessaronInputWrite(input, path.c_str(), format), TESSARON_OK) << tessaronLastError()->text;
        exchange::Tessaron2dInput record;
        exchange::readArchiveFile(path, record);
        EXPECT_EQ(record.boundaries.partBoundaries.size(), 4U);
        EXPECT_EQ(record.preDrilledHoles.holes.at(0).usableDepth, 4);
        EXPECT_EQ(record.holderProfile.size(), 3U);
        EXPECT_EQ(record.parameters.numberOr("Tool Diameter", 0), 6);

        Input read;
        ASSERT_EQ(tessaronInputRead(path.c_str(), &read), TESSARON_OK) << tessaronLastError()->text;
        EXPECT_EQ(tessaronInputHoleCount(read), 1U);
        EXPECT_EQ(tessaronParametersCount(tessaronInputParameters(read)),
                  tessaronParametersCount(tessaronInputParameters(input)));
    }
    EXPECT_EQ(tessaronInputWrite(input, (folder.path() + "/x").c_str(), 7), TESSARON_WRITE_ERROR);

    Input read;
    EXPECT_EQ(tessaronInputReadMemory("junk", 4, "part 7", &read), TESSARON_READ_ERROR);
    EXPECT_EQ(read, nullptr);
    EXPECT_STREQ(tessaronLastError()->file, "part 7");
    EXPECT_EQ(tessaronInputRead("/no/such/part.xml", &read), TESSARON_READ_ERROR);
    EXPECT_THAT(tessaronLastError()->text, HasSubstr("/no/such/part.xml"));
}

TEST(CInterface, BadArgumentsAreNamed)
{
    Input input;
    ASSERT_EQ(tessaronInputCreate(&input), TESSARON_OK);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double points[] = {0, 0, 1, nan};
    const double good[] = {0, 0, 1, 1, 2, 0};
    const double knots[] = {0, 0, 0, 1, 1, 1};
    const double weights[] = {1, 0, 1};
    const struct
    {
        const char* field;
        std::function<int()> call;
    } cases[] = {
        {"points", [&] { return tessaronInputAddPolyline(input, TESSARON_PART, points, 2, 0); }},
        {"points", [&] { return tessaronInputAddPolyline(input, TESSARON_PART, good, 1, 0); }},
        {"points", [&] { return tessaronInputAddPolyline(input, TESSARON_PART, nullptr, 3, 0); }},
        {"points", [&] { return tessaronInputAddPolyline(input, TESSARON_PART, good, SIZE_MAX, 0); }},
        {"boundary", [&] { return tessaronInputAddPolyline(input, 2, good, 3, 0); }},
        {"input", [&] { return tessaronInputAddPolyline(nullptr, TESSARON_PART, good, 3, 0); }},
        {"radius", [&] { return tessaronInputAddArc(input, TESSARON_PART, good, 0, 0, 1); }},
        {"endAngle", [&] { return tessaronInputAddArc(input, TESSARON_PART, good, 1, 0, nan); }},
        {"weights", [&] { return tessaronInputAddSpline(input, TESSARON_PART, good, 3, knots, 6, weights); }},
        {"center", [&] { return tessaronInputAddHole(input, nullptr, 1, 0); }},
        {"info", [] { return tessaronJobQuery(1, nullptr); }},
        {"job", [&] { return tessaronJobStart(input, nullptr); }},
    };
    for (const auto& entry : cases)
    {
        EXPECT_EQ(entry.call(), TESSARON_INVALID_ARGUMENT) << entry.field;
        EXPECT_STREQ(tessaronLastError()->field, entry.field);
        EXPECT_STRNE(tessaronLastError()->text, "");
    }
    // An arc over more than a turn, and a spline without a degree: the geometry refuses them.
    EXPECT_EQ(tessaronInputAddArc(input, TESSARON_PART, good, 1, 0, 7), TESSARON_INVALID_ARGUMENT);
    EXPECT_EQ(tessaronInputAddSpline(input, TESSARON_PART, good, 3, knots, 3, nullptr), TESSARON_INVALID_ARGUMENT);
    EXPECT_EQ(tessaronInputCurveCount(input, TESSARON_PART), 0U);

    TessaronJobInfo unsized{};
    EXPECT_EQ(tessaronJobQuery(1, &unsized), TESSARON_INVALID_ARGUMENT);
}

TEST(CInterface, FailuresOfTheEngineHaveFieldAndText)
{
    const Input input(pocketFromC());
    tessaronParametersErase(tessaronInputParameters(input), "Tool Diameter");
    EXPECT_EQ(tessaronInputCheck(input), -1012);
    EXPECT_STREQ(tessaronLastError()->field, "Tool Diameter");

    const PocketJob job(input);
    EXPECT_EQ(job.wait(), TESSARON_JOB_FAILED);
    const char* text = nullptr;
    const char* field = nullptr;
    ASSERT_EQ(tessaronJobFailure(job.id(), &text, &field), TESSARON_OK);
    EXPECT_STRNE(text, "");
    EXPECT_STREQ(field, "Tool Diameter");
    TessaronRecord record;
    EXPECT_EQ(tessaronJobRecords(job.id(), 0, 1, &record), TESSARON_NOT_READY);
}

TEST(CInterface, FindingsTellWhatIsNotUsed)
{
    const Input input(pocketFromC());
    tessaronParametersSetDouble(tessaronInputParameters(input), "Feed rate", 100);
    ASSERT_EQ(tessaronInputCheck(input), TESSARON_OK);
    ASSERT_EQ(tessaronInputFindingCount(input), 1U);
    auto finding = withSize<TessaronFinding>();
    ASSERT_EQ(tessaronInputFinding(input, 0, &finding), TESSARON_OK);
    EXPECT_STREQ(finding.field, "Feed rate");
    EXPECT_EQ(tessaronInputFinding(input, 1, &finding), TESSARON_NOT_FOUND);

    const PocketJob job(input);
    ASSERT_EQ(job.wait(), TESSARON_JOB_FINISHED);
    ASSERT_EQ(tessaronJobFinding(job.id(), 0, &finding), TESSARON_OK);
    EXPECT_STREQ(finding.field, "Feed rate");
}

TEST(CInterface, JobsAreWatchedAndCancelled)
{
    const Input input(pocketFromC());
    TessaronParameters* const parameters = tessaronInputParameters(input);
    tessaronParametersSetDouble(parameters, "Stepover", 0.02);
    tessaronParametersSetInt(parameters, "Number of Concurrent Threads", 2);
    const PocketJob job(input);
    auto info = withSize<TessaronJobInfo>();
    do
        ASSERT_EQ(tessaronJobQuery(job.id(), &info), TESSARON_OK);
    while (info.workerCount == 0 && info.state == TESSARON_JOB_RUNNING);
    EXPECT_EQ(info.workerCount, 2U);
    int worker = 0;
    ASSERT_EQ(tessaronJobWorker(job.id(), 1, &worker), TESSARON_OK);
    EXPECT_GT(worker, job.id());
    const char* stage = nullptr;
    double value = 0;
    EXPECT_EQ(tessaronJobStage(job.id(), 0, &stage, &value), TESSARON_OK);
    EXPECT_EQ(tessaronJobStage(job.id(), 1, &stage, &value), TESSARON_NOT_FOUND);

    EXPECT_EQ(tessaronJobCancel(job.id()), TESSARON_OK);
    EXPECT_EQ(job.wait(), TESSARON_JOB_CANCELLED);
    int state = -1;
    EXPECT_EQ(tessaronJobWait(0, -1, &state), exchange::status::unknownJob);
    EXPECT_EQ(state, -1);
    EXPECT_EQ(tessaronJobCancel(0), exchange::status::unknownJob);
}

TEST(CInterface, TheEndOfAJobIsToldToLoopsAndFunctions)
{
    const Input input(pocketFromC());
    tessaronParametersSetDouble(tessaronInputParameters(input), "Stepover", 0.02);
    std::atomic<int> ended = 0;
    const auto count = [](int, void* data) { ++*static_cast<std::atomic<int>*>(data); };
    pollfd wait{-1, POLLIN, 0};
    {
        const PocketJob job(input);
        ASSERT_EQ(tessaronJobNotify(job.id(), count, &ended), TESSARON_OK);
        ASSERT_EQ(tessaronJobDescriptor(job.id(), &wait.fd), TESSARON_OK);
        EXPECT_EQ(::poll(&wait, 1, 0), 0) << "the job still runs";
        EXPECT_EQ(ended, 0);
        tessaronJobCancel(job.id());
        EXPECT_EQ(::poll(&wait, 1, longEnough), 1);
        job.wait();
        ASSERT_EQ(tessaronJobNotify(job.id(), count, &ended), TESSARON_OK);
        EXPECT_GE(ended, 1) << "called at once for a job that has ended";
    }
    EXPECT_EQ(::poll(&wait, 1, 0), 1) << "it stays readable when the job is forgotten";
    ::close(wait.fd);
    EXPECT_EQ(tessaronJobNotify(0, count, &ended), exchange::status::unknownJob);
    EXPECT_EQ(tessaronJobNotify(0, nullptr, &ended), TESSARON_INVALID_ARGUMENT);
    EXPECT_EQ(tessaronJobDescriptor(0, &wait.fd), exchange::status::unknownJob);
    while (ended < 2)
        std::this_thread::yield();
    EXPECT_EQ(ended, 2);
}

// Released while it runs, the job ends out of sight: whoever waits is told all the same.
TEST(CInterface, AReleasedJobTellsItsEnd)
{
    const Input input(pocketFromC());
    tessaronParametersSetDouble(tessaronInputParameters(input), "Stepover", 0.02);
    pollfd wait{-1, POLLIN, 0};
    {
        const PocketJob job(input);
        ASSERT_EQ(tessaronJobDescriptor(job.id(), &wait.fd), TESSARON_OK);
    }
    EXPECT_EQ(::poll(&wait, 1, longEnough), 1);
    ::close(wait.fd);
}

TEST(CInterface, TemplatesAreSavedListedAndDeleted)
{
    const TemporaryFolder folder;
    const char* const path = folder.path().c_str();
    Parameters set;
    ASSERT_EQ(tessaronParametersCreate(&set), TESSARON_OK);
    tessaronParametersSetDouble(set, "Feedrate", 900);
    // A name with separators, which the file name cannot have.
    ASSERT_EQ(tessaronTemplateSave(path, "1/4\" rough", 0, set), TESSARON_OK) << tessaronLastError()->text;
    EXPECT_EQ(tessaronTemplateSave(path, "1/4\" rough", 0, set), -1045);
    EXPECT_EQ(tessaronTemplateSave(path, "1/4\" rough", 1, set), TESSARON_OK);
    const char* guid = nullptr;
    EXPECT_EQ(tessaronParametersGetText(set, "Template Guid", &guid), TESSARON_OK);
    std::ofstream(folder.path() + "/broken.vtmpl") << "<not a template";

    Templates list;
    ASSERT_EQ(tessaronTemplatesList(path, &list), TESSARON_OK) << tessaronLastError()->text;
    ASSERT_EQ(tessaronTemplatesCount(list), 1U);
    TessaronParameters* stored = nullptr;
    ASSERT_EQ(tessaronTemplatesAt(list, 0, &stored), TESSARON_OK);
    const char* name = nullptr;
    ASSERT_EQ(tessaronParametersGetText(stored, "Template Name", &name), TESSARON_OK);
    EXPECT_STREQ(name, "1/4\" rough");
    tessaronParametersFree(stored); // it belongs to the list
    const char* faulty = nullptr;
    int status = 0;
    ASSERT_EQ(tessaronTemplatesFaultCount(list), 1U);
    ASSERT_EQ(tessaronTemplatesFault(list, 0, &faulty, &status), TESSARON_OK);
    EXPECT_THAT(faulty, HasSubstr("broken.vtmpl"));
    EXPECT_EQ(status, -1041);

    const std::string shared = folder.path() + "/shared.lst";
    ASSERT_EQ(tessaronTemplatesWrite(list, shared.c_str()), TESSARON_OK);
    Templates imported;
    ASSERT_EQ(tessaronTemplatesRead(shared.c_str(), &imported), TESSARON_OK);
    EXPECT_EQ(tessaronTemplatesCount(imported), 1U);

    EXPECT_EQ(tessaronTemplateFreeName(path, "Rough", &name), TESSARON_OK);
    EXPECT_THAT(name, HasSubstr("Rough"));
    EXPECT_EQ(tessaronTemplateDelete(path, "1/4\" rough"), TESSARON_OK);
    EXPECT_EQ(tessaronTemplateDelete(path, "1/4\" rough"), -1040);
    Templates missing;
    EXPECT_EQ(tessaronTemplatesList((folder.path() + "/none").c_str(), &missing), TESSARON_OK);
    EXPECT_EQ(tessaronTemplatesCount(missing), 0U);
}

TEST(CInterface, CuttingData)
{
    auto cut = withSize<TessaronCut>();
    cut.metric = 1;
    cut.fluteCount = 4;
    cut.toolDiameter = 10;
    cut.surfaceSpeed = 100;
    cut.feedPerTooth = 0.05;
    ASSERT_EQ(tessaronCutCalculate(&cut), TESSARON_OK);
    EXPECT_EQ(cut.spindleSpeed, 3183);
    EXPECT_NEAR(cut.feedrate, 3183 * 4 * 0.05, 1e-9);
    cut.spindleSpeed = 0.5;
    EXPECT_EQ(tessaronCutCalculate(&cut), TESSARON_INVALID_ARGUMENT);

    for (const char* const list : {"Part Material Type", "Tool Coating Type", "Aggressiveness Type"})
    {
        std::size_t count = 0;
        ASSERT_EQ(tessaronExpertOptionCount(list, &count), TESSARON_OK) << tessaronLastError()->text;
        ASSERT_GT(count, 0U);
        auto option = withSize<TessaronExpertOption>();
        ASSERT_EQ(tessaronExpertOption(list, count - 1, &option), TESSARON_OK);
        EXPECT_STRNE(option.text, "");
        EXPECT_EQ(tessaronExpertOption(list, count, &option), TESSARON_NOT_FOUND);
    }
    std::size_t count = 0;
    EXPECT_EQ(tessaronExpertOptionCount("Colours", &count), TESSARON_NOT_FOUND);
}

TEST(CInterface, EachThreadHasItsOwnLastError)
{
    Parameters set;
    tessaronParametersCreate(&set);
    int value = 0;
    EXPECT_EQ(tessaronParametersGetInt(set, "mine", &value), TESSARON_NOT_FOUND);
    std::thread(
        []
        {
            EXPECT_EQ(tessaronLastError()->status, TESSARON_OK);
            EXPECT_STREQ(tessaronLastError()->text, "");
            tessaronJobCancel(0);
        })
        .join();
    EXPECT_STREQ(tessaronLastError()->field, "mine");
}

TEST(CInterface, NullHandlesAreHarmless)
{
    tessaronParametersFree(nullptr);
    tessaronInputFree(nullptr);
    tessaronToolpathFree(nullptr);
    tessaronTemplatesFree(nullptr);
    EXPECT_EQ(tessaronParametersCount(nullptr), 0U);
    EXPECT_EQ(tessaronInputCurveCount(nullptr, TESSARON_PART), 0U);
    EXPECT_EQ(tessaronToolpathCount(nullptr), 0U);
    EXPECT_EQ(tessaronTemplatesCount(nullptr), 0U);
    EXPECT_EQ(tessaronInputParameters(nullptr), nullptr);
}
