#ifndef TESSARON_ENGINE_PROGRESSDATA_H
#define TESSARON_ENGINE_PROGRESSDATA_H

// Stability: stable.

#include <tessaron/util/Export.h>
#include <tessaron/util/Parameterized.h>

#include <boost/shared_ptr.hpp>
#include <boost/thread/mutex.hpp>

#include <vector>

namespace exchange
{

/// The progress record of an engine job. Worker threads write the fields, a progress window reads them; both take
/// `mutex` for each single access and call no operation of the record while they hold it.
///
/// Records are always held by boost::shared_ptr. The order of the virtual operations is part of the interface.
class TESSARON_ENGINES_API ProgressData
{
public:
    ProgressData();
    ProgressData(const ProgressData&) = delete;
    ProgressData& operator=(const ProgressData&) = delete;

    virtual ~ProgressData();
    /// Brings the fields up to date with the job that `jobId` names. Called at the start of every poll.
    /// The base record is written by its owner and does nothing here.
    virtual void refresh();
    /// Asks the engine to stop the job; returns at once, the job ends later. Does nothing in the base record.
    virtual void requestCancel();
    /// Replaces the contents of `ids` by the ids of the job's worker jobs, in worker order; none in the base record.
    virtual void getSubJobIds(std::vector<int>& ids);

    /// The engine job that the record follows; -1 when there is none. Below -1: the job has ended.
    int jobId = -1;
    /// Overall progress in percent, 0 to 100. Negative: the job has ended.
    double percent = 0.0;
    /// Guards jobId, percent and stages. Not recursive.
    boost::mutex mutex;
    /// One entry for each running stage: the key is a stage name (util::keys::stage...), the value a double, which is a
    /// fraction from 0 to 1, a count or a percentage, depending on the stage.
    util::Parameterized stages;
};

/// A new record linked to this process's engine. Store the id of a job or of a worker job into `jobId` under the lock;
/// from then on refresh() pulls the state of that job and requestCancel() stops it. For an id that the engine does not
/// know, refresh() reports an ended job.
TESSARON_ENGINES_API boost::shared_ptr<ProgressData> createLocallyLinkedProgressData();

} // namespace exchange

namespace util
{

/// Suspends the calling thread for a number of milliseconds; returns at once for 0 and below.
TESSARON_ENGINES_API void msleep(int milliseconds);

} // namespace util

#endif
