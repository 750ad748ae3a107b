// What a progress window costs while a job runs, on the user-interface thread, and how fast Cancel is. A real job of
// the engine runs beside it. Needs a display.
#include "tests/progress/ScriptedProgress.h"
#include "tests/support/WindowDriver.h"
#include <tessaron/engine/JobService.h>
#include <tessaron/frame/EntryPoints.h>

#include <boost/make_shared.hpp>

#include <wx/toplevel.h>
#include <wx/uiaction.h>

#include <benchmark/benchmark.h>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <chrono>

using namespace testing_support;

namespace
{

using Clock = std::chrono::steady_clock;
typedef boost::shared_ptr<exchange::ProgressData> Record;

double threadSeconds()
{
    struct rusage usage = {};
    getrusage(RUSAGE_THREAD, &usage);
    const auto seconds = [](const timeval& t)
    { return static_cast<double>(t.tv_sec) + 1e-6 * static_cast<double>(t.tv_usec); };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double since(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// A job whose texts change at every poll, with workers that are a job of the engine's. Notes the processor time at its
// first poll: what the window costs before it belongs to its creation.
class BusyProgress : public ScriptedProgress
{
public:
    BusyProgress(double seconds, int workers, int workerJob) : m_seconds(seconds)
    {
        m_workers.assign(static_cast<std::size_t>(workers), workerJob);
    }

    void refresh() override
    {
        if (m_polls++ == 0)
        {
            m_start = Clock::now();
            m_used = threadSeconds();
        }
        const double share = since(m_start) / m_seconds;
        report(share < 1 ? 100 * share : -1, stageSet({{"Creating toolpath: ", share}}));
    }

    double usedSinceFirstPoll() const { return threadSeconds() - m_used; }
    double secondsSinceFirstPoll() const { return since(m_start); }

private:
    double m_seconds;
    Clock::time_point m_start;
    double m_used = 0;
};

int startLargeJob(benchmark::State& state)
{
    const exchange::JobStart job = exchange::startJobFromFile(TESSARON_SAMPLES "/large-plate.xml");
    if (job.jobId <= 0)
        state.SkipWithError(job.text.c_str());
    return job.jobId;
}

// Share of one core that the loop takes, in percent, and processor time per poll in microseconds, when every poll has
// something new to show.
void busiestLoopCost(benchmark::State& state)
{
    const int job = startLargeJob(state);
    for ([[maybe_unused]] auto turn : state)
    {
        const auto progress = boost::make_shared<BusyProgress>(5.0, static_cast<int>(state.range(0)), job);
        Record record = progress;
        const double before = threadSeconds();
        TessaronResources::displayMultiProgressDialog(record);
        const double used = progress->usedSinceFirstPoll();
        state.SetIterationTime(progress->secondsSinceFirstPoll());
        state.counters["percent_of_a_core"] = 100 * used / progress->secondsSinceFirstPoll();
        state.counters["us_per_poll"] = 1e6 * used / progress->m_polls;
        state.counters["creation_ms"] = 1e3 * (threadSeconds() - before - used);
    }
    exchange::cancelJob(job);
    exchange::releaseJob(job);
}

// The same share over the whole call, from the creation of the window to its end, for a job of some 20 s.
void wholeCallCost(benchmark::State& state)
{
    for ([[maybe_unused]] auto turn : state)
    {
        const int job = startLargeJob(state);
        const double before = threadSeconds();
        const auto start = Clock::now();
        displayMultiProgressDialogForJobId(job);
        state.SetIterationTime(since(start));
        state.counters["percent_of_a_core"] = 100 * (threadSeconds() - before) / since(start);
        exchange::releaseJob(job);
    }
}

// How long the lines of many workers take to come in, and the longest pause between two polls meanwhile, as a multiple
// of the 50 ms that the window leaves between them anyway.
void manyWorkers(benchmark::State& state)
{
    const auto workers = static_cast<std::size_t>(state.range(0));
    double longest = 0;
    for ([[maybe_unused]] auto turn : state)
    {
        const auto progress = boost::make_shared<ScriptedProgress>();
        progress->m_workers.assign(workers, 900001);
        Clock::time_point first;
        Clock::time_point last;
        std::size_t others = 0;
        double seconds = 0;
        progress->m_onRefresh = [&](int poll)
        {
            const std::size_t controls = testing_support::topWindow()->GetChildren().GetCount();
            if (poll == 1)
            {
                first = last = Clock::now();
                others = controls;
            }
            longest = std::max(longest, since(last));
            last = Clock::now();
            if (controls < others + workers)
                return;
            seconds = since(first);
            progress->report(-1);
        };
        Record record = progress;
        TessaronResources::displayMultiProgressDialog(record);
        state.SetIterationTime(seconds);
    }
    state.counters["longest_pause_ratio"] = longest / 0.05;
}

// Notes when the window asks the engine to stop.
class CancelledProgress : public ScriptedProgress
{
public:
    void requestCancel() override { m_cancelled = Clock::now(); }

    Clock::time_point m_cancelled;
};

// Presses and releases the pointer's button where it is. The toolkit's simulator of users would add its own pauses.
bool clickAtOnce()
{
    typedef void* (*OpenDisplay)(const char*);
    typedef int (*FakeButton)(void* display, unsigned button, int press, unsigned long delay);
    typedef int (*Flush)(void* display);
    static void* const x11 = dlopen("libX11.so.6", RTLD_NOW);
    static void* const xtest = dlopen("libXtst.so.6", RTLD_NOW);
    if (!x11 || !xtest)
        return false;
    static void* const display = reinterpret_cast<OpenDisplay>(dlsym(x11, "XOpenDisplay"))(nullptr);
    const auto press = reinterpret_cast<FakeButton>(dlsym(xtest, "XTestFakeButtonEvent"));
    press(display, 1, 1, 0);
    press(display, 1, 0, 0);
    return reinterpret_cast<Flush>(dlsym(x11, "XFlush"))(display) != 0;
}

// From the click to the return of the entry point; "from_request" is the part of it after the engine was asked to stop.
void cancelLatency(benchmark::State& state)
{
    double fromRequest = 0;
    for ([[maybe_unused]] auto turn : state)
    {
        const auto progress = boost::make_shared<CancelledProgress>();
        Record record = progress;
        Clock::time_point clicked;
        testing_support::WindowDriver user;
        user.when(
            "the window is up",
            [&] { return progress->m_polls > 2 && testing_support::topWindow()->IsShownOnScreen(); },
            [&]
            {
                wxWindow* const button = testing_support::child(testing_support::topWindow(), 2);
                wxUIActionSimulator().MouseMove(button->ClientToScreen(wxPoint(20, 10)));
                clicked = Clock::now();
                if (!clickAtOnce())
                    state.SkipWithError("no way to click");
            });
        const int result = TessaronResources::displayProgressDialog(record, "Job");
        state.SetIterationTime(since(clicked));
        fromRequest += since(progress->m_cancelled);
        if (result != 2)
            state.SkipWithError("not cancelled");
    }
    state.counters["from_request_ms"] = 1e3 * fromRequest / static_cast<double>(state.iterations());
}

BENCHMARK(busiestLoopCost)->Arg(1)->Arg(64)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(manyWorkers)->Arg(1000)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(wholeCallCost)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(cancelLatency)->UseManualTime()->Iterations(20)->Unit(benchmark::kMillisecond);

} // namespace

// The window driver reports through the test framework, whose environment starts the toolkit.
TEST(Progress, Cost)
{
    benchmark::RunSpecifiedBenchmarks();
}

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
