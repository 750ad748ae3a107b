#ifndef TESTS_ENGINE_CCLIENT_H
#define TESTS_ENGINE_CCLIENT_H

/* What the C client found, for a test to judge. */

#include <stddef.h>

#ifdef __cplusplus
extern "C"
{
#endif

    struct CClientResult
    {
        int jobId;
        char startText[512];
        int state;
        int status;
        double percent;
        int workers;
        int firstWorker;
        int workerState;
        size_t records;
        size_t kinds[8];
        double lowestZ;
        double firstFeed;
        double spindleSpeed;
        int recordBeyondEnd;
        int saved;
        char saveText[512];
        int released;
        int stateAfterRelease;
        int statusAfterRelease;
    };

    /* Runs a job from a file, or from memory when `path` is null, through the plain C interface, saves its toolpath and
     * releases it. */
    void runCClient(const char* path, const void* archive, size_t size, const char* savePath,
                    struct CClientResult* result);

#ifdef __cplusplus
}
#endif

#endif
