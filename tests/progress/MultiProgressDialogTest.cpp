#include "tests/progress/ScriptedProgress.h"
#include "tests/support/WindowDriver.h"
#include <tessaron/engine/JobService.h>
#include <tessaron/engine/ProgressData.h>
#include <tessaron/frame/EntryPoints.h>

#include <boost/make_shared.hpp>

#include <wx/stattext.h>
#include <wx/toplevel.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

using namespace testing_support;

namespace
{

typedef boost::shared_ptr<exchange::ProgressData> Record;

struct Look
{
    const char* name;
    int (*show)(Record&);
};

class MultiProgressDialogTest : public testing::TestWithParam<Look>
{
protected:
    int show()
    {
        Record record = m_progress;
        return GetParam().show(record);
    }

    static std::vector<wxString> lines()
    {
        std::vector<wxString> found;
        if (topWindow())
            for (wxWindow* const control : topWindow()->GetChildren())
                if (control->GetLabel().StartsWith("Thread #"))
                    found.push_back(control->GetLabel());
        return found;
    }

    boost::shared_ptr<ScriptedProgress> m_progress = boost::make_shared<ScriptedProgress>();
};

TEST_P(MultiProgressDialogTest, LinesFollowTheWorkers)
{
    // Ids that the engine does not know: each line keeps the text that it was made with.
    const std::vector<int> unknown = {900001, 900002, 900003};
    WindowDriver user;
    user.when(
        "no worker, no line", [&] { return m_progress->m_polls > 1; },
        [&]
        {
            EXPECT_TRUE(lines().empty());
            m_progress->m_workers = unknown;
        });
    user.when(
        "three workers", [] { return lines().size() == 3; },
        [&]
        {
            EXPECT_EQ(lines(), (std::vector<wxString>{"Thread #1", "Thread #2", "Thread #3"}));
            m_progress->m_workers.pop_back();
        });
    user.when(
        "two workers", [] { return lines().size() == 2; },
        [&]
        {
            EXPECT_EQ(lines().back(), "Thread #2");
            m_progress->report(-1.0);
        });
    EXPECT_EQ(show(), 1);
}

TEST_P(MultiProgressDialogTest, AWorkersLineTellsItsStage)
{
    const exchange::JobStart job = exchange::startJobFromFile(TESSARON_SAMPLES "/large-plate.xml");
    ASSERT_GT(job.jobId, 0) << job.text;
    m_progress->m_workers = {job.jobId};
    WindowDriver user;
    user.when(
        "the line tells the worker's stage",
        []
        {
            for (wxWindow* const control : topWindow() ? topWindow()->GetChildren() : wxWindowList())
                if (control->GetId() != 1021 && control->GetLabel().EndsWith("% done"))
                    return true;
            return false;
        },
        [&]
        {
            EXPECT_EQ(child(topWindow(), 1021)->GetLabel(), "") << "that is the whole job's";
            m_progress->report(-1.0);
        });
    EXPECT_EQ(show(), 1);
    exchange::cancelJob(job.jobId);
    exchange::releaseJob(job.jobId);
}

// A window that made all of them at once would not answer for seconds, and one that made them only when it polls would
// take longer than most jobs.
TEST_P(MultiProgressDialogTest, AThousandWorkersComeInBetweenThePolls)
{
    constexpr std::size_t many = 1000;
    std::size_t atSecondPoll = 0;
    std::map<int, std::set<std::size_t>> countsAfterPoll;
    m_progress->m_workers = std::vector<int>(many, 900001);
    m_progress->m_onRefresh = [&](int poll)
    {
        if (poll == 2)
            atSecondPoll = lines().size();
    };
    WindowDriver user(std::chrono::seconds(60));
    user.when(
        "all lines are there",
        [&]
        {
            countsAfterPoll[m_progress->m_polls].insert(lines().size());
            return lines().size() == many;
        },
        [&] { m_progress->report(-1.0); });
    EXPECT_EQ(show(), 1);
    EXPECT_LT(atSecondPoll, many / 2) << "the first poll made all of them";
    EXPECT_TRUE(std::ranges::any_of(countsAfterPoll, [](const auto& counts) { return counts.second.size() > 1; }))
        << "lines came with polls only";
}

TEST_P(MultiProgressDialogTest, ShowDetailsTogglesTheHeightByExactly200Pixels)
{
    int folded = 0;
    m_progress->report(35.0, stageSet({{"Importing file: ", 12.0}}));
    m_progress->m_workers = {900001, 900002, 900003, 900004};
    WindowDriver user;
    user.when(
        "the window is up", [&] { return m_progress->m_polls > 0 && topWindow()->IsShownOnScreen(); },
        [&]
        {
            savePicture(topWindow(), std::string("multi-progress-") + GetParam().name + "-folded");
            folded = topWindow()->GetSize().y;
            click(child(topWindow(), 1042));
        });
    user.when("details are shown", [&] { return topWindow()->GetSize().y == folded + 200 && lines().size() == 4; });
    user.when(
        "and painted", [&, polls = m_progress->m_polls] { return m_progress->m_polls > polls + 6; },
        [&]
        {
            EXPECT_EQ(child(topWindow(), 1021)->GetLabel(), "Importing file: 12%");
            savePicture(topWindow(), std::string("multi-progress-") + GetParam().name + "-details");
            click(child(topWindow(), 1042));
        });
    user.when(
        "details are folded away", [&] { return topWindow()->GetSize().y == folded; },
        [&] { m_progress->report(-1.0); });
    EXPECT_EQ(show(), 1);
}

TEST_P(MultiProgressDialogTest, AfterACancelTheWindowStaysUntilTheJobHasEnded)
{
    int pollsAtCancel = 0;
    WindowDriver user;
    user.when(
        "the window is up", [&] { return m_progress->m_polls > 0 && topWindow()->IsShownOnScreen(); },
        [] { click(child(topWindow(), 2)); });
    user.when(
        "the engine was asked", [&] { return m_progress->m_cancelRequests == 1; },
        [&] { pollsAtCancel = m_progress->m_polls; });
    user.when(
        "polling goes on", [&] { return m_progress->m_polls > pollsAtCancel + 2; },
        [&]
        {
            EXPECT_NE(topWindow(), nullptr);
            m_progress->report(-1.0);
        });
    EXPECT_EQ(show(), 1);
}

INSTANTIATE_TEST_SUITE_P(Looks, MultiProgressDialogTest,
                         testing::Values(Look{"milling", TessaronResources::displayMultiProgressDialog},
                                         Look{"turning", TessaronResources::displayOrrimantMultiProgressDialog}),
                         [](const auto& look) { return look.param.name; });

} // namespace
