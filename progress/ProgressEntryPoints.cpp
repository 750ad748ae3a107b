#include "frame/Toolkit.h"
#include "progress/ProgressControls.h"
#include "progress/ProgressLoop.h"
#include "progress/ProgressPoll.h"
#include <tessaron/engine/ProgressData.h>
#include <tessaron/frame/EntryPoints.h>
#include <tessaron/progress/MultiProgressDialog.h>
#include <tessaron/progress/ProgressDialog.h>

#include <boost/make_shared.hpp>

namespace TessaronResources
{

namespace
{

constexpr int finished = 1;
constexpr int cancelledByUser = 2;

// Destroys the window on every way out; the dialog deletes itself with it.
struct DestroyDialog
{
    void operator()(DialogBase* dialog) const { dialog->DestroyWindow(); }
};

// Without a display nobody can cancel.
int runWithoutWindow(exchange::ProgressData& progress)
{
    const bool cancelled = false;
    ProgressControls nowhere(nullptr, nullptr);
    runProgressLoop(cancelled, [&] { return pollProgress(progress, nowhere, StageScope::job, currentString); });
    return finished;
}

template <class Dialog, class... Arguments>
int runProgressDialog(AFX_MODULE_STATE* state, exchange::ProgressData* progress, Arguments... arguments)
{
    const EntryScope scope(state);
    if (scope.isRefused())
        return cancelledByUser;
    if (!progress)
        return finished;
    if (!toolkitRunning())
        return runWithoutWindow(*progress);
    const auto cancelled = boost::make_shared<bool>(false);
    {
        const std::unique_ptr<Dialog, DestroyDialog> dialog(new Dialog(arguments..., cancelled, nullptr));
        dialog->makeWindow();
        dialog->doProgressLoop();
    }
    return *cancelled ? cancelledByUser : finished;
}

} // namespace

int displayProgressDialog(boost::shared_ptr<exchange::ProgressData>& progress, const char* caption)
{
    return runProgressDialog<ProgressDialog>(storedModuleState(), progress.get(), progressTemplates::milling, caption,
                                             progress);
}

int displayOrrimantProgressDialog(boost::shared_ptr<exchange::ProgressData>& progress, const char* caption)
{
    return runProgressDialog<ProgressDialog>(storedModuleState(), progress.get(), progressTemplates::turning, caption,
                                             progress);
}

int displayMultiProgressDialog(boost::shared_ptr<exchange::ProgressData>& progress)
{
    return runProgressDialog<MultiProgressDialog>(staticModuleState(), progress.get(), progressTemplates::multiMilling,
                                                  progress);
}

int displayOrrimantMultiProgressDialog(boost::shared_ptr<exchange::ProgressData>& progress)
{
    return runProgressDialog<MultiProgressDialog>(staticModuleState(), progress.get(), progressTemplates::multiTurning,
                                                  progress);
}

} // namespace TessaronResources

int displayProgressDialogForJobId(int jobId, const char* caption)
{
    boost::shared_ptr<exchange::ProgressData> progress = TessaronResources::progressOfJob(jobId);
    return TessaronResources::displayProgressDialog(progress, caption);
}

int displayOrrimantProgressDialogForJobId(int jobId, const char* caption)
{
    boost::shared_ptr<exchange::ProgressData> progress = TessaronResources::progressOfJob(jobId);
    return TessaronResources::displayOrrimantProgressDialog(progress, caption);
}

int displayMultiProgressDialogForJobId(int jobId)
{
    boost::shared_ptr<exchange::ProgressData> progress = TessaronResources::progressOfJob(jobId);
    return TessaronResources::displayMultiProgressDialog(progress);
}

int displayOrrimantMultiProgressDialogForJobId(int jobId)
{
    boost::shared_ptr<exchange::ProgressData> progress = TessaronResources::progressOfJob(jobId);
    return TessaronResources::displayOrrimantMultiProgressDialog(progress);
}
