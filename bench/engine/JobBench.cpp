#include "tests/engine/PocketShapes.h"
#include <tessaron/engine/JobService.h>
#include <tessaron/exchange/Tessaron2dInput.h>
#include <tessaron/util/Keys.h>

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdint>
#include <string>
#include <thread>

// How long pocketing takes, what a second thread gains, and how soon a cancelled job ends.

namespace
{

namespace keys = util::keys;
using Clock = std::chrono::steady_clock;

exchange::Tessaron2dInput withThreads(exchange::Tessaron2dInput input, int threads)
{
    input.parameters.set(keys::numberOfConcurrentThreads, threads);
    return input;
}

exchange::Tessaron2dInput manyIslands(int threads)
{
    exchange::Tessaron2dInput input = shapes::manyIslands(6);
    input.parameters.set(keys::stepover, 0.5);
    return withThreads(input, threads);
}

/// One deep pocket without an island: nothing but rings within rings.
exchange::Tessaron2dInput onePocket(int threads)
{
    exchange::Tessaron2dInput input = shapes::manyIslands(6);
    input.boundaries.partBoundaries.resize(2);
    input.parameters.set(keys::stepover, 0.1);
    return withThreads(input, threads);
}

double run(benchmark::State& state, const exchange::Tessaron2dInput& input)
{
    const auto start = Clock::now();
    const exchange::JobStart job = exchange::startJob(input);
    if (exchange::waitForJob(job.jobId, -1) != exchange::JobState::finished)
        state.SkipWithError(exchange::jobInfo(job.jobId).text.c_str());
    const std::chrono::duration<double> took = Clock::now() - start;
    exchange::releaseJob(job.jobId);
    return took.count();
}

/// One thread and two in turn; the counter tells how many times faster two are.
void twoThreads(benchmark::State& state, exchange::Tessaron2dInput (*input)(int))
{
    double one = 0;
    double two = 0;
    for ([[maybe_unused]] auto turn : state)
    {
        one += run(state, input(1));
        two += run(state, input(2));
    }
    state.counters["one_thread_s"] = benchmark::Counter(one, benchmark::Counter::kAvgIterations);
    state.counters["two_threads_s"] = benchmark::Counter(two, benchmark::Counter::kAvgIterations);
    state.counters["speedup"] = one / two;
}

/// Cancels at moments spread over the job; the counters tell the time from the request to the end of the job.
void cancelLatency(benchmark::State& state)
{
    const exchange::Tessaron2dInput input = manyIslands(2);
    const double whole = run(state, input);
    double worst = 0;
    double sum = 0;
    std::int64_t count = 0;
    for ([[maybe_unused]] auto turn : state)
        for (int moment = 0; moment < 20; ++moment)
        {
            const exchange::JobStart job = exchange::startJob(input);
            std::this_thread::sleep_for(std::chrono::duration<double>(whole * moment / 20));
            const auto start = Clock::now();
            exchange::cancelJob(job.jobId);
            exchange::waitForJob(job.jobId, -1);
            const std::chrono::duration<double, std::milli> took = Clock::now() - start;
            exchange::releaseJob(job.jobId);
            worst = std::max(worst, took.count());
            sum += took.count();
            ++count;
        }
    state.counters["mean_ms"] = sum / static_cast<double>(count);
    state.counters["worst_ms"] = worst;
}

} // namespace

BENCHMARK_CAPTURE(twoThreads, many_islands, manyIslands)->Iterations(1)->Unit(benchmark::kSecond)->UseRealTime();
BENCHMARK_CAPTURE(twoThreads, one_pocket, onePocket)->Iterations(1)->Unit(benchmark::kSecond)->UseRealTime();
BENCHMARK(cancelLatency)->Iterations(1)->Unit(benchmark::kSecond)->UseRealTime();

BENCHMARK_MAIN();
