#include "engine/jobs/ThreadGroup.h"

#include "util/platform/SignalBlock.h"

#include <system_error>
#include <utility>

namespace exchange::jobs
{

void ThreadGroup::run(std::function<void()> function)
{
    const std::lock_guard lock(m_mutex);
    if (m_closed)
        throw std::system_error(std::make_error_code(std::errc::operation_canceled), "the engine is shutting down");
    joinEnded();

    const auto done = std::make_shared<std::atomic<bool>>(false);
    m_entries.push_back({std::thread(), done});
    try
    {
        const util::SignalBlock block;
        m_entries.back().thread = std::thread(
            [done, run = std::move(function)]() mutable
            {
                run();
                run = nullptr;
                done->store(true);
            });
    }
    catch (...)
    {
        m_entries.pop_back();
        throw;
    }
}

void ThreadGroup::joinAll()
{
    std::list<Entry> entries;
    {
        const std::lock_guard lock(m_mutex);
        m_closed = true;
        entries.swap(m_entries);
    }
    for (Entry& entry : entries)
        entry.thread.join();
}

void ThreadGroup::joinEnded()
{
    for (auto it = m_entries.begin(); it != m_entries.end();)
    {
        if (it->done->load())
        {
            it->thread.join();
            it = m_entries.erase(it);
        }
        else
            ++it;
    }
}

} // namespace exchange::jobs
