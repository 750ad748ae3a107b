#include "bench/engine/MachineTime.h"
#include "tests/engine/PocketShapes.h"
#include <tessaron/engine/JobService.h>
#include <tessaron/exchange/Archives.h>
#include <tessaron/exchange/Tessaron2dInput.h>
#include <tessaron/util/Keys.h>

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>
#include <thread>

// How long pocketing takes, what a second thread gains, how soon a cancelled job ends, and what the toolpaths of the
// samples mean to a machine. With TESSARON_BASELINE naming the engine library of another build, the samples are
// computed by both in turn and compared.

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

/// Runs a job in a process of its own with an engine library; the seconds it took, 0 when it failed.
double runWith(const std::string& library, const std::string& archive, const std::string& toolpath)
{
    const std::string command =
        std::string("'") + TESSARON_RUN_JOB + "' '" + library + "' '" + archive + "' '" + toolpath + "'";
    FILE* const output = popen(command.c_str(), "r");
    double seconds = 0;
    if (output && std::fscanf(output, "%lf", &seconds) != 1)
        seconds = 0;
    return output && pclose(output) == 0 ? seconds : 0;
}

/// One thread; the seconds of this build, the figures of its toolpath, and both against the baseline.
void sample(benchmark::State& state, const char* name)
{
    namespace files = std::filesystem;
    const files::path folder =
        files::temp_directory_path() / ("tessaron-bench-" + std::to_string(std::random_device()()));
    files::create_directory(folder);
    const std::string archive = folder / "input.xml";
    const std::string made = folder / "toolpath.xml";
    exchange::Tessaron2dInput input;
    exchange::readArchiveFile(std::string(TESSARON_SAMPLES) + "/" + name + ".xml", input);
    exchange::writeArchiveFile(archive, withThreads(input, 1));
    const auto figures = [&]
    {
        exchange::ToolpathRecords toolpath;
        exchange::readArchiveFile(made, toolpath);
        return bench::figuresOf(toolpath, input.parameters.numberOr(keys::topMaterialZ, 0),
                                input.parameters.numberOr(keys::xyRapidFeedRate, 15000));
    };
    const char* const baseline = std::getenv("TESSARON_BASELINE");
    double own = 0;
    double other = 0;
    bench::ToolpathFigures now;
    bench::ToolpathFigures before;
    for ([[maybe_unused]] auto turn : state)
    {
        const double seconds = runWith(TESSARON_ENGINE, archive, made);
        if (seconds == 0)
            state.SkipWithError("the job failed");
        own += seconds;
        now = figures();
        if (!baseline)
            continue;
        other += runWith(baseline, archive, made);
        before = figures();
    }
    files::remove_all(folder);
    state.counters["seconds"] = benchmark::Counter(own, benchmark::Counter::kAvgIterations);
    state.counters["records"] = static_cast<double>(now.records);
    state.counters["retracts"] = now.retracts;
    state.counters["plunges"] = now.plunges;
    state.counters["rapids_to_cut"] = now.rapidLength / now.cutLength;
    state.counters["machine_minutes"] = now.minutes;
    if (!baseline)
        return;
    state.counters["times_faster"] = other / own;
    state.counters["records_to_baseline"] = static_cast<double>(now.records) / static_cast<double>(before.records);
    state.counters["retracts_to_baseline"] = static_cast<double>(now.retracts) / before.retracts;
    state.counters["machine_time_to_baseline"] = now.minutes / before.minutes;
}

/// How the time grows with ten times the pockets.
void growth(benchmark::State& state)
{
    const auto pockets = [](int side)
    {
        exchange::Tessaron2dInput input;
        const double size = 20.0 * side;
        input.boundaries.materialBoundaries = {shapes::rectangle(0, 0, size, size)};
        input.boundaries.partBoundaries = {shapes::rectangle(0, 0, size, size)};
        for (int row = 0; row < side; ++row)
            for (int column = 0; column < side; ++column)
                input.boundaries.partBoundaries.push_back(shapes::circle({20.0 * column + 10, 20.0 * row + 10}, 5));
        input.parameters = shapes::usualParameters();
        return withThreads(input, 1);
    };
    double few = 0;
    double many = 0;
    for ([[maybe_unused]] auto turn : state)
    {
        few += run(state, pockets(32));
        many += run(state, pockets(100));
    }
    state.counters["pockets_1024_s"] = benchmark::Counter(few, benchmark::Counter::kAvgIterations);
    state.counters["pockets_10000_s"] = benchmark::Counter(many, benchmark::Counter::kAvgIterations);
    state.counters["times"] = many / few;
}

/// How the time grows with ten times the points of one boundary.
void growthOfPoints(benchmark::State& state)
{
    const auto contour = [](int points)
    {
        exchange::Tessaron2dInput input;
        input.boundaries.materialBoundaries = {shapes::rectangle(-10, -10, 210, 210)};
        input.boundaries.partBoundaries = {shapes::rectangle(-10, -10, 210, 210),
                                           shapes::wavyLoop({100, 100}, 90, 4, 24, points)};
        input.parameters = shapes::usualParameters();
        return withThreads(input, 1);
    };
    double few = 0;
    double many = 0;
    for ([[maybe_unused]] auto turn : state)
    {
        few += run(state, contour(50000));
        many += run(state, contour(500000));
    }
    state.counters["points_50000_s"] = benchmark::Counter(few, benchmark::Counter::kAvgIterations);
    state.counters["points_500000_s"] = benchmark::Counter(many, benchmark::Counter::kAvgIterations);
    state.counters["times"] = many / few;
}

} // namespace

BENCHMARK_CAPTURE(sample, square_pocket, "square-pocket")->Iterations(1)->Unit(benchmark::kSecond)->UseRealTime();
BENCHMARK_CAPTURE(sample, pocket_with_islands, "pocket-with-islands")
    ->Iterations(1)
    ->Unit(benchmark::kSecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(sample, open_shape, "open-shape")->Iterations(1)->Unit(benchmark::kSecond)->UseRealTime();
BENCHMARK_CAPTURE(sample, large_plate, "large-plate")->Iterations(1)->Unit(benchmark::kSecond)->UseRealTime();
BENCHMARK(growth)->Iterations(1)->Unit(benchmark::kSecond)->UseRealTime();
BENCHMARK(growthOfPoints)->Iterations(1)->Unit(benchmark::kSecond)->UseRealTime();
BENCHMARK_CAPTURE(twoThreads, many_islands, manyIslands)->Iterations(1)->Unit(benchmark::kSecond)->UseRealTime();
BENCHMARK_CAPTURE(twoThreads, one_pocket, onePocket)->Iterations(1)->Unit(benchmark::kSecond)->UseRealTime();
BENCHMARK(cancelLatency)->Iterations(1)->Unit(benchmark::kSecond)->UseRealTime();

BENCHMARK_MAIN();
