#include "engine/jobs/Job.h"

#include <tessaron/exchange/StatusTable.h>

#include <algorithm>
#include <chrono>
#include <utility>

namespace exchange::jobs
{

namespace
{

void setOnly(util::Parameterized& stages, std::string_view stage, double value)
{
    double* const present = stages.findDouble(stage);
    if (present && stages.size() == 1)
    {
        *present = value;
        return;
    }
    stages.clear();
    stages.set(std::string(stage), value);
}

} // namespace

Job::Job(int id, std::string source) : m_id(id), m_source(std::move(source))
{
    m_info.state = JobState::running;
}

void Job::requestCancel()
{
    const std::lock_guard lock(m_hookMutex);
    m_cancel.set();
    if (m_cancelHook)
        m_cancelHook();
}

void Job::setCancelHook(std::function<void()> hook)
{
    const std::lock_guard lock(m_hookMutex);
    m_cancelHook = std::move(hook);
    if (m_cancelHook && m_cancel.isSet())
        m_cancelHook();
}

void Job::setStage(std::string_view stage, double value, double percent)
{
    const std::lock_guard lock(m_mutex);
    if (m_info.state != JobState::running)
        return;
    setOnly(m_info.stages, stage, value);
    m_info.percent = std::max(m_info.percent, std::min(percent, 100.0));
}

void Job::addWorkers(const std::vector<int>& ids)
{
    const std::lock_guard lock(m_mutex);
    m_info.workerIds.insert(m_info.workerIds.end(), ids.begin(), ids.end());
    m_workerStages.resize(m_info.workerIds.size());
}

void Job::setWorkerStage(int worker, std::string_view stage, double value)
{
    const std::lock_guard lock(m_mutex);
    if (m_info.state == JobState::running)
        setOnly(m_workerStages.at(static_cast<std::size_t>(worker)), stage, value);
}

template <class Change>
void Job::end(const Change& change)
{
    std::vector<std::function<void()>> calls;
    {
        const std::lock_guard lock(m_mutex);
        if (m_info.state != JobState::running)
            return;
        m_info.state = m_cancel.isSet() ? JobState::cancelled : change();
        if (m_info.state == JobState::cancelled)
            m_info.status = status::cancelled;
        m_info.stages.clear();
        for (util::Parameterized& stages : m_workerStages)
            stages.clear();
        calls.swap(m_endCalls);
        m_ended.notify_all();
    }
    for (const std::function<void()>& call : calls)
        call();
}

void Job::finish(boost::shared_ptr<const ToolpathRecords> toolpath, int code, std::vector<JobFinding> findings)
{
    end(
        [&]
        {
            m_toolpath = std::move(toolpath);
            m_info.percent = 100.0;
            m_info.findings = std::move(findings);
            m_info.status = code;
            return JobState::finished;
        });
}

void Job::fail(int code, const std::string& text, const std::string& field)
{
    end(
        [&]
        {
            if (code == status::cancelled)
                return JobState::cancelled;
            m_info.text = m_source.empty() ? text : m_source + ": " + text;
            m_info.field = field;
            m_info.status = code;
            return JobState::failed;
        });
}

void Job::onEnd(std::function<void()> call)
{
    {
        const std::lock_guard lock(m_mutex);
        if (m_info.state == JobState::running)
        {
            m_endCalls.push_back(std::move(call));
            return;
        }
    }
    call();
}

JobInfo Job::info() const
{
    const std::lock_guard lock(m_mutex);
    return m_info;
}

JobInfo Job::workerInfo(int worker) const
{
    const std::lock_guard lock(m_mutex);
    JobInfo info;
    info.state = m_info.state;
    info.status = m_info.status;
    info.percent = m_info.percent;
    info.stages = m_workerStages.at(static_cast<std::size_t>(worker));
    return info;
}

JobState Job::wait(int milliseconds) const
{
    std::unique_lock lock(m_mutex);
    const auto ended = [this] { return m_info.state != JobState::running; };
    if (milliseconds < 0)
        m_ended.wait(lock, ended);
    else
        m_ended.wait_for(lock, std::chrono::milliseconds(milliseconds), ended);
    return m_info.state;
}

boost::shared_ptr<const ToolpathRecords> Job::toolpath() const
{
    const std::lock_guard lock(m_mutex);
    return m_toolpath;
}

std::vector<int> Job::workerIds() const
{
    const std::lock_guard lock(m_mutex);
    return m_info.workerIds;
}

} // namespace exchange::jobs
