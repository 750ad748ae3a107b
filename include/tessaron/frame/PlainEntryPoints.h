#ifndef TESSARON_FRAME_PLAINENTRYPOINTS_H
#define TESSARON_FRAME_PLAINENTRYPOINTS_H

// Stability: stable.

/*
 * The entry points of the module that are exported under their bare names, for callers that cannot use the namespaced
 * ones: C, and everything that calls C. Call them from the user-interface thread.
 *
 * Texts are zero-terminated UTF-8. See <tessaron/frame/EntryPoints.h> for what every entry point promises.
 */

#include <tessaron/util/Export.h>

#ifdef __cplusplus
extern "C"
{
#else
#include <stdbool.h>
#endif

    /*
     * Shows a progress window for an engine job (milling look, or turning look) until the job has ended or the user
     * cancels. jobId: the engine's job id. caption: the window title; null for none. Returns 1 when the job ended by
     * itself (also for an unknown job), 2 when the user cancelled it.
     */
    TESSARON_RESOURCES_API int displayProgressDialogForJobId(int jobId, const char* caption);
    TESSARON_RESOURCES_API int displayOrrimantProgressDialogForJobId(int jobId, const char* caption);

    /*
     * Shows a progress window with a line for each worker of an engine job until the job has ended. Cancel asks the
     * engine to stop; the window stays until the job has ended, and the result is 1 then, too.
     */
    TESSARON_RESOURCES_API int displayMultiProgressDialogForJobId(int jobId);
    TESSARON_RESOURCES_API int displayOrrimantMultiProgressDialogForJobId(int jobId);

    /*
     * Shows the active chip thickness control dialog. Its outputs are written only when the user applies.
     * kind: the operation kind in the upper 16 bits. toolDiameter, depthOfCut, stepover: in inches, or millimetres when
     * metric. spindleSpeed in revolutions per minute, feedrate in inches or millimetres per minute. Returns 0
     * when applied and 1 otherwise, also when a pointer is null.
     */
    TESSARON_RESOURCES_API int displayChipControlDialogEx(int kind, double toolDiameter, double depthOfCut,
                                                          int numFlutes, int* spindleSpeed, double* feedrate,
                                                          double* stepover, bool metric);

    /*
     * Tells a window of the module that is up to end, as a quit message would, for hosts whose event loop the module
     * cannot see (neither the toolkit's nor GTK's). The call that shows it returns at once: the progress calls with 1,
     * modal dialogs with 2, the template manager with 0. With calls inside one another all of them end. Without any,
     * the next call ends. May be called from any thread. It also ends a progress call that runs without a window: where
     * there is no display, nobody else can end one that watches a job of the host's own.
     */
    TESSARON_RESOURCES_API void tessaronResourcesQuit(void);

#ifdef __cplusplus
}
#endif

#endif
