#ifndef TESTS_PROGRESS_SCRIPTEDPROGRESS_H
#define TESTS_PROGRESS_SCRIPTEDPROGRESS_H

#include <tessaron/engine/ProgressData.h>

#include <boost/thread/locks.hpp>

#include <functional>
#include <utility>
#include <vector>

namespace testing_support
{

/// A progress record that a test plays the engine for.
class ScriptedProgress : public exchange::ProgressData
{
public:
    void refresh() override
    {
        ++m_polls;
        if (m_onRefresh)
            m_onRefresh(m_polls);
    }
    void requestCancel() override
    {
        // The module must not hold the record's lock when it calls the engine.
        m_lockFreeAtCancel = mutex.try_lock();
        if (m_lockFreeAtCancel)
            mutex.unlock();
        ++m_cancelRequests;
    }
    void getSubJobIds(std::vector<int>& ids) override { ids = m_workers; }

    void report(double overall, util::Parameterized running = {})
    {
        const boost::unique_lock<boost::mutex> lock(mutex);
        percent = overall;
        stages = std::move(running);
    }

    int m_polls = 0;
    int m_cancelRequests = 0;
    bool m_lockFreeAtCancel = false;
    std::vector<int> m_workers;
    std::function<void(int poll)> m_onRefresh;
};

inline util::Parameterized stageSet(std::initializer_list<std::pair<const char*, double>> entries)
{
    util::Parameterized stages;
    for (const auto& [name, value] : entries)
        stages.set(name, value);
    return stages;
}

} // namespace testing_support

#endif
