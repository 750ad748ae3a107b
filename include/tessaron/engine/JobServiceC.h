#ifndef TESSARON_ENGINE_JOBSERVICEC_H
#define TESSARON_ENGINE_JOBSERVICEC_H

// Stability: experimental.

/* The job service of <tessaron/engine/JobService.h> for hosts written in C. The same rules hold for ids, threads and
 * lifetime.
 *
 * Functions that return a text copy it, with a closing zero, into a buffer of the caller's: at most `size` bytes are
 * written, a longer text is cut at a whole UTF-8 character, and a null buffer or a size of 0 asks for no text. */

#include <tessaron/util/Export.h>

#include <stddef.h>

#ifdef __cplusplus
extern "C"
{
#endif

    /* States of a job; the values of exchange::JobState. */
    enum TessaronJobState
    {
        TESSARON_JOB_UNKNOWN = 0,
        TESSARON_JOB_RUNNING = 1,
        TESSARON_JOB_FINISHED = 2,
        TESSARON_JOB_FAILED = 3,
        TESSARON_JOB_CANCELLED = 4
    };

    /* Kinds of toolpath records; the tags that archives store. */
    enum TessaronRecordKind
    {
        TESSARON_RECORD_RAPID_MOVE = 0,
        TESSARON_RECORD_LINEAR_MOVE = 1,
        TESSARON_RECORD_ARC_1 = 2,
        TESSARON_RECORD_ARC_0 = 3,
        TESSARON_RECORD_FEED_RATE = 4,
        TESSARON_RECORD_SPINDLE_SPEED = 5,
        TESSARON_RECORD_CUSTOM = 6,
        TESSARON_RECORD_TOOL_AXIS = 7
    };

    /* One record of a toolpath. Values that the kind does not have are 0. */
    struct TessaronRecord
    {
        int kind;        /* TessaronRecordKind */
        double point[3]; /* end point of a move, direction of a tool axis */
        double radius;   /* of an arc */
        double value;    /* the feed rate or the spindle speed */
    };

    /* Starts a job from an archive file, XML or binary. Returns its id, which is positive, or a negative status code;
     * then `text` receives what is wrong. `path` must not be null. */
    TESSARON_ENGINES_API int tessaronJobStartFile(const char* path, char* text, size_t size);

    /* Starts a job from an archive in memory. `name` stands for a file name in texts and may be null. */
    TESSARON_ENGINES_API int tessaronJobStartMemory(const void* archive, size_t archiveSize, const char* name,
                                                    char* text, size_t size);

    /* The state of a job or worker job. */
    TESSARON_ENGINES_API enum TessaronJobState tessaronJobState(int jobId);

    /* The status code of a job: 0 while it runs and after success, -1004 for an unknown id. */
    TESSARON_ENGINES_API int tessaronJobStatus(int jobId);

    /* The text of a failed job, empty for any other. Returns the length of the whole text. */
    TESSARON_ENGINES_API size_t tessaronJobText(int jobId, char* text, size_t size);

    /* How many findings a finished job has: what was set and not used, and what was left out. 0 for any other. */
    TESSARON_ENGINES_API size_t tessaronJobFindingCount(int jobId);

    /* Copies the text of finding `index`, counted from 0. Returns its code, -2000 or below, or 0 when there is no such
     * finding. */
    TESSARON_ENGINES_API int tessaronJobFinding(int jobId, size_t index, char* text, size_t size);

    /* The percentage of a job, 0 to 100; -1 for an unknown id. */
    TESSARON_ENGINES_API double tessaronJobPercent(int jobId);

    /* Waits until a job has ended: `milliseconds` long, without limit when negative. Returns the state after the wait.
     */
    TESSARON_ENGINES_API enum TessaronJobState tessaronJobWait(int jobId, int milliseconds);

    /* Copies the ids of a job's worker jobs, at most `capacity` of them; returns how many there are, or -1004. */
    TESSARON_ENGINES_API int tessaronJobWorkers(int jobId, int* ids, int capacity);

    /* The number of records in the toolpath of a finished job; 0 for any other. */
    TESSARON_ENGINES_API size_t tessaronJobRecordCount(int jobId);

    /* Fills `record` with record `index`, counted from 0. Returns 1, or 0 when there is no such record. */
    TESSARON_ENGINES_API int tessaronJobRecord(int jobId, size_t index, struct TessaronRecord* record);

    /* The text of record `index` when it is a custom record, empty otherwise. Returns the length of the whole text. */
    TESSARON_ENGINES_API size_t tessaronJobRecordText(int jobId, size_t index, char* text, size_t size);

    /* Writes the toolpath of a finished job to an XML archive. Returns 0, -1004 for an unknown id, or another status
     * code; then `text` receives what is wrong. A file that could not be written is not left behind half-written. */
    TESSARON_ENGINES_API int tessaronJobSaveToolpath(int jobId, const char* path, char* text, size_t size);

    /* Asks a job to stop; returns 0 or -1004. */
    TESSARON_ENGINES_API int tessaronJobCancel(int jobId);

    /* Forgets a job, after cancelling it when it still runs; returns 0 or -1004. */
    TESSARON_ENGINES_API int tessaronJobRelease(int jobId);

#ifdef __cplusplus
}
#endif

#endif
