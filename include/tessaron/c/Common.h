#ifndef TESSARON_C_COMMON_H
#define TESSARON_C_COMMON_H

// Stability: experimental.

/* The interface for hosts in C, and in every language that calls C: version, errors, and the rules of all headers of
 * this folder. They need a C99 compiler and nothing else.
 *
 * Results. A function that can fail returns an int: TESSARON_OK, or a status below 0. What went wrong, in words, with
 * the file and the field at fault, is in tessaronLastError(). Results are stored through pointers, the last arguments;
 * a call that fails leaves them as they were. Functions that only count return a size_t, 0 for a null handle.
 *
 * Ownership. Handles are opaque. What ...Create, ...Copy, ...Read and ...List made, the caller frees by the ...Free of
 * its kind, which takes null, too. A text handed out belongs to its handle and is valid until the handle changes or is
 * freed; a text without a handle belongs to the calling thread, until it makes the same call again. Arrays and texts
 * passed in are copied.
 *
 * Threads. Every function may be called on any thread. One handle must not be used by two threads at a time, unless
 * both only read.
 *
 * Texts are zero-terminated UTF-8. Lengths are in the host's unit, angles in radians, unless a function says otherwise.
 * Structures that begin with `size` grow in later versions: set it to sizeof the structure before the call. */

#include <tessaron/util/Export.h>

#include <stddef.h>

#define TESSARON_VERSION_MAJOR 1
#define TESSARON_VERSION_MINOR 0
#define TESSARON_VERSION_PATCH 0
/* The version of the headers as one number that can be compared. */
#define TESSARON_VERSION (TESSARON_VERSION_MAJOR * 10000 + TESSARON_VERSION_MINOR * 100 + TESSARON_VERSION_PATCH)

#ifdef __cplusplus
extern "C"
{
#endif

    /* Statuses of this interface. The others are those of <tessaron/exchange/StatusTable.h>: the engine's errors from
     * -1000 down and its warnings from -2000 down. */
    enum TessaronStatus
    {
        TESSARON_OK = 0,
        TESSARON_INTERNAL_ERROR = -1007,
        TESSARON_INVALID_ARGUMENT = -1901, /* a null pointer, or a value out of its range */
        TESSARON_NOT_FOUND = -1902,        /* nothing has that key, name or index */
        TESSARON_WRONG_KIND = -1903,       /* the key holds a value of another kind */
        TESSARON_OUT_OF_MEMORY = -1904,    /* nothing was changed */
        TESSARON_READ_ERROR = -1905,       /* a file cannot be read, or is no archive of that record */
        TESSARON_WRITE_ERROR = -1906,      /* a file cannot be written; what was there before is untouched */
        TESSARON_NOT_READY = -1907         /* the job has not ended, or ended without a toolpath */
    };

    /* How a record is stored in a file. */
    enum TessaronFormat
    {
        TESSARON_FORMAT_XML = 0,   /* text, the same on every platform */
        TESSARON_FORMAT_BINARY = 1 /* for programs of the same word size and byte order only */
    };

    /* What a failed call complained about. */
    struct TessaronError
    {
        int status;        /* what the call returned */
        const char* text;  /* what is wrong, a sentence for the user; never null */
        const char* file;  /* the path of the file at fault; empty when none is */
        const char* field; /* the parameter or argument at fault, such as "Tool Diameter"; empty when none is */
    };

    /* The last failure on the calling thread; never null. Calls that succeed leave it as it is. It is valid until the
     * next call on this thread that fails. */
    TESSARON_ENGINES_API const struct TessaronError* tessaronLastError(void);

    /* The text for a status, for the user; an empty one for 0 and for numbers that are no status. It is valid for the
     * life of the library. */
    TESSARON_ENGINES_API const char* tessaronStatusText(int status);

    /* The version of the library, as TESSARON_VERSION. */
    TESSARON_ENGINES_API int tessaronVersion(void);

    /* 1 when the library has a part of this interface, 0 when it has not: "parameters", "inputs", "toolpaths", "gcode",
     * "jobs", "templates", "calculator", "expert-data". For hosts that load the library at run time. */
    TESSARON_ENGINES_API int tessaronHasFeature(const char* name);

#ifdef __cplusplus
}
#endif

#endif
