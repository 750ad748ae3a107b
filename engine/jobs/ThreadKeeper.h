#ifndef ENGINE_JOBS_THREADKEEPER_H
#define ENGINE_JOBS_THREADKEEPER_H

#include <atomic>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <thread>

namespace exchange::jobs
{

/// Owns every thread of the job service, so that none outlives the library. The threads leave the process's signals to
/// the host.
class ThreadKeeper
{
public:
    /// Runs a function, which must not throw, on a thread of its own.
    /// \throws std::system_error when the system refuses another thread or after joinAll.
    void run(std::function<void()> function);
    /// Waits for all threads and refuses further ones. The threads must be on their way to an end.
    void joinAll();

private:
    struct Entry
    {
        std::thread thread;
        std::shared_ptr<std::atomic<bool>> done;
    };

    void joinEnded();

    std::mutex m_mutex;
    bool m_closed = false;
    std::list<Entry> m_entries;
};

} // namespace exchange::jobs

#endif
