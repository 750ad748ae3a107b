#ifndef TESTS_ENGINE_RUNNINGJOB_H
#define TESTS_ENGINE_RUNNINGJOB_H

#include <tessaron/engine/JobService.h>
#include <tessaron/exchange/Tessaron2dInput.h>

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace testing_support
{

/// Far more than any job here takes, sanitizers included; in milliseconds.
constexpr int longEnough = 240000;

/// A job that is released at the end of the scope.
class RunningJob
{
public:
    explicit RunningJob(const exchange::Tessaron2dInput& input) : m_start(exchange::startJob(input))
    {
        EXPECT_EQ(m_start.status, 0) << m_start.text;
    }
    RunningJob(const RunningJob&) = delete;
    RunningJob& operator=(const RunningJob&) = delete;
    ~RunningJob() { exchange::releaseJob(m_start.jobId); }

    int id() const { return m_start.jobId; }
    exchange::JobState wait() const { return exchange::waitForJob(id(), longEnough); }
    exchange::JobInfo info() const { return exchange::jobInfo(id()); }

private:
    exchange::JobStart m_start;
};

/// Waits for a condition; false when it does not come true in time.
template <class Condition>
bool becomesTrue(const Condition& condition)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!condition())
    {
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

} // namespace testing_support

#endif
