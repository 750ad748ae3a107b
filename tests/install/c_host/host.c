/* A host in C: reads a part, cuts it while a window shows the progress, and adds up the length of the cuts. */
#include <tessaron/c/Jobs.h>
#include <tessaron/frame/PlainEntryPoints.h>

#include <math.h>
#include <stdio.h>
#include <stdlib.h>

static int complain(const char* doing)
{
    const struct TessaronError* error = tessaronLastError();
    fprintf(stderr, "%s: %s (status %d, field '%s')\n", doing, error->text, error->status, error->field);
    return 1;
}

static double cutLength(const struct TessaronRecord* records, size_t count)
{
    double length = 0, at[3] = {0, 0, 0};
    size_t i;
    for (i = 0; i < count; ++i)
    {
        const struct TessaronRecord* to = &records[i];
        if (to->kind > TESSARON_RECORD_ARC_0)
            continue;
        if (to->kind == TESSARON_RECORD_LINEAR_MOVE)
            length += sqrt(pow(to->x - at[0], 2) + pow(to->y - at[1], 2) + pow(to->z - at[2], 2));
        at[0] = to->x;
        at[1] = to->y;
        at[2] = to->z;
    }
    return length;
}

static int showToolpath(int job)
{
    struct TessaronJobInfo info = {sizeof info, 0, 0, 0, 0, 0, 0};
    struct TessaronRecord* records;
    int status;
    if (tessaronJobQuery(job, &info) != TESSARON_OK || info.recordCount == 0)
        return complain("There is no toolpath");
    records = malloc(info.recordCount * sizeof *records);
    if (!records)
        return 1;
    status = tessaronJobRecords(job, 0, info.recordCount, records);
    if (status == TESSARON_OK)
        printf("%lu records, %.0f of straight cuts\n", (unsigned long)info.recordCount,
               cutLength(records, info.recordCount));
    free(records);
    return status == TESSARON_OK ? 0 : complain("Reading the toolpath");
}

int main(int count, char** arguments)
{
    TessaronInput* input = NULL;
    int job = 0, state = TESSARON_JOB_UNKNOWN, result;
    if (count != 2)
        return 2;
    if (tessaronInputRead(arguments[1], &input) != TESSARON_OK)
        return complain("Reading the part");
    result = tessaronJobStart(input, &job);
    tessaronInputFree(input);
    if (result != TESSARON_OK)
        return complain("Starting the job");
    result = displayMultiProgressDialogForJobId(job);
    if (result != 1 || tessaronJobWait(job, 60000, &state) != TESSARON_OK || state != TESSARON_JOB_FINISHED)
    {
        fprintf(stderr, "The job did not finish: %d, state %d\n", result, state);
        return 1;
    }
    result = showToolpath(job);
    return tessaronJobRelease(job) == TESSARON_OK ? result : 1;
}
