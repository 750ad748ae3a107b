/* A host in C: what it needs are two headers and two libraries. */
#include <tessaron/engine/JobServiceC.h>
#include <tessaron/frame/PlainEntryPoints.h>

#include <stdio.h>

int main(int count, char** arguments)
{
    char text[512] = "";
    struct TessaronRecord record;
    int job, result;
    if (count != 2)
        return 2;
    job = tessaronJobStartFile(arguments[1], text, sizeof text);
    if (job <= 0)
    {
        fprintf(stderr, "%s\n", text);
        return 1;
    }
    result = displayMultiProgressDialogForJobId(job);
    if (result != 1 || tessaronJobWait(job, 60000) != TESSARON_JOB_FINISHED)
    {
        fprintf(stderr, "The job did not finish: %d, state %d\n", result, (int)tessaronJobState(job));
        return 1;
    }
    if (tessaronJobRecordCount(job) == 0 || !tessaronJobRecord(job, 0, &record) ||
        tessaronJobRecord(job, tessaronJobRecordCount(job), &record))
    {
        fprintf(stderr, "There is no toolpath to read\n");
        return 1;
    }
    return tessaronJobRelease(job);
}
