#include "host/JobRunner.h"

#include <tessaron/exchange/StatusTable.h>

#include <chrono>
#include <utility>

namespace host
{

JobOutcome JobRunner::run(const exchange::Tessaron2dInput& input, const ShowProgress& showProgress)
{
    const auto begin = std::chrono::steady_clock::now();
    JobOutcome outcome;
    const exchange::JobStart start = exchange::startJob(input);
    if (start.jobId == 0)
    {
        outcome.state = exchange::JobState::failed;
        outcome.text = start.text.empty() ? exchange::statusText(start.status) : start.text;
        return outcome;
    }
    // The engine must not be left with a job that nobody can release, whatever happens.
    struct Release
    {
        int& jobId;
        ~Release()
        {
            exchange::releaseJob(jobId);
            jobId = 0;
        }
    } const release{m_jobId};
    m_jobId = start.jobId;
    outcome.progressResult = showProgress(m_jobId);
    // The progress is over, so either the job is, or the user has turned away from it.
    if (exchange::waitForJob(m_jobId, 0) == exchange::JobState::running)
    {
        exchange::cancelJob(m_jobId);
        exchange::waitForJob(m_jobId, -1);
    }
    exchange::JobInfo info = exchange::jobInfo(m_jobId);
    outcome.state = info.state;
    outcome.text = info.text.empty() ? exchange::statusText(info.status) : info.text;
    outcome.toolpath = exchange::jobToolpath(m_jobId);
    outcome.findings = std::move(info.findings);
    outcome.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    return outcome;
}

void JobRunner::cancel()
{
    if (m_jobId != 0)
        exchange::cancelJob(m_jobId);
}

} // namespace host
