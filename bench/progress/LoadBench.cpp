// What loading the module costs a host: the library itself, and for scale the libraries that it needs, each in a fresh
// process.
#include <benchmark/benchmark.h>

#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

namespace
{

double secondsToLoad(const char* path)
{
    const auto start = std::chrono::steady_clock::now();
    if (!dlopen(path, RTLD_NOW | RTLD_LOCAL))
        _exit(1);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

std::vector<std::string> neededLibraries()
{
    std::vector<std::string> names;
    FILE* const listing = popen("ldd '" TESSARON_LIBRARY "' | sed -n 's/.*=> \\([^ ]*\\) .*/\\1/p'", "r");
    char line[4096];
    while (listing && std::fgets(line, sizeof line, listing))
        names.emplace_back(line, std::string(line).find('\n'));
    if (listing)
        pclose(listing);
    return names;
}

enum class Measured
{
    dependencies,
    module,
};

double inFreshProcess(const std::vector<std::string>& needed, Measured measured)
{
    int pipeEnds[2];
    if (pipe(pipeEnds) != 0)
        return -1;
    const pid_t child = fork();
    if (child == 0)
    {
        double dependencies = 0;
        for (const std::string& name : needed)
            dependencies += secondsToLoad(name.c_str());
        const double module = secondsToLoad(TESSARON_LIBRARY);
        const double result = measured == Measured::module ? module : dependencies;
        _exit(write(pipeEnds[1], &result, sizeof result) == sizeof result ? 0 : 1);
    }
    close(pipeEnds[1]);
    double seconds = -1;
    if (read(pipeEnds[0], &seconds, sizeof seconds) != sizeof seconds)
        seconds = -1;
    close(pipeEnds[0]);
    waitpid(child, nullptr, 0);
    return seconds;
}

void load(benchmark::State& state, Measured measured)
{
    const std::vector<std::string> needed = neededLibraries();
    for ([[maybe_unused]] auto turn : state)
    {
        const double seconds = inFreshProcess(needed, measured);
        if (seconds < 0)
            state.SkipWithError("the library could not be loaded");
        state.SetIterationTime(seconds < 0 ? 1e-9 : seconds);
    }
}

BENCHMARK_CAPTURE(load, dependencies, Measured::dependencies)
    ->UseManualTime()
    ->Iterations(10)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(load, module, Measured::module)->UseManualTime()->Iterations(10)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
