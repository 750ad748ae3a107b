#include "progress/ProgressPoll.h"

#include <boost/thread/locks.hpp>

namespace TessaronResources
{

namespace
{

constexpr int lowestRunningJobId = -1;

template <class Value>
Value readLocked(exchange::ProgressData& progress, Value exchange::ProgressData::*field)
{
    const boost::unique_lock<boost::mutex> lock(progress.mutex);
    return progress.*field;
}

} // namespace

bool pollProgress(exchange::ProgressData& progress, ProgressView& view, StageScope scope, const StringSource& strings)
{
    progress.refresh();
    if (readLocked(progress, &exchange::ProgressData::percent) < 0.0)
        return true;
    if (readLocked(progress, &exchange::ProgressData::jobId) < lowestRunningJobId)
        return true;
    view.showPercent(truncated(readLocked(progress, &exchange::ProgressData::percent)));
    const util::Parameterized stages = readLocked(progress, &exchange::ProgressData::stages);
    if (!stages.empty())
        view.showStage(stageText(stages, scope, strings));
    return false;
}

boost::shared_ptr<exchange::ProgressData> progressOfJob(int jobId)
{
    boost::shared_ptr<exchange::ProgressData> progress = exchange::createLocallyLinkedProgressData();
    const boost::unique_lock<boost::mutex> lock(progress->mutex);
    progress->jobId = jobId;
    // Such a record waits for a job. Nobody but us has this one, so none will come.
    if (jobId == lowestRunningJobId)
        progress->percent = -1.0;
    return progress;
}

} // namespace TessaronResources
