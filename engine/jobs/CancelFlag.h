#ifndef ENGINE_JOBS_CANCELFLAG_H
#define ENGINE_JOBS_CANCELFLAG_H

#include <atomic>
#include <exception>

namespace exchange::jobs
{

/// Thrown through a job's code when the job was asked to stop.
class Cancelled : public std::exception
{
public:
    const char* what() const noexcept override { return "cancelled"; }
};

/// Says whether a job was asked to stop. Long computations look at it between pieces of work of a few milliseconds.
class CancelFlag
{
public:
    bool isSet() const noexcept { return m_set.load(std::memory_order_relaxed); }
    void set() noexcept { m_set.store(true, std::memory_order_relaxed); }
    /// \throws Cancelled when the flag is set.
    void check() const
    {
        if (isSet())
            throw Cancelled();
    }

private:
    std::atomic<bool> m_set{false};
};

} // namespace exchange::jobs

#endif
