#include "progress/ProgressPoll.h"
#include "resources/StringTable.h"
#include "tests/progress/ScriptedProgress.h"

#include <gtest/gtest.h>

#include <optional>

using namespace TessaronResources;
using namespace testing_support;

namespace
{

class Shown : public ProgressView
{
public:
    void showPercent(int percent) override { m_percent = percent; }
    void showStage(const std::string& text) override { m_stage = text; }

    std::optional<int> m_percent;
    std::optional<std::string> m_stage;
};

bool poll(ScriptedProgress& progress, Shown& view)
{
    return pollProgress(progress, view, StageScope::job, resources::stringText);
}

TEST(ProgressPoll, EndsOnANegativePercentOrAJobIdBelowMinusOne)
{
    struct Case
    {
        double percent;
        int jobId;
        bool ended;
    };
    for (const Case& c : {Case{0.0, 7, false}, Case{0.0, -1, false}, Case{0.0, -2, true}, Case{50.0, -1008, true},
                          Case{-0.001, 7, true}, Case{100.0, 0, false}})
    {
        ScriptedProgress progress;
        progress.percent = c.percent;
        progress.jobId = c.jobId;
        Shown view;
        EXPECT_EQ(poll(progress, view), c.ended) << c.percent << ", " << c.jobId;
        EXPECT_EQ(view.m_percent.has_value(), !c.ended) << "an ended job shows nothing more";
        EXPECT_EQ(progress.m_polls, 1);
    }
}

TEST(ProgressPoll, TruncatesThePercentAndKeepsTheTextWhileNoStageRuns)
{
    ScriptedProgress progress;
    Shown view;
    progress.report(99.9, stageSet({{"Creating toolpath: ", 0.3}}));
    EXPECT_FALSE(poll(progress, view));
    EXPECT_EQ(view.m_percent, 99);
    EXPECT_EQ(view.m_stage, "Toolpath generation 30% done");

    view.m_stage.reset();
    progress.report(99.9);
    EXPECT_FALSE(poll(progress, view));
    EXPECT_EQ(view.m_stage, std::nullopt);

    progress.report(99.9, stageSet({{"Total slices: ", 3}}));
    EXPECT_FALSE(poll(progress, view));
    EXPECT_EQ(view.m_stage, "");
}

TEST(ProgressPoll, RefreshesBeforeItReads)
{
    ScriptedProgress progress;
    progress.m_onRefresh = [&](int) { progress.report(-1.0); };
    Shown view;
    EXPECT_TRUE(poll(progress, view));
}

// Nobody could ever tell the record another job.
TEST(ProgressPoll, AJobThatNobodyStartedHasEnded)
{
    for (const int jobId : {-1, 0, 900001, -7})
    {
        Shown view;
        EXPECT_TRUE(pollProgress(*progressOfJob(jobId), view, StageScope::job, resources::stringText)) << jobId;
    }
}

} // namespace
