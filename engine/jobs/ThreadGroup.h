#ifndef ENGINE_JOBS_THREADGROUP_H
#define ENGINE_JOBS_THREADGROUP_H

#include <atomic>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <thread>

namespace exchange::jobs
{

/// The threads of the job service, all of which end before the library goes. They leave the process's signals to the
/// host.
class ThreadGroup
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
