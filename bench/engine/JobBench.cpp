#include "tests/engine/PocketShapes.h"
#include "tests/engine/simulator/Simulation.h"
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

/// What a job in a process of its own took; seconds are 0 when it failed.
struct Run
{
    double seconds = 0;
    /// By how much the process grew.
    double kilobytes = 0;
};

Run runWith(const std::string& library, const std::string& archive, const std::string& toolpath)
{
    const std::string command =
        std::string("'") + TESSARON_RUN_JOB + "' '" + library + "' '" + archive + "' '" + toolpath + "'";
    FILE* const output = popen(command.c_str(), "r");
    Run run;
    if (output && std::fscanf(output, "%lf %lf", &run.seconds, &run.kilobytes) != 2)
        run = {};
    return output && pclose(output) == 0 ? run : Run();
}

/// One thread; the time of this build and what its toolpath means to a machine, and the same of the baseline.
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
    simulator::Options options;
    options.machine.rapidRate = input.parameters.numberOr(keys::xyRapidFeedRate, 15000);
    const auto simulated = [&]
    {
        exchange::ToolpathRecords toolpath;
        exchange::readArchiveFile(made, toolpath);
        return simulator::simulate(input, toolpath, options);
    };
    const auto count = [&state](const char* what, const Run& run, const simulator::Report& report)
    {
        const std::string prefix = what;
        state.counters[prefix + "seconds"] = run.seconds;
        state.counters[prefix + "records"] = static_cast<double>(report.records);
        state.counters[prefix + "bytes_a_record"] = run.kilobytes * 1024 / static_cast<double>(report.records);
        state.counters[prefix + "retracts"] = static_cast<double>(report.retracts);
        state.counters[prefix + "plunges"] = static_cast<double>(report.plunges);
        state.counters[prefix + "rapids_to_cut"] = report.rapidLength / report.feedLength;
        state.counters[prefix + "machine_minutes"] = report.seconds.all() / 60;
    };
    for ([[maybe_unused]] auto turn : state)
    {
        const Run own = runWith(TESSARON_ENGINE, archive, made);
        if (own.seconds == 0)
        {
            state.SkipWithError("the job failed");
            break;
        }
        count("", own, simulated());
        const char* const baseline = std::getenv("TESSARON_BASELINE");
        if (!baseline)
            continue;
        const Run other = runWith(baseline, archive, made);
        if (other.seconds == 0)
            state.SkipWithError("the job of the baseline failed");
        else
            count("baseline_", other, simulated());
    }
    files::remove_all(folder);
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
