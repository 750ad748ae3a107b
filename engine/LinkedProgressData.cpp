#include <tessaron/engine/JobService.h>
#include <tessaron/engine/ProgressData.h>

#include <boost/make_shared.hpp>

namespace exchange
{

namespace
{

constexpr int noJob = -1;
constexpr int endedJob = -2;

/// Follows the job whose id was stored into it. The engine is never called with the record's mutex held.
class LinkedProgressData : public ProgressData
{
public:
    void refresh() override
    {
        const int id = linkedJob();
        if (id == noJob)
            return;
        const JobInfo info = jobInfo(id);

        const boost::mutex::scoped_lock lock(mutex);
        // The host may have linked the record to another job meanwhile.
        if (m_linked != id || (jobId != id && jobId != endedJob))
            return;
        stages = info.stages;
        if (info.state == JobState::running)
        {
            percent = info.percent;
            return;
        }
        percent = -1.0;
        jobId = endedJob;
    }

    void requestCancel() override { cancelJob(linkedJob()); }

    void getSubJobIds(std::vector<int>& ids) override { ids = jobInfo(linkedJob()).workerIds; }

private:
    /// The job that the record follows: also after its end, when jobId no longer names it.
    int linkedJob()
    {
        const boost::mutex::scoped_lock lock(mutex);
        if (jobId >= noJob)
            m_linked = jobId;
        return m_linked;
    }

    int m_linked = noJob;
};

} // namespace

boost::shared_ptr<ProgressData> createLocallyLinkedProgressData()
{
    return boost::make_shared<LinkedProgressData>();
}

} // namespace exchange
