#ifndef TESSARON_C_JOBS_H
#define TESSARON_C_JOBS_H

// Stability: experimental.

/* Toolpath jobs on the engine's threads, by job id. Ids are positive and never used twice in a process. A job is known
 * until it is released; of those that ended and were not, the 32 that ended last are kept. The workers of a job have
 * ids of their own: they can be asked and awaited, and stop with the job. Every function but tessaronJobWait returns at
 * once. An id that is not known gives -1004. */

#include <tessaron/c/Inputs.h>
#include <tessaron/c/Toolpaths.h>

#ifdef __cplusplus
extern "C"
{
#endif

    /* States of a job; the values of exchange::JobState. */
    enum TessaronJobState
    {
        TESSARON_JOB_UNKNOWN = 0,  /* never started, or released */
        TESSARON_JOB_RUNNING = 1,  /* on its way, or cancelled and not yet stopped */
        TESSARON_JOB_FINISHED = 2, /* ended with a toolpath */
        TESSARON_JOB_FAILED = 3,   /* ended without one */
        TESSARON_JOB_CANCELLED = 4 /* ended by a cancel */
    };

    /* All about a job at one moment. */
    struct TessaronJobInfo
    {
        size_t size;         /* sizeof(struct TessaronJobInfo), set by the caller */
        int state;           /* one of TessaronJobState */
        int status;          /* 0 while it runs, then 0, a warning or an error of the engine */
        double percent;      /* 0 to 100; never falls while the job runs */
        size_t workerCount;  /* how many worker jobs it has */
        size_t findingCount; /* what a finished job found: tessaronJobFinding() */
        size_t recordCount;  /* of the toolpath of a finished job; else 0 */
    };

    /* Starts a job. The input is copied and may be changed or freed at once. */
    TESSARON_ENGINES_API int tessaronJobStart(const TessaronInput* input, int* job);

    /* Fills in `info`. */
    TESSARON_ENGINES_API int tessaronJobQuery(int job, struct TessaronJobInfo* info);
    /* Why a job failed, in words for the user, and the parameter at fault; both empty for any other job. */
    TESSARON_ENGINES_API int tessaronJobFailure(int job, const char** text, const char** field);
    /* A finding of a finished job. */
    TESSARON_ENGINES_API int tessaronJobFinding(int job, size_t index, struct TessaronFinding* finding);
    /* The stage of a job or worker number `index`, counted from 0, and its value: a fraction from 0 to 1, a count or a
     * percentage, by the stage. TESSARON_NOT_FOUND when so many do not run. */
    TESSARON_ENGINES_API int tessaronJobStage(int job, size_t index, const char** stage, double* value);
    /* The id of worker job `index`, counted from 0. */
    TESSARON_ENGINES_API int tessaronJobWorker(int job, size_t index, int* worker);

    /* Waits until a job has ended: `milliseconds` long, without limit when negative. `state` receives what it is then,
     * TESSARON_JOB_RUNNING after a time-out. */
    TESSARON_ENGINES_API int tessaronJobWait(int job, int milliseconds, int* state);
    /* Has a function called, once, when a job has ended: on a thread of the engine, or at once when the job has ended
     * already. It should be short, and may call anything of this interface. */
    TESSARON_ENGINES_API int tessaronJobNotify(int job, void (*ended)(int job, void* data), void* data);
    /* Makes a file descriptor that is readable as soon as the job has ended, and stays so: for event loops, by poll().
     * The caller closes it. */
    TESSARON_ENGINES_API int tessaronJobDescriptor(int job, int* descriptor);
    /* Asks a job to stop. Does nothing to one that has ended. */
    TESSARON_ENGINES_API int tessaronJobCancel(int job);
    /* Forgets a job, after cancelling it when it still runs. Its toolpath handles stay valid. */
    TESSARON_ENGINES_API int tessaronJobRelease(int job);

    /* The toolpath of a finished job, which cannot be changed and outlives the job; TESSARON_NOT_READY for a job that
     * has none. Nothing is copied. The caller frees it. */
    TESSARON_ENGINES_API int tessaronJobToolpath(int job, TessaronToolpath** created);
    /* Copies `count` records of a finished job's toolpath from number `first` on, as tessaronToolpathRecords(). */
    TESSARON_ENGINES_API int tessaronJobRecords(int job, size_t first, size_t count, struct TessaronRecord* records);

#ifdef __cplusplus
}
#endif

#endif
