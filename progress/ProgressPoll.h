#ifndef PROGRESS_PROGRESSPOLL_H
#define PROGRESS_PROGRESSPOLL_H

#include "progress/ProgressStages.h"
#include <tessaron/engine/ProgressData.h>

#include <string>

namespace TessaronResources
{

/// Where a poll shows what it found: a window, or one line of it.
class ProgressView
{
public:
    virtual ~ProgressView() = default;
    /// Overall progress, 0 to 100.
    virtual void showPercent(int percent) = 0;
    virtual void showStage(const std::string& text) = 0;
};

/// Looks at a job once and shows its progress. Takes the record's mutex for each single access only.
/// \returns whether the job has ended; nothing more is shown then.
bool pollProgress(exchange::ProgressData& progress, ProgressView& view, StageScope scope, const StringSource& strings);

/// Follows an engine job with a fresh record.
boost::shared_ptr<exchange::ProgressData> progressOfJob(int jobId);

} // namespace TessaronResources

#endif
