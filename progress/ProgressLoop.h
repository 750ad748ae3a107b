#ifndef PROGRESS_PROGRESSLOOP_H
#define PROGRESS_PROGRESSLOOP_H

#include <functional>

namespace TessaronResources
{

/// Keeps the user interface alive and polls a job every 50 ms, until `cancelled` is true, the poll says that the job
/// has ended, or a quit message comes, which is handed on. It never blocks by itself; the pace comes from the idle
/// handler of the current module state's application object.
/// \param poll looks at the job; returns whether it has ended
void runProgressLoop(const bool& cancelled, const std::function<bool()>& poll);

} // namespace TessaronResources

#endif
