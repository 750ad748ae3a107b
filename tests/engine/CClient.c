#include "tests/engine/CClient.h"

#include <tessaron/engine/JobServiceC.h>

#include <string.h>

static void readRecords(int jobId, struct CClientResult* result)
{
    size_t i;
    struct TessaronRecord record;

    result->records = tessaronJobRecordCount(jobId);
    for (i = 0; i < result->records; ++i)
    {
        if (!tessaronJobRecord(jobId, i, &record))
            return;
        ++result->kinds[record.kind];
        if (record.kind == TESSARON_RECORD_LINEAR_MOVE && record.point[2] < result->lowestZ)
            result->lowestZ = record.point[2];
        if (record.kind == TESSARON_RECORD_FEED_RATE && result->firstFeed == 0.0)
            result->firstFeed = record.value;
        if (record.kind == TESSARON_RECORD_SPINDLE_SPEED)
            result->spindleSpeed = record.value;
    }
    result->recordBeyondEnd = tessaronJobRecord(jobId, result->records, &record);
}

void runCClient(const char* path, const void* archive, size_t size, const char* savePath, struct CClientResult* result)
{
    memset(result, 0, sizeof *result);
    if (path)
        result->jobId = tessaronJobStartFile(path, result->startText, sizeof result->startText);
    else
        result->jobId = tessaronJobStartMemory(archive, size, "memory", result->startText, sizeof result->startText);
    if (result->jobId <= 0)
        return;

    result->state = tessaronJobWait(result->jobId, -1);
    result->status = tessaronJobStatus(result->jobId);
    result->percent = tessaronJobPercent(result->jobId);
    result->workers = tessaronJobWorkers(result->jobId, &result->firstWorker, 1);
    result->workerState = tessaronJobState(result->firstWorker);
    readRecords(result->jobId, result);
    result->saved = tessaronJobSaveToolpath(result->jobId, savePath, result->saveText, sizeof result->saveText);
    result->released = tessaronJobRelease(result->jobId);
    result->stateAfterRelease = tessaronJobState(result->jobId);
    result->statusAfterRelease = tessaronJobStatus(result->jobId);
}
