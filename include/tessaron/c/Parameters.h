#ifndef TESSARON_C_PARAMETERS_H
#define TESSARON_C_PARAMETERS_H

// Stability: experimental.

/* Parameter sets: named values that describe an operation or a template. Keys are compared byte by byte, each occurs at
 * most once; the keys in use, with their units, are those of <tessaron/util/Keys.h> and docs/engine-jobs.md. */

#include <tessaron/c/Common.h>

#ifdef __cplusplus
extern "C"
{
#endif

    typedef struct TessaronParameters TessaronParameters;

    /* Kinds of values. */
    enum TessaronValueKind
    {
        TESSARON_VALUE_NONE = 0, /* there is no such key */
        TESSARON_VALUE_INT = 1,
        TESSARON_VALUE_DOUBLE = 2,
        TESSARON_VALUE_TEXT = 3
    };

    /* Makes an empty set, or a copy of one. */
    TESSARON_ENGINES_API int tessaronParametersCreate(TessaronParameters** created);
    TESSARON_ENGINES_API int tessaronParametersCopy(const TessaronParameters* parameters, TessaronParameters** copy);
    /* Frees a set. Does nothing to one that belongs to another handle. */
    TESSARON_ENGINES_API void tessaronParametersFree(TessaronParameters* parameters);

    /* Stores a value under a key, in the place of one that is there, whatever its kind. Keys must not be empty. */
    TESSARON_ENGINES_API int tessaronParametersSetInt(TessaronParameters* parameters, const char* key, int value);
    TESSARON_ENGINES_API int tessaronParametersSetDouble(TessaronParameters* parameters, const char* key, double value);
    TESSARON_ENGINES_API int tessaronParametersSetText(TessaronParameters* parameters, const char* key,
                                                       const char* value);
    /* Removes a key; TESSARON_NOT_FOUND when it is absent. */
    TESSARON_ENGINES_API int tessaronParametersErase(TessaronParameters* parameters, const char* key);

    /* The value under a key: TESSARON_NOT_FOUND when it is absent, TESSARON_WRONG_KIND when it is of another kind. An
     * integer is read as a double, too. */
    TESSARON_ENGINES_API int tessaronParametersGetInt(const TessaronParameters* parameters, const char* key,
                                                      int* value);
    TESSARON_ENGINES_API int tessaronParametersGetDouble(const TessaronParameters* parameters, const char* key,
                                                         double* value);
    TESSARON_ENGINES_API int tessaronParametersGetText(const TessaronParameters* parameters, const char* key,
                                                       const char** value);
    /* The kind of value under a key, one of TessaronValueKind. */
    TESSARON_ENGINES_API int tessaronParametersKind(const TessaronParameters* parameters, const char* key, int* kind);

    /* How many values the set has. */
    TESSARON_ENGINES_API size_t tessaronParametersCount(const TessaronParameters* parameters);
    /* The key that follows `key` in byte order, the first one for null; TESSARON_NOT_FOUND behind the last. */
    TESSARON_ENGINES_API int tessaronParametersNext(const TessaronParameters* parameters, const char* key,
                                                    const char** next);

    /* Reads a set from an archive file, and writes one. */
    TESSARON_ENGINES_API int tessaronParametersRead(const char* path, TessaronParameters** created);
    TESSARON_ENGINES_API int tessaronParametersWrite(const TessaronParameters* parameters, const char* path,
                                                     int format);

#ifdef __cplusplus
}
#endif

#endif
