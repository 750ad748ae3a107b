#include "engine/templates/ParallelFor.h"

#include "util/platform/SignalBlock.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace util::store
{

namespace
{
// Small enough that all threads end together, large enough that handing out costs nothing.
constexpr std::size_t rangeLength = 32;
constexpr std::size_t mostThreads = 16;
} // namespace

void parallelFor(std::size_t count, const std::function<void(std::size_t, std::size_t)>& work)
{
    std::atomic<std::size_t> next = 0;
    std::mutex mutex;
    std::exception_ptr failure;
    const auto run = [&]
    {
        try
        {
            for (std::size_t begin; (begin = next.fetch_add(rangeLength)) < count;)
                work(begin, std::min(begin + rangeLength, count));
        }
        catch (...)
        {
            next = count;
            const std::lock_guard lock(mutex);
            if (!failure)
                failure = std::current_exception();
        }
    };

    const std::size_t useful = count / (2 * rangeLength);
    const std::size_t threads = std::min({useful, std::size_t(std::thread::hardware_concurrency()), mostThreads});
    std::vector<std::jthread> helpers;
    try
    {
        const SignalBlock block;
        for (std::size_t i = 1; i < threads; ++i)
            helpers.emplace_back(run);
    }
    catch (const std::system_error&)
    {
        // The system gives no more threads: those that are there do the work.
    }
    run();
    helpers.clear();
    if (failure)
        std::rethrow_exception(failure);
}

} // namespace util::store
