#ifndef TESTS_C_POCKETCLIENT_H
#define TESTS_C_POCKETCLIENT_H

#include <tessaron/c/Inputs.h>

#ifdef __cplusplus
extern "C"
{
#endif

    /* Builds a pocket of 60 x 40 with a round island in a block of 100 x 80, from lines, an arc and a spline, as a host
     * in C does; null after a failure, which tessaronLastError() tells. The caller frees it. */
    TessaronInput* pocketFromC(void);

#ifdef __cplusplus
}
#endif

#endif
