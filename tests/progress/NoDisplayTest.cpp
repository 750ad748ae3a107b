#include "tests/progress/ScriptedProgress.h"
#include <tessaron/engine/ProgressData.h>
#include <tessaron/frame/EntryPoints.h>

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <functional>
#include <future>
#include <thread>

using namespace testing_support;
using namespace TessaronResources;

namespace
{

typedef boost::shared_ptr<exchange::ProgressData> Record;

/// A job of the host's own on a machine without a display: the engine knows nothing of it, and nobody can press Cancel.
class NoDisplay : public testing::TestWithParam<int (*)(Record&)>
{
protected:
    void SetUp() override
    {
        unsetenv("DISPLAY");
        unsetenv("WAYLAND_DISPLAY");
    }

    /// Watches the job, and lets `act` run beside it on another thread once it has been polled. \returns the result
    int watchAnd(const std::function<void()>& act)
    {
        m_progress = boost::make_shared<ScriptedProgress>();
        std::promise<void> polled;
        m_progress->m_onRefresh = [&](int poll)
        {
            if (poll == 2)
                polled.set_value();
            // For a host process that would wait for ever otherwise.
            if (Clock::now() > m_deadline)
                m_progress->report(-1.0);
        };
        std::thread other(
            [&]
            {
                polled.get_future().wait();
                act();
            });
        Record record = m_progress;
        const int result = GetParam()(record);
        other.join();
        EXPECT_LT(Clock::now(), m_deadline) << "nothing ended the call";
        return result;
    }

    using Clock = std::chrono::steady_clock;
    boost::shared_ptr<ScriptedProgress> m_progress;
    const Clock::time_point m_deadline = Clock::now() + std::chrono::seconds(20);
};

TEST_P(NoDisplay, TheOwnerOfTheRecordEndsTheCall)
{
    EXPECT_EQ(watchAnd([&] { m_progress->report(-1.0); }), 1);
}

TEST_P(NoDisplay, AQuitFromAnotherThreadEndsTheCallAndLeavesTheJob)
{
    EXPECT_EQ(watchAnd([] { tessaronResourcesQuit(); }), 1);
    EXPECT_EQ(m_progress->m_cancelRequests, 0);
    EXPECT_GE(m_progress->percent, 0.0);
    // It was for that call: the next one watches its job.
    EXPECT_EQ(watchAnd([&] { m_progress->report(-1.0); }), 1);
}

INSTANTIATE_TEST_SUITE_P(EntryPoints, NoDisplay,
                         testing::Values([](Record& record) { return displayProgressDialog(record, "Job"); },
                                         [](Record& record) { return displayOrrimantProgressDialog(record, nullptr); },
                                         displayMultiProgressDialog, displayOrrimantMultiProgressDialog));

} // namespace
