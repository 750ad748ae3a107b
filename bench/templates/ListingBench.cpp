// Listing a template folder: for the first time in the process, with and without the files in the system's cache; again
// when nothing has changed; and again when one file has.

#include "bench/templates/SampleTemplates.h"
#include "engine/templates/TemplateFile.h"
#include "tests/support/TemporaryFolder.h"
#include <tessaron/engine/TemplateStore.h>

#include <benchmark/benchmark.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <memory>
#include <thread>

#include <fcntl.h>
#include <unistd.h>

namespace
{

namespace store = util::store;

/// Files just changed are read again until their time stamps can be told apart.
void waitUntilSettled()
{
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
}

/// A folder of so many templates, made once in the run.
const TemporaryFolder& folderOf(int count)
{
    static std::map<int, std::unique_ptr<TemporaryFolder>> folders;
    std::unique_ptr<TemporaryFolder>& folder = folders[count];
    if (!folder)
    {
        folder = std::make_unique<TemporaryFolder>();
        std::mt19937 random(5);
        for (int i = 0; i < count; ++i)
        {
            std::string bytes;
            store::writeSet(sampleTemplate(i, random), bytes);
            writeBytes(*folder / ("TESSARON" + std::to_string(i) + ".vtmpl"), bytes);
        }
        ::sync();
        waitUntilSettled();
    }
    return *folder;
}

void list(benchmark::State& state, const TemporaryFolder& folder, std::size_t count)
{
    std::vector<util::Parameterized> templates;
    if (util::loadTemplateFiles(folder.path(), 0, &templates) != 0 || templates.size() != count)
        state.SkipWithError("the listing is wrong");
    benchmark::DoNotOptimize(templates.data());
    // Freeing the result is the caller's time.
    state.PauseTiming();
    templates = {};
    state.ResumeTiming();
}

/// Has every file look changed, so that all have to be read.
void renewStamps(const TemporaryFolder& folder)
{
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
        std::filesystem::permissions(entry.path(), entry.status().permissions());
}

void dropFromSystemCache(const TemporaryFolder& folder)
{
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
    {
        const int file = ::open(entry.path().c_str(), O_RDONLY | O_CLOEXEC);
        ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
        ::close(file);
    }
}

void firstListing(benchmark::State& state)
{
    const TemporaryFolder& folder = folderOf(static_cast<int>(state.range(0)));
    for ([[maybe_unused]] auto turn : state)
    {
        state.PauseTiming();
        renewStamps(folder);
        state.ResumeTiming();
        list(state, folder, static_cast<std::size_t>(state.range(0)));
    }
    waitUntilSettled();
}

void firstListingFromDisk(benchmark::State& state)
{
    const TemporaryFolder& folder = folderOf(static_cast<int>(state.range(0)));
    for ([[maybe_unused]] auto turn : state)
    {
        state.PauseTiming();
        renewStamps(folder);
        dropFromSystemCache(folder);
        state.ResumeTiming();
        list(state, folder, static_cast<std::size_t>(state.range(0)));
    }
    waitUntilSettled();
}

void unchangedListing(benchmark::State& state)
{
    const TemporaryFolder& folder = folderOf(static_cast<int>(state.range(0)));
    std::vector<util::Parameterized> templates;
    util::loadTemplateFiles(folder.path(), 0, &templates);
    templates = {};
    for ([[maybe_unused]] auto turn : state)
        list(state, folder, static_cast<std::size_t>(state.range(0)));
}

void listingAfterOneSave(benchmark::State& state)
{
    const TemporaryFolder& folder = folderOf(static_cast<int>(state.range(0)));
    std::vector<util::Parameterized> templates;
    util::loadTemplateFiles(folder.path(), 0, &templates);
    for ([[maybe_unused]] auto turn : state)
    {
        state.PauseTiming();
        std::mt19937 random(6);
        util::Parameterized set = sampleTemplate(7, random);
        util::saveTemplateFile(folder / "TESSARON7", false, &set);
        state.ResumeTiming();
        list(state, folder, static_cast<std::size_t>(state.range(0)));
    }
}

void savingOne(benchmark::State& state)
{
    const TemporaryFolder& folder = folderOf(static_cast<int>(state.range(0)));
    std::mt19937 random(6);
    util::Parameterized set = sampleTemplate(7, random);
    for ([[maybe_unused]] auto turn : state)
        util::saveTemplateFile(folder / "TESSARON7", false, &set);
}

void readingOneSet(benchmark::State& state)
{
    std::mt19937 random(6);
    std::string bytes;
    store::writeSet(sampleTemplate(7, random), bytes);
    for ([[maybe_unused]] auto turn : state)
    {
        util::Parameterized set;
        benchmark::DoNotOptimize(store::readSet(bytes, set));
    }
    state.counters["bytes"] = static_cast<double>(bytes.size());
}

#define SIZES Arg(100)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime()
BENCHMARK(firstListing)->SIZES;
BENCHMARK(firstListingFromDisk)->SIZES;
BENCHMARK(unchangedListing)->SIZES;
BENCHMARK(listingAfterOneSave)->SIZES;
BENCHMARK(savingOne)->SIZES;
BENCHMARK(readingOneSet);

} // namespace

BENCHMARK_MAIN();
